// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

namespace orb {

/// A window of the program. The controls that stand on it reach page logic through its run.
class Form : public Control<QWidget> {
public:
    /// The form became the active window.
    std::function<void()> onActivate;
    /// The operator closed the form by its frame; the form is hidden after it.
    std::function<void()> onUnload;
    /// The form has another size now.
    std::function<void()> onResize;

    /// `run` must outlive the form.
    explicit Form(Run& run, QWidget* parent = nullptr);

    Run& run() const { return run_; }

    QString caption() const { return windowTitle(); }
    void setCaption(const QString& caption) { setWindowTitle(caption); }

    /// Shows the form and returns once it is hidden or closed; the other forms take no input meanwhile.
    void showModal();

    void setWidthTwips(int width) { resize(pixels(width), height()); }
    void setHeightTwips(int height) { resize(width(), pixels(height)); }

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Run& run_;
};

} // namespace orb
