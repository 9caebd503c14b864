// SPDX-License-Identifier: GPL-3.0-or-later
#include "input_file.h"

#include "failure.h"
#include "paths.h"

#include <QFileInfo>

namespace orb {

namespace {

void require(bool holds, int number)
{
    if (!holds)
        throw RuntimeFailure(number);
}

/// Bytes that do not convert back to the same are not UTF-8, a sequence cut off at the end of the line included.
QString decoded(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : QString::fromLatin1(bytes);
}

} // namespace

InputFile::InputFile(const QString& literal)
{
    require(!literal.isEmpty(), failure::BadFileName);
    QFile file(realPath(literal));
    const QFileInfo info(file);
    require(info.exists(), failure::FileNotFound);
    require(info.isFile(), failure::PathFileAccessError);
    require(file.open(QIODevice::ReadOnly), failure::PermissionDenied);
    content_ = file.readAll();
    require(file.error() == QFileDevice::NoError, failure::DeviceIOError);
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
    return decoded(line);
}

} // namespace orb
