// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_file_dialog.h"
#include "form_test.h"
#include "press.h"

#include <QCoreApplication>
#include <QMouseEvent>

using namespace orb;

namespace {

class DataFileDialogTest : public FormTest {
protected:
    DataFileDialogTest()
    {
        put(page);
        page.resizeTwips(10590, 9300);
    }

    Frame page;
    DataFileDialog dialog{&page};
};

TEST_F(DataFileDialogTest, TheDialogAndItsListsStartHidden)
{
    EXPECT_FALSE(dialog.visible());
    for (const ListBox* list : {&dialog.lstLogMain, &dialog.listLogDel, &dialog.lstProgFile})
        EXPECT_FALSE(list->visible());
}

TEST_F(DataFileDialogTest, TheListsToOpenAndToDeleteHaveTheirColors)
{
    EXPECT_EQ(dialog.lstLogMain.backColor(), QColor(255, 192, 192));
    EXPECT_EQ(dialog.listLogDel.backColor(), QColor(192, 255, 255));
}

TEST_F(DataFileDialogTest, TheListsKeepTheirColorsOnAnotherPage)
{
    Frame other;
    put(other);
    form.show();
    dialog.lstLogMain.setVisible(true);
    dialog.showOn(page);
    dialog.lstProgFile.setVisible(true);
    dialog.lstProgFile.setBackColor(QColor(192, 255, 255));

    dialog.showOn(other);

    EXPECT_EQ(dialog.lstLogMain.backColor(), QColor(255, 192, 192));
    EXPECT_EQ(dialog.lstProgFile.backColor(), QColor(192, 255, 255));
}

TEST_F(DataFileDialogTest, TheListsShareOnePlace)
{
    dialog.showOn(page);
    for (ListBox* list : {&dialog.lstLogMain, &dialog.listLogDel, &dialog.lstProgFile})
        list->setVisible(true);
    form.show();

    EXPECT_EQ(dialog.lstLogMain.geometry(), dialog.listLogDel.geometry());
    EXPECT_EQ(dialog.lstLogMain.geometry(), dialog.lstProgFile.geometry());
}

TEST_F(DataFileDialogTest, TheDialogStandsInTheMiddleOfThePageAtEachShow)
{
    for (int width : {10590, 15000}) {
        page.resizeTwips(width, 9300);
        dialog.setVisible(false);

        dialog.showOn(page);

        EXPECT_TRUE(dialog.visible());
        EXPECT_NEAR(dialog.geometry().center().x(), page.rect().center().x(), 1);
        EXPECT_EQ(dialog.topTwips(), 2100);
    }
}

TEST_F(DataFileDialogTest, TheDialogKeepsItsSizeAndItsContentsOnAnotherPage)
{
    auto other = std::make_unique<Frame>();
    put(*other);
    const QSize size = dialog.size();
    dialog.lstLogMain.addItem("a");
    dialog.cmdOKDataLogFile.setTag("OPENDATALOG");

    dialog.showOn(*other);

    EXPECT_EQ(dialog.parentWidget(), other.get());
    EXPECT_TRUE(dialog.visible());
    EXPECT_EQ(dialog.size(), size);
    EXPECT_EQ(dialog.lstLogMain.listCount(), 1);
    EXPECT_EQ(dialog.cmdOKDataLogFile.tag(), "OPENDATALOG");
}

TEST_F(DataFileDialogTest, ThePageThatItIsShownOnMayGoFirst)
{
    auto other = std::make_unique<Frame>();
    put(*other);
    dialog.showOn(page);
    dialog.showOn(*other);
    dialog.showOn(page);
    dialog.showOn(*other);

    other.reset();
    EXPECT_EQ(dialog.parentWidget(), nullptr);

    dialog.showOn(page);
    EXPECT_EQ(dialog.parentWidget(), &page);
    EXPECT_TRUE(dialog.visible());
}

/// The dialog as it is open for a log to open, with what its buttons do written down.
class DataFileDialogKeysTest : public DataFileDialogTest {
protected:
    DataFileDialogKeysTest()
    {
        opener.setParent(&page);
        dialog.cmdOKDataLogFile.onClick = [this] { done << "OK " + dialog.lstLogMain.selectedText(); };
        dialog.cmdCancelDataLogFile.onClick = [this] {
            done << "Cancel";
            dialog.setVisible(false);
        };
        dialog.lstLogMain.addItems({"a", "b"});
        form.show();
        giveFocus(opener);
        dialog.showOn(page);
        dialog.lstLogMain.setVisible(true);
        dialog.focusOn(dialog.lstLogMain);
        QCoreApplication::processEvents();
    }

    PictureButton opener{"Open"};
    QStringList done;
};

TEST_F(DataFileDialogKeysTest, TheArrowKeysSelectALineAndEnterPressesOk)
{
    EXPECT_TRUE(dialog.lstLogMain.hasFocus());
    hitKey(dialog.lstLogMain, Qt::Key_Down);
    hitKey(dialog.lstLogMain, Qt::Key_Down);
    hitKey(dialog.lstLogMain, Qt::Key_Return);
    hitKey(dialog.lstLogMain, Qt::Key_Up);
    hitKey(dialog.lstLogMain, Qt::Key_Enter);
    EXPECT_THAT(done, testing::ElementsAre("OK b", "OK a"));
}

TEST_F(DataFileDialogKeysTest, ADoubleClickOnALinePressesOkAndOneBelowTheLinesDoesNot)
{
    doubleClick(dialog.lstLogMain, 1);
    EXPECT_THAT(done, testing::ElementsAre("OK b"));
    const QPoint below(20, dialog.lstLogMain.viewport()->height() - 5);
    QMouseEvent press(QEvent::MouseButtonDblClick, below, dialog.lstLogMain.viewport()->mapToGlobal(below),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(dialog.lstLogMain.viewport(), &press);
    EXPECT_EQ(done.size(), 1);
}

TEST_F(DataFileDialogKeysTest, EscapePressesCancelAndTheFocusGoesBackToWhereItWas)
{
    dialog.focusOn(dialog.lstLogMain); // opened a second time
    hitKey(dialog.lstLogMain, Qt::Key_Escape);
    EXPECT_THAT(done, testing::ElementsAre("Cancel"));
    EXPECT_TRUE(opener.hasFocus());
}

TEST_F(DataFileDialogKeysTest, OtherKeysPressNothing)
{
    hitKey(dialog.lstLogMain, Qt::Key_A);
    hitKey(dialog.lstLogMain, Qt::Key_Tab);
    EXPECT_TRUE(done.isEmpty());
}

} // namespace
