// SPDX-License-Identifier: GPL-3.0-or-later
#include "system_info.h"

#include "failure.h"
#include "paths.h"

namespace orb {

namespace {

constexpr quint32 allAccess = 0x2003F;
constexpr qsizetype bufferSize = 1024;

/// The bytes of a value without the zero at its end.
QByteArray withoutEnd(const QByteArray& buffer, quint32 length)
{
    const QByteArray bytes = buffer.left(length);
    return bytes.endsWith('\0') ? bytes.chopped(1) : bytes;
}

/// The bytes from the last to the first, each in as many hexadecimal digits as it needs.
QString numberOf(const QByteArray& bytes)
{
    QByteArray digits;
    for (qsizetype i = bytes.size() - 1; i >= 0; --i)
        digits += QByteArray::number(static_cast<quint8>(bytes[i]), 16);
    return QString::number(digits.toULongLong(nullptr, 16));
}

} // namespace

bool SystemInfo::GetKeyValue(SystemTools::Root KeyRoot, const QString& KeyName, const QString& SubKeyRef,
                             QString& KeyVal)
{
    SystemTools::Key key = 0;
    SystemTools::Value value;
    QByteArray buffer(bufferSize, '\0');
    const bool isRead =
        tools_.openKey(KeyRoot, KeyName, allAccess, key) && tools_.queryValue(key, SubKeyRef, buffer, value);
    if (!isRead)
        KeyVal.clear();
    else if (value.type == SystemTools::Text)
        KeyVal = QString::fromLocal8Bit(withoutEnd(buffer, value.length));
    else if (value.type == SystemTools::Number)
        KeyVal = numberOf(withoutEnd(buffer, value.length));
    tools_.closeKey(key); // also one that was not opened
    return isRead;
}

/// The first value is the path of the tool, the second one its folder.
bool SystemInfo::findTool(QString& path)
{
    const auto root = SystemTools::Root::LocalMachine;
    if (GetKeyValue(root, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"), QStringLiteral("PATH"), path))
        return true;
    if (!GetKeyValue(root, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"),
                     path))
        return false;
    path += QStringLiteral("\\MSINFO32.EXE");
    return fileExists(path);
}

void SystemInfo::StartSysInfo()
{
    try {
        if (QString path; findTool(path))
            return tools_.start(path);
    } catch (const RuntimeFailure&) { // counts as no tool
    }
    dialogs_.message(QStringLiteral("System Information Is Unavailable At This Time"));
}

} // namespace orb
