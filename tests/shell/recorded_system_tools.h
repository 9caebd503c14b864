// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "failure.h"
#include "system_tools.h"

#include <QStringList>

#include <map>

namespace orb {

/// A registry whose values a test writes down beforehand, and which records every call.
class RecordedSystemTools final : public SystemTools {
public:
    struct Stored {
        quint32 type = Text;
        QByteArray bytes;
    };

    /// By "key:value".
    std::map<QString, Stored> values;
    QStringList calls;
    bool canStart = true;

    bool openKey(Root, const QString& name, quint32 access, Key& key) override
    {
        calls << QStringLiteral("open %1 %2").arg(name).arg(access, 0, 16);
        opened_ = name;
        key = 7;
        for (const auto& [path, value] : values)
            if (path.startsWith(name + QLatin1Char(':')))
                return true;
        return false;
    }

    bool queryValue(Key, const QString& name, QByteArray& buffer, Value& value) override
    {
        calls << QStringLiteral("query %1 %2").arg(name).arg(buffer.size());
        const auto found = values.find(opened_ + QLatin1Char(':') + name);
        if (found == values.end() || found->second.bytes.size() > buffer.size())
            return false;
        const QByteArray& bytes = found->second.bytes;
        buffer.replace(0, bytes.size(), bytes);
        value = {found->second.type, static_cast<quint32>(bytes.size())};
        return true;
    }

    void closeKey(Key key) override { calls << QStringLiteral("close %1").arg(key); }

    void start(const QString& program) override
    {
        calls << QStringLiteral("start ") + program;
        if (!canStart)
            throw RuntimeFailure(failure::FileNotFound);
    }

private:
    QString opened_;
};

} // namespace orb
