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

} // namespace
