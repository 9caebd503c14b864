// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>

#include <functional>

namespace orb {

/// A file dialog that stays open, with the name that was typed, while `refuse` returns true for that name: it has then
/// said why. Where the system brings its own dialog, which is closed by then, nothing is asked here.
class SaveDialog final : public QFileDialog {
public:
    SaveDialog(QWidget* parent, std::function<bool(const QString& path)> refuse);

protected:
    void accept() override;

private:
    bool isFolderToEnter(const QString& typed) const;

    std::function<bool(const QString& path)> refuse_;
};

} // namespace orb
