// SPDX-License-Identifier: GPL-3.0-or-later
#include "input_file.h"

#include "failure.h"
#include "paths.h"
#include "text_bytes.h"

#include <QFileInfo>

namespace orb {

namespace {

void require(bool holds, int number)
{
    if (!holds)
        throw RuntimeFailure(number);
}

} // namespace

QByteArray readBytes(const QString& literal, qint64 longest)
{
    require(!literal.isEmpty(), failure::BadFileName);
    QFile file(realPath(literal));
    const QFileInfo info(file);
    require(info.exists(), failure::FileNotFound);
    require(info.isFile(), failure::PathFileAccessError);
    require(file.open(QIODevice::ReadOnly), failure::PermissionDenied);
    QByteArray content = longest < info.size() ? file.read(longest) : file.readAll();
    require(file.error() == QFileDevice::NoError, failure::DeviceIOError);
    return content;
}

InputFile::InputFile(const QString& literal) : content_(readBytes(literal))
{
    if (content_.startsWith("\xEF\xBB\xBF"))
        at_ = 3; // a byte order mark is not part of the first line
}

QString InputFile::readLine()
{
    require(!isAtEnd(), failure::InputPastEndOfFile);
    qsizetype end = at_;
    while (end < content_.size() && content_[end] != '\n' && content_[end] != '\r')
        ++end;
    const QByteArray line = content_.mid(at_, end - at_);
    const bool isPair = end + 1 < content_.size() && content_[end] == '\r' && content_[end + 1] == '\n';
    at_ = end + (isPair ? 2 : 1);
    return textOf(line);
}

} // namespace orb
