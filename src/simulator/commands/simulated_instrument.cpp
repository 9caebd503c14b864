// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulated_instrument.h"

#include "instrument_commands.h"

namespace orb {

namespace {

/// The state of one message between its units.
struct Conversation {
    std::string response;
    /// The nodes from which the next header continues.
    std::vector<HeaderNode> path;
    std::vector<ServedAnswer> served;
    bool answered = false;
};

void addAnswer(Conversation& conversation, const std::string& answer)
{
    const std::size_t length = conversation.response.size() + answer.size() + 1;
    if (length > SimulatedInstrument::maxResponse)
        throw CommandFailure{ErrorNumber::QueryDeadlocked};
    if (conversation.answered)
        conversation.response += ';';
    conversation.response += answer;
    conversation.answered = true;
}

void checkCount(const MessageUnit& unit, const Command& command)
{
    const ParameterCount count = countParameters(unit.query ? command.queryParameters : command.parameters);
    if (unit.parameters.size() < count.least)
        throw CommandFailure{ErrorNumber::MissingParameter};
    if (unit.parameters.size() > count.most)
        throw CommandFailure{ErrorNumber::ParameterNotAllowed};
}

} // namespace

struct SimulatedInstrument::Parts {
    Parts(const SimulatorConfiguration& configuration, SimulatorClock clock)
        : identity(configuration.identity), mainframe(configuration, std::move(clock)), table(instrumentCommands())
    {}

    void executeUnit(std::string_view text, Conversation& conversation);
    void updateConditions();

    std::string identity;
    Mainframe mainframe;
    StatusRegisters status;
    CommandTable table;
    ServedLog served;
};

void SimulatedInstrument::Parts::executeUnit(std::string_view text, Conversation& conversation)
{
    const MessageUnit unit = readUnit(text);
    // Without a leading colon a header continues from the one before it. Common commands have no part in that.
    std::vector<HeaderNode> header = unit.absolute ? std::vector<HeaderNode>{} : conversation.path;
    header.insert(header.end(), unit.nodes.begin(), unit.nodes.end());
    const CommandTable::Match match = table.find(header);
    if (match.command == nullptr || (unit.query ? match.command->query == nullptr : match.command->set == nullptr))
        throw CommandFailure{ErrorNumber::UndefinedHeader};
    if (!unit.common) {
        conversation.path = std::move(header);
        conversation.path.pop_back();
    }
    checkCount(unit, *match.command);

    CommandContext context{mainframe, status, identity, conversation.answered};
    const CommandCall call(match.suffixes, unit.parameters);
    if (!unit.query)
        return match.command->set(context, call);
    const std::string answer = match.command->query(context, call);
    addAnswer(conversation, answer);
    if (match.command->served)
        conversation.served.push_back({std::string(text), answer});
}

void SimulatedInstrument::Parts::updateConditions()
{
    status.questionable.setCondition(mainframe.condition());
    status.operation.setCondition(mainframe.operation());
}

SimulatedInstrument::SimulatedInstrument(const SimulatorConfiguration& configuration, SimulatorClock clock)
    : parts_(std::make_unique<Parts>(configuration, std::move(clock)))
{}

SimulatedInstrument::~SimulatedInstrument() = default;

std::string SimulatedInstrument::execute(std::string_view message)
{
    if (message.size() > maxMessage) {
        reportOverrun();
        return {};
    }
    parts_->mainframe.advance();
    parts_->updateConditions();
    Conversation conversation;
    for (const std::string_view unit : unitsOf(message)) {
        try {
            parts_->executeUnit(unit, conversation);
        } catch (const CommandFailure& failure) {
            parts_->status.report(failure.number);
            // A response that is too long is dropped as a whole: a part of it would be read as all of it.
            if (failure.number == ErrorNumber::QueryDeadlocked)
                return {};
        }
        parts_->updateConditions();
    }
    for (ServedAnswer& each : conversation.served)
        parts_->served.add(std::move(each.query), std::move(each.answer));
    return std::move(conversation.response);
}

void SimulatedInstrument::reportOverrun()
{
    parts_->status.report(ErrorNumber::InputBufferOverrun);
}

int SimulatedInstrument::channelCount() const
{
    return parts_->mainframe.channelCount();
}

const Mainframe& SimulatedInstrument::mainframe() const
{
    return parts_->mainframe;
}

const ServedLog& SimulatedInstrument::served() const
{
    return parts_->served;
}

void SimulatedInstrument::connectSource(int channel, const Source& source)
{
    if (channel < 1 || channel > channelCount())
        throw std::invalid_argument("no channel has that number");
    parts_->mainframe.advance();
    parts_->mainframe.change(channel).connectSource(source);
}

} // namespace orb
