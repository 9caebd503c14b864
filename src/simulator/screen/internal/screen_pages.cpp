// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen_pages.h"

#include "answer_text.h"

#include <cmath>

namespace orb {

namespace {

constexpr int margin = 10;

QString number(double value, int decimals)
{
    return QString::fromStdString(decimalText(value, decimals));
}

/// A row of a page: a name and a value.
void row(ScreenCanvas& canvas, int index, const QString& name, const QString& value, QRgb color = screen_color::text)
{
    const int y = pageArea.top() + 12 + index * 18;
    canvas.text(margin, y, name, screen_color::dim);
    canvas.text(110, y, value, color);
}

void reading(ScreenCanvas& canvas, int y, double value, const QString& unit, QRgb color)
{
    canvas.text(196, y, sixPlaces(value), color, largeFont, Align::Right);
    canvas.text(206, y + 18, unit, color, mediumFont);
}

QString verdictText(const LoadChannel& channel, const Reading& reading)
{
    const auto& [voltage, current, power] = channel.settings().windows;
    const bool passes = voltage.holds(reading.voltage) && current.holds(reading.current) && power.holds(reading.power);
    return passes ? QStringLiteral("PASS") : QStringLiteral("FAIL");
}

void drawSideFields(ScreenCanvas& canvas, const LoadChannel& channel, const Reading& now)
{
    const QRect state(236, 32, 74, 32);
    canvas.field(state, inputText(channel), inputColor(channel), screen_color::ground, mediumFont);
    if (channel.isShort())
        canvas.field({236, 70, 74, 18}, QStringLiteral("SHORT"), screen_color::bad, screen_color::ground);
    if (channel.settings().judged) {
        const QString verdict = verdictText(channel, now);
        const QRgb color = verdict == QLatin1String("PASS") ? screen_color::good : screen_color::bad;
        canvas.field({236, 94, 74, 18}, verdict, screen_color::bar, color);
    }
}

/// Both levels of the function in its range in force, the one in force bright; and what is being typed.
void drawSetValues(ScreenCanvas& canvas, const LoadChannel& channel, const std::string& entry)
{
    const LoadSettings& settings = channel.settings();
    const auto& levels = settings.levelsOf(settings.function);
    canvas.fill({margin, 146, 300, 1}, screen_color::line);
    for (int level = 0; level < 2; ++level) {
        const QRgb color = level == settings.level ? screen_color::text : screen_color::dim;
        const QString name = level == 0 ? QStringLiteral("L1") : QStringLiteral("L2");
        const QString value =
            sixPlaces(levels[static_cast<std::size_t>(level)]) + QLatin1Char(' ') + setUnit(settings.function);
        canvas.text(margin + 150 * level, 154, name, color);
        canvas.text(margin + 18 + 150 * level, 154, value, color, mediumFont);
    }
    canvas.text(margin, 180, QStringLiteral("ENTRY"), screen_color::dim);
    const QRect box(54, 174, 120, 20);
    canvas.frame(box, screen_color::line);
    canvas.text(60, 178, QString::fromStdString(entry) + QLatin1Char('_'), screen_color::text, mediumFont);
}

/// The channels side by side, the selected one framed.
void drawChannelStrip(ScreenCanvas& canvas, const Mainframe& mainframe)
{
    for (int number = 1; number <= mainframe.channelCount(); ++number) {
        const QRect area(182 + (number - 1) * 16, 175, 14, 18);
        canvas.field(area, QString::number(number), inputColor(mainframe.channel(number)), screen_color::ground);
        if (number == mainframe.selectedChannel())
            canvas.frame(area.adjusted(-2, -2, 2, 2), screen_color::text);
    }
}

void drawAllRow(ScreenCanvas& canvas, Mainframe& mainframe, int number)
{
    const LoadChannel& channel = mainframe.channel(number);
    const Reading now = mainframe.fetch(number);
    const int y = pageArea.top() + 24 + (number - 1) * 18;
    if (number == mainframe.selectedChannel())
        canvas.fill({4, y - 5, 312, 17}, screen_color::bar);
    canvas.text(margin, y, QString::number(number), screen_color::text);
    canvas.text(30, y,
                functionText(channel.settings().function) +
                    rangeName(channel.settings().range(channel.settings().function)).left(1),
                screen_color::dim);
    canvas.text(130, y, sixPlaces(now.voltage), screen_color::voltage, smallFont, Align::Right);
    canvas.text(195, y, sixPlaces(now.current), screen_color::current, smallFont, Align::Right);
    canvas.text(260, y, sixPlaces(now.power), screen_color::power, smallFont, Align::Right);
    canvas.text(310, y, inputText(channel), inputColor(channel), smallFont, Align::Right);
}

/// The currents of the loop over its time, with the present point marked.
void drawSequenceCurve(ScreenCanvas& canvas, const SequenceMemory& sequence, int present)
{
    const QRect area(margin, 104, 300, 86);
    canvas.frame(area, screen_color::line);
    const double seconds = sequence.secondsOfRound();
    const double peak = std::max(sequence.peakCurrent(), 1e-6);
    if (seconds <= 0 || sequence.loopStart > sequence.endPoint)
        return canvas.text(160, 144, QStringLiteral("NO POINTS"), screen_color::dim, smallFont, Align::Middle);
    QPolygonF curve;
    double begin = 0;
    for (int number = sequence.loopStart; number <= sequence.endPoint; ++number) {
        const auto& point = sequence.point(number);
        const double y = std::round(area.bottom() - 4 - (area.height() - 10) * point.current / peak);
        const double left = std::round(area.left() + 2 + (area.width() - 5) * begin / seconds);
        begin += point.seconds;
        const double right = std::round(area.left() + 2 + (area.width() - 5) * begin / seconds);
        if (number == present)
            canvas.fill(QRectF(left, area.top() + 1, std::max(right - left, 1.0), area.height() - 2).toRect(),
                        screen_color::bar);
        curve << QPointF(left, y) << QPointF(right, y);
    }
    canvas.polyline(curve, screen_color::current);
}

QString phaseText(const ProgramPlayer& player)
{
    if (player.waits())
        return QStringLiteral("ON, WAITS FOR NEXT");
    switch (player.phase()) {
    case ProgramPlayer::Phase::On:
        return QStringLiteral("ON");
    case ProgramPlayer::Phase::Off:
        return QStringLiteral("OFF");
    case ProgramPlayer::Phase::Idle:
        break;
    }
    return QStringLiteral("IDLE");
}

} // namespace

QString sixPlaces(double value)
{
    const double size = std::abs(value);
    return number(value, size < 9.99995 ? 4 : size < 99.9995 ? 3 : size < 999.995 ? 2 : size < 9999.95 ? 1 : 0);
}

QString functionText(LoadFunction function)
{
    constexpr const char* names[] = {"CC", "CR", "CV"};
    return QString::fromLatin1(names[indexOf(function)]);
}

QString rangeName(LoadRange range)
{
    return range == LoadRange::High ? QStringLiteral("HIGH") : QStringLiteral("LOW");
}

QString setUnit(LoadFunction function)
{
    constexpr char16_t units[] = {u'A', u'\u03A9', u'V'};
    return QString(QChar(units[indexOf(function)]));
}

QString inputText(const LoadChannel& channel)
{
    if ((channel.condition() & LoadChannel::OverVoltage) != 0)
        return QStringLiteral("OVP");
    if ((channel.condition() & LoadChannel::OverPower) != 0)
        return QStringLiteral("OPP");
    if ((channel.condition() & LoadChannel::OverCurrent) != 0)
        return channel.inputOn() ? QStringLiteral("LIMIT") : QStringLiteral("OCP");
    return channel.inputOn() ? QStringLiteral("ON") : QStringLiteral("OFF");
}

QRgb inputColor(const LoadChannel& channel)
{
    if (channel.condition() != 0)
        return screen_color::bad;
    return channel.inputOn() ? screen_color::good : screen_color::dim;
}

void drawChannelPage(ScreenCanvas& canvas, Mainframe& mainframe)
{
    const LoadChannel& channel = mainframe.channel(mainframe.displayedChannel());
    const Reading now = mainframe.fetch(mainframe.displayedChannel());
    reading(canvas, 32, now.voltage, QStringLiteral("V"), screen_color::voltage);
    reading(canvas, 72, now.current, QStringLiteral("A"), screen_color::current);
    reading(canvas, 110, now.power, QStringLiteral("W"), screen_color::power);
    drawSideFields(canvas, channel, now);
    drawSetValues(canvas, channel, mainframe.panel().entry());
    drawChannelStrip(canvas, mainframe);
}

void drawAllPage(ScreenCanvas& canvas, Mainframe& mainframe)
{
    const int y = pageArea.top() + 6;
    canvas.text(margin, y, QStringLiteral("CH"), screen_color::dim);
    canvas.text(30, y, QStringLiteral("MODE"), screen_color::dim);
    canvas.text(130, y, QStringLiteral("V"), screen_color::voltage, smallFont, Align::Right);
    canvas.text(195, y, QStringLiteral("A"), screen_color::current, smallFont, Align::Right);
    canvas.text(260, y, QStringLiteral("W"), screen_color::power, smallFont, Align::Right);
    canvas.text(310, y, QStringLiteral("LOAD"), screen_color::dim, smallFont, Align::Right);
    for (int number = 1; number <= mainframe.channelCount(); ++number)
        drawAllRow(canvas, mainframe, number);
}

void drawSequencePage(ScreenCanvas& canvas, const Mainframe& mainframe)
{
    const SequenceMemory& sequence = mainframe.sequence();
    const SequencePlayer& player = mainframe.sequencePlayer();
    const bool runs = mainframe.sequenceRuns();
    const QString state =
        QStringLiteral("CH %1  POINT %2  ROUND %3").arg(player.channel()).arg(player.point()).arg(player.round());
    row(canvas, 0, QStringLiteral("STATE"), runs ? state : QStringLiteral("IDLE"),
        runs ? screen_color::good : screen_color::text);
    row(canvas, 1, QStringLiteral("LOOP"), QStringLiteral("%1 - %2").arg(sequence.loopStart).arg(sequence.endPoint));
    row(canvas, 2, QStringLiteral("REPEAT"),
        sequence.repeatCount == 0 ? QStringLiteral("FOR EVER") : QString::number(sequence.repeatCount));
    row(canvas, 3, QStringLiteral("TIME / PEAK"),
        sixPlaces(sequence.secondsOfRound()) + QStringLiteral(" s / ") + sixPlaces(sequence.peakCurrent()) +
            QStringLiteral(" A"));
    drawSequenceCurve(canvas, sequence, runs ? player.point() : 0);
}

void drawProgramPage(ScreenCanvas& canvas, Mainframe& mainframe)
{
    const ProgramPlayer& player = mainframe.programPlayer();
    const ProgramStore& store = mainframe.programs();
    const bool runs = mainframe.programRuns();
    row(canvas, 0, QStringLiteral("STATE"), phaseText(player), runs ? screen_color::good : screen_color::text);
    row(canvas, 1, runs ? QStringLiteral("PROGRAM") : QStringLiteral("EDITED"),
        QStringLiteral("P%1").arg(runs ? player.program() : store.program, 2, 10, QLatin1Char('0')));
    row(canvas, 2, QStringLiteral("STEP"), QString::number(runs ? player.step() : store.step));
    const auto [judged, failed] = player.result();
    row(canvas, 4, QStringLiteral("JUDGED"), QString::number(judged));
    row(canvas, 5, QStringLiteral("FAILED"), QString::number(failed),
        failed > 0 ? screen_color::bad : screen_color::text);
}

void drawSystemPage(ScreenCanvas& canvas, Mainframe& mainframe, const QString& identity)
{
    const auto [year, month, day] = mainframe.calendar().date(mainframe.seconds());
    const auto [hour, minute, second] = mainframe.calendar().time(mainframe.seconds());
    const auto two = [](int value) { return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0')); };
    const auto onOrOff = [](bool on) { return on ? QStringLiteral("ON") : QStringLiteral("OFF"); };
    row(canvas, 0, QStringLiteral("MAKER"), identity.section(QLatin1Char(','), 0, 0));
    row(canvas, 1, QStringLiteral("MODEL"), identity.section(QLatin1Char(','), 1, 1));
    row(canvas, 2, QStringLiteral("SERIAL"), identity.section(QLatin1Char(','), 2, 2));
    row(canvas, 3, QStringLiteral("FIRMWARE"), identity.section(QLatin1Char(','), 3, 3));
    row(canvas, 4, QStringLiteral("DATE"), QStringLiteral("%1-%2-%3").arg(year).arg(two(month), two(day)));
    row(canvas, 5, QStringLiteral("TIME"), QStringLiteral("%1:%2:%3").arg(two(hour), two(minute), two(second)));
    row(canvas, 6, QStringLiteral("BEEPER"), onOrOff(mainframe.panel().beeperOn()));
    row(canvas, 7, QStringLiteral("BRIGHTNESS"),
        QString::number(mainframe.panel().brightness()) + QStringLiteral(" %"));
}

} // namespace orb
