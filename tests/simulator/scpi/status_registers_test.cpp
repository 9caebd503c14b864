// SPDX-License-Identifier: GPL-3.0-or-later
#include "status_registers.h"

#include <gtest/gtest.h>

namespace orb {
namespace {

TEST(StatusGroupTest, AConditionThatBeginsIsAnEventUntilItIsRead)
{
    StatusGroup group;
    group.setCondition(5);
    group.setCondition(4);
    EXPECT_EQ(group.condition(), 4U);
    EXPECT_EQ(group.takeEvent(), 5U);
    EXPECT_EQ(group.takeEvent(), 0U);
    group.setCondition(4);
    EXPECT_EQ(group.takeEvent(), 0U) << "it began before";
}

TEST(StatusGroupTest, TheFiltersChooseWhichChangesAreEvents)
{
    StatusGroup group;
    group.positive = 1;
    group.negative = 2;
    group.setCondition(7);
    EXPECT_EQ(group.takeEvent(), 1U);
    group.setCondition(0);
    EXPECT_EQ(group.takeEvent(), 2U);
}

TEST(StatusGroupTest, TheSummaryCountsEnabledEvents)
{
    StatusGroup group;
    group.setCondition(6);
    EXPECT_FALSE(group.summary());
    group.enable = 1;
    EXPECT_FALSE(group.summary());
    group.enable = 3;
    EXPECT_TRUE(group.summary());
}

TEST(StatusGroupTest, APresetRestoresMasksAndFiltersAndKeepsEvents)
{
    StatusGroup group;
    group.setCondition(8);
    group.enable = 8;
    group.positive = 0;
    group.negative = 8;
    group.preset();
    EXPECT_EQ(group.enable, 0U);
    EXPECT_EQ(group.positive, 0x7FFFU);
    EXPECT_EQ(group.negative, 0U);
    EXPECT_EQ(group.takeEvent(), 8U);
}

TEST(StatusRegistersTest, EachClassOfErrorsHasItsEvent)
{
    const std::pair<ErrorNumber, StatusRegisters::StandardEvent> classes[] = {
        {ErrorNumber::SyntaxError, StatusRegisters::CommandError},
        {ErrorNumber::DataOutOfRange, StatusRegisters::ExecutionError},
        {ErrorNumber::InputBufferOverrun, StatusRegisters::DeviceError},
        {ErrorNumber::QueryDeadlocked, StatusRegisters::QueryError},
    };
    for (const auto& [error, event] : classes) {
        StatusRegisters registers;
        registers.clear();
        registers.report(error);
        EXPECT_EQ(registers.takeStandardEvent(), event) << static_cast<int>(error);
    }
}

TEST(StatusRegistersTest, AFreshInstrumentHasSeenItsPowerComeOnAndSummarizesNothing)
{
    StatusRegisters registers;
    EXPECT_EQ(registers.standardEventEnable(), 0);
    EXPECT_EQ(registers.serviceRequestEnable(), 0);
    EXPECT_EQ(registers.errorCount(), 0U);
    EXPECT_EQ(registers.statusByte(false), 0);
    EXPECT_EQ(registers.takeStandardEvent(), StatusRegisters::PowerOn);
}

TEST(StatusRegistersTest, AnEnabledOperationEventCountsInTheStatusByte)
{
    StatusRegisters registers;
    registers.operation.enable = 256;
    registers.operation.setCondition(256);
    EXPECT_EQ(registers.statusByte(false), StatusRegisters::OperationSummary);
    registers.setServiceRequestEnable(0xFF);
    EXPECT_EQ(registers.statusByte(false), StatusRegisters::OperationSummary | StatusRegisters::MasterSummary);
    registers.clear();
    EXPECT_EQ(registers.statusByte(false), 0);
    EXPECT_EQ(registers.operation.condition(), 256U) << "a condition is no event";
}

} // namespace
} // namespace orb
