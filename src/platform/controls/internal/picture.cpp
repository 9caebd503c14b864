// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include "failure.h"
#include "paths.h"

#include <QFileInfo>
#include <QIconEngine>
#include <QImageReader>

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

class PictureIcon final : public QIconEngine {
public:
    explicit PictureIcon(const QString& path) : path_(path) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return icon().pixmap(size, 1, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QIconEngine* clone() const override { return new PictureIcon(*this); }

private:
    const QIcon& icon()
    {
        if (icon_.isNull())
            icon_ = QIcon(QPixmap::fromImage(readPicture(path_)));
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
