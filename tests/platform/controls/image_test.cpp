// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "image.h"

#include <QMouseEvent>
#include <QTemporaryDir>

using namespace orb;
using testing::ElementsAre;

namespace {

class ImageTest : public FormTest {};

TEST_F(ImageTest, AMousePressOnAnImageIsGivenInTwips)
{
    std::vector<float> at;
    Image image;
    put(image).resizeTwips(300, 300);
    image.onMouseDown = [&](float x, float y) { at = {x, y}; };
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(7, 3), QPointF(7, 3), Qt::RightButton, Qt::RightButton,
                     Qt::NoModifier);

    QCoreApplication::sendEvent(&image, &down);

    EXPECT_THAT(at, ElementsAre(105.0F, 45.0F));
}

TEST_F(ImageTest, EachMouseEventRunsItsOwnHandlerAlsoAMoveWithoutAButton)
{
    QStringList events;
    Image image;
    put(image).resizeTwips(300, 300);
    const auto record = [&](const QString& name) {
        return [&events, name](float x, float y) { events << QString("%1 %2 %3").arg(name).arg(x).arg(y); };
    };
    image.onMouseDown = record("down");
    image.onMouseMove = record("move");
    image.onMouseUp = record("up");
    EXPECT_TRUE(image.hasMouseTracking());

    mouse(image, QEvent::MouseButtonPress, QPointF(1, 2));
    mouse(image, QEvent::MouseMove, QPointF(2, 2));
    mouse(image, QEvent::MouseButtonRelease, QPointF(3, 2));

    EXPECT_THAT(events, ElementsAre("down 15 30", "move 30 30", "up 45 30"));
}

TEST_F(ImageTest, APictureIsStretchedToTheControl)
{
    const QTemporaryDir folder;
    QImage red(2, 2, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(folder.filePath("red.png")));
    Image image;
    image.resize(40, 30);

    image.setPicture(folder.filePath("red.png"));
    EXPECT_EQ(image.picture(), folder.filePath("red.png"));
    const QImage shown = image.grab().toImage();
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(39, 29), QColor(Qt::red));

    image.setPicture("");
    EXPECT_TRUE(image.pixmap().isNull());
}

TEST_F(ImageTest, APictureOfAnotherControlHasNoPath)
{
    const QTemporaryDir folder;
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(folder.filePath("red.png")));
    Image image;
    image.setPicture(folder.filePath("red.png"));

    image.setPixmap(QPixmap(3, 3));

    EXPECT_EQ(image.picture(), "");
    EXPECT_EQ(image.pixmap().size(), QSize(3, 3));
}

TEST_F(ImageTest, AFileThatHoldsNoPictureLeavesTheOneThatIsShown)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("other.jpg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    Image image;
    image.setPixmap(QPixmap(3, 3));

    EXPECT_EQ(failureOf([&] { image.setPicture(folder.filePath("other.jpg")); }), failure::InvalidPicture);
    EXPECT_EQ(failureOf([&] { image.setPicture(folder.filePath("none.jpg")); }), failure::FileNotFound);
    EXPECT_EQ(image.pixmap().size(), QSize(3, 3));
}

TEST_F(ImageTest, APictureWithALargerTwinIsShownByItInItsOwnSize)
{
    const QTemporaryDir folder;
    QImage small(3, 2, QImage::Format_RGB32);
    small.fill(Qt::red);
    ASSERT_TRUE(small.save(folder.filePath("a.png")));
    ASSERT_TRUE(small.save(folder.filePath("a.bmp")));
    QImage large(6, 4, QImage::Format_RGB32);
    large.fill(Qt::green);
    ASSERT_TRUE(large.save(folder.filePath("a@2x.png")));
    ASSERT_TRUE(large.save(folder.filePath("a@2x.bmp")));
    Image image;
    image.setPicture(folder.filePath("a.png"));
    EXPECT_EQ(image.pixmap().size(), QSize(6, 4));
    EXPECT_EQ(image.pixmap().deviceIndependentSize(), QSizeF(3, 2));
    image.setPicture(folder.filePath("a.bmp"));
    EXPECT_EQ(image.pixmap().size(), QSize(3, 2)) << "only a PNG has one";
}

TEST_F(ImageTest, PositionsAreThoseOfTheDesignSizeWhateverSizeIsShown)
{
    Image image;
    put(image).resize(190, 153);
    image.setDesignSize({380, 612});
    QStringList places;
    image.onMouseDown = [&](float x, float y) { places << QStringLiteral("%1 %2").arg(x).arg(y); };
    mouse(image, QEvent::MouseButtonPress, {100, 100});
    image.resize(380, 612);
    mouse(image, QEvent::MouseButtonPress, {100, 100});
    EXPECT_THAT(places, testing::ElementsAre("3000 6000", "1500 1500"));
}

} // namespace
