// SPDX-License-Identifier: GPL-3.0-or-later
#include "stroke_font.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

#include <string>

using namespace orb;

namespace {

constexpr StrokeFont plain{1, 1};

/// The pixels that a text sets, a line a row.
std::string pixelsOf(const QString& text)
{
    QImage image(static_cast<int>(plain.width(text)) + 1, 8, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    plain.draw(painter, {0, 0}, text);
    painter.end();
    std::string rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            rows += image.pixelColor(x, y) == Qt::white ? '#' : '.';
        rows += '\n';
    }
    return rows;
}

TEST(StrokeFontTest, AGlyphHasTheSamePixelsEverywhere)
{
    EXPECT_EQ(pixelsOf("4R"), "...#..####.\n"
                              "..##..#...#\n"
                              ".#.#..#...#\n"
                              "#..#..####.\n"
                              "#####.#..#.\n"
                              "...#..#...#\n"
                              "...#..#...#\n"
                              "...........\n");
}

TEST(StrokeFontTest, APointIsOnePixelAndNarrow)
{
    EXPECT_EQ(plain.width("1.1"), 4 + 2 + 0 + 2 + 4);
    EXPECT_EQ(pixelsOf("."), ".\n.\n.\n.\n.\n.\n#\n.\n");
}

TEST(StrokeFontTest, TheWidthGrowsWithTheScaleAndAnEmptyTextHasNone)
{
    EXPECT_EQ(StrokeFont({.scale = 5, .weight = 4}).width("10"), 50);
    EXPECT_EQ(StrokeFont({.scale = 5, .weight = 4}).height(), 30);
    EXPECT_EQ(plain.width(""), 0);
}

TEST(StrokeFontTest, SmallLettersAreDrawnAsCapitalOnesExceptForTheUnits)
{
    EXPECT_EQ(pixelsOf("chan"), pixelsOf("CHAN"));
    EXPECT_NE(pixelsOf("m"), pixelsOf("M"));
    EXPECT_NE(pixelsOf("s"), pixelsOf("S"));
}

TEST(StrokeFontTest, EveryDigitLetterAndSignDiffersFromEveryOtherAndFromTheBox)
{
    const QString all = QStringLiteral("123456789ABCDEFGHIJKLMNOPQRSTUVWXYZms\u03A9.,:-+/%()=_<>?!*#'\" ");
    for (qsizetype i = 0; i < all.size(); ++i)
        for (qsizetype j = 0; j < i; ++j)
            EXPECT_NE(pixelsOf(all.mid(i, 1)), pixelsOf(all.mid(j, 1))) << i << " and " << j;
    EXPECT_EQ(pixelsOf("@"), pixelsOf("$"));
    EXPECT_FALSE(all.contains('@'));
}

} // namespace
