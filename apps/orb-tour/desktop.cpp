// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop.h"

#include "dark_palette.h"

#include <QApplication>
#include <QFile>
#include <QFont>

namespace orb {

namespace {

bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (qEnvironmentVariableIsSet(variable))
            return true;
    return false;
#else
    return true;
#endif
}

/// "1024x600"
QSize sizeOf(const QByteArray& text)
{
    const auto parts = text.split('x');
    return parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
}

} // namespace

Desktop::Desktop(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArray option = argv[i];
        const QByteArray value = i + 1 < argc ? argv[i + 1] : "";
        if (option == "--screen")
            screen_ = sizeOf(value);
        else if (option == "--font")
            fontSize_ = value.toInt();
        isDark_ = isDark_ || option == "--dark";
        isMaximized_ = isMaximized_ || option == "--maximized";
    }
    selectPlatform();
}

void Desktop::selectPlatform() const
{
    if (!screen_.isEmpty()) {
        const QString path = folder_.filePath(QStringLiteral("screen.json"));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(QStringLiteral("{\"screens\": [{\"name\": \"screen\", \"x\": 0, \"y\": 0, \"width\": %1, "
                                      "\"height\": %2, \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": 1}]}")
                           .arg(screen_.width())
                           .arg(screen_.height())
                           .toUtf8());
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + path.toUtf8());
    } else if (!hasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

void Desktop::dress() const
{
    if (isDark_)
        QApplication::setPalette(darkPalette());
    if (fontSize_ > 0) {
        QFont font = QApplication::font();
        font.setPointSize(fontSize_);
        QApplication::setFont(font);
    }
}

} // namespace orb
