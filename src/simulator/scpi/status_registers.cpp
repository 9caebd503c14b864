// SPDX-License-Identifier: GPL-3.0-or-later
#include "status_registers.h"

namespace orb {

namespace {

/// The class of an error: the hundreds of its number.
StatusRegisters::StandardEvent eventOf(ErrorNumber number)
{
    switch (-static_cast<int>(number) / 100) {
    case 1:
        return StatusRegisters::CommandError;
    case 2:
        return StatusRegisters::ExecutionError;
    case 4:
        return StatusRegisters::QueryError;
    default:
        return StatusRegisters::DeviceError;
    }
}

} // namespace

void StatusGroup::setCondition(unsigned condition)
{
    event_ |= (condition & ~condition_ & positive) | (~condition & condition_ & negative);
    condition_ = condition;
}

void StatusGroup::preset()
{
    enable = 0;
    positive = allBits;
    negative = 0;
}

void StatusRegisters::report(ErrorNumber number)
{
    setEvent(eventOf(number));
    if (errors_.size() < queueCapacity) {
        errors_.push_back(number);
        return;
    }
    errors_.back() = ErrorNumber::QueueOverflow;
    setEvent(eventOf(ErrorNumber::QueueOverflow));
}

ErrorNumber StatusRegisters::takeError()
{
    if (errors_.empty())
        return ErrorNumber::NoError;
    const ErrorNumber oldest = errors_.front();
    errors_.pop_front();
    return oldest;
}

std::uint8_t StatusRegisters::takeStandardEvent()
{
    return std::exchange(standardEvent_, std::uint8_t{0});
}

std::uint8_t StatusRegisters::statusByte(bool messageAvailable) const
{
    unsigned byte = 0;
    const auto setIf = [&byte](bool condition, StatusByte bit) { byte |= condition ? unsigned{bit} : 0U; };
    setIf(!errors_.empty(), ErrorAvailable);
    setIf(questionable.summary(), QuestionableSummary);
    setIf(messageAvailable, MessageAvailable);
    setIf((standardEvent_ & standardEventEnable_) != 0, StandardEventSummary);
    setIf(operation.summary(), OperationSummary);
    setIf((byte & serviceRequestEnable_) != 0, MasterSummary);
    return static_cast<std::uint8_t>(byte);
}

void StatusRegisters::clear()
{
    errors_.clear();
    standardEvent_ = 0;
    questionable.takeEvent();
    operation.takeEvent();
}

} // namespace orb
