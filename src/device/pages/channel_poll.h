// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace orb {

/// What is known of one load channel. An empty text, and nothing, stand for what the instrument has not told.
struct ChannelReadout {
    QString module;
    std::optional<double> volts;
    std::optional<double> amperes;
    std::optional<double> watts;
    QString mode;     ///< "CCL", "CCH", "CRL", "CRH" or "CV"
    QString setValue; ///< with its unit
    QString tripped;  ///< "OV", "OP" or "OC" where protection has tripped or is limiting
    std::optional<bool> loadOn;

    bool operator==(const ChannelReadout&) const = default;
};

/// The queries by which the Control page learns the state of all channels, one after the other, and the reading of
/// their answers. A round is: the readings and loads of all channels, their modes, their set values; the names of the
/// modules come in front of the first round. An answer that is not what was asked for leaves unknown what it should
/// have told.
class ChannelPoll {
public:
    /// Forgets everything and expects `channels` channels (0 without a link).
    void restart(int channels);

    const std::vector<ChannelReadout>& readouts() const { return readouts_; }

    /// The query that is next, for the place in the round where the poll stands.
    QByteArray query() const;
    /// Reads the answer to `query()`, and goes on to the next place in the round.
    void take(const QByteArray& answer);
    /// No answer came to `query()`: what it should have told is unknown now. Goes on to the next place.
    void takeNothing() { take({}); }
    /// True when the next query begins a round.
    bool isAtRoundBegin() const { return step_ == Step::Readings; }
    /// The next query begins a round, wherever the poll stands.
    void beginRound();

private:
    enum class Step { Modules, Readings, Modes, SetValues };

    void readModules(const QByteArray& answer);
    void readReadings(const QByteArray& answer);
    void readModes(const QByteArray& answer);
    void readSetValues(const QByteArray& answer);
    QByteArray setValueQuery(std::size_t index) const;

    std::vector<ChannelReadout> readouts_;
    std::vector<QByteArray> levels_; // "1" or "2", the level in force
    Step step_ = Step::Modules;
};

/// The mode without its range, "CC", and the word for its range, "High", empty for a mode without one.
QString modeWord(const QString& mode);
QString rangeWord(const QString& mode);

/// The command that switches the input of one channel, counted from 1, or of all.
QByteArray loadCommand(int channel, bool on);
QByteArray allOffCommand();

} // namespace orb
