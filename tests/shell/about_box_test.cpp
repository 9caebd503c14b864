// SPDX-License-Identifier: GPL-3.0-or-later
#include "about_box.h"

#include "form_orb_test.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

using namespace orb;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

class AboutBoxTest : public FormORBTest {
protected:
    AboutBoxTest()
    {
        load();
        form.show();
        journal.clear();
    }

    /// Presses About, and acts on the box while it is up.
    void withBox(const std::function<void(AboutBox&)>& act)
    {
        QTimer::singleShot(0, &form, [this, act] {
            auto* box = dynamic_cast<AboutBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            act(*box);
            wasShown = true;
            box->close();
        });
        press(form.pageAbout);
        EXPECT_TRUE(wasShown);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }

    bool wasShown = false;
};

TEST_F(AboutBoxTest, TheBoxShowsThreeVersions)
{
    withBox([](AboutBox& box) {
        EXPECT_EQ(box.caption(), "About ZN ORB Device");
        EXPECT_EQ(box.Label1.caption(), "Version: 0.1");
        EXPECT_EQ(box.lblVersion.caption(), "Version 1.3.2");
        EXPECT_EQ(box.lblTitle.caption(), "Version 1.0");
        EXPECT_EQ(box.Label2.caption(), "ORB");
        EXPECT_TRUE(box.lblUrl.caption().startsWith("URL: http"));
        EXPECT_EQ(box.cmdOK.caption(), "OK");
        EXPECT_EQ(box.cmdSysInfo.caption(), "&System Info...");
        EXPECT_FALSE(box.Image1.pixmap().isNull());
    });
}

TEST_F(AboutBoxTest, OKClosesTheBox)
{
    withBox([](AboutBox& box) {
        press(box.cmdOK);
        EXPECT_FALSE(box.isVisible());
    });
}

TEST_F(AboutBoxTest, EscapeClosesTheBox)
{
    withBox([](AboutBox& box) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&box, &escape);
        EXPECT_FALSE(box.isVisible());
    });
}

TEST_F(AboutBoxTest, SystemInfoStartsTheToolAndTheBoxStays)
{
    systemTools.values["SOFTWARE\\Microsoft\\Shared Tools\\MSINFO:PATH"] = {SystemTools::Text, "tool"};
    withBox([this](AboutBox& box) {
        press(box.cmdSysInfo);
        EXPECT_EQ(systemTools.calls.last(), "start tool");
        EXPECT_TRUE(box.isVisible());
    });
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(AboutBoxTest, TheBoxStopsNothingAndChangesNoPage)
{
    click(&FormORB::pageWaveClick);
    watchPages();
    for (PictureButton* stop : {&form.fraDisplay.dispStop, &form.frmDatalog.logStop, &form.fraCommand.cmdStop})
        stop->setEnabled(true);
    journal.clear();
    withBox([](AboutBox&) {});
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(AboutBoxTest, AMissingLogoEndsTheProgramAndShowsNoBox)
{
    QFile::remove(application.filePath("ICON"));
    press(form.pageAbout);
    EXPECT_THAT(processExit.reports, ElementsAre("Run-time error '53':\n\nFile not found"));
}

} // namespace
