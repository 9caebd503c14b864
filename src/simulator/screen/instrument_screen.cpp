// SPDX-License-Identifier: GPL-3.0-or-later
#include "instrument_screen.h"

#include "mainframe.h"
#include "screen_pages.h"

#include <QBuffer>

#include <array>

namespace orb {

namespace {

constexpr QRect topBar(0, 0, ScreenCanvas::width, 22);
constexpr QRect statusLine(0, 198, ScreenCanvas::width, 18);

QString controlText(const Mainframe& mainframe)
{
    constexpr const char* names[] = {"LOCAL", "REMOTE", "LOCKOUT"};
    return QString::fromLatin1(names[static_cast<std::size_t>(mainframe.controlState())]);
}

void drawTopBar(ScreenCanvas& canvas, const Mainframe& mainframe)
{
    const int number = mainframe.displayedChannel();
    const LoadChannel& channel = mainframe.channel(number);
    const LoadSettings& settings = channel.settings();
    canvas.fill(topBar, screen_color::bar);
    canvas.field({4, 2, 52, 18}, QStringLiteral("CH%1").arg(number), screen_color::active, screen_color::text,
                 mediumFont);
    canvas.text(64, 8,
                QString::fromLatin1(channel.module().name.data(), static_cast<qsizetype>(channel.module().name.size())),
                screen_color::dim);
    canvas.text(112, 5, functionText(settings.function), screen_color::text, mediumFont);
    canvas.text(142, 8, rangeName(settings.range(settings.function)), screen_color::text);
    if (mainframe.panel().locked())
        canvas.text(262, 8, QStringLiteral("LOCKED"), screen_color::bad, smallFont, Align::Right);
    canvas.text(314, 8, controlText(mainframe), screen_color::dim, smallFont, Align::Right);
}

QString sequenceStatus(const SequencePlayer& player)
{
    return QStringLiteral("SEQUENCE RUNS ON CH %1, POINT %2, ROUND %3")
        .arg(player.channel())
        .arg(player.point())
        .arg(player.round());
}

QString programStatus(const ProgramPlayer& player)
{
    return QStringLiteral("PROGRAM P%1, STEP %2%3")
        .arg(player.program(), 2, 10, QLatin1Char('0'))
        .arg(player.step())
        .arg(player.waits() ? QStringLiteral(", WAITS FOR NEXT") : QString());
}

struct Status {
    QString text;
    QRgb color;
};

/// What a key could not do comes first, then what runs.
Status statusOf(const Mainframe& mainframe)
{
    if (mainframe.panel().lastOutcome() == InstrumentPanel::Outcome::OutOfRange)
        return {QStringLiteral("OUT OF RANGE"), screen_color::bad};
    if (mainframe.panel().lastOutcome() == InstrumentPanel::Outcome::Locked)
        return {QStringLiteral("THE KEYS ARE LOCKED"), screen_color::bad};
    if (mainframe.sequenceRuns())
        return {sequenceStatus(mainframe.sequencePlayer()), screen_color::good};
    if (mainframe.programRuns())
        return {programStatus(mainframe.programPlayer()), screen_color::good};
    if (mainframe.condition() != 0)
        return {QStringLiteral("PROTECTION OR LIMIT"), screen_color::bad};
    return {QStringLiteral("READY"), screen_color::dim};
}

void drawStatusLine(ScreenCanvas& canvas, const Mainframe& mainframe)
{
    const Status status = statusOf(mainframe);
    canvas.fill({0, statusLine.top(), ScreenCanvas::width, 1}, screen_color::line);
    canvas.text(10, statusLine.top() + 6, status.text, status.color);
    if (mainframe.panel().shifted())
        canvas.text(310, statusLine.top() + 6, QStringLiteral("SHIFT"), screen_color::voltage, smallFont, Align::Right);
}

void drawSoftKeys(ScreenCanvas& canvas, InstrumentPanel::Page page)
{
    constexpr std::array<const char*, InstrumentPanel::pageCount> captions{"CHANNEL", "ALL", "SEQUENCE", "PROGRAM",
                                                                           "SYSTEM"};
    for (int i = 0; i < InstrumentPanel::pageCount; ++i) {
        const bool isShown = i == static_cast<int>(page);
        canvas.field({i * 66, 218, 56, 20}, QString::fromLatin1(captions[static_cast<std::size_t>(i)]),
                     isShown ? screen_color::active : screen_color::bar,
                     isShown ? screen_color::text : screen_color::dim);
    }
}

void drawPage(ScreenCanvas& canvas, Mainframe& mainframe, const std::string& identity)
{
    switch (mainframe.panel().page()) {
    case InstrumentPanel::Page::Channel:
        return drawChannelPage(canvas, mainframe);
    case InstrumentPanel::Page::All:
        return drawAllPage(canvas, mainframe);
    case InstrumentPanel::Page::Sequence:
        return drawSequencePage(canvas, mainframe);
    case InstrumentPanel::Page::Program:
        return drawProgramPage(canvas, mainframe);
    case InstrumentPanel::Page::System:
        return drawSystemPage(canvas, mainframe, QString::fromStdString(identity));
    }
}

/// A dark screen can still be read at a brightness of 0.
void dim(QImage& picture, int brightness)
{
    if (brightness == 100)
        return;
    const int share = 30 + brightness * 70 / 100;
    for (int y = 0; y < picture.height(); ++y) {
        auto* pixels = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            pixels[x] =
                qRgb(qRed(pixels[x]) * share / 100, qGreen(pixels[x]) * share / 100, qBlue(pixels[x]) * share / 100);
    }
}

} // namespace

QImage drawInstrumentScreen(Mainframe& mainframe, const std::string& identity)
{
    ScreenCanvas canvas;
    if (!mainframe.panel().screenOn()) {
        canvas.fill({0, 0, ScreenCanvas::width, ScreenCanvas::height}, 0xff000000);
        return canvas.finish();
    }
    drawTopBar(canvas, mainframe);
    drawPage(canvas, mainframe, identity);
    drawStatusLine(canvas, mainframe);
    drawSoftKeys(canvas, mainframe.panel().page());
    QImage picture = canvas.finish();
    dim(picture, mainframe.panel().brightness());
    return picture;
}

std::string bitmapOf(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.convertToFormat(QImage::Format_RGB32).save(&buffer, "BMP");
    return bytes.toStdString();
}

} // namespace orb
