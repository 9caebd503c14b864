// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "picture_button.h"

#include <QDir>
#include <QTemporaryDir>

using namespace orb;

namespace {

class PictureButtonTest : public FormTest {};

TEST_F(PictureButtonTest, APictureIsFoundInAnotherLetterCaseAndItsPathReadsBack)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("ICON");
    QImage(4, 4, QImage::Format_RGB32).save(folder.filePath("ICON/B2PAUSE.JPG"));
    PictureButton button;

    button.setPicture(folder.path() + "\\icon\\b2pause.jpg");

    EXPECT_EQ(button.picture(), folder.path() + "\\icon\\b2pause.jpg");
    EXPECT_FALSE(button.icon().isNull());
}

TEST_F(PictureButtonTest, AMissingPictureIsFileNotFoundAndAFileThatIsNoneIsAnInvalidPicture)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("other.jpg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    PictureButton button;

    EXPECT_EQ(failureOf([&] { button.setPicture(folder.path() + "\\none.jpg"); }), failure::FileNotFound);
    EXPECT_EQ(failureOf([&] { button.setPicture(folder.path() + "\\other.jpg"); }), failure::InvalidPicture);
    EXPECT_EQ(button.picture(), "");
}

TEST_F(PictureButtonTest, EnterAndReturnAndTheSpaceBarPressTheButton)
{
    int clicks = 0;
    PictureButton button;
    put(button).onClick = [&] { ++clicks; };

    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A})
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&button, &event);
        }

    EXPECT_EQ(clicks, 3);
}

TEST_F(PictureButtonTest, APictureStandsAboveTheCaptionOrAlone)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(folder.filePath("a.png")));
    PictureButton withCaption("Start"), without;
    EXPECT_EQ(withCaption.toolButtonStyle(), Qt::ToolButtonTextOnly);

    withCaption.setPicture(folder.filePath("a.png"));
    without.setPicture(folder.filePath("a.png"));
    EXPECT_EQ(withCaption.toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    EXPECT_EQ(without.toolButtonStyle(), Qt::ToolButtonIconOnly);

    withCaption.setPicture("");
    EXPECT_EQ(withCaption.toolButtonStyle(), Qt::ToolButtonTextOnly);
    EXPECT_TRUE(withCaption.icon().isNull());
    EXPECT_EQ(withCaption.picture(), "");
}

TEST_F(PictureButtonTest, ThePictureIsReadWhenItIsPainted)
{
    const QTemporaryDir folder;
    QImage red(8, 8, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(folder.filePath("a.png")));
    PictureButton button;
    button.setPicture(folder.filePath("a.png"));

    EXPECT_EQ(button.icon().pixmap(8, 8).toImage().pixelColor(4, 4), QColor(Qt::red));
}

} // namespace
