// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGenericPlugin>

namespace orb {

/// A plugin of Qt that works the program into which it is loaded: it presses buttons by their captions as an operator
/// would, from the first start to a recording of some samples, and ends the program. So a test drives the very
/// executable that is installed, as any user:
///
///     QT_QPA_GENERIC_PLUGINS=scripteduser QT_PLUGIN_PATH=FOLDER orb
class ScriptedUserPlugin final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "scripted_user.json")

public:
    QObject* create(const QString& name, const QString& options) override;
};

} // namespace orb
