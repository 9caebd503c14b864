// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_test.h"
#include "value_field.h"

#include <QApplication>
#include <QKeyEvent>

namespace orb {

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
} // namespace

/// A field of amperes from 0.5 to 20 that shows 2.5000.
class ValueFieldTest : public FormTest {
protected:
    ValueFieldTest()
    {
        put(field);
        put(other).move(0, 50);
        field.onConfirm = [this](double value) { confirmed.push_back(value); };
        field.onEdit = [this] { ++edits; };
        form.setVisible(true);
        display(2.5);
        field.setFocus();
    }

    void display(std::optional<double> value, std::optional<SetLimits> limits = SetLimits{0.5, 20})
    {
        field.display(value, limits, QStringLiteral("A"));
    }
    void key(int key, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&field, &event);
    }
    void type(const QString& text)
    {
        field.selectAll();
        for (const QChar each : text)
            key(Qt::Key_unknown, QString(each));
    }
    std::string text() const { return field.text().toStdString(); }
    std::string refusal() const { return field.refusal().toStdString(); }
    void leave(Qt::FocusReason reason)
    {
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(&field, &event);
    }

    ValueField field;
    TextBox other;
    std::vector<double> confirmed;
    int edits = 0;
};

TEST_F(ValueFieldTest, ASmallValueKeepsItsDecimalsInARangeOfFiveDigits)
{
    display(9.6, SetLimits{8, 32000});
    EXPECT_EQ(text(), "9.6000");
    display(9.6, SetLimits{8, 3200});
    EXPECT_EQ(text(), "9.60");
}

TEST_F(ValueFieldTest, EnterConfirmsAnEdit)
{
    type(QStringLiteral("3.25"));
    EXPECT_TRUE(field.isEdited());
    EXPECT_THAT(confirmed, IsEmpty());
    key(Qt::Key_Return);
    EXPECT_THAT(confirmed, ElementsAre(3.25));
    EXPECT_FALSE(field.isEdited());
    key(Qt::Key_Enter);
    EXPECT_THAT(confirmed, ElementsAre(3.25)) << "nothing was edited since";
}

TEST_F(ValueFieldTest, EscapeTakesAnEditBack)
{
    type(QStringLiteral("3"));
    key(Qt::Key_Escape);
    EXPECT_EQ(text(), "2.5000");
    EXPECT_FALSE(field.isEdited());
    key(Qt::Key_Return);
    EXPECT_THAT(confirmed, IsEmpty());
}

TEST_F(ValueFieldTest, LeavingTheFieldTakesAnEditBack)
{
    for (const auto reason : {Qt::TabFocusReason, Qt::MouseFocusReason, Qt::OtherFocusReason}) {
        type(QStringLiteral("3"));
        leave(reason);
        EXPECT_EQ(text(), "2.5000");
        EXPECT_THAT(confirmed, IsEmpty());
    }
}

TEST_F(ValueFieldTest, AnotherWindowInFrontLeavesAnEditAlone)
{
    for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        type(QStringLiteral("3"));
        leave(reason);
        EXPECT_EQ(text(), "3");
        EXPECT_TRUE(field.isEdited());
    }
}

TEST_F(ValueFieldTest, AValueOutsideOfTheLimitsIsRefusedInWords)
{
    for (const auto& [typed, why] :
         std::vector<std::pair<QString, std::string>>{{QStringLiteral("20.001"), "At most 20 A"},
                                                      {QStringLiteral("0.499"), "At least 0.5 A"},
                                                      {QStringLiteral("-1"), "At least 0.5 A"},
                                                      {QStringLiteral("nan"), "Not a number"},
                                                      {QStringLiteral("inf"), "Not a number"},
                                                      {QStringLiteral("1,5"), "Not a number"},
                                                      {QStringLiteral("2 V"), "Not a number"}}) {
        type(typed);
        EXPECT_EQ(refusal(), "");
        key(Qt::Key_Return);
        EXPECT_EQ(refusal(), why);
        EXPECT_EQ(field.text(), typed) << "it can be corrected";
    }
    EXPECT_THAT(confirmed, IsEmpty());
    key(Qt::Key_Escape);
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(text(), "2.5000");
}

TEST_F(ValueFieldTest, TheLimitsThemselvesAreTaken)
{
    for (const char* typed : {"20", "0.5", "20.0 A", "5a"}) {
        type(QString::fromLatin1(typed));
        key(Qt::Key_Return);
    }
    EXPECT_THAT(confirmed, ElementsAre(20, 0.5, 20, 5));
}

TEST_F(ValueFieldTest, WithoutKnownLimitsEveryValueButANegativeOneIsTaken)
{
    display(2.5, std::nullopt);
    type(QStringLiteral("1e6"));
    key(Qt::Key_Return);
    type(QStringLiteral("-1"));
    key(Qt::Key_Return);
    EXPECT_THAT(confirmed, ElementsAre(1e6));
    EXPECT_EQ(refusal(), "At least 0 A");
}

TEST_F(ValueFieldTest, TheArrowKeysStepTheDigitUnderTheCursor)
{
    field.setCursorPosition(2); // on the tenths
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "2.6000");
    EXPECT_EQ(field.selectedText(), "6");
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "2.4000");
    field.setCursorPosition(0);
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "3.4000");
    field.setCursorPosition(1); // before the point: the digit before it
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "4.4000");
    field.end(false);
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "4.4001");
    EXPECT_THAT(confirmed, IsEmpty());
    EXPECT_TRUE(field.isEdited());
    key(Qt::Key_Return);
    EXPECT_THAT(confirmed, ElementsAre(4.4001));
}

TEST_F(ValueFieldTest, AStepCarriesAndTheCursorStaysOnItsDigit)
{
    display(9.95);
    field.setCursorPosition(2);
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "10.0500");
    EXPECT_EQ(field.selectionStart(), 3);
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "09.9500") << "the number keeps its length";
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "09.8500");
    EXPECT_EQ(field.selectionStart(), 3);
}

TEST_F(ValueFieldTest, AStepOutOfTheLimitsIsNotMade)
{
    display(19.95);
    field.setCursorPosition(1);
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "19.9500");
    EXPECT_EQ(refusal(), "At most 20 A");
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "18.9500");
    EXPECT_EQ(refusal(), "");
}

TEST_F(ValueFieldTest, WhatIsNoPlainNumberIsNotStepped)
{
    for (const char* typed : {"", "abc", "1e3", "."}) {
        type(QString::fromLatin1(typed));
        if (*typed == '\0')
            key(Qt::Key_Delete);
        key(Qt::Key_Up);
        EXPECT_EQ(text(), typed);
    }
}

TEST_F(ValueFieldTest, ANewReadingLeavesAnEditAlone)
{
    type(QStringLiteral("3"));
    display(7);
    EXPECT_EQ(text(), "3");
    key(Qt::Key_Escape);
    EXPECT_EQ(text(), "7.0000");
}

TEST_F(ValueFieldTest, AnEditEndsWhenUnitOrLimitsChange)
{
    type(QStringLiteral("3"));
    display(7, SetLimits{0, 2});
    EXPECT_EQ(text(), "7.0000");
    type(QStringLiteral("3"));
    field.display(48, SetLimits{0, 2}, QStringLiteral("V"));
    EXPECT_EQ(text(), "48.0000");
    EXPECT_FALSE(field.isEdited());
}

TEST_F(ValueFieldTest, AnEditAndARefusalShowInTheColorOfTheField)
{
    const QColor plain = field.backColor();
    type(QStringLiteral("30"));
    const QColor edited = field.backColor();
    key(Qt::Key_Return);
    const QColor refused = field.backColor();
    EXPECT_NE(edited, plain);
    EXPECT_NE(refused, edited);
    EXPECT_NE(refused, plain);
    key(Qt::Key_Escape);
    EXPECT_EQ(field.backColor(), plain);
    EXPECT_GE(edits, 3);
}

TEST_F(ValueFieldTest, AFieldThatIsReadOnlyIsNotStepped)
{
    field.setReadOnly(true);
    field.setCursorPosition(0);
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "2.5000");
}

} // namespace orb
