// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "press.h"
#include "rich_text_box.h"

#include <QScrollBar>
#include <QTemporaryDir>

using namespace orb;

namespace {

class RichTextBoxTest : public FormTest {};

TEST_F(RichTextBoxTest, AnAppendedLogIsTheSameAsOneAssignedWhole)
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

TEST_F(RichTextBoxTest, RichTextEscapesWhatItsFormGivesAMeaning)
{
    EXPECT_EQ(
        richText(QStringLiteral("a\\{b}\r\nÄ")),
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}}\r\n\\f0\\fs20 a\\\\\\{b\\}\\par\r\n\\u196?}\r\n");
}

TEST_F(RichTextBoxTest, TheCaretMovesToTheEndAndTheEndIsShown)
{
    RichTextBox box;
    put(box).resize(100, 60);
    form.show();
    for (int i = 0; i < 100; ++i)
        box.appendText("line\r\n");
    box.moveCursor(QTextCursor::Start);

    box.moveCaretToEnd();

    EXPECT_TRUE(box.textCursor().atEnd());
    EXPECT_TRUE(box.viewport()->rect().intersects(box.cursorRect()));

    box.verticalScrollBar()->setValue(0); // as the operator does who reads the beginning
    ASSERT_FALSE(box.viewport()->rect().intersects(box.cursorRect()));
    box.moveCaretToEnd();
    EXPECT_TRUE(box.viewport()->rect().intersects(box.cursorRect()));
}

TEST_F(RichTextBoxTest, TheFileIsTheTextInItsRichTextForm)
{
    const QTemporaryDir folder;
    RichTextBox box;
    box.setText("a\r\nb");

    box.saveFile(folder.filePath("log.cmd"));

    QFile file(folder.filePath("log.cmd"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), richText("a\r\nb"));
}

TEST_F(RichTextBoxTest, TheOperatorReadsTheTextAndCannotChangeIt)
{
    RichTextBox box;
    box.setText("a");
    type(box, "b");
    EXPECT_EQ(box.toPlainText(), "a");
    EXPECT_EQ(box.text(), "a");
}

TEST_F(RichTextBoxTest, RichTextIsAsciiAlone)
{
    EXPECT_TRUE(richText("\t~").contains("\t~"));
    EXPECT_TRUE(richText(QString(QChar(0x80))).contains("\\u128?"));
    EXPECT_TRUE(richText(QString(QChar(0xFFFD))).contains("\\u-3?"));
    EXPECT_FALSE(richText(QString(QChar(1))).contains('\1'));
}

TEST_F(RichTextBoxTest, TheFocusIsAnOutline)
{
    RichTextBox box;
    RichTextBox other;
    put(other);
    put(box).resize(200, 100);
    form.show();
    const QColor accent = box.palette().color(QPalette::Highlight);
    const auto edge = [&] { return box.viewport()->grab().toImage().pixelColor(1, 50); };
    giveFocus(other);
    EXPECT_NE(edge(), accent);
    giveFocus(box);
    EXPECT_EQ(edge(), accent);
}

} // namespace
