// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device_control.h"
#include "form.h"
#include "press.h"
#include "real_clock.h"
#include "recorded_exit.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace orb {

/// Far beyond what any of this takes: a test that waits so long has found something.
inline constexpr int generousMs = 30'000;

inline bool waitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(generousMs))
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return true;
}

/// The control over real sockets, its timers running on real time.
class TcpControlTest : public testing::Test {
protected:
    explicit TcpControlTest(int limitMs = generousMs)
        : control(clock, standardLinkKinds(clock), settings.filePath(QStringLiteral("link.ini")),
                  {generousMs, limitMs, limitMs})
    {
        control.setParent(&form);
        control.allOffBar.setParent(&form);
        form.resize(control.size());
        form.setVisible(true);
        control.setVisible(true);
        control.allOffBar.setVisible(true);
    }

    ConnectPage& page() { return control.connectPage; }
    void pressConnect(const QString& address, const QString& kind = QStringLiteral("Network (TCP)"))
    {
        control.ShowConnectPage();
        pick(page().cmbKind, kind);
        page().cmbAddress.setText(address);
        press(page().cmdConnect);
    }
    /// Presses Connect and waits for what comes of it.
    bool connectTo(quint16 port)
    {
        pressConnect(QStringLiteral("127.0.0.1:%1").arg(port));
        waitUntil([&] { return page().cmdConnect.enabled() || page().cmdDisconnect.enabled(); });
        return control.IsConnected();
    }
    std::string status() { return page().lblStatus.caption().toStdString(); }
    void send(const char* line) { control.SendCommand(QString::fromLatin1(line)); }
    /// Waits without an event loop, as page logic does, until there is a reply.
    QString reply()
    {
        QElapsedTimer timer;
        timer.start();
        while (control.Reply().isEmpty() && control.IsConnected() && !timer.hasExpired(generousMs))
            clock.sleep(1);
        return control.Reply();
    }
    QString ask(const char* query)
    {
        send(query);
        return reply();
    }
    /// Sends a query again and again, as an operator does who is asked "Wait or not?".
    QString askUntilAnswered(const char* query)
    {
        for (int i = 0; i < generousMs / 300; ++i) {
            send(query);
            for (int wait = 0; wait < 3 && control.Reply().isEmpty(); ++wait)
                clock.sleep(100);
            if (!control.Reply().isEmpty())
                break;
        }
        return control.Reply();
    }
    static bool isVoltages(const QString& reply)
    {
        return reply.count(QLatin1Char(',')) == 8 && reply.contains(QStringLiteral("48."));
    }
    static bool isCurrents(const QString& reply) { return reply == QStringLiteral("0.0000,").repeated(8); }

    RecordedExit processExit;
    orb::Run run{processExit};
    RealClock clock{run};
    Form form{run};
    QTemporaryDir settings;
    DeviceControl control;
};

} // namespace orb
