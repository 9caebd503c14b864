// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device_test.h"

namespace orb {

/// The control on a scripted line that acts as an instrument of three channels.
class ControlTest : public DeviceTest {
protected:
    void connectInstrument(std::function<QByteArray(const QByteArray&)> otherwise = {})
    {
        actAsInstrument(3, std::move(otherwise));
        connectScripted();
        clock.advance(100);
        ASSERT_TRUE(control->IsConnected());
        control->PanelActive(false);
        line.sent.clear();
        clock.sleeps.clear();
    }
};

} // namespace orb
