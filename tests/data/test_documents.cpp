// The documents that lie beside the program: made, on A4, with their pages, and no picture missing.
#include "support/registered_tests.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestDocuments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachDocumentIsMadeOnA4WithItsPages_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("pages");
        QTest::newRow("guide") << QStringLiteral("morlenekvt") << 3;
        QTest::newRow("about") << QStringLiteral("documento") << 1;
    }

    void eachDocumentIsMadeOnA4WithItsPages()
    {
        QFETCH(QString, name);
        QFETCH(int, pages);
        const QByteArray pdf = Content(QStringLiteral(APPLICATION_DIR "/%1.pdf").arg(name));
        QVERIFY(pdf.startsWith("%PDF-"));
        QVERIFY(pdf.trimmed().endsWith("%%EOF"));
        QVERIFY(pdf.contains("/MediaBox [0 0 595.00") || pdf.contains("/MediaBox [0 0 595 "));
        QCOMPARE(static_cast<int>(pdf.count("/Type /Page\n")), pages);
    }

    void everyPictureOfADocumentIsThere()
    {
        static const QRegularExpression picture(QStringLiteral("<img src=\"([^\"]+)\""));
        int found = 0;
        for (const char *name : {"morlenekvt", "documento"}) {
            const QString folder = QStringLiteral(SOURCE_DIR "/data/documents/");
            const QString source = QString::fromUtf8(
                Content(folder + QString::fromLatin1(name) + QStringLiteral(".html")));
            for (auto match = picture.globalMatch(source); match.hasNext(); ++found) {
                const QString path = match.next().captured(1);
                QVERIFY2(QFile::exists(folder + path), qPrintable(path));
            }
        }
        QCOMPARE(found, 10);
    }
};

MORLENE_TEST(TestDocuments)
#include "test_documents.moc"
