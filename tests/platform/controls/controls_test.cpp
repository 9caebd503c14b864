// SPDX-License-Identifier: GPL-3.0-or-later
#include "form_test.h"
#include "image.h"
#include "label.h"
#include "press.h"
#include "rich_text_box.h"
#include "text_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The number of the failure that `action` throws, 0 for none.
template <typename Action> int failureOf(Action action)
{
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return 0;
}

void type(QWidget& widget, const QString& text)
{
    for (const QChar c : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&widget, &down);
    }
}

class ControlsTest : public FormTest {};

TEST_F(ControlsTest, ACheckBoxAssignedInCodeRunsItsHandlerInsideTheAssignment)
{
    std::vector<QString> order;
    CheckBox box;
    put(box).onClick = [&] { order.push_back(QString("handler sees %1").arg(box.value())); };

    order.push_back("before");
    box.setValue(CheckBox::Checked);
    order.push_back("after");
    box.setValue(CheckBox::Checked);

    EXPECT_THAT(order, ElementsAre("before", "handler sees 1", "after"));
}

TEST_F(ControlsTest, AFailureInAHandlerLeavesTheAssignmentThatRanIt)
{
    CheckBox box;
    put(box).onClick = [] { throw RuntimeFailure(failure::Overflow); };

    EXPECT_EQ(failureOf([&] { box.setValue(1); }), failure::Overflow);
    EXPECT_EQ(box.value(), CheckBox::Checked);
    EXPECT_THAT(processExit.reports, IsEmpty());
}

TEST_F(ControlsTest, AFailureInAHandlerThatTheOperatorRanEndsTheRun)
{
    CheckBox box;
    put(box).onClick = [] { throw RuntimeFailure(failure::Overflow); };

    press(box);

    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '6':\n\nOverflow"));
}

TEST_F(ControlsTest, ACheckBoxRefusesSeven)
{
    CheckBox box;
    EXPECT_EQ(failureOf([&] { box.setValue(7); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { box.setValue(-1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(box.value(), CheckBox::Unchecked);
}

TEST_F(ControlsTest, ThePressOfADisabledOrHiddenControlIsIgnored)
{
    int clicks = 0;
    Frame frame;
    PictureButton button;
    put(frame);
    button.setParent(&frame);
    button.onClick = [&] { ++clicks; };

    press(button);
    button.setEnabled(false);
    press(button);
    button.setEnabled(true);
    button.setVisible(false);
    press(button);
    button.setVisible(true);
    frame.setVisible(false);
    press(button);
    frame.setVisible(true);
    frame.setEnabled(false);
    press(button);

    EXPECT_EQ(clicks, 1);
}

TEST_F(ControlsTest, VisibleAndEnabledReadBackTheControlsOwnSettingWhateverItsContainersIs)
{
    Frame frame;
    PictureButton button;
    put(frame);
    button.setParent(&frame);
    frame.setVisible(false);
    frame.setEnabled(false);

    EXPECT_TRUE(button.visible());
    EXPECT_TRUE(button.enabled());
    button.setEnabled(false);
    button.setVisible(false);
    frame.setVisible(true);
    frame.setEnabled(true);
    EXPECT_FALSE(button.visible());
    EXPECT_FALSE(button.enabled());
}

TEST_F(ControlsTest, PositionsAndSizesAreTwips)
{
    PictureButton button;
    put(button).moveTwips(120, 960);
    button.resizeTwips(1005, 975);

    EXPECT_EQ(button.geometry(), QRect(8, 64, 67, 65));
    EXPECT_EQ(button.topTwips() + button.heightTwips(), 1935);
}

TEST_F(ControlsTest, AListRefusesAnIndexOutOfRange)
{
    ListBox list;
    put(list).addItems({"a", "b"});

    EXPECT_EQ(failureOf([&] { list.setListIndex(2); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.setListIndex(-2); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.removeItem(2); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.insertItem("c", 3); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { list.list(-1); }), failure::InvalidPropertyValue);
    EXPECT_THAT(list.items(), ElementsAre("a", "b"));
    EXPECT_EQ(list.listIndex(), -1);
}

TEST_F(ControlsTest, AListRunsItsHandlerInsideTheAssignmentOfItsIndex)
{
    std::vector<QString> selected;
    ListBox list;
    put(list).addItems({"a", "b"});
    list.onClick = [&] { selected.push_back(list.selectedText()); };

    list.setListIndex(1);
    list.setListIndex(1);
    list.setListIndex(-1);

    EXPECT_THAT(selected, ElementsAre("b", ""));
}

TEST_F(ControlsTest, RemovingTheSelectedLineLeavesNoSelectionAndRemovingAnotherKeepsIt)
{
    ListBox list;
    put(list).addItems({"a", "b", "c"});
    list.setListIndex(1);

    list.removeItem(0);
    EXPECT_EQ(list.selectedText(), "b");
    list.insertItem("d", 0);
    EXPECT_EQ(list.selectedText(), "b");
    list.removeItem(list.listIndex());
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_THAT(list.items(), ElementsAre("d", "c"));
}

TEST_F(ControlsTest, AClickOnALineSelectsItAndRunsTheHandlerOnce)
{
    int clicks = 0;
    ListBox list;
    put(list).addItems({"a", "b"});
    list.onClick = [&] { ++clicks; };

    pick(list, "b");

    EXPECT_EQ(list.listIndex(), 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ControlsTest, ACombosFirstItemDoesNotSelectItself)
{
    for (const auto kind : {ComboBox::Kind::DropDown, ComboBox::Kind::DropDownList}) {
        ComboBox combo(kind);
        combo.addItem("a");
        EXPECT_EQ(combo.listIndex(), -1);
        EXPECT_EQ(combo.text(), "");
    }
}

TEST_F(ControlsTest, ACombosIndexOutOfRangeIsRefused)
{
    ComboBox combo;
    combo.addItem("a");
    EXPECT_EQ(failureOf([&] { combo.setListIndex(1); }), failure::InvalidPropertyValue);
    EXPECT_EQ(failureOf([&] { combo.list(1); }), failure::InvalidPropertyValue);
}

TEST_F(ControlsTest, TypedTextThatEqualsAnItemSelectsItAndAnyOtherLeavesNoSelection)
{
    ComboBox combo;
    put(combo);
    combo.addItem("OFF");
    combo.addItem("P01");

    combo.lineEdit()->selectAll();
    type(*combo.lineEdit(), "P01");
    EXPECT_EQ(combo.listIndex(), 1);
    combo.lineEdit()->selectAll();
    type(*combo.lineEdit(), "p1");
    EXPECT_EQ(combo.listIndex(), -1);
    EXPECT_EQ(combo.text(), "p1");
}

TEST_F(ControlsTest, AssigningAComboItsTextSelectsTheItemAndRunsTheHandler)
{
    int clicks = 0;
    ComboBox combo;
    combo.addItem("OFF");
    combo.addItem("P01");
    combo.onClick = [&] { ++clicks; };

    combo.setText("P01");
    combo.setText("P01");
    combo.setText("other");

    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(combo.listIndex(), -1);
}

TEST_F(ControlsTest, ADropDownListRefusesATextThatIsNoItem)
{
    ComboBox combo(ComboBox::Kind::DropDownList);
    combo.addItem("5m");
    EXPECT_EQ(failureOf([&] { combo.setText("2Day"); }), failure::InvalidPropertyValue);
}

TEST_F(ControlsTest, ATextBoxRunsItsHandlerForEveryKeyAndForEveryAssignment)
{
    std::vector<QString> seen;
    TextBox box;
    put(box).onChange = [&] { seen.push_back(box.text()); };

    type(box, "0.");
    box.setText("Off");
    box.setText("Off");

    EXPECT_THAT(seen, ElementsAre("0", "0.", "Off"));
}

TEST_F(ControlsTest, AHandlerMayReplaceTheTextThatTheOperatorTyped)
{
    TextBox box;
    put(box).onChange = [&] {
        if (box.text() == "0")
            box.setText("Off");
    };

    type(box, "0");

    EXPECT_EQ(box.text(), "Off");
}

TEST_F(ControlsTest, AnOptionDeselectsItsSiblings)
{
    std::vector<QString> ran;
    OptionButton zoom("Zoom"), pan("Pan");
    put(zoom).onClick = [&] { ran.push_back("zoom"); };
    put(pan).onClick = [&] { ran.push_back("pan"); };

    zoom.setValue(true);
    press(pan);
    EXPECT_FALSE(zoom.value());
    zoom.setValue(true);
    EXPECT_FALSE(pan.value());
    zoom.setValue(false);

    EXPECT_FALSE(zoom.value());
    EXPECT_THAT(ran, ElementsAre("zoom", "pan", "zoom"));
}

TEST_F(ControlsTest, AProgressBarRefusesAValueOutsideOfItsRange)
{
    ProgressBar bar(12);
    bar.setValue(12);
    EXPECT_EQ(failureOf([&] { bar.setValue(13); }), failure::InvalidPropertyValue);
    EXPECT_EQ(bar.value(), 12);
}

TEST_F(ControlsTest, APictureIsFoundInAnotherLetterCaseAndItsPathReadsBack)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("ICON");
    QImage(4, 4, QImage::Format_RGB32).save(folder.filePath("ICON/B2PAUSE.JPG"));
    PictureButton button;

    button.setPicture(folder.path() + "\\icon\\b2pause.jpg");

    EXPECT_EQ(button.picture(), folder.path() + "\\icon\\b2pause.jpg");
    EXPECT_FALSE(button.icon().isNull());
}

TEST_F(ControlsTest, AMissingPictureIsFileNotFoundAndALyingOneAnInvalidPicture)
{
    const QTemporaryDir folder;
    QFile lie(folder.filePath("lie.jpg"));
    ASSERT_TRUE(lie.open(QIODevice::WriteOnly));
    lie.write("no picture");
    lie.close();
    PictureButton button;

    EXPECT_EQ(failureOf([&] { button.setPicture(folder.path() + "\\none.jpg"); }), failure::FileNotFound);
    EXPECT_EQ(failureOf([&] { button.setPicture(folder.path() + "\\lie.jpg"); }), failure::InvalidPicture);
    EXPECT_EQ(button.picture(), "");
}

TEST_F(ControlsTest, AnAppendedLogIsTheSameAsOneAssignedWhole)
{
    RichTextBox appended, assigned;
    QString whole;
    for (const QString entry : {"*IDN? => A,B,C,D\r\n", ":CHAN 1\r\n", "\r\n"}) {
        appended.appendText(entry);
        whole += entry;
    }
    assigned.setText(whole);

    EXPECT_EQ(appended.text(), assigned.text());
    EXPECT_EQ(appended.toPlainText(), assigned.toPlainText());
}

TEST_F(ControlsTest, RichTextEscapesWhatItsFormGivesAMeaning)
{
    EXPECT_EQ(
        richText(QStringLiteral("a\\{b}\r\nÄ")),
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}}\r\n\\f0\\fs20 a\\\\\\{b\\}\\par\r\n\\u196?}\r\n");
}

TEST_F(ControlsTest, AMouseOnAnImageIsToldInTwips)
{
    std::vector<float> at;
    Image image;
    put(image).resizeTwips(300, 300);
    image.onMouseDown = [&](float x, float y) { at = {x, y}; };
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(7, 3), QPointF(7, 3), Qt::RightButton, Qt::RightButton,
                     Qt::NoModifier);

    QCoreApplication::sendEvent(&image, &down);

    EXPECT_THAT(at, ElementsAre(105.0F, 45.0F));
}

TEST_F(ControlsTest, AFormTellsItsActivationAndItsEndByTheWindowFrame)
{
    std::vector<QString> told;
    form.onActivate = [&] { told.push_back("active"); };
    form.onUnload = [&] { told.push_back("unload"); };

    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &activate);
    form.close();

    EXPECT_THAT(told, ElementsAre("active", "unload"));
}

} // namespace
