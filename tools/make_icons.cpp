// Draws the program's icon in the sizes that desktops keep ready, so that none is made from a
// larger one with blurred outlines.
//
//     make_icons ICON.svg FOLDER NAME SIZE...     makes FOLDER/SIZExSIZE/apps/NAME.png
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {

bool Draw(QSvgRenderer &icon, int size, const QString &folder, const QString &name)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.render(&painter);
    painter.end();
    const QString place = QStringLiteral("%1/%2x%2/apps").arg(folder).arg(size);
    return QDir().mkpath(place) && image.save(place + '/' + name + QStringLiteral(".png"));
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    if (words.size() < 5) {
        std::fprintf(stderr, "make_icons ICON.svg FOLDER NAME SIZE...\n");
        return 2;
    }
    QSvgRenderer icon(words[1]);
    if (!icon.isValid()) {
        std::fprintf(stderr, "make_icons: no drawing: %s\n", argv[1]);
        return 1;
    }
    for (const QString &size : words.mid(4))
        if (!Draw(icon, size.toInt(), words[2], words[3])) {
            std::fprintf(stderr, "make_icons: cannot make size %s\n", qPrintable(size));
            return 1;
        }
    return 0;
}
