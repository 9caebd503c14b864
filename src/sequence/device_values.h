// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs.h"

namespace orb {

/// The words and scales of the raw values of a sequence file. A value without a meaning is reported in a message box, and
/// then the empty text or 0 stands for it.
class DeviceValues {
public:
    /// `dialogs` must outlive the object.
    explicit DeviceValues(Dialogs& dialogs) : dialogs_(dialogs) {}

    /// The words of the sequence that was read last. The two scales are those of this module, mode and range.
    QString sLoadModule;
    QString sLoadMode;
    QString sLoadRange;

    QString ByteToLoadModule(quint8 code) const;
    QString ByteToLoadMode(quint8 code) const;
    QString ByteToLoadRange(quint8 code) const;
    /// "High 80V" for 1, "Low 16V" for any other code.
    static QString ByteToLoadVrange(quint8 code);
    /// The seconds of one time step as text, from "0.000001" to "1".
    QString ByteToSeqTimeBase(int code) const;

    /// Amperes of one raw step of current.
    float GetValueScale() const;
    /// Slew rate of one raw step.
    double GetSWValueScale() const;

private:
    QString wordOr(const std::optional<QString>& word, const char* message) const;
    template <typename Scale>
    Scale scaleOr(std::optional<Scale> (*scale)(const QString&, const QString&), const char* message) const;
    void report(const char* message) const;

    Dialogs& dialogs_;
};

} // namespace orb
