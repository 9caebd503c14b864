// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "dark_palette.h"
#include "press.h"

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ListBoxTest : public FormTest {
protected:
    ListBoxTest()
    {
        put(list).addItems({"a", "b", "c"});
        list.resize(200, 200);
        form.show(); // a hidden list ignores the mouse's moves
        list.onClick = [this] { clicked << list.selectedText(); };
    }

    QPointF row(int index) const { return list.visualItemRect(list.item(index)).center(); }
    void mouseOn(QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(*list.viewport(), type, at, button);
    }

    ListBox list;
    QStringList clicked; ///< the selected text at each `onClick`
};

TEST_F(ListBoxTest, AListRefusesAnIndexOutOfRange)
{
    EXPECT_EQ(failureOf([&] { list.setListIndex(3); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.setListIndex(-2); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.removeItem(3); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.removeItem(-1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.insertItem("d", 4); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.insertItem("d", -1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.list(-1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.list(3); }), failure::InvalidPropertyValue);
    EXPECT_THAT(list.items(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(list.list(2), "c");
    EXPECT_EQ(list.listIndex(), -1);
}

TEST_F(ListBoxTest, AListRunsItsHandlerInsideTheAssignmentOfItsIndex)
{
    list.setListIndex(1);
    list.setListIndex(1);
    list.setListIndex(-1);

    EXPECT_THAT(clicked, ElementsAre("b", ""));
}

TEST_F(ListBoxTest, RemovingTheSelectedLineLeavesNoSelectionAndRemovingAnotherKeepsIt)
{
    list.setListIndex(1);

    list.removeItem(0);
    EXPECT_EQ(list.selectedText(), "b");
    list.insertItem("d", 0);
    EXPECT_EQ(list.selectedText(), "b");
    list.removeItem(2);
    EXPECT_EQ(list.selectedText(), "b");
    list.removeItem(list.listIndex());
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_THAT(list.items(), ElementsAre("d"));
    list.insertItem("e", 1);
    EXPECT_THAT(list.items(), ElementsAre("d", "e"));
    EXPECT_THAT(clicked, ElementsAre("b"));
}

TEST_F(ListBoxTest, AClickOnALineSelectsItAndRunsTheHandlerOnce)
{
    pick(list, "b");

    EXPECT_EQ(list.listIndex(), 1);
    EXPECT_THAT(clicked, ElementsAre("b"));
}

TEST_F(ListBoxTest, WithNothingSelectedTheSelectedTextIsEmpty)
{
    list.setListIndex(1);
    list.setListIndex(-1);

    EXPECT_EQ(failureOf([&] { EXPECT_EQ(list.selectedText(), ""); }), 0);
}

TEST_F(ListBoxTest, ALineSelectedByAPressHasItsClickThoughTheButtonIsReleasedOutside)
{
    mouseOn(QEvent::MouseButtonPress, row(1));
    mouseOn(QEvent::MouseButtonRelease, QPointF(10, 5000));

    EXPECT_EQ(list.selectedText(), "b");
    EXPECT_THAT(clicked, ElementsAre("b"));
}

TEST_F(ListBoxTest, EachLineThatADragSelectsHasItsClick)
{
    mouseOn(QEvent::MouseButtonPress, row(0));
    mouseOn(QEvent::MouseMove, row(1));
    mouseOn(QEvent::MouseMove, row(2));
    mouseOn(QEvent::MouseButtonRelease, row(2));

    EXPECT_THAT(clicked, ElementsAre("a", "b", "c"));
}

TEST_F(ListBoxTest, AClickOnTheSelectedLineRunsTheHandlerOnce)
{
    pick(list, "b");
    pick(list, "b");

    EXPECT_THAT(clicked, ElementsAre("b", "b"));
}

TEST_F(ListBoxTest, AClickBelowTheLastLineIsNone)
{
    list.setListIndex(0);
    clicked.clear();

    mouseOn(QEvent::MouseButtonPress, QPointF(10, 190));
    mouseOn(QEvent::MouseButtonRelease, QPointF(10, 190));

    EXPECT_EQ(list.selectedText(), "a");
    EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(ListBoxTest, OnlyTheLeftButtonsReleaseOnTheSelectedLineIsAClick)
{
    list.setListIndex(0);
    clicked.clear();

    mouseOn(QEvent::MouseButtonPress, row(0), Qt::RightButton);
    mouseOn(QEvent::MouseButtonRelease, row(0), Qt::RightButton);

    EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(ListBoxTest, ADoubleClickOfTheLeftButtonAloneRunsItsHandlerAndIsNoFurtherClick)
{
    int doubleClicks = 0;
    list.onDblClick = [&] { ++doubleClicks; };
    list.setListIndex(0);
    clicked.clear();

    for (const auto button : {Qt::RightButton, Qt::MiddleButton, Qt::LeftButton}) {
        EXPECT_EQ(doubleClicks, 0);
        mouseOn(QEvent::MouseButtonPress, row(0), button);
        mouseOn(QEvent::MouseButtonRelease, row(0), button);
        mouseOn(QEvent::MouseButtonDblClick, row(0), button);
        mouseOn(QEvent::MouseButtonRelease, row(0), button);
    }

    EXPECT_EQ(doubleClicks, 1);
    EXPECT_THAT(clicked, ElementsAre("a"));
}

TEST_F(ListBoxTest, AKeyThatSelectsAnotherLineIsAClickAndAnyOtherIsNone)
{
    list.setListIndex(1);
    clicked.clear();

    for (const int key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Shift, Qt::Key_Up}) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&list, &down);
    }

    EXPECT_THAT(clicked, ElementsAre("c", "b"));
}

TEST_F(ListBoxTest, ClearingRunsNoHandler)
{
    list.setListIndex(1);
    clicked.clear();

    list.clear();

    EXPECT_EQ(list.listCount(), 0);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(ListBoxTest, WithoutASelectionAnArrowKeySelectsTheFirstLine)
{
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up}) {
        list.setListIndex(-1);
        clicked.clear();
        hitKey(list, key);
        EXPECT_EQ(list.listIndex(), 0);
        EXPECT_THAT(clicked, ElementsAre("a"));
    }
    hitKey(list, Qt::Key_Down);
    EXPECT_EQ(list.listIndex(), 1);
    list.clear();
    hitKey(list, Qt::Key_Down);
    EXPECT_EQ(list.listIndex(), -1);
}

TEST_F(ListBoxTest, TheFocusIsAnOutlineAndTheSelectionIsFilled)
{
    ListBox other;
    put(other);
    other.show();
    const QColor accent = list.palette().color(QPalette::Highlight);
    const auto pixel = [&](QPoint at) { return list.viewport()->grab().toImage().pixelColor(at); };
    const QPoint lineEnd(150, static_cast<int>(row(1).y()));
    const QPoint edge(1, 150);
    giveFocus(list);
    EXPECT_EQ(pixel(edge), accent);
    EXPECT_NE(pixel(lineEnd), accent);

    list.setListIndex(1);
    giveFocus(other);

    EXPECT_NE(pixel(edge), accent);
    EXPECT_EQ(pixel(lineEnd), accent);
}

TEST_F(ListBoxTest, TheOutlineOfTheFocusStaysInPlaceWhileTheListScrolls)
{
    for (int i = 0; i < 50; ++i)
        list.addItem(QString::number(i));
    giveFocus(list);
    QImage shown(list.size(), QImage::Format_RGB32);
    list.render(&shown);
    list.scrollToBottom();
    QCoreApplication::processEvents();
    const QImage scrolled = list.viewport()->grab().toImage();
    for (const int y : {40, 80, 120})
        EXPECT_NE(scrolled.pixelColor(100, y), list.palette().color(QPalette::Highlight));
    EXPECT_EQ(scrolled.pixelColor(1, 100), list.palette().color(QPalette::Highlight));
}

TEST_F(ListBoxTest, TheTextOfAColoredListIsBlackOnLightAndWhiteOnDarkWhateverTheDesktopHas)
{
    form.setPalette(darkPalette());
    EXPECT_EQ(list.palette().color(QPalette::Text), darkPalette().color(QPalette::Text));

    list.setBackColor(QColor(255, 192, 192));
    EXPECT_EQ(list.palette().color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(list.backColor(), QColor(255, 192, 192));
    list.setBackColor(QColor(60, 0, 0));
    EXPECT_EQ(list.palette().color(QPalette::Text), QColor(Qt::white));
}

} // namespace
