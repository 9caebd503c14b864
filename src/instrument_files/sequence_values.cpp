// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_values.h"

#include <algorithm>
#include <array>

namespace orb {

namespace {

struct RangeScales {
    const char* module;
    const char* range;
    float value;
    double slew;
};

// K12A has no low range. K11AB, K15, K16 and K17 have no scales.
constexpr std::array<RangeScales, 9> scales{{
    {"K11", "High", 0.005F, 0.0032},
    {"K11", "Low", 0.0005F, 0.00032},
    {"K12A", "High", 0.001F, 0.0008},
    {"K12B", "High", 0.01F, 0.0064},
    {"K12B", "Low", 0.001F, 0.00064},
    {"K13", "High", 0.01F, 0.01},
    {"K13", "Low", 0.001F, 0.001},
    {"K14", "High", 0.002F, 0.0016},
    {"K14", "Low", 0.0002F, 0.00016},
}};

const RangeScales* scalesOf(const QString& module, const QString& range)
{
    const auto* found = std::ranges::find_if(scales, [&](const RangeScales& row) {
        return module == QLatin1String(row.module) && range == QLatin1String(row.range);
    });
    return found == scales.end() ? nullptr : found;
}

std::optional<QString> wordOf(const QStringList& words, int code)
{
    if (code < 0 || code >= words.size())
        return std::nullopt;
    return words[code];
}

} // namespace

const QStringList& loadModuleWords()
{
    // K12B is the last one. "K11" has no code.
    static const QStringList words{QStringLiteral("K11AB"), QStringLiteral("K12A"), QStringLiteral("K13"),
                                   QStringLiteral("K14"),   QStringLiteral("K15"),  QStringLiteral("K16"),
                                   QStringLiteral("K17"),   QStringLiteral("K12B")};
    return words;
}

const QStringList& loadModeWords()
{
    static const QStringList words{QStringLiteral("CC"), QStringLiteral("CR"), QStringLiteral("CV")};
    return words;
}

const QStringList& loadRangeWords()
{
    static const QStringList words{QStringLiteral("Low"), QStringLiteral("High")};
    return words;
}

std::optional<QString> loadModuleWord(int code)
{
    return wordOf(loadModuleWords(), code);
}

std::optional<QString> loadModeWord(int code)
{
    return wordOf(loadModeWords(), code);
}

std::optional<QString> loadRangeWord(int code)
{
    return wordOf(loadRangeWords(), code);
}

QString loadVrangeWord(int code)
{
    return code == 1 ? QStringLiteral("High 80V") : QStringLiteral("Low 16V");
}

std::optional<double> timeBaseSeconds(int code)
{
    constexpr std::array seconds{0.000001, 0.00001, 0.0001, 0.001, 0.01, 0.1, 1.0};
    constexpr int firstCode = 5;
    if (code < firstCode || code >= firstCode + static_cast<int>(seconds.size()))
        return std::nullopt;
    return seconds[static_cast<std::size_t>(code - firstCode)];
}

bool hasScales(const QString& module)
{
    return scalesOf(module, QStringLiteral("High")) != nullptr;
}

std::optional<float> valueScale(const QString& module, const QString& range)
{
    const RangeScales* row = scalesOf(module, range);
    return row ? std::optional(row->value) : std::nullopt;
}

std::optional<double> slewScale(const QString& module, const QString& range)
{
    const RangeScales* row = scalesOf(module, range);
    return row ? std::optional(row->slew) : std::nullopt;
}

} // namespace orb
