// SPDX-License-Identifier: GPL-3.0-or-later
#include "sim_transport.h"

#include <gtest/gtest.h>

namespace orb {

TEST(SimTransportTest, AnswersThatNobodyReadsAreDroppedBeyondSixteenMebibytes)
{
    constexpr qsizetype bound = 16 * 1024 * 1024;
    SimTransport transport(std::make_shared<SimulatedInstrument>(defaultConfiguration(1)));
    ASSERT_TRUE(transport.open(0));
    const QByteArray query = ":MMEM:DATA? \"ORBProg.b\"\n";
    transport.write(query);
    const qsizetype answer = transport.read().size();
    ASSERT_GT(answer, 5580);

    for (qsizetype asked = 0; asked < bound + 10 * answer; asked += answer)
        transport.write(query);

    qsizetype read = 0;
    while (transport.waitReadable(0))
        read += transport.read().size();
    EXPECT_GE(read, bound);
    EXPECT_LT(read, bound + answer);
}

} // namespace orb
