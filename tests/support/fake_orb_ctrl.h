// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "journal.h"
#include "orb_ctrl.h"

#include <deque>
#include <vector>

namespace orb {

/// An instrument control whose every answer a test writes down beforehand.
class FakeORBCtrl final : public ORBCtrl {
public:
    /// Writes every use of a member into `journal`, which must outlive the control.
    explicit FakeORBCtrl(Journal* journal = nullptr) : journal_(journal) {}

    bool connected = false;
    /// What the next reads of `IsConnected` give, one each; `connected` when none is left.
    std::deque<bool> connectedReads;
    std::int16_t linkType = 0;
    std::int16_t channelCount = 0;
    bool screenGrabbed = false;

    /// What the control makes of a line; its result is the reply from then on.
    std::function<QString(const QString& command)> onCommand;
    /// What the next reads of `Reply` give, one each; the last result of `onCommand` when none is left.
    std::deque<QString> replies;
    std::function<void()> onReconnect;
    /// What the transfers of the program file do with the staging files.
    std::function<void()> onFetchProgramFile;
    std::function<void()> onSendProgramFile;

    /// Every line sent, and every other member called, in order.
    std::vector<QString> sent;
    std::vector<QString> calls;

    void SendCommand(const QString& command) override;
    QString Reply() override;
    bool IsConnected() override;
    std::int16_t LinkType() override;
    std::int16_t ChannelCount() override;
    void PanelActive(bool active) override { called(active ? "PanelActive True" : "PanelActive False"); }
    void ShowControlPage() override { called("ShowControlPage"); }
    void ShowConnectPage() override { called("ShowConnectPage"); }
    void Reconnect() override { called("Reconnect", onReconnect); }
    bool GrabScreen() override;
    void FetchSequenceFile() override { called("FetchSequenceFile"); }
    void FetchProgramFile() override { called("FetchProgramFile", onFetchProgramFile); }
    void SendProgramFile() override { called("SendProgramFile", onSendProgramFile); }

private:
    void called(const char* member, const std::function<void()>& then = {});
    void write(const QString& line);

    Journal* journal_;
    QString reply_;
};

} // namespace orb
