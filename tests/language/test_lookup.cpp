// Looking up a text by its key: the two ways of reading, and all that can be wrong with a file.
#include "language/language.h"

#include "core/shared_state.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "support/application_folder.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

#ifndef Q_OS_WIN
#include <fcntl.h>
#include <sys/stat.h>
#endif

using namespace platform;

namespace {

constexpr int Limit = 64000; // bytes of a file that is still read as an initialisation file

// `content` made `size` bytes long by lines that no key matches.
QByteArray Padded(QByteArray content, int size)
{
    while (content.size() + 42 < size)
        content += ";" + QByteArray(39, '-') + "\r\n";
    return content + QByteArray(size - content.size(), ';');
}

} // namespace

class TestLookup : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;

    QString Value(const QByteArray &content, const char *section, const char *key)
    {
        m_folder->Write(QStringLiteral("f.ini"), content);
        return MLSLeggiIni(AppPath() + QStringLiteral("\\f.ini"), QString::fromLatin1(section),
                           QString::fromLatin1(key));
    }
    static QString Text(const char *key) { return MLSTesto(QString::fromLatin1(key)); }

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        AzzeraStatoCondiviso();
    }
    void cleanup()
    {
        m_folder.reset();
        m_host.reset();
    }

    void aValueStandsWithoutBlanksAndQuotes_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("value");
        QTest::newRow("plain") << QByteArray("[S]\r\nk=uno\r\n") << "uno";
        QTest::newRow("blanks") << QByteArray("[S]\r\n  k \t=  uno due\t \r\n") << "uno due";
        QTest::newRow("quotes") << QByteArray("[S]\r\nk=\" uno \"\r\n") << " uno ";
        QTest::newRow("one pair only") << QByteArray("[S]\r\nk=\"\"uno\"\"\r\n") << "\"uno\"";
        QTest::newRow("one quote") << QByteArray("[S]\r\nk=\"uno\r\n") << "\"uno";
        QTest::newRow("case") << QByteArray("[s]\r\nK=uno\r\n") << "uno";
        QTest::newRow("line feeds") << QByteArray("[S]\nk=uno\n") << "uno";
        QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF[S]\r\nk=uno\r\n") << "uno";
        QTest::newRow("other section") << QByteArray("[T]\r\nk=due\r\n[S]\r\nk=uno\r\n") << "uno";
        QTest::newRow("first key") << QByteArray("[S]\r\nk=uno\r\nk=due\r\n") << "uno";
        QTest::newRow("longer key") << QByteArray("[S]\r\nkk=due\r\nk=uno\r\n") << "uno";
        QTest::newRow("equals signs") << QByteArray("[S]\r\nk=a=b\r\n") << "a=b";
        QTest::newRow("code page")
            << QByteArray("[S]\r\nk=pi\xF9 \x80\r\n") << QStringLiteral(u"pi\u00F9 \u20AC");
        QTest::newRow("no such key") << QByteArray("[S]\r\nj=uno\r\n") << "";
        QTest::newRow("no such section") << QByteArray("[T]\r\nk=uno\r\n") << "";
        QTest::newRow("no sections") << QByteArray("k=uno\r\n") << "";
        QTest::newRow("empty file") << QByteArray() << "";
    }
    void aValueStandsWithoutBlanksAndQuotes()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, value);
        QCOMPARE(Value(content, "S", "k"), value);
    }

    void aLongValueIsCutTo511Letters()
    {
        QCOMPARE(Value("[S]\r\nk=" + QByteArray(600, 'x') + "\r\n", "S", "k"),
                 QString(511, QLatin1Char('x')));
        QCOMPARE(Value("[S]\r\nk=\"" + QByteArray(600, 'x') + "\"\r\n", "S", "k"),
                 QString(511, QLatin1Char('x')));
    }

    void aFileOf64000BytesIsReadBySectionsAndOneMoreByLines()
    {
        const QByteArray content = "[T]\r\n0005=\"primo\"\r\n[S]\r\n0005=\"secondo\"\r\n";
        QCOMPARE(Value(Padded(content, Limit), "S", "0005"), QStringLiteral("secondo"));
        QCOMPARE(Value(Padded(content, Limit + 1), "S", "0005"), QStringLiteral("primo"));
    }

    void aLargeFileKeepsItsStrictRules_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("value");
        QTest::newRow("quoted") << QByteArray("0005=\"Errati\"\r\n") << "Errati";
        QTest::newRow("without quotes") << QByteArray("0005=Errati\r\n") << "rrat";
        QTest::newRow("a longer key matches")
            << QByteArray("00051=\"uno\"\r\n0005=\"due\"\r\n") << "\"uno";
        QTest::newRow("letters compare exactly") << QByteArray("0005=\"uno\"\r\n") << "uno";
        QTest::newRow("blank ahead") << QByteArray(" 0005=\"uno\"\r\n") << "";
        QTest::newRow("blank behind the key") << QByteArray("0005 =\"uno\"\r\n") << "\"uno";
        QTest::newRow("nothing behind the key") << QByteArray("0005\r\n") << "";
        QTest::newRow("empty value") << QByteArray("0005=\r\n") << "";
        QTest::newRow("one letter") << QByteArray("0005=u\r\n") << "";
        QTest::newRow("two letters") << QByteArray("0005=un\r\n") << "";
        QTest::newRow("carriage returns") << QByteArray("x\r0005=\"uno\"\r0005=\"due\"\r") << "uno";
        QTest::newRow("line feeds") << QByteArray("0005=\"uno\"\n0005=\"due\"\n") << "uno";
        QTest::newRow("long value") << "0005=\"" + QByteArray(600, 'x') + "\"\r\n"
                                    << QString(600, QLatin1Char('x'));
        QTest::newRow("code page")
            << QByteArray("0005=\"pi\xF9\"\r\n") << QStringLiteral(u"pi\u00F9");
    }
    void aLargeFileKeepsItsStrictRules()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, value);
        QCOMPARE(Value(Padded(content, Limit + 1), "S", "0005"), value);
    }

    void aLargeFileTellsCapitalsApart()
    {
        const QByteArray content = Padded("label1.caption=\"uno\"\r\n", Limit + 1);
        QCOMPARE(Value(content, "S", "Label1.Caption"), QString());
    }

    void theLastLineOfALargeFileNeedsNoEnd()
    {
        QByteArray content = Padded({}, Limit + 1) + "\r\n0005=\"uno\"";
        QCOMPARE(Value(content, "S", "0005"), QStringLiteral("uno"));
    }

    void aMissingFileIsAnErrorToTheCaller()
    {
        int error = 0;
        try {
            MLSLeggiIni(AppPath() + QStringLiteral("\\manca.lng"), QStringLiteral("S"),
                        QStringLiteral("k"));
        } catch (const RunTimeError &raised) {
            error = raised.Number();
        }
        QCOMPARE(error, int(FileNotFound));
    }

    void aTextFindsItsLanguageOnFirstUse()
    {
        m_folder->WriteLanguage("[Strings]\r\n0005=Errati\r\n");
        QCOMPARE(LinguaCorrente, QString());
        QCOMPARE(Text("0005"), QStringLiteral("Errati"));
        QCOMPARE(LinguaCorrente, QStringLiteral("prova"));
    }

    void aKnownLanguageIsNotAskedForAgain()
    {
        m_folder->WriteLanguage("[Strings]\r\n0005=Errati\r\n");
        m_folder->Write(QStringLiteral("lngmorlene/altra.lng"), "[Strings]\r\n0005=Faux\r\n");
        LinguaCorrente = QStringLiteral("altra");
        QCOMPARE(Text("0005"), QStringLiteral("Faux"));
    }

    void withoutASettingAllTextsAreEmpty_data()
    {
        QTest::addColumn<QByteArray>("setting");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("without the key") << QByteArray("[Language]\r\nx=prova\r\n");
        QTest::newRow("other section") << QByteArray("[Lingua]\r\nCurrentLanguage=prova\r\n");
        QTest::newRow("way out of the folder")
            << QByteArray("[Language]\r\nCurrentLanguage=..\\lngmorlene\\prova\r\n");
        QTest::newRow("noise") << QByteArray::fromHex("00ff5b0a3d0d22");
    }
    void withoutASettingAllTextsAreEmpty()
    {
        QFETCH(QByteArray, setting);
        m_folder->WriteLanguage("[Strings]\r\n0005=Errati\r\n");
        m_folder->Remove(QStringLiteral("lngmorlene/LangSetting.ini"));
        if (!setting.isEmpty())
            m_folder->Write(QStringLiteral("lngmorlene/LangSetting.ini"), setting);
        QCOMPARE(Text("0005"), QString());
    }

    void withoutALanguageTheFileHasAnEmptyName()
    {
        m_folder->Write(QStringLiteral("lngmorlene/.lng"), "[Strings]\r\n0005=senza nome\r\n");
        QCOMPARE(Text("0005"), QStringLiteral("senza nome"));
        QCOMPARE(LinguaCorrente, QString());
    }

    void withoutAnyFolderATextIsEmpty() { QCOMPARE(Text("0005"), QString()); }

    void aChangedFileShowsAtTheNextLookUp()
    {
        m_folder->WriteLanguage("[Strings]\r\n0005=uno\r\n");
        QCOMPARE(Text("0005"), QStringLiteral("uno"));
        m_folder->WriteLanguage("[Strings]\r\n0005=secondo\r\n");
        QCOMPARE(Text("0005"), QStringLiteral("secondo"));
        m_folder->WriteLanguage(Padded("0005=\"grande\"\r\n", Limit + 1));
        QCOMPARE(Text("0005"), QStringLiteral("grande"));
        m_folder->WriteLanguage(Padded("0005=\"enorme\"\r\n", Limit + 2));
        QCOMPARE(Text("0005"), QStringLiteral("enorme"));
        m_folder->WriteLanguage("[Strings]\r\n0005=terzo\r\n");
        QCOMPARE(Text("0005"), QStringLiteral("terzo"));
    }

    // A copy brings length and time of change along.
    void aFileReplacedByOneOfItsLengthAndTimeShowsAtTheNextLookUp()
    {
#ifdef Q_OS_WIN
        QSKIP("The time of change is the only one there");
#else
        for (const int size : {100, Limit + 1}) {
            m_folder->WriteLanguage({});
            for (const QByteArray text : {"uno", "due", "tre"}) {
                const QString next = QStringLiteral("lngmorlene/copia");
                m_folder->Write(next, Padded("[Strings]\r\n0005=\"" + text + "\"\r\n", size));
                constexpr struct timespec LongAgo[2] = {{1'000'000, 0}, {1'000'000, 0}};
                const QByteArray from = m_folder->Path(next).toUtf8();
                const QByteArray to =
                    m_folder->Path(QStringLiteral("lngmorlene/prova.lng")).toUtf8();
                QCOMPARE(::utimensat(AT_FDCWD, from.constData(), LongAgo, 0), 0);
                QCOMPARE(std::rename(from.constData(), to.constData()), 0);
                // Asked for until it is old enough to be kept.
                QElapsedTimer timer;
                timer.start();
                do
                    QCOMPARE(Text("0005"), QString::fromLatin1(text));
                while (timer.elapsed() < 100);
            }
        }
#endif
    }

    void aFileThatVanishesFailsIntoEmptyTexts()
    {
        for (const int size : {100, Limit + 1}) {
            m_folder->WriteLanguage(Padded("[Strings]\r\n0005=\"uno\"\r\n", size));
            QCOMPARE(Text("0005"), QStringLiteral("uno"));
            m_folder->Remove(QStringLiteral("lngmorlene/prova.lng"));
            QCOMPARE(Text("0005"), QString());
        }
    }

    void noiseGivesEmptyTexts()
    {
        QByteArray noise;
        uint32_t state = 1;
        for (int i = 0; i < 60000; ++i) {
            state = state * 1664525U + 1013904223U;
            noise += static_cast<char>(state >> 24);
        }
        m_folder->WriteLanguage(noise);
        QCOMPARE(Text("0005"), QString());
        m_folder->WriteLanguage(noise + noise);
        QCOMPARE(Text("0005"), QString());
    }

    void aFileOfTenMillionBytesIsReadAtOnce()
    {
        m_folder->WriteLanguage(Padded("0001=\"primo\"\r\n", 10 * 1000 * 1000) +
                                "\r\n0105=\"livello\"\r\n");
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 20; ++i)
            QCOMPARE(Text("0105"), QStringLiteral("livello"));
        QCOMPARE(Text("0001"), QStringLiteral("primo"));
        QVERIFY2(timer.elapsed() < 20000, "a look-up takes a second");
    }

    void theChoiceOfALanguageOutlivesTheRun()
    {
        m_folder->Write(QStringLiteral("lngmorlene/LangSetting.ini"),
                        "; mia\r\n[Altro]\r\nx=1\r\n[Language]\r\nCurrentLanguage=prova\r\n");
        LinguaCorrente = QStringLiteral("francese");
        SalvaLinguaCorrente();
        QFile file(m_folder->Path(QStringLiteral("lngmorlene/LangSetting.ini")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(
            file.readAll(),
            QByteArray("; mia\r\n[Altro]\r\nx=1\r\n[Language]\r\nCurrentLanguage=francese\r\n"));
        LinguaCorrente.clear();
        LeggiLinguaCorrente();
        QCOMPARE(LinguaCorrente, QStringLiteral("francese"));
    }

    void aLanguageOfAnyNameOutlivesTheRun_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const char *what, const char *name, const char *written) {
            QTest::newRow(what) << QString::fromUtf8(name) << QByteArray(written);
        };
        row("plain", "english", "english");
        row("of the code page", "français €",
            "fran\xE7"
            "ais \x80");
        row("blank ahead", " italiano", "\" italiano\"");
        row("blank behind", "italiano ", "\"italiano \"");
        row("nothing but a blank", " ", "\" \"");
        row("quotes", "\"x\"", "\"\"x\"\"");
        row("one quote", "\"", "\"");
        row("an equals sign and a remark", ";a=b", ";a=b");
        row("Russian", "Русский", "\xEF\xBB\xBFРусский");
        row("Russian with a blank behind", "Русский ", "\"\xEF\xBB\xBFРусский \"");
        row("beyond 16 bits", "😀", "\xEF\xBB\xBF😀");
        QTest::newRow("a mark of its own")
            << QChar(0xFEFF) + QStringLiteral("č") << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBFč");
        row("like the mark", "\u00EF\u00BB\u00BFx", "\xEF\xBB\xBF\u00EF\u00BB\u00BFx");
    }
    void aLanguageOfAnyNameOutlivesTheRun()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, written);
        const QString setting = QStringLiteral("lngmorlene/LangSetting.ini");
        m_folder->Write(setting, "[Language]\r\nCurrentLanguage=x\r\ny=\xE8\r\n");
        LinguaCorrente = name;
        SalvaLinguaCorrente();
        LinguaCorrente.clear();
        LeggiLinguaCorrente();
        QCOMPARE(LinguaCorrente, name);
        QFile file(m_folder->Path(setting));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "[Language]\r\nCurrentLanguage=" + written + "\r\ny=\xE8\r\n");
    }

    void aNameThatIsNoUtf8BehindTheMarkFailsIntoEmptyTexts()
    {
        m_folder->WriteLanguage("[Strings]\r\n0005=uno\r\n");
        m_folder->Write(QStringLiteral("lngmorlene/LangSetting.ini"),
                        "[Language]\r\nCurrentLanguage=\xEF\xBB\xBF\xFF\xFE\r\n");
        QCOMPARE(Text("0005"), QString());
    }

    void aChoiceThatCannotBeWrittenIsSilent()
    {
        LinguaCorrente = QStringLiteral("francese");
        SalvaLinguaCorrente(); // there is no language folder
        QCOMPARE(LinguaCorrente, QStringLiteral("francese"));
    }

    void languagesComeInTheOrderOfTheirNames()
    {
        for (const char *name : {"b.lng", "A.lng", "c.LNG", "d.txt"})
            m_folder->Write(QStringLiteral("lngmorlene/") + QString::fromLatin1(name), "x");
        QCOMPARE(LingueInstallate(), QStringList({QStringLiteral("A.lng"), QStringLiteral("b.lng"),
                                                  QStringLiteral("c.LNG")}));
    }
};

MORLENE_TEST(TestLookup)
#include "test_lookup.moc"
