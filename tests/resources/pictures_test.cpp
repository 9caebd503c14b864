// SPDX-License-Identifier: GPL-3.0-or-later
#include "cursor_file.h"
#include "directories.h"
#include "glyphs.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QtEndian>

#include <gmock/gmock.h>

#include <algorithm>

using orb::drawing::buttonFace;
using testing::IsSupersetOf;
using testing::Lt;

namespace {

const QString besideTheProgram = orb::binaryDirectory();

/// The pictures that the pages change while the program runs.
const QStringList changingPictures{"A3RMTCTRL.jpg",   "A3RMTCTRLSTOP.JPG",  "B1RUNSTART.JPG", "B1RUNSTOP.jpg",
                                   "B2PAUSE.JPG",     "B2PAUSE2.JPG",       "B4STOP-A.JPG",   "B4STOP.JPG",
                                   "SEQINTO.JPG",     "SEQINTOSTOP.JPG",    "SEQOUT.JPG",     "SEQOUTSTOP.JPG",
                                   "SEQSimulate.JPG", "SEQSimulateStop.JPG"};
const QStringList pointers{"H_NW.CUR", "H_POINT.CUR", "LeftRotate.cur", "RightRotate.cur"};

QDir icons()
{
    return QDir(besideTheProgram + "/ICON");
}

/// How far the most colorful point of a picture is from grey, 0 to 255.
int colorfulness(const QImage& image)
{
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const auto [least, greatest] = std::minmax({color.red(), color.green(), color.blue()});
            most = std::max(most, greatest - least);
        }
    }
    return most;
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

quint16 word(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.mid(at, 2).constData());
}

} // namespace

TEST(PicturesTest, ThePicturesAndPointersStandBesideTheProgramUnderTheirExactNames)
{
    EXPECT_THAT(icons().entryList(QDir::Files), IsSupersetOf(changingPictures + pointers));
}

TEST(PicturesTest, EveryPictureIsLargeEnoughForAScreenOf192Dpi)
{
    for (const QString& name : icons().entryList({"*.jpg", "*.png"}, QDir::Files)) {
        if (name.startsWith("Panel"))
            continue; // has its own test
        const QImage image(icons().filePath(name));
        EXPECT_GE(image.width(), 64) << name.toStdString();
        EXPECT_EQ(image.width(), image.height()) << name.toStdString();
    }
}

TEST(PicturesTest, APictureWithoutTransparencyHasTheColorOfTheButtonInItsCorners)
{
    for (const QString& name : changingPictures) {
        const QImage image(icons().filePath(name));
        ASSERT_FALSE(image.isNull()) << name.toStdString();
        for (const QPoint corner :
             {image.rect().topLeft(), image.rect().topRight(), image.rect().bottomLeft(), image.rect().bottomRight()})
            EXPECT_EQ(image.pixel(corner), buttonFace) << name.toStdString();
    }
}

TEST(PicturesTest, AStoppedLookIsGreyAndTheOthersAreNot)
{
    for (const QString& name : changingPictures) {
        const bool outOfUse = name.contains("STOP.", Qt::CaseInsensitive);
        const int color = colorfulness(QImage(icons().filePath(name)));
        if (outOfUse)
            EXPECT_LT(color, 40) << name.toStdString();
        else
            EXPECT_GT(color, 100) << name.toStdString();
    }
}

TEST(PicturesTest, TheEmptyScreenHasTheSizeOfTheInstrumentsScreen)
{
    EXPECT_EQ(QImage(besideTheProgram + "/OrbEmpty.jpg").size(), QSize(320, 240));
}

TEST(PointersTest, EveryPointerIsACursorFileOf32PixelsWithItsHotSpotInside)
{
    for (const QString& name : pointers) {
        const QByteArray bytes = contents(icons().filePath(name));
        ASSERT_GT(bytes.size(), 22) << name.toStdString();
        EXPECT_EQ(word(bytes, 2), 2) << name.toStdString();
        EXPECT_THAT(word(bytes, 10), Lt(32)) << name.toStdString();
        EXPECT_THAT(word(bytes, 12), Lt(32)) << name.toStdString();
        EXPECT_EQ(QImage::fromData(bytes, "ICO").size(), QSize(32, 32)) << name.toStdString();
    }
}

TEST(CursorFileTest, ACursorFileKeepsEveryPixelAndMasksTheTransparentOnes)
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setPixel(1, 0, 0xff102030);

    const QByteArray bytes = orb::drawing::cursorFile(image, {1, 0});

    EXPECT_EQ(bytes.toHex(' '), "00 00 02 00 01 00 "                               // a cursor file with one entry
                                "02 02 00 00 01 00 00 00 40 00 00 00 16 00 00 00 " // 2 by 2, hot spot 1,0
                                "28 00 00 00 02 00 00 00 04 00 00 00 01 00 20 00 "
                                "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                "00 00 00 00 00 00 00 00 00 00 00 00 30 20 10 ff " // the lower row first
                                "ff ff ff ff bf ff ff ff");
}
