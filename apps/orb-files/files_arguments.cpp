// SPDX-License-Identifier: GPL-3.0-or-later
#include "files_arguments.h"

#include <QCommandLineParser>

namespace orb {

namespace {

// A text to print. NOLINTNEXTLINE(readability-function-size)
QString helpText()
{
    return QStringLiteral(R"(Usage: orb-files show [--csv] FILE
       orb-files make sequence FROM.csv TO.a
       orb-files make program FROM.csv TO.b
       orb-files check FILE...

Shows, makes and checks the files of the instrument: sequences (.a, 4380 bytes)
and programs (.b, 5580 bytes). The length of a file tells which one it is.

  show        Print the content of a file, with units.
  show --csv  Print it as comma-separated values, which "make" takes.
  make        Make a file from comma-separated values, with its checksum.
              Where anything is wrong, TO stays what it was.
  check       Test length and checksum of each file.
  -h, --help  Print this help and exit.
  --version   Print the version and exit.

The exit status is 0 when all is well, 1 when a file is wrong or can't be read
or written, and 2 for an invalid command line. An error in comma-separated
values names the line and the column; columns are cells, counted from 1.

Comma-separated values begin with settings, one a line: name, value. Then
comes a line with the names of the columns, and a line for each point or step.
Cells are separated by commas, numbers have a decimal point. Numbers are
rounded to the nearest step of the file. "show --csv" of any file is an
example. A number that has no such text is the word raw and the number as it
stands in the file, such as "raw -5". Rows "Reserved bytes at N" hold bytes
without a known meaning that are not 0.

A sequence:

  Load module,K12B            K11AB K12A K12B K13 K14 K15 K16 K17
  Mode,CC                     CC CR CV
  Range,High                  High Low
  Sequence version,'1.0'      three characters
  Master firmware version,'1.00'  four characters
  Voltage range (V),80        16 80
  Loop start,1                the first point of the loop
  Loop end,2                  its last point; points after it are not sent
  Repeat count,3              0: for ever
  On end of sequence,0
  Point,Duration (s),Current (A),Rise (A/us),Fall (A/us),Time base
  1,0.02,15,1.6,1.6,1 ms
  2,0.5,0,1.6,1.6,100 ms

Module and range are required. A time base that is missing is chosen: 1 us,
10 us, 100 us, 1 ms, 10 ms, 100 ms or 1 s. Only mode CC with the modules K12A
(High only), K12B, K13 and K14 has steps of current and slew rate; the numbers
of any other are raw. A sequence has up to 120 points.

A program:

  Chain start,P01             P01 to P12
  Next after P01,P02          P01 to P12, or OFF; a line for each program
  Program,Step,Memory,Run mode,On-Timer (s),Off-Time (s),P/F-Time (s),Short Time (s),Short channels
  1,1,17,AUTO,2.5,0.5,1,0,none
  1,2,18,MANUAL,0,0,0,0.2,CH1+CH3

Memories are 1 to 120, run modes SKIP, AUTO and MANUAL, times 0 (off) to 60 s,
the P/F-Time to 119.9 s. A step that is missing is skipped.
)");
}

[[noreturn]] void fail(const QString& reason)
{
    throw FilesArgumentError(reason.toStdString());
}

/// The job that the first words name, which are taken out of `words`.
FilesArguments::Job takeJob(QStringList& words)
{
    const QString job = words.takeFirst();
    if (job == QStringLiteral("show"))
        return FilesArguments::Job::Show;
    if (job == QStringLiteral("check"))
        return FilesArguments::Job::Check;
    if (job != QStringLiteral("make"))
        fail(QStringLiteral("there is no job \"%1\"").arg(job));
    const QString kind = words.isEmpty() ? QString() : words.takeFirst();
    if (kind == QStringLiteral("sequence"))
        return FilesArguments::Job::MakeSequence;
    if (kind == QStringLiteral("program"))
        return FilesArguments::Job::MakeProgram;
    fail(QStringLiteral("make takes \"sequence\" or \"program\", not \"%1\"").arg(kind));
}

void requireCount(const FilesArguments& arguments)
{
    const qsizetype count = arguments.files.size();
    if (arguments.job == FilesArguments::Job::Check && count == 0)
        fail(QStringLiteral("check takes one file or more"));
    if (arguments.job == FilesArguments::Job::Show && count != 1)
        fail(QStringLiteral("show takes one file, not %1").arg(count));
    const bool makes =
        arguments.job == FilesArguments::Job::MakeSequence || arguments.job == FilesArguments::Job::MakeProgram;
    if (makes && count != 2)
        fail(QStringLiteral("make takes two files, not %1").arg(count));
}

} // namespace

FilesArguments readFilesArguments(const QStringList& words)
{
    QCommandLineParser parser;
    const QString csv = QStringLiteral("csv");
    const QString help = QStringLiteral("help");
    const QString version = QStringLiteral("version");
    parser.addOption(QCommandLineOption(csv));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), help}));
    parser.addOption(QCommandLineOption(version));
    if (!parser.parse(words))
        fail(parser.errorText());
    FilesArguments arguments;
    arguments.help = helpText();
    if (parser.isSet(help))
        return arguments;
    if (parser.isSet(version)) {
        arguments.job = FilesArguments::Job::Version;
        return arguments;
    }
    arguments.files = parser.positionalArguments();
    if (arguments.files.isEmpty())
        fail(QStringLiteral("there is nothing to do"));
    arguments.job = takeJob(arguments.files);
    arguments.csv = parser.isSet(csv);
    if (arguments.csv && arguments.job != FilesArguments::Job::Show)
        fail(QStringLiteral("--csv belongs to show"));
    requireCount(arguments);
    return arguments;
}

} // namespace orb
