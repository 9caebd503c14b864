// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "instrument_error.h"

#include <cstdint>
#include <deque>
#include <utility>

namespace orb {

/// A condition register with its transition filters, its event register and its enable mask.
class StatusGroup {
public:
    /// The bits of each register; the highest of 16 is always 0.
    static constexpr unsigned allBits = 0x7FFF;

    /// Sets the conditions as they are now. Changes that the filters let through go into the event register.
    void setCondition(unsigned condition);
    unsigned condition() const { return condition_; }
    /// Reads the event register and clears it.
    unsigned takeEvent() { return std::exchange(event_, 0U); }
    /// Whether an enabled event is set.
    bool summary() const { return (event_ & enable) != 0; }
    /// Sets the mask and the filters to what they are at first.
    void preset();

    unsigned enable = 0;
    /// The bits that are events when they become 1, and when they become 0.
    unsigned positive = allBits;
    unsigned negative = 0;

private:
    unsigned condition_ = 0;
    unsigned event_ = 0;
};

/// The error queue and the status registers of the instrument.
class StatusRegisters {
public:
    /// The size of the queue. An error that doesn't fit turns the last entry into a queue overflow.
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
        OperationSummary = 128,
    };

    /// Puts an error into the queue and its class into the standard event register.
    void report(ErrorNumber number);
    /// The oldest error, which leaves the queue; `NoError` when there is none.
    ErrorNumber takeError();
    std::size_t errorCount() const { return errors_.size(); }

    void setEvent(StandardEvent event) { standardEvent_ |= event; }
    /// Reads the standard event register and clears it.
    std::uint8_t takeStandardEvent();

    std::uint8_t standardEventEnable() const { return standardEventEnable_; }
    void setStandardEventEnable(std::uint8_t mask) { standardEventEnable_ = mask; }
    std::uint8_t serviceRequestEnable() const { return serviceRequestEnable_; }
    /// The bit of the master summary stays 0.
    void setServiceRequestEnable(std::uint8_t mask) { serviceRequestEnable_ = mask & ~MasterSummary; }

    /// The status byte; `messageAvailable` says whether there is an answer to read.
    std::uint8_t statusByte(bool messageAvailable) const;
    /// Empties the queue and the event registers. Masks and filters stay.
    void clear();

    StatusGroup questionable;
    StatusGroup operation;

private:
    std::deque<ErrorNumber> errors_;
    std::uint8_t standardEvent_ = PowerOn;
    std::uint8_t standardEventEnable_ = 0;
    std::uint8_t serviceRequestEnable_ = 0;
};

} // namespace orb
