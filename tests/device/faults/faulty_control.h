// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device_control.h"
#include "faulty_link.h"
#include "form_test.h"
#include "paths.h"
#include "press.h"
#include "scripted_line.h"
#include "staging_files.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

namespace orb {

/// What a member made of a fault.
enum class Outcome {
    Own,     ///< its own result, whole
    Nothing, ///< false, an empty text, no file
    Strange, ///< the text that the fault put in the place of the answer
    Wrong,   ///< anything else
};

inline constexpr LinkName links[] = {LinkName::Simulated, LinkName::Tcp, LinkName::Serial, LinkName::Usbtmc};
inline constexpr const char* linkNames[] = {"Simulated", "Tcp", "Serial", "Usbtmc"};

/// A control on virtual time, over a link whose instrument has faults.
class FaultyControl : public FormTest {
public:
    void TestBody() override {}

    FaultyControl(LinkName name, const std::string& script) : link(makeFaultyLink(name, script, clock))
    {
        nowhere_.openError = LinkError::NoDevice;
        clock.allow(24 * 3'600'000);
        std::vector<LinkKind> kinds;
        kinds.push_back({.title = QStringLiteral("Faulty"),
                         .linkType = 9,
                         .example = QStringLiteral("none"),
                         .resourceName = [](const QString&) { return std::optional(QStringLiteral("FAULTY")); },
                         .typed = [](const QString& resource) { return resource; },
                         .remoteName = [](const QString& resource) { return resource; },
                         .transport = [this](const QString&, const QStringList&) { return transport(); }});
        control.emplace(clock, std::move(kinds), settings_.filePath(QStringLiteral("link.ini")));
        put(*control);
        form.resize(control->size());
        form.setVisible(true);
        control->setVisible(true);
        for (const QString& file : {staging::screen, staging::program, staging::sequence})
            QFile::remove(realPath(file));
    }

    /// Connecting by the button needs an event loop, which has no place on virtual time: the press finds no instrument,
    /// and `Reconnect` does.
    bool connect()
    {
        control->ShowConnectPage();
        press(control->connectPage.cmdConnect);
        isPlugged_ = true;
        control->Reconnect();
        control->PanelActive(false);
        return control->IsConnected();
    }

    // What comes before a call.
    void nothing() {}
    void ask() { control->SendCommand(QStringLiteral(":FETC:ALLV?")); }
    void showPage()
    {
        control->ShowControlPage();
        clock.advance(60); // the first query of the page goes out
    }
    void writeUpload() { ASSERT_TRUE(writeStagingFile(staging::programUpload, "a program")); }

    // The calls.
    Outcome sendCommand()
    {
        control->SendCommand(QStringLiteral(":LOAD1 ON"));
        return Outcome::Own;
    }
    Outcome reply()
    {
        const QString text = control->Reply();
        if (text.isEmpty())
            return Outcome::Nothing;
        if (isVoltages(text))
            return Outcome::Own;
        return text.count(QLatin1Char(',')) == 8 ? Outcome::Wrong : Outcome::Strange;
    }
    Outcome sendQuery()
    {
        ask();
        return Outcome::Own;
    }
    Outcome grabScreen()
    {
        const bool isNew = control->GrabScreen();
        if (isNew != fileExists(staging::screen))
            return Outcome::Wrong;
        return !isNew ? Outcome::Nothing : isBitmap(contentOf(staging::screen)) ? Outcome::Own : Outcome::Wrong;
    }
    Outcome fetchSequence()
    {
        control->FetchSequenceFile();
        return fetched(staging::sequence, 4380);
    }
    Outcome fetchProgram()
    {
        control->FetchProgramFile();
        return fetched(staging::program, 5580);
    }
    Outcome sendProgram()
    {
        control->SendProgramFile();
        return Outcome::Own;
    }
    Outcome reconnect()
    {
        control->Reconnect();
        if (!control->IsConnected())
            return Outcome::Nothing;
        return control->ChannelCount() == 8 ? Outcome::Own : Outcome::Strange;
    }
    Outcome isConnected()
    {
        control->IsConnected();
        return Outcome::Own;
    }
    Outcome linkType() { return control->LinkType() == 9 ? Outcome::Own : Outcome::Wrong; }
    Outcome channelCount()
    {
        const int count = control->ChannelCount();
        return count == 8 || count == 0 ? Outcome::Own : Outcome::Wrong;
    }
    Outcome panelActive()
    {
        control->PanelActive(false);
        return Outcome::Own;
    }
    Outcome showControlPage()
    {
        control->ShowControlPage();
        return Outcome::Own;
    }
    Outcome showConnectPage()
    {
        control->ShowConnectPage();
        return Outcome::Own;
    }
    Outcome allOff()
    {
        control->cmdAllOffClick();
        return Outcome::Own;
    }

    /// Asks for the currents and the voltages in turn until each had its answer; none may be under the other. The first is
    /// not what the faulty answer belongs to, since an answer may serve a later query of the same text.
    void expectAnswers()
    {
        QElapsedTimer timer;
        timer.start();
        int answered = 0;
        while (answered != 3 && control->IsConnected() && timer.elapsed() < Pace::generousMs)
            for (const int which : {2, 1}) {
                control->SendCommand(which == 1 ? QStringLiteral(":FETC:ALLV?") : QStringLiteral(":FETC:ALLC?"));
                const QString text = replyWithin(400);
                if (!text.isEmpty()) {
                    EXPECT_TRUE(which == 1 ? isVoltages(text) : isCurrents(text)) << text.toStdString();
                    answered |= which;
                }
            }
        EXPECT_TRUE(answered == 3 || !control->IsConnected());
    }

    /// The end of the link is noticed at a call, whichever.
    void awaitEnd()
    {
        QElapsedTimer timer;
        timer.start();
        for (; control->IsConnected() && timer.elapsed() < Pace::generousMs; QThread::msleep(1))
            control->LinkType();
    }

    /// A link that is down says so; then it is made again.
    void expectDown()
    {
        control->SendCommand(QStringLiteral("*RST"));
        EXPECT_FALSE(control->GrabScreen());
        EXPECT_EQ(control->ChannelCount(), 0);
        EXPECT_FALSE(control->IsConnected());
        QElapsedTimer timer;
        timer.start();
        link->restore();
        for (link->pace.comes = true; !control->IsConnected() && timer.elapsed() < Pace::generousMs; QThread::msleep(1))
            control->Reconnect();
        EXPECT_TRUE(control->IsConnected());
    }

    using FormTest::clock;
    std::unique_ptr<FaultyLink> link;
    std::optional<DeviceControl> control;

private:
    std::unique_ptr<Transport> transport()
    {
        return isPlugged_ ? link->transport() : std::make_unique<ScriptedTransport>(nowhere_);
    }
    static QByteArray contentOf(const QString& literal)
    {
        QFile file(realPath(literal));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static Outcome fetched(const QString& literal, int size)
    {
        const QByteArray content = contentOf(literal);
        return content.isEmpty()                               ? Outcome::Nothing
               : content.size() == size || content == "file\n" ? Outcome::Own
                                                               : Outcome::Wrong;
    }
    /// As a recording does: a sleep and a look, again and again.
    QString replyWithin(int ms)
    {
        for (int waited = 0; waited < ms && control->Reply().isEmpty(); waited += 100) {
            clock.sleep(100);
            QThread::usleep(500);
        }
        return control->Reply();
    }
    static bool isVoltages(const QString& text)
    {
        return text.count(QLatin1Char(',')) == 8 && text.contains(QStringLiteral("48."));
    }
    static bool isCurrents(const QString& text)
    {
        return text.count(QLatin1Char(',')) == 8 && !text.contains(QStringLiteral("48."));
    }

    QTemporaryDir settings_;
    ScriptedLine nowhere_{clock};
    bool isPlugged_ = false;
};

} // namespace orb
