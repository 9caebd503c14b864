// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel_picture.h"

#include "directories.h"
#include "printing.h"

#include <QFile>
#include <QImage>

#include <gmock/gmock.h>

using namespace orb::drawing;

namespace {

constexpr int twipsWide = 5700;
constexpr int twipsHigh = 9180;

QByteArray mapFile()
{
    QFile file(orb::binaryDirectory() + "/ORBScrBtn.dat");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QImage picture(const char* name)
{
    return QImage(orb::binaryDirectory() + "/ICON/" + name);
}

TEST(PanelPictureTest, ThePictureHasItsSizeAndATwinOfTwiceThatSize)
{
    EXPECT_EQ(picture("Panel.png").size(), QSize(342, 612));
    EXPECT_EQ(picture("Panel@2x.png").size(), QSize(684, 1224));
    EXPECT_EQ(picture("Panel.png").pixelColor(0, 0).alpha(), 0) << "outside of its round corners";
}

TEST(PanelPictureTest, TheMapIsTheOneOfThePicture)
{
    EXPECT_EQ(mapFile(), panelMapText());
    EXPECT_EQ(mapFile().count("\r\n"), 28);
}

/// On each side of a key the picture changes from the panel to the key within two pixels of the edge in the map.
TEST(PanelPictureTest, EveryKeyFillsItsRectangleOfTheMap)
{
    const QImage image = picture("Panel@2x.png");
    const QColor panel = image.pixelColor(image.width() / 2, 1224 - 10);
    const auto isPanel = [&](double x, double y) {
        return image.pixelColor(static_cast<int>(x * image.width() / twipsWide),
                                static_cast<int>(y * image.height() / twipsHigh)) == panel;
    };
    constexpr int step = 30; // twips
    for (const QByteArray& line : mapFile().trimmed().split('\n')) {
        const QByteArrayList fields = line.trimmed().split(',');
        ASSERT_EQ(fields.size(), 5);
        if (fields[0].startsWith("ROTATE"))
            continue; // parts of the knob
        const int left = fields[1].toInt();
        const int top = fields[2].toInt();
        const int right = fields[3].toInt();
        const int bottom = fields[4].toInt();
        const double x = (left + right) / 2.0;
        const double y = (top + bottom) / 2.0;
        EXPECT_TRUE(isPanel(left - step, y) && !isPanel(left + step, y)) << line.toStdString();
        EXPECT_TRUE(isPanel(right + step, y) && !isPanel(right - step, y)) << line.toStdString();
        EXPECT_TRUE(isPanel(x, top - step) && !isPanel(x, top + step)) << line.toStdString();
        EXPECT_TRUE(isPanel(x, bottom + step) && !isPanel(x, bottom - step)) << line.toStdString();
    }
}

} // namespace
