// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device_control.h"
#include "faulty_transport.h"
#include "form_test.h"
#include "press.h"

#include <QTemporaryDir>

namespace orb {

/// The real instrument control on a form, on virtual time. Its kinds of link are the simulated instrument and one
/// whose far end the test scripts (`line`).
class DeviceControlTest : public FormTest {
protected:
    DeviceControlTest()
    {
        kinds.push_back(standardLinkKinds(clock).front());
        kinds.push_back(
            {.title = QStringLiteral("Scripted"),
             .linkType = 7,
             .example = QStringLiteral("anything"),
             .resourceName = [](const QString& typed) -> std::optional<QString> {
                 if (typed.startsWith(QStringLiteral("SCRIPT::")))
                     return typed;
                 return typed.isEmpty() || typed.contains(QLatin1Char(' '))
                            ? std::nullopt
                            : std::optional(QStringLiteral("SCRIPT::") + typed);
             },
             .typed = [](const QString& name) { return name.mid(8); },
             .remoteName = [](const QString& name) { return name.mid(8); },
             .transport = [this](const QString&,
                                 const QStringList&) { return std::make_unique<FaultyTransport>(line, faults); }});
        start();
    }

    /// A control as the next start of the program makes it.
    void start()
    {
        control.emplace(clock, kinds, settings.filePath(QStringLiteral("link.ini")));
        put(*control);
        put(control->allOffBar).setGeometry(0, control->height(), 200, 60);
        form.resize(control->size());
        form.setVisible(true);
        control->setVisible(true);
        control->allOffBar.setVisible(true);
    }

    /// Presses Connect for a kind of link.
    void connectSimulated()
    {
        control->ShowConnectPage();
        press(control->connectPage.cmdConnect);
    }
    void connectScripted(const QString& address = QStringLiteral("load"))
    {
        control->ShowConnectPage();
        pick(control->connectPage.cmbKind, QStringLiteral("Scripted"));
        control->connectPage.cmbAddress.setText(address);
        press(control->connectPage.cmdConnect);
    }
    /// The scripted end identifies itself as an instrument of `channels` channels and answers other queries by `otherwise`.
    void actAsInstrument(int channels, std::function<QByteArray(const QByteArray&)> otherwise = {})
    {
        line.onLine = [this, channels, otherwise](const QByteArray& text) {
            if (text == "*IDN?")
                line.say("ZN,ORB3000,0001,1.0\n");
            else if (text == ":CHAN:COUN?")
                line.say(QByteArray::number(channels) + '\n');
            else if (otherwise)
                line.say(otherwise(text));
        };
    }

    /// Connects to an instrument of three channels, makes the control inactive and clears what was sent so far.
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

    QString status() const { return control->connectPage.lblStatus.caption(); }

    QTemporaryDir settings;
    ScriptedLine line{clock};
    TransportFaults faults;
    std::vector<LinkKind> kinds;
    std::optional<DeviceControl> control;
};

} // namespace orb
