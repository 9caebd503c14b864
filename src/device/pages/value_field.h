// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "channel_readout.h"
#include "text_box.h"

namespace orb {

/// A set value that is edited in place. Enter confirms an edit; Escape takes it back, and so does leaving the field.
/// The arrow keys up and down step the digit under the cursor.
class ValueField final : public TextBox {
public:
    /// The operator confirmed a value that is within the limits.
    std::function<void(double value)> onConfirm;
    /// An edit began or ended, or a value was refused.
    std::function<void()> onEdit;

    ValueField();

    /// Shows a value unless an edit is under way. An edit is taken back where the unit or the limits are no longer
    /// those for which it was begun.
    void display(const std::optional<double>& value, const std::optional<SetLimits>& limits, const QString& unit);

    bool isEdited() const { return isEdited_; }
    /// Why the value was refused, in words; empty where none was.
    const QString& refusal() const { return refusal_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void confirm();
    void takeBack();
    void edited();
    void refuse(const QString& why);
    void showState();
    void showGround();
    void stepDigit(int by);
    qsizetype digitUnderCursor() const;
    std::optional<double> value() const;
    QString whyNot(double value) const;

    std::optional<SetLimits> limits_;
    QString unit_;
    QString shown_; // what an edit is taken back to
    QString refusal_;
    bool isEdited_ = false;
};

/// A number with as many decimals as its range makes sensible, seven characters at most for any load.
QString numberText(double value, double range);

/// "At least 0.05 Ω", "At most 20 A", empty for a value within the limits.
QString outsideText(double value, const SetLimits& limits, const QString& unit);

} // namespace orb
