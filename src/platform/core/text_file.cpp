// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_file.h"

#include "failure.h"
#include "paths.h"
#include "text_bytes.h"

#include <QDir>
#include <QFileInfo>

namespace orb {

namespace {

constexpr std::size_t bufferSize = 256 * 1024;

int openFailure(const QString& path)
{
    const QFileInfo file(path);
    if (path.isEmpty())
        return failure::BadFileName;
    if (file.isDir())
        return failure::PathFileAccessError;
    return file.dir().exists() ? failure::PermissionDenied : failure::PathNotFound;
}

} // namespace

OutputFile::OutputFile(const QString& literal) : file_(realPath(literal))
{
    if (literal.isEmpty() || !file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw RuntimeFailure(openFailure(literal.isEmpty() ? literal : file_.fileName()));
    buffer_.reserve(bufferSize + 4096);
}

OutputFile::~OutputFile()
{
    try {
        close();
    } catch (const RuntimeFailure&) { // a failure is under way already: the file stays as far as it was written
    }
}

void OutputFile::write(std::string_view text)
{
    buffer_ += text;
    if (buffer_.size() >= bufferSize)
        flush();
}

void OutputFile::writeLine(std::string_view text)
{
    buffer_ += text;
    write("\r\n");
}

void OutputFile::writeLine(const QString& text)
{
    writeLine(std::string_view(bytesOf(text)));
}

void OutputFile::flush()
{
    const auto size = static_cast<qint64>(buffer_.size());
    const bool whole = file_.write(buffer_.data(), size) == size;
    buffer_.clear();
    if (!whole)
        throw RuntimeFailure(file_.error() == QFileDevice::ResourceError ? failure::DiskFull : failure::DeviceIOError);
}

void OutputFile::close()
{
    if (!file_.isOpen())
        return;
    flush();
    file_.close();
}

} // namespace orb
