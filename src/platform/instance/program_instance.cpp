// SPDX-License-Identifier: GPL-3.0-or-later
#include "program_instance.h"

#include "file_lock.h"
#include "instance_server.h"
#include "paths.h"

#include <QCryptographicHash>
#include <QDir>

namespace orb {

namespace {

/// One name for a file however its folder is reached.
QString canonicalPath(const QString& database)
{
    const QFileInfo file(realPath(database));
    const QString folder = file.dir().canonicalPath(); // empty where there is no such folder
    return folder.isEmpty() ? file.absoluteFilePath() : folder + QLatin1Char('/') + file.fileName();
}

/// Short, since the path of a local socket may have some 100 bytes.
QString serverNameOf(const QString& path)
{
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex();
    return QStringLiteral("orb-") + QLatin1String(hash.left(24));
}

} // namespace

ProgramInstance::ProgramInstance(const QString& database)
    : serverName_(serverNameOf(canonicalPath(database))),
      lock_(std::make_unique<FileLock>(canonicalPath(database) + QStringLiteral(".lock")))
{
    if (!isFirst())
        return;
    server_ = std::make_unique<InstanceServer>(serverName_);
    server_->onRequest = [this](const QByteArray& token) {
        if (onShowRequest)
            onShowRequest(token);
    };
}

ProgramInstance::~ProgramInstance() = default;

bool ProgramInstance::isFirst() const
{
    return !lock_->isHeldByAnother();
}

bool ProgramInstance::requestShow(const QByteArray& token) const
{
    return sendRequest(serverName_, token);
}

} // namespace orb
