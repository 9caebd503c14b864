// SPDX-License-Identifier: GPL-3.0-or-later
#include "data_file_dialog.h"
#include "form_test.h"

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

} // namespace
