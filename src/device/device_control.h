// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "all_off_bar.h"
#include "connect_page.h"
#include "control_page.h"
#include "input_states.h"
#include "orb_ctrl.h"
#include "timer.h"

namespace orb {

/// The instrument control itself: the link to a real or simulated instrument, and its own Control and Connect pages.
/// A link is made only by the operator; a load input is switched only by the operator. While the control is off the
/// screen, or `PanelActive` is false, it sends nothing of its own.
class DeviceControl final : public ORBCtrl {
public:
    /// The kinds of link of the real program, and the settings of its user. `clock` must outlive the control.
    explicit DeviceControl(Clock& clock, QWidget* parent = nullptr);
    /// `kinds`: at least one, the first the choice of a first start. The recent links are kept in `settingsFile`.
    DeviceControl(Clock& clock, std::vector<LinkKind> kinds, const QString& settingsFile, ConnectLimits limits = {},
                  QWidget* parent = nullptr);

private:
    Clock& clock_;
    // Declared before the pages, which refer to them.
    std::vector<LinkKind> kinds_;
    LinkSettings settings_;

public:
    /// How the link stands, on both pages.
    StatusLabel lblLink;
    /// Belongs within reach on every page of the program, where who owns the window puts it. Its button switches all
    /// inputs off at once, whatever else is going on.
    AllOffBar allOffBar;
    ControlPage controlPage;
    ConnectPage connectPage;

    void SendCommand(const QString& command) override;
    /// Waits up to 50 ms for an answer that is under way, and never when none is.
    QString Reply() override;
    bool IsConnected() override;
    /// 0 for the simulated instrument and without a link, 1 for a serial line, 2 for TCP, 3 for USB.
    std::int16_t LinkType() override;
    std::int16_t ChannelCount() override;
    void PanelActive(bool active) override;
    void ShowControlPage() override;
    void ShowConnectPage() override;
    void Reconnect() override;
    bool GrabScreen() override;
    void FetchSequenceFile() override;
    void FetchProgramFile() override;
    void SendProgramFile() override;

    void cmdAllOffClick();
    void cmdDisconnectClick();

private:
    static constexpr int replyWaitMs = 50;

    void createLayout();
    void wire();
    void sendLine(const QByteArray& line);
    void connectTo(const QString& resourceName, const QStringList& choices);
    std::unique_ptr<Transport> makeTransport() const;
    void connectTick();
    void linkWentUp();
    void restartChannels();
    void pageTick();
    void pollChannels(Session& session);
    void watchTick();
    bool isOnScreen() const;
    bool isControlPageShown() const;
    void pageLeft();
    void change(int channel, const ChannelChange& change);
    void display();
    void displayChannels();
    void displayBar();
    void lineSent(const QByteArray& line);
    void showPage(QWidget& page);
    void becomeActive();
    void becomeInactive();
    bool transfer(bool (*body)(Session& session));

    InstrumentLink link_;
    QString resourceName_; // of the link that was tried last
    QStringList choices_;  // of its kind's options
    ChannelPoll poll_;
    ChannelChanges changes_;
    InputStates inputs_;
    Timer timerConnect_;
    Timer timerPage_;
    Timer timerWatch_; // of the link, while no page of the control is shown
    bool active_ = false;
    bool unanswerable_ = false; // the application's last query was not sent
    bool isPolling_ = false;    // the Control page was on the screen at the last tick
    int inputsNumber_ = 0;      // only readings of a query beyond this number say more of the inputs than `inputs_`
    bool allOffFailed_ = false; // on this link
    int displayed_ = -1;        // `InstrumentLink::changes` as it is shown
};

} // namespace orb
