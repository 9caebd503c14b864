// SPDX-License-Identifier: GPL-3.0-or-later
#include "sequence_memory_file.h"

#include "load_channel.h"
#include "point_duration.h"
#include "record_file.h"
#include "sequence_memory.h"
#include "sequence_values.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <vector>

namespace orb {

namespace {

using Point = SequenceMemory::Point;

/// The steps of a module in one of its ranges.
struct Scale {
    int module = 0; // its code
    int range = 0;
    double amperes = 0;
    double slewRate = 0;
};

constexpr double slewTolerance = 5e-6; // half of what a command can set

/// All modules and ranges with known steps; K12B, which holds every current in its high range, is the first.
std::vector<Scale> allScales()
{
    std::vector<Scale> scales;
    for (auto module = static_cast<int>(loadModuleWords().size()) - 1; module >= 0; --module) {
        for (const int range : {1, 0}) {
            const QString moduleWord = *loadModuleWord(module);
            const QString rangeWord = *loadRangeWord(range);
            const auto amperes = valueScale(moduleWord, rangeWord);
            const auto slewRate = slewScale(moduleWord, rangeWord);
            if (amperes && slewRate)
                scales.push_back({module, range, *amperes, *slewRate});
        }
    }
    return scales;
}

std::int64_t rawOf(double value, double step)
{
    return std::llround(value / step);
}

bool fits(double value, double step)
{
    return rawOf(value, step) <= std::numeric_limits<qint16>::max();
}

bool holds(const Scale& scale, const SequenceMemory& sequence)
{
    return std::ranges::all_of(sequence.points, [&](const Point& point) {
        return fits(point.current, scale.amperes) && fits(point.rise, scale.slewRate) &&
               fits(point.fall, scale.slewRate);
    });
}

/// Whether the currents come back to 0.01 A, as an editor shows them, and the slew rates to their last decimal.
bool isExactFor(const Point& point, const Scale& scale)
{
    const auto hundredths = [](double amperes) { return std::llround(amperes * 100); };
    const auto isStep = [&](double rate) {
        return std::abs(static_cast<double>(rawOf(rate, scale.slewRate)) * scale.slewRate - rate) < slewTolerance;
    };
    const double amperes = static_cast<double>(rawOf(point.current, scale.amperes)) * scale.amperes;
    return hundredths(amperes) == hundredths(point.current) && isStep(point.rise) && isStep(point.fall);
}

bool isExact(const Scale& scale, const SequenceMemory& sequence)
{
    for (int number = sequence.loopStart; number <= sequence.endPoint; ++number) {
        if (!isExactFor(sequence.point(number), scale))
            return false;
    }
    return true;
}

/// The range counts most: when the file is sent, it becomes the range of the channel.
int rankOf(const Scale& scale, const SequenceMemory& sequence, const LoadChannel& channel)
{
    const int range = channel.settings().range(LoadFunction::Current) == LoadRange::High ? 1 : 0;
    const std::string_view module = channel.module().name;
    if (!holds(scale, sequence))
        return 0;
    return 1 + (scale.range == range ? 4 : 0) + (isExact(scale, sequence) ? 2 : 0) +
           (loadModuleWord(scale.module)->toStdString() == module ? 1 : 0);
}

Scale scaleFor(const SequenceMemory& sequence, const LoadChannel& channel)
{
    const std::vector<Scale> scales = allScales();
    return *std::ranges::max_element(scales, {}, [&](const Scale& scale) { return rankOf(scale, sequence, channel); });
}

void writePoint(const Point& point, const Scale& scale, SeqPoint& written, qint32_le& count)
{
    const PointDuration duration = pointDuration(point.seconds);
    written.CurrentRaw = static_cast<qint16>(rawOf(point.current, scale.amperes));
    written.SlewUpRaw = static_cast<qint16>(rawOf(point.rise, scale.slewRate));
    written.SlewDownRaw = static_cast<qint16>(rawOf(point.fall, scale.slewRate));
    written.TimeBaseCode = static_cast<qint16>(duration.timeBaseCode);
    count = duration.count;
}

void writeHead(const SequenceMemory& sequence, const Scale& scale, SeqFileRecord& file)
{
    file.LoadModuleType = static_cast<quint8>(scale.module);
    file.SeqVersion1 = '1';
    file.SeqVersion2 = '.';
    file.MasterFirmware = {'1', '.', '0', '0'};
    file.LoopStart = static_cast<qint16>(sequence.loopStart - 1);
    file.LoopEnd = static_cast<qint16>(sequence.endPoint - 1);
    file.RepeatCount = static_cast<qint16>(sequence.repeatCount);
    file.LoadRange = static_cast<quint8>(scale.range);
    file.VRange = sequence.voltageRange == LoadRange::High ? 1 : 0;
    file.OnEndOfSeq = static_cast<qint16>(sequence.endValue);
}

} // namespace

SeqFileRecord sequenceFile(const SequenceMemory& sequence, const LoadChannel& channel, const ProgFileRecord& programs)
{
    SeqFileRecord file{};
    const Scale scale = scaleFor(sequence, channel);
    writeHead(sequence, scale, file);
    for (std::size_t index = 0; index < file.Points.size(); ++index)
        writePoint(sequence.points[index], scale, file.Points[index], file.DurationCount[index]);
    const auto section = imageOf(programs).last(file.deviceBlock.size());
    std::ranges::copy(section, file.deviceBlock.begin());
    file.CheckSum = computedCheckSum(file);
    return file;
}

} // namespace orb
