// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include "dark_desktop.h"
#include "failure.h"
#include "paths.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace orb {

namespace {

QString fileOf(const QString& literal)
{
    const QString path = realPath(literal);
    if (!QFileInfo(path).isFile())
        throw RuntimeFailure(failure::FileNotFound);
    return path;
}

/// A PNG may stand beside a larger one for sharp screens: "Panel@2x.png" has twice the pixels of "Panel.png".
QString sharpTwinOf(const QString& path)
{
    const QLatin1String suffix(".png");
    if (!path.endsWith(suffix, Qt::CaseInsensitive))
        return {};
    const QString twin = path.chopped(suffix.size()) + QStringLiteral("@2x") + path.right(suffix.size());
    return QFileInfo(twin).isFile() ? twin : QString();
}

QImage readPicture(const QString& path)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return reader.read();
}

const QColor ground(0xf5, 0xf6, 0xf8); // the pictures without transparency have it too
const QColor disabledGround(0x6b, 0x6f, 0x75);

/// A picture without transparency, with that in place of its ground: the button under it may have any color. What lies
/// near the ground, as a lossy file has it, is partly transparent.
QImage withoutGround(const QImage& picture)
{
    constexpr int same = 8; // of 255
    constexpr int different = 32;
    QImage clear = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < clear.height(); ++y)
        for (int x = 0; x < clear.width(); ++x) {
            QColor color = clear.pixelColor(x, y);
            const int distance =
                std::max({std::abs(color.red() - ground.red()), std::abs(color.green() - ground.green()),
                          std::abs(color.blue() - ground.blue())});
            color.setAlpha(std::clamp((distance - same) * 255 / (different - same), 0, 255));
            clear.setPixelColor(x, y, color);
        }
    return clear;
}

class PictureIcon final : public QIconEngine {
public:
    explicit PictureIcon(const QString& path) : path_(path) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatio(), mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        if (isDark(QGuiApplication::palette()))
            return onTile(size, mode, state);
        return icon().pixmap(size, 1, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QIconEngine* clone() const override { return new PictureIcon(*this); }

private:
    /// The pictures are drawn for light ground, so that on a dark desktop each brings a piece of it.
    QPixmap onTile(const QSize& size, QIcon::Mode mode, QIcon::State state)
    {
        constexpr double radius = 0.15; // of the width
        constexpr double margin = 0.06;
        QPixmap tile(size);
        tile.fill(Qt::transparent);
        QPainter painter(&tile);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.setPen(Qt::NoPen);
        painter.setBrush(mode == QIcon::Disabled ? disabledGround : ground);
        painter.drawRoundedRect(tile.rect(), size.width() * radius, size.height() * radius);
        const int inset = qRound(size.width() * margin);
        const QRect inner = tile.rect().adjusted(inset, inset, -inset, -inset);
        painter.setOpacity(mode == QIcon::Disabled ? 0.45 : 1);
        painter.drawPixmap(inner, icon().pixmap(inner.size(), 1, QIcon::Normal, state));
        return tile;
    }

    const QIcon& icon()
    {
        if (icon_.isNull()) {
            const QImage picture = readPicture(path_);
            const bool isOpaque = !picture.isNull() && !picture.hasAlphaChannel();
            icon_ = QIcon(QPixmap::fromImage(isOpaque ? withoutGround(picture) : picture));
        }
        return icon_;
    }

    QString path_;
    QIcon icon_;
};

} // namespace

QPixmap loadPicture(const QString& literal)
{
    const QString path = fileOf(literal);
    const QString twin = sharpTwinOf(path);
    QImage image = readPicture(twin.isEmpty() ? path : twin);
    if (image.isNull())
        throw RuntimeFailure(failure::InvalidPicture);
    if (!twin.isEmpty())
        image.setDevicePixelRatio(2);
    return QPixmap::fromImage(image);
}

QIcon pictureIcon(const QString& literal)
{
    const QString path = fileOf(literal);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead())
        throw RuntimeFailure(failure::InvalidPicture);
    return QIcon(new PictureIcon(path)); // the icon owns its engine
}

} // namespace orb
