// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

/// Every test program has an application without a screen, and a home of its own for what the program would keep
/// under the user's folders.
int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CACHE_HOME", home.filePath("cache").toUtf8());
    qputenv("XDG_CONFIG_HOME", home.filePath("config").toUtf8());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
