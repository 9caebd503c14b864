// SPDX-License-Identifier: GPL-3.0-or-later
#include "pointer_file.h"

#include "control_fixture.h"
#include "directories.h"

#include <QTemporaryDir>

using namespace orb;

namespace {

class PointerFileTest : public FormTest {
protected:
    QString file(const QByteArray& content) const
    {
        QFile file(folder.filePath("a.cur"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
        return file.fileName();
    }

    static QByteArray hand()
    {
        QFile file(sourceDirectory() + "/resources/ICON/H_POINT.CUR");
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir folder;
};

TEST_F(PointerFileTest, APointerHasThePictureAndTheHotSpotOfItsFile)
{
    const QCursor pointer = loadPointer(file(hand()));
    EXPECT_EQ(pointer.pixmap().size(), QSize(32, 32));
    EXPECT_EQ(pointer.hotSpot(), QPoint(11, 2));
}

TEST_F(PointerFileTest, AFileThatHoldsNoPointerIsAFailure)
{
    const QByteArray icon = hand().replace(2, 1, "\1");
    for (const QByteArray& content : {QByteArray(), QByteArray("no pointer, but long enough"), hand().left(22), icon})
        EXPECT_EQ(failureOf([&] { loadPointer(file(content)); }), failure::InvalidPicture);
    EXPECT_EQ(failureOf([&] { loadPointer(folder.filePath("none.cur")); }), failure::FileNotFound);
}

} // namespace
