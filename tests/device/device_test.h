// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device_control.h"
#include "form_test.h"
#include "press.h"
#include "scripted_line.h"

#include <QTemporaryDir>

namespace orb {

/// The real instrument control on a form, on virtual time. Its kinds of link are the simulated instrument and one
/// whose far end the test writes down (`line`).
class DeviceTest : public FormTest {
protected:
    DeviceTest()
    {
        kinds.push_back(standardLinkKinds(clock).front());
        kinds.push_back({.title = QStringLiteral("Scripted"),
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
                         .transport = [this](const QString&) { return std::make_unique<ScriptedTransport>(line); }});
        start();
    }

    /// A control as the next start of the program makes it.
    void start()
    {
        control.emplace(clock, kinds, settings.filePath(QStringLiteral("link.ini")));
        put(*control);
        form.resize(control->size());
        form.setVisible(true);
        control->setVisible(true);
    }

    /// The operator picks a kind of link and presses Connect.
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
    /// The scripted end answers as an instrument of `channels` channels, everything else by `otherwise`.
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

    QString status() const { return control->connectPage.lblStatus.caption(); }

    QTemporaryDir settings;
    ScriptedLine line{clock};
    std::vector<LinkKind> kinds;
    std::optional<DeviceControl> control;
};

} // namespace orb
