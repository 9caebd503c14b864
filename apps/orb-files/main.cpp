// SPDX-License-Identifier: GPL-3.0-or-later
#include "files_arguments.h"

#include "checked_file.h"
#include "program_text.h"
#include "record_file.h"
#include "sequence_text.h"
#include "version.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <iostream>

namespace {

using Job = orb::FilesArguments::Job;

constexpr int badArguments = 2;
constexpr int failed = 1;

int reportError(const std::string& reason, int code)
{
    std::cerr << "orb-files: " << reason << '\n';
    return code;
}

int print(const std::string& text)
{
    std::cout << text << std::flush;
    return std::cout ? 0 : failed;
}

/// Calls `function`; what it throws is reported with the name of the file in front.
template <class Function> auto withName(const QString& path, Function function)
{
    try {
        return function();
    } catch (const std::exception& error) {
        throw std::runtime_error(path.toStdString() + ": " + error.what());
    }
}

/// Throws `std::runtime_error` for a file that can't be read or is far too long.
std::string contentOf(const QString& path)
{
    constexpr qint64 longest = 1024 * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(file.errorString().toStdString());
    const QByteArray content = file.read(longest + 1);
    if (file.error() != QFileDevice::NoError)
        throw std::runtime_error(file.errorString().toStdString());
    if (content.size() > longest)
        throw std::runtime_error("the file is longer than 1 MiB");
    return content.toStdString();
}

orb::CheckedFile readFile(const QString& path)
{
    return withName(path, [&] { return orb::readCheckedFile(contentOf(path)); });
}

/// Writes a temporary file first, so that `path` is either whole and new, or what it was.
void writeFile(const QString& path, std::span<const std::byte> image)
{
    withName(path, [&] {
        QSaveFile file(path);
        const auto size = static_cast<qint64>(image.size());
        if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char*>(image.data()), size) != size ||
            !file.commit())
            throw std::runtime_error(file.errorString().toStdString());
    });
}

int show(const QString& path, bool csv)
{
    const orb::CheckedFile file = readFile(path);
    const orb::FileTable table = orb::tableOf(file);
    if (csv)
        return print(orb::csvOf(table));
    const std::string rest =
        table.reserved.empty() ? "" : "\nIt has reserved bytes that are not 0; show --csv prints them.\n";
    return print(path.toStdString() + ": " + orb::describe(file) + "\n\n" + orb::alignedText(table) + rest);
}

/// `read`: makes the record from the text of the file `from`.
template <class Read> int make(const QStringList& fromAndTo, Read read)
{
    const QString& from = fromAndTo[0];
    const QString& to = fromAndTo[1];
    if (QFileInfo::exists(from) && QFileInfo(from) == QFileInfo(to))
        throw std::runtime_error(to.toStdString() + ": this is the file to read");
    const auto record = withName(from, [&] { return read(contentOf(from)); });
    writeFile(to, orb::imageOf(record));
    return 0;
}

int check(const QStringList& paths)
{
    int result = 0;
    for (const QString& path : paths) {
        try {
            print(path.toStdString() + ": " + orb::describe(readFile(path)) + '\n');
        } catch (const std::exception& error) {
            result = reportError(error.what(), failed);
        }
    }
    return result;
}

int run(const orb::FilesArguments& arguments)
{
    switch (arguments.job) {
    case Job::Show:
        return show(arguments.files.front(), arguments.csv);
    case Job::MakeSequence:
        return make(arguments.files, orb::readSequence);
    case Job::MakeProgram:
        return make(arguments.files, orb::readProgram);
    case Job::Check:
        return check(arguments.files);
    case Job::Version:
        return print("orb-files " + orb::programVersion().toStdString() + '\n');
    case Job::Help:
        break;
    }
    return print(arguments.help.toStdString());
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return run(orb::readFilesArguments(QCoreApplication::arguments()));
    } catch (const orb::FilesArgumentError& error) {
        return reportError(std::string(error.what()) + "; --help says how it works", badArguments);
    } catch (const std::exception& error) {
        return reportError(error.what(), failed);
    }
}
