// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "control.h"

#include <QString>

#include <cstdint>

namespace orb {

/// The instrument control as the pages see it: it sends command lines, holds the last reply, transfers files by way of
/// the staging files, and reports the state of the link. It has two pages of its own, the Control page and the Connect
/// page. No member throws: each fails by its result (false, an empty text, a missing file).
class ORBCtrl : public Control<QWidget> {
public:
    /// The control went to its Connect page by a button of its own.
    std::function<void()> onConnectPage;

    explicit ORBCtrl(QWidget* parent = nullptr) : Control<QWidget>(parent) {}

    /// Sends one command line, given without line end, and returns as soon as it is on its way. An empty line is sent as
    /// a line end. Does nothing on a dead link.
    virtual void SendCommand(const QString& command) = 0;
    /// The answer to the last query, without line end; empty until it has come. Reading consumes nothing.
    virtual QString Reply() = 0;
    /// True while a link to the instrument stands. Cheap: timers read it on each tick.
    virtual bool IsConnected() = 0;
    /// 1 for a serial line; another small number for every other link.
    virtual std::int16_t LinkType() = 0;
    /// The number of load channels of the connected instrument, 0 without one.
    virtual std::int16_t ChannelCount() = 0;
    /// False: the control is off the screen and must leave the link to the application.
    virtual void PanelActive(bool active) = 0;
    /// Show the Control page or the Connect page and make the control active.
    virtual void ShowControlPage() = 0;
    virtual void ShowConnectPage() = 0;
    /// Drops the link and establishes it anew. Blocks until that succeeded or failed.
    virtual void Reconnect() = 0;
    /// Fetches the instrument's screen into `staging::screen`; true when a complete new picture is in the file.
    virtual bool GrabScreen() = 0;
    /// Fetch into `staging::sequence` and `staging::program`. A failure shows only in that the file is missing.
    virtual void FetchSequenceFile() = 0;
    virtual void FetchProgramFile() = 0;
    /// Sends the content of `staging::programUpload`.
    virtual void SendProgramFile() = 0;
};

/// The files by which bulk data are transferred. Nothing else may use them.
namespace staging {
inline const QString folder = QStringLiteral("c:\\temp");
inline const QString screen = QStringLiteral("c:\\temp\\ORB.bmp");
inline const QString program = QStringLiteral("c:\\temp\\ORBProg.b");
inline const QString programUpload = QStringLiteral("c:\\temp\\ORBProgUpload.b");
inline const QString sequence = QStringLiteral("c:\\temp\\ORBSeq.a");
} // namespace staging

} // namespace orb
