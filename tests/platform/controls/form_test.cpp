// SPDX-License-Identifier: GPL-3.0-or-later
#include "control_fixture.h"
#include "press.h"

using namespace orb;
using testing::ElementsAre;

namespace {

TEST_F(FormTest, AFormRunsItsHandlersWhenItIsActivatedAndClosedByItsFrame)
{
    std::vector<QString> events;
    form.onActivate = [&] { events.push_back("active"); };
    form.onUnload = [&] { events.push_back("unload"); };

    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&form, &activate);
    form.close();

    EXPECT_THAT(events, ElementsAre("active", "unload"));
}

} // namespace
