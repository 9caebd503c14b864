// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_page_test.h"
#include "random_program_files.h"

#include <algorithm>
#include <map>
#include <span>

using namespace orb;
using testing::ElementsAre;

namespace {

/// What a file of any bytes does: it fills the page, is refused by its checksum, or ends the program at a list index or a
/// ninth channel.
class ProgramFileFuzzTest : public ProgramPageTest {
protected:
    enum Outcome { Filled, Refused, Ended };

    /// A page of its own, since a run that is over handles nothing any more.
    Outcome outcomeOf(const QByteArray& bytes)
    {
        RecordedExit exit;
        orb::Run fuzzRun(exit);
        VirtualClock fuzzClock(fuzzRun);
        ScriptedDialogs fuzzDialogs;
        QString pending = write(bytes);
        ProgramPage fuzzed(fuzzClock, fuzzDialogs, paths, instrument, dbMain, dialog, pending);
        fuzzRun.enter([&] { fuzzed.InitProgramPage(); });
        fuzzRun.enter([&] { fuzzed.progOpenClick(); });
        int filled = 0;
        for (const MemoryCell& step : fuzzed.txtMemSetting)
            filled += !step.tag().isEmpty();
        const bool checksum = !fuzzDialogs.shown.empty() && fuzzDialogs.shown.front().text == "Checksum Error";
        if (exit.reports.empty())
            EXPECT_EQ(filled, checksum ? 0 : 120);
        else
            EXPECT_THAT(exit.reports,
                        ElementsAre(testing::AnyOf("Run-time error '380':\n\nInvalid property value",
                                                   "Run-time error '340':\n\nControl array element doesn't exist")));
        return !exit.reports.empty() ? Ended : checksum ? Refused : Filled;
    }

    int below(int limit) { return files.upTo(limit - 1); }

    /// Changes some bytes of a good file, half of them within the programs and the chain.
    QByteArray mutated(QByteArray bytes)
    {
        for (int changes = 1 + below(4); changes > 0; --changes)
            bytes[below(2) ? 4116 + below(1464) : below(5580)] = static_cast<char>(below(256));
        return bytes;
    }

    static QByteArray withChecksum(const QByteArray& bytes)
    {
        ProgFileRecord record{};
        std::ranges::copy(std::as_bytes(std::span(bytes)), imageOf(record).begin());
        return finished(record);
    }

    RandomProgramFiles files;
};

TEST_F(ProgramFileFuzzTest, AnyChangedFileEndsInOneOfTheDescribedResults)
{
    std::map<Outcome, int> outcomes;
    for (int i = 0; i < 60; ++i) {
        const QByteArray bytes = mutated(finished(files.record(700)));
        ++outcomes[outcomeOf(i % 3 == 0 ? bytes : withChecksum(bytes))];
    }
    EXPECT_GT(outcomes[Filled], 0);
    EXPECT_GT(outcomes[Refused], 0);
    EXPECT_GT(outcomes[Ended], 0);
}

TEST_F(ProgramFileFuzzTest, RandomBytesWithAGoodChecksumEndInOneOfTheDescribedResults)
{
    for (int i = 0; i < 20; ++i) {
        QByteArray bytes(5580, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(below(256));
        outcomeOf(withChecksum(bytes));
    }
}

TEST_F(ProgramFileFuzzTest, AFileOfAnyOtherLengthEndsInOneOfTheDescribedResults)
{
    for (const int length : {0, 1, 3, 4, 5, 4115, 4116, 4126, 5555, 5557, 5572, 5579, 5581, 9000}) {
        QByteArray bytes = finished(files.record(255));
        bytes.resize(length, 'x');
        const Outcome outcome = outcomeOf(bytes);
        EXPECT_EQ(outcome, length > 5580 || length <= 1 ? Filled : Refused) << length;
    }
}

} // namespace
