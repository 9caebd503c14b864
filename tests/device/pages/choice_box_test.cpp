// SPDX-License-Identifier: GPL-3.0-or-later
#include "choice_box.h"
#include "form_test.h"

#include <QApplication>

namespace orb {

class ChoiceBoxTest : public FormTest {
protected:
    ChoiceBoxTest()
    {
        put(box);
        form.setVisible(true);
        box.setVisible(true);
        box.display(1);
        box.onClick = [this] { ++choices; };
    }
    ~ChoiceBoxTest() override { box.hidePopup(); }

    bool isOpen() const { return box.view()->isVisible(); }
    static void hit(QWidget& widget, Qt::Key key, const QString& text = {})
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QApplication::sendEvent(&widget, &event);
        }
    }

    ChoiceBox box{{QStringLiteral("CC"), QStringLiteral("CR"), QStringLiteral("CV")}};
    int choices = 0;
};

TEST_F(ChoiceBoxTest, AKeyOpensTheListAndChoosesNothing)
{
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_Space, " "}, {Qt::Key_Return, "\r"}, {Qt::Key_Enter, "\r"}, {Qt::Key_F4, ""},  {Qt::Key_C, "c"},
        {Qt::Key_Down, ""},   {Qt::Key_Up, ""},       {Qt::Key_Home, ""},    {Qt::Key_End, ""}, {Qt::Key_Left, ""},
        {Qt::Key_Right, ""},  {Qt::Key_PageUp, ""},   {Qt::Key_PageDown, ""}};
    for (const auto& [key, text] : keys) {
        hit(box, key, QString::fromLatin1(text));
        EXPECT_TRUE(isOpen()) << key;
        EXPECT_EQ(box.listIndex(), 1) << key;
        box.hidePopup();
    }
    EXPECT_EQ(choices, 0);
}

TEST_F(ChoiceBoxTest, EnterChoosesInTheOpenList)
{
    hit(box, Qt::Key_Space, QStringLiteral(" "));
    hit(*box.view(), Qt::Key_Down);
    EXPECT_EQ(box.listIndex(), 1) << "not in passing";
    hit(*box.view(), Qt::Key_Return, QStringLiteral("\r"));

    EXPECT_EQ(box.text(), "CV");
    EXPECT_EQ(choices, 1);
    EXPECT_FALSE(isOpen());
}

TEST_F(ChoiceBoxTest, EscapeLeavesTheChoice)
{
    hit(box, Qt::Key_Space, QStringLiteral(" "));
    hit(*box.view(), Qt::Key_Down);
    hit(*box.view(), Qt::Key_Escape);

    EXPECT_EQ(box.text(), "CR");
    EXPECT_EQ(choices, 0);
    EXPECT_FALSE(isOpen());
}

TEST_F(ChoiceBoxTest, OtherKeysAndTheWheelDoNothing)
{
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Shift, Qt::Key_F5})
        hit(box, key, key == Qt::Key_Escape ? QStringLiteral("\x1b") : QString());
    QWheelEvent turn(QPointF(5, 5), QPointF(5, 5), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(&box, &turn);

    EXPECT_FALSE(isOpen());
    EXPECT_EQ(box.text(), "CR");
    EXPECT_EQ(choices, 0);
}

TEST_F(ChoiceBoxTest, WhatIsDisplayedRunsNoHandlerAndLeavesAnOpenListAlone)
{
    box.display(2);
    EXPECT_EQ(box.text(), "CV");
    box.showPopup();
    box.display(0);
    EXPECT_EQ(box.text(), "CV");
    box.hidePopup();
    box.display(-1);
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(choices, 0);
}

} // namespace orb
