// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "text_box.h"

using namespace orb;
using testing::ElementsAre;

namespace {

class TextBoxTest : public FormTest {};

TEST_F(TextBoxTest, ATextBoxRunsItsHandlerForEveryKeyAndForEveryAssignment)
{
    std::vector<QString> seen;
    TextBox box;
    put(box).onChange = [&] { seen.push_back(box.text()); };

    type(box, "0.");
    box.setText("Off");
    box.setText("Off");

    EXPECT_THAT(seen, ElementsAre("0", "0.", "Off"));
}

TEST_F(TextBoxTest, AHandlerMayReplaceTheTypedText)
{
    TextBox box;
    put(box).onChange = [&] {
        if (box.text() == "0")
            box.setText("Off");
    };

    type(box, "0");

    EXPECT_EQ(box.text(), "Off");
}

/// A box whose focus handler selects its whole text, as that of `txtValue` does, and another one beside it.
class TextBoxFocusTest : public FormTest {
protected:
    TextBoxFocusTest()
    {
        put(other).setGeometry(0, 0, 100, 30);
        put(box).setGeometry(0, 40, 100, 30);
        box.onGotFocus = [this] { box.selectAll(); };
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
        other.setFocus();
    }

    /// Qt gives the focus before it delivers the press.
    void press(Qt::MouseButton button = Qt::LeftButton)
    {
        if (!box.hasFocus())
            box.setFocus(Qt::MouseFocusReason);
        mouse(box, QEvent::MouseButtonPress, QPointF(8, 15), button);
    }

    TextBox other;
    TextBox box{"12.5"};
};

TEST_F(TextBoxFocusTest, WhatTheFocusHandlerSelectsSurvivesTheClickThatGaveTheFocus)
{
    press();
    EXPECT_EQ(box.selectedText(), "12.5");
    mouse(box, QEvent::MouseMove, QPointF(12, 15));
    EXPECT_EQ(box.selectedText(), "12.5");
    mouse(box, QEvent::MouseButtonRelease, QPointF(12, 15));
    EXPECT_EQ(box.selectedText(), "12.5");
}

TEST_F(TextBoxFocusTest, TheNextClickPlacesTheCaret)
{
    for (const auto first : {Qt::LeftButton, Qt::RightButton}) {
        other.setFocus();
        press(first);
        mouse(box, QEvent::MouseButtonRelease, QPointF(8, 15), first);
        press();
        EXPECT_EQ(box.selectedText(), "");
        mouse(box, QEvent::MouseMove, QPointF(95, 15));
        EXPECT_NE(box.selectedText(), "");
        mouse(box, QEvent::MouseButtonRelease, QPointF(95, 15));
    }
}

TEST_F(TextBoxFocusTest, AClickPlacesTheCaretInABoxThatGotTheFocusByTheKeyboard)
{
    box.setFocus(Qt::TabFocusReason);
    ASSERT_EQ(box.selectedText(), "12.5");

    press();

    EXPECT_EQ(box.selectedText(), "");
}

TEST_F(TextBoxFocusTest, ABoxWhoseHandlerSelectsNothingIsClickedAsUsual)
{
    box.onGotFocus = nullptr;
    press();
    mouse(box, QEvent::MouseMove, QPointF(95, 15));

    EXPECT_NE(box.selectedText(), "");
}

TEST_F(TextBoxFocusTest, AMousePressRunsItsHandlerWhetherItGivesTheFocusOrNot)
{
    int presses = 0;
    box.onMouseDown = [&] { ++presses; };
    press();
    press();

    EXPECT_EQ(presses, 2);
}

TEST_F(TextBoxTest, AKeyIsReportedByTheCodeOfItsCharacterBeforeTheBoxGetsIt)
{
    std::vector<QString> seen;
    TextBox box;
    put(box).onKeyPress = [&](int code) { seen.push_back(QString("%1 in '%2'").arg(code).arg(box.text())); };

    type(box, "a\r");
    QKeyEvent shift(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &shift);

    EXPECT_THAT(seen, ElementsAre("97 in ''", "13 in 'a'"));
}

} // namespace
