// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws every picture and pointer of the program. Run by hand when one is to change; what it draws is kept with the
// sources, so that a build needs no screen, no font and no encoder.
//
//     draw_pictures FOLDER SHEET    writes FOLDER/OrbEmpty.jpg, FOLDER/ICON/*, the desktop's icons FOLDER/desktop/* and
//                                   the panel map FOLDER/ORBScrBtn.dat, and all pictures but the panel on one PNG

#include "cursor_file.h"
#include "glyphs.h"
#include "panel_picture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>

#include <array>
#include <cstdio>
#include <stdexcept>

using namespace orb::drawing;

namespace {

constexpr int pictureSize = 96;
constexpr int jpegSize = 128; // at less, what JPEG blurs reaches the corners

struct Picture {
    const char* name; ///< the file's name. A .jpg has the button's face for its ground, a .png is transparent.
    Glyph glyph;
    Ink (*ink)();
};

struct Cursor {
    const char* name;
    void (*glyph)(QPainter&);
    QPoint hotSpot;
};

constexpr std::array pictures{
    // By these names, letter case included, the pages load them.
    Picture{"A3RMTCTRL.jpg", instrument, blueInk},
    Picture{"A3RMTCTRLSTOP.JPG", instrument, greyInk},
    Picture{"B1RUNSTART.JPG", play, greenInk},
    Picture{"B1RUNSTOP.jpg", play, greyInk},
    Picture{"B4STOP-A.JPG", stop, redInk},
    Picture{"B4STOP.JPG", stop, greyInk},
    Picture{"B2PAUSE.JPG", pause, blueInk},
    Picture{"B2PAUSE2.JPG", resume, amberInk},
    Picture{"SEQSimulate.JPG", simulate, greenInk},
    Picture{"SEQSimulateStop.JPG", simulate, greyInk},
    Picture{"SEQINTO.JPG", intoInstrument, greenInk},
    Picture{"SEQINTOSTOP.JPG", intoInstrument, greyInk},
    Picture{"SEQOUT.JPG", outOfInstrument, blueInk},
    Picture{"SEQOUTSTOP.JPG", outOfInstrument, greyInk},
    // What the pages and buttons carry from the first.
    Picture{"PageConnect.png", plug, blueInk},
    Picture{"PageCommand.png", console, blueInk},
    Picture{"PageDataLog.png", curves, blueInk},
    Picture{"PageSequence.png", steps, blueInk},
    Picture{"PageProgram.png", table, blueInk},
    Picture{"PageAbout.png", information, blueInk},
    Picture{"PageExit.png", door, blueInk},
    Picture{"PageDisplay.png", monitor, blueInk},
    Picture{"Open.png", folder, amberInk},
    Picture{"Save.png", disk, blueInk},
    Picture{"Refresh.png", turnRound, blueInk},
    Picture{"Delete.png", bin, redInk},
    Picture{"Print.png", printer, blueInk},
    Picture{"Export.png", sheetOut, greenInk},
    Picture{"Insert.png", insertLine, greenInk},
    Picture{"Up.png", arrowUp, blueInk},
    Picture{"Down.png", arrowDown, blueInk},
    Picture{"History.png", store, blueInk},
    Picture{"Clear.png", clearSheet, redInk},
    Picture{"Chain.png", chain, blueInk},
    Picture{"Record.png", record, redInk},
    Picture{"Enlarge.png", enlarge, blueInk},
    Picture{"orb.png", applicationIcon, blueInk},
};

constexpr std::array cursors{
    Cursor{"H_POINT.CUR", pointingHand, {11, 2}},
    Cursor{"H_NW.CUR", leaningHand, {3, 3}},
    Cursor{"LeftRotate.cur", turnLeft, {16, 16}},
    Cursor{"RightRotate.cur", turnRight, {16, 16}},
};

QImage canvas(const QSize& size, const QColor& ground)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(ground);
    return image;
}

QImage draw(const Picture& picture, int size, const QColor& ground)
{
    QImage image = canvas({size, size}, ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(size) / gridUnits, double(size) / gridUnits);
    picture.glyph(painter, picture.ink());
    return image;
}

QImage draw(const QSize& size, void (*glyph)(QPainter&))
{
    QImage image = canvas(size, Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    glyph(painter);
    return image;
}

bool isJpeg(const QString& path)
{
    return path.endsWith(QLatin1String(".jpg"), Qt::CaseInsensitive);
}

void save(const QImage& image, const QString& path)
{
    const bool saved =
        isJpeg(path) ? image.convertToFormat(QImage::Format_RGB32).save(path, "JPG", 100) : image.save(path, "PNG");
    if (!saved)
        throw std::runtime_error("cannot write " + path.toStdString());
}

void save(const QByteArray& bytes, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

/// All pictures side by side as a button shows them, at 64 pixels and at 32.
QImage contactSheet()
{
    constexpr int columns = 8;
    constexpr int cell = 112;
    const int rows = int(pictures.size() + cursors.size() + columns - 1) / columns;
    QImage sheet = canvas({columns * cell, rows * cell}, QColor(buttonFace));
    QPainter painter(&sheet);
    int place = 0;
    const auto show = [&](const QImage& image) {
        const QPoint corner(place % columns * cell, place / columns * cell);
        painter.drawImage(corner + QPoint(6, 24), image.scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        painter.drawImage(corner + QPoint(76, 40), image.scaled(32, 32, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        ++place;
    };
    for (const Picture& picture : pictures)
        show(draw(picture, pictureSize, Qt::transparent));
    for (const Cursor& cursor : cursors)
        show(draw({gridUnits, gridUnits}, cursor.glyph));
    return sheet;
}

/// The program's icon in the sizes that desktops ask for; desktop/scalable.svg is drawn by hand after it.
void drawDesktopIcons(const QDir& folder)
{
    const Picture icon{"orb", applicationIcon, blueInk};
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        save(draw(icon, size, Qt::transparent), folder.filePath(QString::number(size) + ".png"));
}

void drawAll(const QDir& folder)
{
    if (!folder.mkpath("ICON") || !folder.mkpath("desktop"))
        throw std::runtime_error("cannot make the folders for the pictures");
    drawDesktopIcons(QDir(folder.filePath("desktop")));
    const QDir icons(folder.filePath("ICON"));
    for (const Picture& picture : pictures)
        save(isJpeg(picture.name) ? draw(picture, jpegSize, QColor(buttonFace))
                                  : draw(picture, pictureSize, Qt::transparent),
             icons.filePath(picture.name));
    save(panelPicture(1), icons.filePath("Panel.png"));
    save(panelPicture(2), icons.filePath("Panel@2x.png"));
    save(panelMapText(), folder.filePath("ORBScrBtn.dat"));
    for (const Cursor& cursor : cursors)
        save(cursorFile(draw({gridUnits, gridUnits}, cursor.glyph), cursor.hotSpot), icons.filePath(cursor.name));

    const Picture icon{"orb.ico", applicationIcon, blueInk};
    QList<QImage> sizes;
    for (const int size : {16, 32, 48, 256})
        sizes.append(draw(icon, size, Qt::transparent));
    save(iconFile(sizes), icons.filePath(icon.name));
    save(draw({320, 240}, emptyScreen), folder.filePath("OrbEmpty.jpg"));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: draw_pictures FOLDER SHEET\n");
        return 2;
    }
    try {
        const QCoreApplication application(argc, argv);
        drawAll(QDir(QString::fromLocal8Bit(argv[1])));
        save(contactSheet(), QString::fromLocal8Bit(argv[2]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "draw_pictures: %s\n", failure.what());
        return 1;
    }
    return 0;
}
