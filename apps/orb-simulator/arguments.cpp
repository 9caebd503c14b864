// SPDX-License-Identifier: GPL-3.0-or-later
#include "arguments.h"

#include "load_module.h"

namespace orb {

namespace {

[[noreturn]] void fail(const QString& reason)
{
    throw ArgumentError(reason.toStdString());
}

/// Words of a command line, taken one by one.
class Words {
public:
    explicit Words(const QStringList& words) : words_(words) {}

    bool atEnd() const { return next_ == words_.size(); }
    const QString& take() { return words_[next_++]; }
    const QString& valueOf(const QString& option)
    {
        if (atEnd())
            fail(option + " needs a value");
        return take();
    }

private:
    const QStringList& words_;
    qsizetype next_ = 0;
};

quint64 wholeNumber(const QString& option, const QString& text, quint64 lowest, quint64 highest)
{
    bool isNumber = false;
    const quint64 value = text.toULongLong(&isNumber);
    if (!isNumber || value < lowest || value > highest)
        fail(QStringLiteral("%1 takes a whole number from %2 to %3, not %4")
                 .arg(option)
                 .arg(lowest)
                 .arg(highest)
                 .arg(text));
    return value;
}

void setChannelCount(Arguments& arguments, quint64 count)
{
    arguments.configuration.channels = defaultConfiguration(static_cast<int>(count)).channels;
}

/// The sources stay in their order; each gets the module at its place. What the default set on another module may
/// not fit, so that such a channel begins as after a reset.
void setModules(Arguments& arguments, const QString& list)
{
    const QStringList names = list.split(u',');
    if (names.size() > maxChannels)
        fail(QStringLiteral("--modules takes at most %1 names").arg(maxChannels));
    setChannelCount(arguments, static_cast<quint64>(names.size()));
    std::vector<ChannelConfiguration>& channels = arguments.configuration.channels;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const std::string name = names[static_cast<qsizetype>(i)].trimmed().toStdString();
        const LoadModule* module = findLoadModule(name);
        if (module == nullptr)
            fail(QStringLiteral("no load module is called \"%1\"").arg(QString::fromStdString(name)));
        if (channels[i].module != module->name)
            channels[i] = {.module = std::string(module->name), .source = channels[i].source};
    }
}

} // namespace

Arguments readArguments(const QStringList& list)
{
    Arguments arguments;
    Words words(list);
    bool countGiven = false;
    bool modulesGiven = false;
    while (!words.atEnd()) {
        const QString option = words.take();
        if (option == u"--help" || option == u"-h") {
            arguments.job = Arguments::Job::Help;
        } else if (option == u"--commands") {
            arguments.job = Arguments::Job::Commands;
        } else if (option == u"--console") {
            arguments.job = Arguments::Job::Console;
        } else if (option == u"--catalogue") {
            arguments.job = Arguments::Job::Modules;
        } else if (option == u"--errors") {
            arguments.job = Arguments::Job::Errors;
        } else if (option == u"--port") {
            arguments.port = static_cast<quint16>(wholeNumber(option, words.valueOf(option), 0, 65535));
        } else if (option == u"--channels") {
            setChannelCount(arguments, wholeNumber(option, words.valueOf(option), 1, maxChannels));
            countGiven = true;
        } else if (option == u"--modules") {
            setModules(arguments, words.valueOf(option));
            modulesGiven = true;
        } else if (option == u"--seed") {
            arguments.configuration.seed = wholeNumber(option, words.valueOf(option), 0, ~quint64{0});
        } else if (option == u"--faults") {
            arguments.faultsPath = words.valueOf(option);
        } else if (option == u"--served") {
            arguments.servedPath = words.valueOf(option);
        } else {
            fail(QStringLiteral("no such option: %1").arg(option));
        }
    }
    if (countGiven && modulesGiven)
        fail(QStringLiteral("--channels and --modules both say how many channels there are; give one of them"));
    return arguments;
}

QString helpText()
{
    return QStringLiteral("A simulated modular DC electronic load that listens on 127.0.0.1.\n"
                          "\n"
                          "orb-simulator [options]\n"
                          "  --port N         the port to listen on, 0 for any free one; 5025 if not given\n"
                          "  --channels N     the number of channels, 1 to 8; 6 if not given\n"
                          "  --modules LIST   a channel for each of these load modules, as in K11,K13,K14\n"
                          "  --seed N         of the noise; the same seed gives the same readings\n"
                          "  --faults FILE    what goes wrong with which answer\n"
                          "  --served FILE    write the readings of all channels to this file as they are served,\n"
                          "                   a line each: query, tab, answer\n"
                          "  --commands       print the command language and end\n"
                          "  --console        print the catalogue of the command console and end\n"
                          "  --catalogue      print the load modules and end\n"
                          "  --errors         print the errors and end\n"
                          "  --help           print this and end\n"
                          "\n"
                          "The first line of output is \"port N\". SIGTERM and SIGINT end the program.\n");
}

} // namespace orb
