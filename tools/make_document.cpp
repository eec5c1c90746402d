// Makes an A4 document of a page of HTML, with numbered pages and drawings as sharp as paper needs.
//
//     make_document SOURCE.html TARGET.pdf
#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgRenderer>
#include <QTextDocument>
#include <QUrl>

#include <cstdio>

namespace {

constexpr int DotsPerInch = 300;
constexpr double MarginMillimetres = 20;
constexpr double FootMillimetres = 12; // of the page's number, above the edge of the sheet
constexpr int PictureScale = 6;        // drawings are made so many times larger than a screen's

// A document whose drawings are rendered large instead of at their size on a screen.
class Page : public QTextDocument {
protected:
    QVariant loadResource(int type, const QUrl &name) override
    {
        const QUrl url = baseUrl().resolved(name);
        if (type == QTextDocument::ImageResource && url.path().endsWith(QStringLiteral(".svg"))) {
            QSvgRenderer drawing(url.toLocalFile());
            if (!drawing.isValid())
                return {};
            QImage image(drawing.defaultSize() * PictureScale, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            drawing.render(&painter);
            return image;
        }
        return QTextDocument::loadResource(type, url);
    }
};

double Dots(double millimetres)
{
    return millimetres / 25.4 * DotsPerInch;
}

void Print(QTextDocument &page, QPdfWriter &writer)
{
    QPainter painter(&writer);
    const QRectF sheet(0, 0, writer.width(), writer.height());
    const double margin = Dots(MarginMillimetres);
    const QRectF body = sheet.adjusted(margin, margin, -margin, -margin);
    page.documentLayout()->setPaintDevice(&writer);
    page.setDocumentMargin(0);
    page.setPageSize(body.size());
    QFont small(QStringLiteral("Liberation Sans"));
    small.setPointSizeF(9);
    for (int number = 1; number <= page.pageCount(); ++number) {
        if (number > 1)
            writer.newPage();
        painter.save();
        painter.translate(body.left(), body.top() - (number - 1) * body.height());
        page.drawContents(&painter,
                          QRectF(0, (number - 1) * body.height(), body.width(), body.height()));
        painter.restore();
        painter.setFont(small);
        painter.setPen(QColor(0x5a, 0x4c, 0x48));
        const QRectF foot(body.left(), sheet.bottom() - Dots(FootMillimetres) - 60, body.width(),
                          60);
        painter.drawText(foot, Qt::AlignLeft, page.metaInformation(QTextDocument::DocumentTitle));
        painter.drawText(foot, Qt::AlignRight,
                         QStringLiteral("%1 / %2").arg(number).arg(page.pageCount()));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "make_document SOURCE.html TARGET.pdf\n");
        return 1;
    }
    const QUrl source = QUrl::fromLocalFile(arguments.at(1));
    QFile file(arguments.at(1));
    QFile style(source.resolved(QUrl(QStringLiteral("stile.css"))).toLocalFile());
    if (!file.open(QIODevice::ReadOnly) || !style.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s or its style\n", argv[1]);
        return 1;
    }
    Page page;
    page.setBaseUrl(source);
    page.setDefaultStyleSheet(QString::fromUtf8(style.readAll()));
    page.setHtml(QString::fromUtf8(file.readAll()));

    QPdfWriter writer(arguments.at(2));
    writer.setResolution(DotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(page.metaInformation(QTextDocument::DocumentTitle));
    writer.setCreator(QStringLiteral("MorleneKVT"));
    Print(page, writer);
    return 0;
}
