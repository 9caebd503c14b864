// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "definite_length_block.h"
#include "framer.h"
#include "recorded_exit.h"
#include "scripted_line.h"
#include "session.h"
#include "virtual_clock.h"

#include <gmock/gmock.h>

namespace orb {

/// A session with an instrument that the test writes down; its identity is known.
class SessionTest : public testing::Test {
protected:
    SessionTest()
    {
        transport.open(100);
        introduce(line, session);
    }

    void introduce(ScriptedLine& end, Session& talk) const
    {
        talk.send(Requester::Control, "*IDN?");
        end.say(identity + '\n');
        talk.poll();
        end.sent.clear();
    }

    bool send(const QByteArray& text) { return session.send(Requester::Application, text); }
    /// What the application would read now.
    QByteArray reply() { return session.awaitAnswer(Requester::Application, 50).value_or("nothing"); }
    QByteArray ask(const QByteArray& text)
    {
        send(text);
        return reply();
    }
    /// The identity as often as `text` asks for it; empty where it asks anything else.
    QByteArray identities(const QByteArray& text, const QByteArray& joint = ";") const
    {
        return QByteArray(text).replace("*IDN?", identity).replace(";", joint);
    }
    /// Each query is answered with its own text and a number that counts up, `ms` later; a marker with the identity,
    /// and a query that begins with "lost" not at all.
    void echo(int ms, const QByteArray& joint = ";")
    {
        line.onLine = [this, ms, joint](const QByteArray& text) {
            if (text.startsWith("*IDN?"))
                line.say(identities(text, joint) + '\n', ms);
            else if (isQuery(text) && !text.startsWith("lost"))
                line.say(text + " #" + QByteArray::number(++answers) + '\n', ms);
        };
    }

    const QByteArray identity = "ZN,ORB3000,0001,1.0";
    RecordedExit processExit;
    orb::Run run{processExit};
    VirtualClock clock{run};
    ScriptedLine line{clock};
    ScriptedTransport transport{line};
    Session session{clock, transport};
    int answers = 0;
};

} // namespace orb
