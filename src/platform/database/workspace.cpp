// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace.h"

#include "connection.h"
#include "paths.h"

#include <QFileInfo>

namespace orb {

Workspace::Workspace(std::function<QDateTime()> now) : now_(std::move(now)) {}

Database Workspace::openDatabase(const QString& path)
{
    const QString file = QFileInfo(realPath(path)).absoluteFilePath();
    std::erase_if(connections_, [](const auto& connection) { return connection.expired(); });
    for (const auto& known : connections_)
        if (auto connection = known.lock(); connection && connection->isOpen() && connection->path() == file)
            return Database(std::move(connection));
    auto connection = std::make_shared<Connection>(file, now_);
    connections_.push_back(connection);
    return Database(std::move(connection));
}

void Workspace::close()
{
    for (const auto& known : connections_)
        if (const auto connection = known.lock())
            connection->close();
    connections_.clear();
}

} // namespace orb
