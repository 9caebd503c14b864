// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "instrument_error.h"

#include <cstdint>
#include <deque>

namespace orb {

/// The error queue and the status registers of the instrument.
class StatusRegisters {
public:
    /// Errors that the queue holds. The one that doesn't fit any more turns the last entry into a queue overflow.
    static constexpr std::size_t queueCapacity = 32;

    /// Bits of the standard event register.
    enum StandardEvent : std::uint8_t {
        OperationComplete = 1,
        QueryError = 4,
        DeviceError = 8,
        ExecutionError = 16,
        CommandError = 32,
        PowerOn = 128,
    };
    /// Bits of the status byte.
    enum StatusByte : std::uint8_t {
        ErrorAvailable = 4,
        QuestionableSummary = 8,
        MessageAvailable = 16,
        StandardEventSummary = 32,
        MasterSummary = 64,
    };

    /// Puts an error into the queue and its class into the standard event register.
    void report(ErrorNumber number);
    /// The oldest error, which leaves the queue; `NoError` when there is none.
    ErrorNumber takeError();
    std::size_t errorCount() const { return errors_.size(); }

    void setEvent(StandardEvent event) { standardEvent_ |= event; }
    /// Reads the standard event register and clears it.
    std::uint8_t takeStandardEvent();

    /// The questionable conditions as they are now. A bit that was not set before goes into the event register.
    void setQuestionable(unsigned condition);
    unsigned questionableCondition() const { return questionableCondition_; }
    /// Reads the questionable event register and clears it.
    unsigned takeQuestionableEvent();

    std::uint8_t standardEventEnable() const { return standardEventEnable_; }
    void setStandardEventEnable(std::uint8_t mask) { standardEventEnable_ = mask; }
    std::uint8_t serviceRequestEnable() const { return serviceRequestEnable_; }
    /// The master summary enables nothing: its bit stays 0.
    void setServiceRequestEnable(std::uint8_t mask) { serviceRequestEnable_ = mask & ~MasterSummary; }
    unsigned questionableEnable() const { return questionableEnable_; }
    void setQuestionableEnable(unsigned mask) { questionableEnable_ = mask; }

    /// The status byte; `messageAvailable` says whether an answer waits to be read.
    std::uint8_t statusByte(bool messageAvailable) const;
    /// Empties the queue and the event registers. Enable registers stay.
    void clear();

private:
    std::deque<ErrorNumber> errors_;
    std::uint8_t standardEvent_ = PowerOn;
    std::uint8_t standardEventEnable_ = 0;
    std::uint8_t serviceRequestEnable_ = 0;
    unsigned questionableCondition_ = 0;
    unsigned questionableEvent_ = 0;
    unsigned questionableEnable_ = 0;
};

} // namespace orb
