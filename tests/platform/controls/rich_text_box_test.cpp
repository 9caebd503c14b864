// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "rich_text_box.h"

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

} // namespace
