// SPDX-License-Identifier: GPL-3.0-or-later
#include "device_values.h"

#include "sequence_values.h"
#include "values.h"

namespace orb {

void DeviceValues::report(const char* message) const
{
    dialogs_.message(QString::fromLatin1(message));
}

QString DeviceValues::wordOr(const std::optional<QString>& word, const char* message) const
{
    if (!word)
        report(message);
    return word.value_or(QString());
}

QString DeviceValues::ByteToLoadModule(quint8 code) const
{
    return wordOr(loadModuleWord(code), "Load Module Error");
}

QString DeviceValues::ByteToLoadMode(quint8 code) const
{
    return wordOr(loadModeWord(code), "Load Mode Error");
}

QString DeviceValues::ByteToLoadRange(quint8 code) const
{
    return wordOr(loadRangeWord(code), "Load Range Error");
}

QString DeviceValues::ByteToLoadVrange(quint8 code)
{
    return loadVrangeWord(code);
}

QString DeviceValues::ByteToSeqTimeBase(int code) const
{
    const std::optional<double> seconds = timeBaseSeconds(code);
    return wordOr(seconds ? std::optional(text(*seconds)) : std::nullopt, "SEQ TimeBase Undefined");
}

/// `message` is for a range that the module does not have.
template <typename Scale>
Scale DeviceValues::scaleOr(std::optional<Scale> (*scale)(const QString&, const QString&), const char* message) const
{
    const std::optional<Scale> known = scale(sLoadModule, sLoadRange);
    if (sLoadMode != QLatin1String("CC"))
        report("Sequence Edit for CC Mode only");
    else if (!hasScales(sLoadModule))
        report("Load Module Not supported");
    else if (!known)
        report(message);
    else
        return *known;
    return 0;
}

float DeviceValues::GetValueScale() const
{
    return scaleOr(valueScale, "Range Not supported");
}

double DeviceValues::GetSWValueScale() const
{
    return scaleOr(slewScale, "SlewRateRange Not supported");
}

} // namespace orb
