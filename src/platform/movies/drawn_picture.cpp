#include "platform/movies/drawn_picture.h"

#include "platform/base/errors.h"
#include "platform/files/files.h"

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <memory>

namespace platform {

namespace {

// Drawings are parsed once per process: a window is made anew at each visit.
QSvgRenderer *Drawing(const QString &name)
{
    static QHash<QString, std::shared_ptr<QSvgRenderer>> drawings;
    auto &drawing = drawings[name];
    if (!drawing) {
        drawing = std::make_shared<QSvgRenderer>();
        QByteArray content;
        if (Skipping([&] {
                content = ReadFile(AppPath() + QStringLiteral("\\immagini\\") + name +
                                   QStringLiteral(".svg"));
            }) == 0)
            drawing->load(content);
    }
    return drawing->isValid() ? drawing.get() : nullptr;
}

void Draw(QPainter &painter, QSvgRenderer &drawing, const QSize &size)
{
    const QSizeF fitted = QSizeF(drawing.defaultSize()).scaled(size, Qt::KeepAspectRatio);
    drawing.render(&painter, QRectF(QPointF((size.width() - fitted.width()) / 2,
                                            (size.height() - fitted.height()) / 2),
                                    fitted));
}

// A larger one is not kept: to make and lay down its picture costs more than to draw it.
constexpr double MostKeptPixels = 256 * 1024;

} // namespace

void PaintPicture(QPainter &painter, const QString &name, const QSize &size, double ratio)
{
    if (size.width() * ratio * size.height() * ratio <= MostKeptPixels)
        painter.drawPixmap(0, 0, DrawnPicture(name, size, ratio));
    else if (QSvgRenderer *drawing = Drawing(name))
        Draw(painter, *drawing, size);
}

QPixmap DrawnPicture(const QString &name, const QSize &size, double ratio)
{
    const QString key =
        QStringLiteral("%1 %2 %3 %4").arg(name).arg(size.width()).arg(size.height()).arg(ratio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QSvgRenderer *drawing = Drawing(name);
    if (drawing == nullptr || size.isEmpty())
        return {};
    pixmap = QPixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    Draw(painter, *drawing, size);
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

} // namespace platform
