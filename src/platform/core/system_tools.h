// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace orb {

/// The system's registry of installed tools, and the start of one of them.
class SystemTools {
public:
    enum class Root { LocalMachine };
    enum ValueType : quint32 { Text = 1, Number = 4 };
    using Key = quintptr;

    struct Value {
        quint32 type = 0;
        quint32 length = 0; ///< in bytes, a zero at the end of a text included
    };

    virtual ~SystemTools() = default;

    /// Opens a key of the registry. False where there is none; `key` may be closed all the same.
    virtual bool openKey(Root root, const QString& name, quint32 access, Key& key) = 0;
    /// Reads a value of the key into `buffer`. False where there is none, or it has more bytes than the buffer.
    virtual bool queryValue(Key key, const QString& name, QByteArray& buffer, Value& value) = 0;
    virtual void closeKey(Key key) = 0;

    /// Starts a program with a window of its own. Throws `RuntimeFailure` 53 where that fails.
    virtual void start(const QString& program) = 0;
};

/// The registry on Windows. On other systems the one key and value that name the tool for system information lead to
/// the one that the desktop has, if it has one.
class RealSystemTools final : public SystemTools {
public:
    bool openKey(Root root, const QString& name, quint32 access, Key& key) override;
    bool queryValue(Key key, const QString& name, QByteArray& buffer, Value& value) override;
    void closeKey(Key key) override;
    void start(const QString& program) override;
};

} // namespace orb
