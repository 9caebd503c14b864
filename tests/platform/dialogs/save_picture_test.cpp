// SPDX-License-Identifier: GPL-3.0-or-later
#include "save_picture.h"

#include "scripted_dialogs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class SavePictureTest : public testing::Test {
protected:
    SavePictureTest()
    {
        picture.fill(Qt::red);
        dialogs.CommonDialog1 = {"c:\\logs", "CSV(*.csv)|*.csv", "Export", "night.csv"};
    }

    QString sharedDialog() const
    {
        const CommonDialog& dialog = dialogs.CommonDialog1;
        return dialog.initialDirectory + ' ' + dialog.filter + ' ' + dialog.title + ' ' + dialog.fileName;
    }

    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    QImage picture{30, 20, QImage::Format_RGB32};
};

TEST_F(SavePictureTest, ThePictureIsWrittenToTheFileThatTheOperatorNames)
{
    const QString name = folder.filePath("a.png");
    dialogs.files = {name};
    savePicture(dialogs, picture);
    EXPECT_EQ(QImage(name).convertToFormat(QImage::Format_RGB32), picture);
    EXPECT_EQ(dialogs.fileDialogs.at(0).mode, "save");
    EXPECT_EQ(dialogs.fileDialogs.at(0).dialog.fileName, "graph.png");
    EXPECT_EQ(dialogs.fileDialogs.at(0).dialog.title, "Save Picture");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SavePictureTest, TheSharedDialogIsAsBeforeWhetherOrNotItWasCancelled)
{
    const QString before = sharedDialog();
    savePicture(dialogs, picture);
    EXPECT_EQ(sharedDialog(), before);
    EXPECT_THAT(QDir(folder.path()).entryList(QDir::Files), IsEmpty());
    dialogs.files = {folder.filePath("a.png")};
    savePicture(dialogs, picture);
    EXPECT_EQ(sharedDialog(), before);
    EXPECT_THAT(dialogs.fileDialogs, SizeIs(2));
}

TEST_F(SavePictureTest, AFileThatCantBeWrittenIsReported)
{
    const QString name = folder.filePath("missing/a.png");
    dialogs.files = {name};
    savePicture(dialogs, picture);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_TRUE(dialogs.shown[0].text.startsWith("The picture can't be saved:\n" + name + '\n'));
    EXPECT_EQ(dialogs.shown[0].icon, Icon::Critical);
}

TEST_F(SavePictureTest, AFileThatIsThereStaysWholeWhereThePictureCantBeWritten)
{
    const QString name = folder.filePath("a.png");
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
    file.close();
    dialogs.files = {name};
    savePicture(dialogs, QImage()); // a null image is no picture
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "old");
}

} // namespace
} // namespace orb
