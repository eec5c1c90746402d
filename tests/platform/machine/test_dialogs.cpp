// The machine's own dialogs driven as a person would: what they open on, what they
// answer, and that nothing is left in the person's home.
#include "platform/machine/font_dialog.h"
#include "platform/machine/machine_host.h"

#include "platform/machine/any_box.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QAccessible>
#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileDialog>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#ifndef Q_OS_WIN
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace platform;

namespace {

// Does something in the dialog of that name as soon as it is open.
template <typename Dialog> void WhenOpen(const QString &name, std::function<void(Dialog &)> person)
{
    QTimer::singleShot(0, qApp, [name, person] {
        auto *dialog = dynamic_cast<Dialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog != nullptr);
        QCOMPARE(dialog->objectName(), name);
        person(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
}

// The texts of a box as a screen reader tells them: without the marks that were taken for markup.
QStringList TextsOf(QDialog &box)
{
    QStringList texts;
    for (QLabel *label : box.findChildren<QLabel *>())
        texts << QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name);
    return texts;
}

void PressOk(QDialog &dialog)
{
    QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                      Qt::LeftButton);
}

// A copy of a font file under another family name, which has to be as long as its own.
QString Renamed(const QString &font, const QString &family, const QTemporaryDir &folder)
{
    QFile file(font);
    const QString own =
        QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(font)).value(0);
    if (!file.open(QIODevice::ReadOnly) || own.size() != family.size())
        return {};
    const auto inTheFile = [](const QString &name) { // two bytes a letter, the higher one first
        QByteArray bytes;
        for (const QChar letter : name)
            bytes.append('\0').append(letter.toLatin1());
        return bytes;
    };
    QByteArray content = file.readAll();
    content.replace(inTheFile(own), inTheFile(family)).replace(own.toLatin1(), family.toLatin1());
    QFile copy(folder.filePath(family + QStringLiteral(".ttf")));
    return copy.open(QIODevice::WriteOnly) && copy.write(content) == content.size()
               ? copy.fileName()
               : QString();
}

void ChooseRow(QDialog &dialog, const char *list, const QString &text)
{
    auto *rows = dialog.findChild<QListWidget *>(QString::fromLatin1(list));
    const auto found = rows->findItems(text, Qt::MatchExactly);
    QVERIFY2(!found.isEmpty(), qPrintable(text));
    rows->setCurrentItem(found.first());
}

} // namespace

class TestDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("HOME", m_home.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_home.filePath(QStringLiteral(".config")).toLocal8Bit());
    }

    // --- The machine's dialogs ---

    void theColourDialogOpensOnBlackAndKeepsNoColours()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        SetHost(&machine);
        WhenOpen<QColorDialog>(QStringLiteral("ChooseColor"), [](QColorDialog &dialog) {
            QCOMPARE(dialog.currentColor(), QColor(Qt::black));
            QColorDialog::setCustomColor(3, QColor(1, 2, 3));
            dialog.setCurrentColor(QColor(0x12, 0x34, 0x56));
            PressOk(dialog);
        });
        QCOMPARE(machine.ChooseColor(), std::optional<Color>(Rgb(0x12, 0x34, 0x56)));
        WhenOpen<QColorDialog>(QStringLiteral("ChooseColor"), [](QColorDialog &dialog) {
            QCOMPARE(dialog.currentColor(), QColor(Qt::black));
            QCOMPARE(QColorDialog::customColor(3), QColor(Qt::white));
            dialog.setCurrentColor(QColor(0x12, 0x34, 0x56));
        });
        QCOMPARE(machine.ChooseColor(), std::optional<Color>());
    }

    void theFontDialogOpensWithNothingChosen()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        SetHost(&machine);
        const QString font = QStringLiteral(APPLICATION_DIR "/indis1.ttf");
        QVERIFY(machine.RegisterFont(font));
        WhenOpen<FontDialog>(QStringLiteral("ChooseFont"), [](FontDialog &dialog) {
            const auto *ok = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            QCOMPARE(dialog.Chosen().Name, QString());
            QVERIFY(!ok->isEnabled());
            ChooseRow(dialog, "Families", QStringLiteral("Comic Neue"));
            QVERIFY(!ok->isEnabled());
            ChooseRow(dialog, "Sizes", QStringLiteral("28"));
            QVERIFY(ok->isEnabled());
            ChooseRow(dialog, "Families", QStringLiteral("Indis1"));
            dialog.findChild<QCheckBox *>(QStringLiteral("Bold"))->click();
            PressOk(dialog);
        });
        const std::optional<FontChoice> choice = machine.ChooseFont();
        QVERIFY(choice.has_value());
        QCOMPARE(choice->Name, QStringLiteral("Indis1"));
        QCOMPARE(choice->Size, 28.0);
        QVERIFY(choice->Bold);
        QVERIFY(!choice->Italic);
        WhenOpen<FontDialog>(QStringLiteral("ChooseFont"), [](FontDialog &) {});
        QVERIFY(!machine.ChooseFont().has_value());
    }

    // The printing system brings a font of signs that says that it writes all letters.
    void theFontDialogListsWhatWritesLetters()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        SetHost(&machine);
        QVERIFY(machine.RegisterFont(QStringLiteral(APPLICATION_DIR "/indis1.ttf")));
        WhenOpen<FontDialog>(QStringLiteral("ChooseFont"), [](FontDialog &dialog) {
            const auto *list = dialog.findChild<QListWidget *>(QStringLiteral("Families"));
            for (const char *family : {"Comic Neue", "DejaVu Sans", "DejaVu Sans Mono", "Indis1",
                                       "Liberation Sans", "Liberation Serif"})
                QCOMPARE(list->findItems(QString::fromLatin1(family), Qt::MatchExactly).size(), 1);
            for (const char *family : {"D050000L", "Dingbats"})
                QVERIFY(
                    list->findItems(QString::fromLatin1(family), Qt::MatchStartsWith).isEmpty());
        });
        QVERIFY(!machine.ChooseFont().has_value());
    }

    void lettersForEarlyReadersStandFirst()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        SetHost(&machine);
        const QString ours = QStringLiteral(APPLICATION_DIR "/indis1.ttf");
        QVERIFY(machine.RegisterFont(ours));
        const QTemporaryDir fonts;
        QVERIFY(machine.RegisterFont(Renamed(ours, QStringLiteral("Andika"), fonts)));
        WhenOpen<FontDialog>(QStringLiteral("ChooseFont"), [](FontDialog &dialog) {
            auto *list = dialog.findChild<QListWidget *>(QStringLiteral("Families"));
            QStringList rows;
            for (int row = 0; row < list->count(); ++row)
                rows << list->item(row)->text();
            const auto heading = rows.indexOf(QStringLiteral("Gli altri"));
            QVERIFY(heading > 0);
            QStringList first = rows.mid(0, heading);
            for (const char *family : {"OpenDyslexicAlta", "OpenDyslexic", "Andika New Basic",
                                       "Andika Compact"}) // where they are installed
                first.removeOne(QString::fromLatin1(family));
            QCOMPARE(first, (QStringList{QStringLiteral("Andika"), QStringLiteral("Comic Neue")}));
            QStringList others = rows.mid(heading + 1);
            QVERIFY(others.contains(QStringLiteral("Liberation Sans")));
            QVERIFY(!others.contains(QStringLiteral("Andika")));
            QVERIFY(!others.contains(QStringLiteral("Comic Neue")));
            // A heading is nothing to choose, by mouse or by keys.
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualItemRect(list->item(static_cast<int>(heading))).center());
            QCOMPARE(dialog.Chosen().Name, QString());
            list->setFocus();
            for (const char *family : {"Andika", "Comic Neue"}) {
                ChooseRow(dialog, "Families", QString::fromLatin1(family));
                QCOMPARE(dialog.Chosen().Name, QString::fromLatin1(family));
            }
            list->setCurrentRow(static_cast<int>(heading) - 1);
            QTest::keyClick(list, Qt::Key_Down);
            QCOMPARE(dialog.Chosen().Name, others.first());
            QTest::keyClick(list, Qt::Key_Home);
            QCOMPARE(dialog.Chosen().Name, QStringLiteral("Andika"));
            ChooseRow(dialog, "Sizes", QStringLiteral("28"));
            PressOk(dialog);
        });
        const std::optional<FontChoice> choice = machine.ChooseFont();
        QVERIFY(choice.has_value());
        QCOMPARE(choice->Name, QStringLiteral("Andika"));
    }

    void aFileToWriteTakesItsEndingAndIsAskedAboutWhenItIsThere()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        SetHost(&machine);
        const QTemporaryDir folder;
        const FileQuestion question{.Title = QStringLiteral("Salva"),
                                    .Pattern = QStringLiteral("*.rpt"),
                                    .StartFolder = folder.path(),
                                    .Extension = QStringLiteral("rpt")};
        const auto type = [](QFileDialog &dialog) {
            dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
                ->setText(QStringLiteral("marzo"));
            QMetaObject::invokeMethod(&dialog, "accept");
        };
        WhenOpen<QFileDialog>(QStringLiteral("ChooseFile"), [&](QFileDialog &dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Salva"));
            QCOMPARE(dialog.directory().path(), folder.path());
            type(dialog);
        });
        const QString path = folder.filePath(QStringLiteral("marzo.rpt"));
        QCOMPARE(machine.ChooseFile(question), path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        bool asked = false;
        WhenOpen<QFileDialog>(QStringLiteral("ChooseFile"), [&](QFileDialog &dialog) {
            QTimer::singleShot(0, qApp, [&] {
                auto *box = dynamic_cast<QMessageBox *>(QApplication::activeModalWidget());
                asked = box != nullptr;
                if (asked)
                    box->button(QMessageBox::No)->click();
            });
            type(dialog);
            QVERIFY(dialog.isVisible());
        });
        QCOMPARE(machine.ChooseFile(question), QString());
        QVERIFY(asked);
    }

    void aFileToOpenHasToBeThere()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        SetHost(&machine);
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("marzo.rpt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        const FileQuestion question{.Open = true,
                                    .Title = QStringLiteral("Apri"),
                                    .Pattern = QStringLiteral("*.rpt"),
                                    .StartFolder = folder.path(),
                                    .Extension = QStringLiteral("rpt")};
        WhenOpen<QFileDialog>(QStringLiteral("ChooseFile"), [](QFileDialog &dialog) {
            QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
            dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
                ->setText(QStringLiteral("marzo.rpt"));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        QCOMPARE(machine.ChooseFile(question), file.fileName());
    }

    // --- Boxes show text, and never take it for markup ---

    void aBoxShowsItsTextAsItStands()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        QStringList shown;
        WhenAnyIsOpen([&](QDialog &box) { shown = TextsOf(box); });
        machine.MessageBox({.Text = Markup});
        QVERIFY2(shown.contains(Markup), qPrintable(shown.join(QLatin1Char('|'))));
    }

    void aQuestionShowsItsTextAsItStandsAndTheProposalIsThere()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        QStringList shown;
        QString title;
        QString proposal;
        WhenAnyIsOpen([&](QDialog &box) {
            shown = TextsOf(box);
            title = box.windowTitle();
            proposal = box.findChild<QLineEdit *>()->text();
            box.accept();
        });
        QCOMPARE(machine.InputBox(Markup, QStringLiteral("<i>t</i>"), QStringLiteral("<b>p</b>")),
                 QStringLiteral("<b>p</b>"));
        QVERIFY2(shown.contains(Markup), qPrintable(shown.join(QLatin1Char('|'))));
        QCOMPARE(title, QStringLiteral("<i>t</i>"));
        QCOMPARE(proposal, QStringLiteral("<b>p</b>"));
    }

    void theQuestionBeforeAFileIsReplacedShowsItsNameAsItStands()
    {
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("a<b>.rpt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        QStringList shown;
        WhenOpen<QFileDialog>(QStringLiteral("ChooseFile"), [&](QFileDialog &dialog) {
            WhenAnyIsOpen([&](QDialog &box) { shown = TextsOf(box); });
            dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
                ->setText(QStringLiteral("a<b>.rpt"));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        machine.ChooseFile({.Pattern = QStringLiteral("*.rpt"), .StartFolder = folder.path()});
        QVERIFY2(!shown.filter(QStringLiteral("a<b>.rpt")).isEmpty(),
                 qPrintable(shown.join(QLatin1Char('|'))));
    }

    void theBoxOfAnErrorThatEndsTheProgramShowsItsTextAsItStands()
    {
#ifdef Q_OS_WIN
        QSKIP("No process there has a copy of itself");
#else
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        int ends[2] = {};
        QCOMPARE(::pipe(ends), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            WhenAnyIsOpen([&](QDialog &box) {
                const QByteArray text = TextsOf(box).join(QLatin1Char('|')).toUtf8();
                static_cast<void>(
                    ::write(ends[1], text.constData(), static_cast<size_t>(text.size())));
            });
            machine.FatalError(52, Markup);
        }
        ::close(ends[1]);
        QByteArray shown;
        char buffer[256];
        for (ssize_t count = 0; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
            shown.append(buffer, count);
        ::close(ends[0]);
        int status = 0;
        ::waitpid(child, &status, 0);
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 1);
        QVERIFY2(shown.contains("52: " + Markup.toUtf8()), shown.constData());
#endif
    }

    // --- Documents ---

    void aDocumentIsOpenedByTheDesktopAndOneThatIsNotThereByNobody()
    {
#ifdef Q_OS_WIN
        QSKIP("The system opens documents there");
#else
        MachineHost machine(m_home.path() + QLatin1Char('/'));
        const QTemporaryDir folder;
        const QString document = folder.filePath(QStringLiteral("la guida.pdf"));
        const QString told = folder.filePath(QStringLiteral("told"));
        const auto write = [&](const QString &path, const QByteArray &content) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        };
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(folder.path()));
        write(document, "%PDF");
        machine.OpenDocument(document); // nothing opens documents yet
        write(folder.filePath(QStringLiteral("xdg-open")),
              "#!/bin/sh\necho \"$#: $1\" >>'" + QFile::encodeName(told) + "'\n");
        machine.OpenDocument(document + QStringLiteral(".missing"));
        machine.OpenDocument(document);
        const auto content = [&] {
            QFile file(told);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        QTRY_COMPARE(content(), "1: " + QFile::encodeName(document) + '\n');
        qputenv("PATH", path);
#endif
    }

    void nothingIsLeftInThePersonsHome()
    {
        QStringList left;
        QDirIterator found(m_home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (found.hasNext())
            left << found.next();
        QCOMPARE(left, QStringList());
    }

    void cleanup()
    {
        SetHost(nullptr);
    }

private:
    QTemporaryDir m_home;
};

MORLENE_TEST(TestDialogs)
#include "test_dialogs.moc"
