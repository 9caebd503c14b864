// SPDX-License-Identifier: GPL-3.0-or-later
#include "command_page_test.h"

#include <QLayout>

using namespace orb;

namespace {

class CommandPageLayoutTest : public CommandPageTest {
protected:
    /// A row for each control: name, caption, tool tip, picture, and what is not shown or not enabled.
    QStringList controls() const
    {
        QStringList rows;
        const auto add = [&](const char* name, const auto& control) {
            QString picture;
            if constexpr (std::is_same_v<decltype(control), const PictureButton&>)
                picture = control.picture().section('\\', -1);
            QString caption;
            if constexpr (requires { control.caption(); })
                caption = control.caption();
            rows << QStringList{name,
                                caption,
                                control.toolTip(),
                                picture,
                                QLatin1String(control.visible() ? "" : "hidden"),
                                QLatin1String(control.enabled() ? "" : "disabled")}
                        .join('|');
        };
        add("page", page);
        add("lstCommand", page.lstCommand);
        add("lblCommand(0)", page.lblCommand[0]);
        add("lblCommand(1)", page.lblCommand[1]);
        add("lblCommand(2)", page.lblCommand[2]);
        add("chkSend", page.chkSend);
        add("txtValue", page.txtValue);
        add("lstCmdPool", page.lstCmdPool);
        add("txtExecLog", page.txtExecLog);
        add("cmdInsert", page.cmdInsert);
        add("cmdUp", page.cmdUp);
        add("cmdDown", page.cmdDown);
        add("cmdDelete", page.cmdDelete);
        add("cmdOpenSCPI", page.cmdOpenSCPI);
        add("cmdSaveSCPI", page.cmdSaveSCPI);
        add("cmdDeleteSCPI", page.cmdDeleteSCPI);
        add("cmdRefresh", page.cmdRefresh);
        add("cmdShowPages", page.cmdShowPages);
        add("chkShowLog", page.chkShowLog);
        add("cmdSave", page.cmdSave);
        add("cmdStart", page.cmdStart);
        add("cmdStop", page.cmdStop);
        add("cmdGo", page.cmdGo);
        add("chkRepeat", page.chkRepeat);
        add("cmdSaveResult", page.cmdSaveResult);
        return rows;
    }
};

TEST_F(CommandPageLayoutTest, EveryControlHasItsCaptionToolTipPictureAndState)
{
    const QStringList expected{
        "page|Command||||",
        "lstCommand|||||",
        "lblCommand(0)|Command:||||",
        "lblCommand(1)|Description:||||",
        "lblCommand(2)|Format:||||",
        "chkSend|Send Value:||||",
        "txtValue|||||",
        "lstCmdPool|||||",
        "txtExecLog||||hidden|",
        "cmdInsert||Add the command to the list|Insert.png||",
        "cmdUp||Move the selected line up|Up.png||",
        "cmdDown||Move the selected line down|Down.png||",
        "cmdDelete||Remove the selected line|Delete.png||",
        "cmdOpenSCPI|Open Commad File||Open.png||",
        "cmdSaveSCPI|Save Command File||Save.png||",
        "cmdDeleteSCPI|Delete Log File|||hidden|",
        "cmdRefresh|Refresh|Clear the log and show the list|Refresh.png||",
        "cmdShowPages|Show Log|Switch Display Panel|||",
        "chkShowLog|Show Log||||",
        "cmdSave|Save|||hidden|",
        "cmdStart|Start Log|Send the selected line, or with \"Repeat\" all lines again and again|B1RUNSTART.JPG||",
        "cmdStop|Stop Log||B4STOP.JPG||disabled",
        "cmdGo|Go|||hidden|",
        "chkRepeat|Single Step||||",
        "cmdSaveResult|Save Run Cmd's Log File||Export.png||",
    };
    EXPECT_EQ(controls(), expected);
}

TEST_F(CommandPageLayoutTest, AControlWithoutACaptionHasAnAccessibleName)
{
    const QStringList names{page.lstCommand.accessibleName(), page.txtValue.accessibleName(),
                            page.lstCmdPool.accessibleName(), page.txtExecLog.accessibleName(),
                            page.cmdInsert.accessibleName(),  page.cmdUp.accessibleName(),
                            page.cmdDown.accessibleName(),    page.cmdDelete.accessibleName()};
    EXPECT_EQ(names, (QStringList{"Commands", "Value", "List", "Log", "Insert", "Up", "Down", "Delete"}));
}

TEST_F(CommandPageLayoutTest, TheTabKeyGoesFromTheButtonsToTheCatalogueAndThenToTheList)
{
    const std::vector<const QWidget*> wanted{
        &page.cmdStart,      &page.cmdStop,     &page.cmdOpenSCPI, &page.cmdSaveSCPI, &page.cmdRefresh,
        &page.cmdSaveResult, &page.lstCommand,  &page.chkSend,     &page.txtValue,    &page.cmdInsert,
        &page.cmdUp,         &page.cmdDown,     &page.cmdDelete,   &page.lstCmdPool,  &page.chkRepeat,
        &page.chkShowLog,    &page.cmdShowPages};
    std::vector<const QWidget*> seen;
    const QWidget* widget = &page.cmdStart;
    do {
        if (std::ranges::find(wanted, widget) != wanted.end())
            seen.push_back(widget);
        widget = widget->nextInFocusChain();
    } while (widget != &page.cmdStart);
    EXPECT_EQ(seen, wanted);
}

TEST_F(CommandPageLayoutTest, TheLogStandsInThePlaceOfTheList)
{
    form.show();
    press(page.cmdShowPages);
    page.layout()->activate();
    const QRect log(page.txtExecLog.mapTo(&page, QPoint()), page.txtExecLog.size());
    press(page.cmdShowPages);
    page.layout()->activate();
    EXPECT_EQ(log, QRect(page.lstCmdPool.mapTo(&page, QPoint()), page.lstCmdPool.size()));
}

} // namespace
