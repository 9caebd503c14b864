// SPDX-License-Identifier: GPL-3.0-or-later
#include "arguments.h"

#include "load_module.h"

#include <QCommandLineParser>

namespace orb {

namespace {

[[noreturn]] void fail(const QString& reason)
{
    throw ArgumentError(reason.toStdString());
}

void addOptions(QCommandLineParser& parser)
{
    const auto add = [&parser](const char* name, const char* description, const char* value = "") {
        parser.addOption({QString::fromLatin1(name), QString::fromLatin1(description), QString::fromLatin1(value)});
    };
    parser.setApplicationDescription(
        QStringLiteral("A simulated modular DC electronic load that listens on 127.0.0.1.\nThe first line of output is "
                       "\"port N\". SIGTERM and SIGINT end the program."));
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this help and exit.")});
    add("version", "Print the version and exit.");
    add("port", "The port to listen on, 0 for any free one; 5025 if not given.", "N");
    add("channels", "The number of channels, 1 to 8; 6 if not given.", "N");
    add("modules", "A channel for each of these load modules, as in K11,K13,K14.", "LIST");
    add("seed", "The seed of the noise; the same seed gives the same readings.", "N");
    add("faults", "A script of faults in the answers.", "FILE");
    add("served", "Write each answer with the readings of all channels to this file: query, tab, answer.", "FILE");
    add("commands", "Print the command language and exit.");
    add("console", "Print the catalogue of the command console and exit.");
    add("catalogue", "Print the load modules and exit.");
    add("errors", "Print the errors and exit.");
}

/// The value of an option, or `otherwise` where it was not given.
quint64 wholeNumber(const QCommandLineParser& parser, const char* name, quint64 otherwise, quint64 lowest,
                    quint64 highest)
{
    const QString option = QString::fromLatin1(name);
    if (!parser.isSet(option))
        return otherwise;
    bool isNumber = false;
    const quint64 value = parser.value(option).toULongLong(&isNumber);
    if (!isNumber || value < lowest || value > highest)
        fail(QStringLiteral("--%1 must be a whole number from %2 to %3, not %4")
                 .arg(option)
                 .arg(lowest)
                 .arg(highest)
                 .arg(parser.value(option)));
    return value;
}

/// The sources of the default instrument stay in their order. Its settings may not fit another module: such a channel
/// begins as after a reset.
std::vector<ChannelConfiguration> channelsWith(const QStringList& modules)
{
    if (modules.size() > maxChannels)
        fail(QStringLiteral("--modules takes at most %1 names").arg(maxChannels));
    std::vector<ChannelConfiguration> channels = defaultConfiguration(static_cast<int>(modules.size())).channels;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const QString name = modules[static_cast<qsizetype>(i)].trimmed();
        const LoadModule* module = findLoadModule(name.toStdString());
        if (module == nullptr)
            fail(QStringLiteral("no load module is called \"%1\"").arg(name));
        if (channels[i].module != module->name)
            channels[i] = {.module = std::string(module->name), .source = channels[i].source};
    }
    return channels;
}

SimulatorConfiguration configurationFrom(const QCommandLineParser& parser)
{
    const QString modules = QStringLiteral("modules");
    if (parser.isSet(modules) && parser.isSet(QStringLiteral("channels")))
        fail(QStringLiteral("--channels and --modules exclude each other"));
    SimulatorConfiguration configuration = defaultConfiguration();
    const auto count = static_cast<quint64>(configuration.channels.size());
    configuration.channels =
        parser.isSet(modules)
            ? channelsWith(parser.value(modules).split(u','))
            : defaultConfiguration(static_cast<int>(wholeNumber(parser, "channels", count, 1, maxChannels))).channels;
    configuration.seed = wholeNumber(parser, "seed", configuration.seed, 0, ~quint64{0});
    return configuration;
}

Arguments::Job jobFrom(const QCommandLineParser& parser)
{
    constexpr std::pair<const char*, Arguments::Job> jobs[] = {
        {"help", Arguments::Job::Help},         {"version", Arguments::Job::Version},
        {"commands", Arguments::Job::Commands}, {"console", Arguments::Job::Console},
        {"catalogue", Arguments::Job::Modules}, {"errors", Arguments::Job::Errors},
    };
    for (const auto& [option, job] : jobs) {
        if (parser.isSet(QString::fromLatin1(option)))
            return job;
    }
    return Arguments::Job::Serve;
}

} // namespace

Arguments readArguments(const QStringList& words)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(words))
        fail(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        fail(QStringLiteral("unexpected argument: ") + parser.positionalArguments().constFirst());
    return {.job = jobFrom(parser),
            .port = static_cast<quint16>(wholeNumber(parser, "port", 5025, 0, 65535)),
            .configuration = configurationFrom(parser),
            .faultsPath = parser.value(QStringLiteral("faults")),
            .servedPath = parser.value(QStringLiteral("served")),
            .help = parser.helpText()};
}

} // namespace orb
