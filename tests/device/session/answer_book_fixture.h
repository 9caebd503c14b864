// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "answer_book.h"

#include <gmock/gmock.h>

namespace orb {

inline const QByteArray identity = "ZN,ORB3000,0001,1.0";
inline const QByteArray twice = identity + ';' + identity;
inline constexpr qint64 patience = AnswerBook::patienceMs;

/// Queries of the application and answers; what it would read, and which markers go out.
class AnswerBookTest : public testing::Test {
protected:
    AnswerBookTest() { book.setIdentity(identity); }

    /// A query goes out. The marker that goes out before it.
    QByteArray ask(const QByteArray& text, qint64 at = 0)
    {
        const QByteArray marker = book.markerBefore(text, false, at);
        book.asked(Requester::Application, text, at);
        return marker;
    }
    void come(const QByteArray& answer) { book.answered(answer); }
    QByteArray seen() const { return book.answer(Requester::Application).value_or("nothing"); }
    /// A query stayed unanswered, and the marker before `b?` has shown it.
    void learnThatLostIsNotAnswered()
    {
        ask("lost?");
        EXPECT_EQ(ask("b?", patience), "*IDN?");
        come(identity);
        come("b");
        EXPECT_EQ(seen(), "b");
    }

    AnswerBook book;
};

} // namespace orb
