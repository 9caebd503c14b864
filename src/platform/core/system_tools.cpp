// SPDX-License-Identifier: GPL-3.0-or-later
#include "system_tools.h"

#include "failure.h"

#include <QProcess>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#endif

namespace orb {

#ifdef Q_OS_WIN

namespace {
HKEY handle(SystemTools::Key key)
{
    return reinterpret_cast<HKEY>(key);
}
} // namespace

bool RealSystemTools::openKey(Root, const QString& name, quint32 access, Key& key)
{
    HKEY opened = nullptr;
    const LSTATUS status = ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, name.toLocal8Bit().constData(), 0, access, &opened);
    key = reinterpret_cast<Key>(opened);
    return status == ERROR_SUCCESS;
}

bool RealSystemTools::queryValue(Key key, const QString& name, QByteArray& buffer, Value& value)
{
    DWORD type = 0;
    auto length = static_cast<DWORD>(buffer.size());
    const LSTATUS status = ::RegQueryValueExA(handle(key), name.toLocal8Bit().constData(), nullptr, &type,
                                              reinterpret_cast<BYTE*>(buffer.data()), &length);
    value = {type, length};
    return status == ERROR_SUCCESS;
}

void RealSystemTools::closeKey(Key key)
{
    ::RegCloseKey(handle(key));
}

#else

namespace {

constexpr SystemTools::Key systemInformation = 1;

/// The tool for system information of each desktop; the first one found is used.
constexpr const char* candidates[] = {
    "hardinfo2", "hardinfo", "kinfocenter", "cpu-x",
    "/System/Applications/Utilities/System Information.app/Contents/MacOS/System Information"};

QString installedTool()
{
    for (const char* candidate : candidates)
        if (const QString path = QStandardPaths::findExecutable(QString::fromLatin1(candidate)); !path.isEmpty())
            return path;
    return {};
}

} // namespace

bool RealSystemTools::openKey(Root, const QString& name, quint32, Key& key)
{
    key = name == QLatin1String("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO") ? systemInformation : 0;
    return key == systemInformation && !installedTool().isEmpty();
}

bool RealSystemTools::queryValue(Key key, const QString& name, QByteArray& buffer, Value& value)
{
    QByteArray path = installedTool().toLocal8Bit();
    if (key != systemInformation || name != QLatin1String("PATH") || path.isEmpty() || path.size() >= buffer.size())
        return false;
    path.append('\0');
    std::ranges::copy(path, buffer.begin());
    value = {Text, static_cast<quint32>(path.size())};
    return true;
}

void RealSystemTools::closeKey(Key) {}

#endif

void RealSystemTools::start(const QString& program)
{
    if (!QProcess::startDetached(program, {}))
        throw RuntimeFailure(failure::FileNotFound);
}

} // namespace orb
