// The common dialogs of the machine. They are the toolkit's or our own and never the desktop's, so
// that they are the same everywhere and nothing is kept in the person's home.
#include "platform/machine/machine_host.h"

#include "platform/controls/form.h"
#include "platform/machine/font_dialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QEventLoop>
#include <QFileDialog>

#ifdef Q_OS_WIN
#include <QHash>
#include <QSettings>
#include <QVariant>
#endif

namespace platform {

namespace {

#ifdef Q_OS_WIN
// A dialog of the toolkit writes into the registry of the person; when this goes, what stood there
// before stands there again.
class NothingKept {
public:
    NothingKept()
    {
        for (const QString &key : m_settings.allKeys())
            m_before.insert(key, m_settings.value(key));
    }
    ~NothingKept()
    {
        for (const QString &key : m_settings.allKeys())
            if (!m_before.contains(key))
                m_settings.remove(key);
        for (auto setting = m_before.cbegin(); setting != m_before.cend(); ++setting)
            m_settings.setValue(setting.key(), setting.value());
    }
    NothingKept(const NothingKept &) = delete;
    NothingKept &operator=(const NothingKept &) = delete;

private:
    QSettings m_settings{QSettings::UserScope, QStringLiteral("QtProject")};
    QHash<QString, QVariant> m_before;
};
#else
// Elsewhere the toolkit's settings lead nowhere.
struct NothingKept {};
#endif

} // namespace

std::optional<Color> MachineHost::ChooseColor()
{
    [[maybe_unused]] const NothingKept forgetful;
    for (int i = 0; i < QColorDialog::customCount(); ++i)
        QColorDialog::setCustomColor(i, Qt::white);
    QColorDialog dialog(Qt::black, QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("ChooseColor"));
    dialog.setWindowTitle(QStringLiteral("Colore"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QColor color = dialog.selectedColor();
    return Rgb(color.red(), color.green(), color.blue());
}

std::optional<FontChoice> MachineHost::ChooseFont()
{
    FontDialog dialog(QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("ChooseFont"));
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.Chosen();
}

QString MachineHost::ChooseFile(const FileQuestion &question)
{
    [[maybe_unused]] const NothingKept forgetful;
    QFileDialog dialog(QApplication::activeWindow(), question.Title, question.StartFolder);
    dialog.setObjectName(QStringLiteral("ChooseFile"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setNameFilter(question.Pattern);
    dialog.setDefaultSuffix(question.Extension);
    dialog.setAcceptMode(question.Open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(question.Open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setHistory({});
    if (!question.ProposedName.isEmpty())
        dialog.selectFile(question.ProposedName);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

void MachineHost::WaitForModal(ModalWindow &window)
{
    QEventLoop loop;
    window.WhenClosed([&loop] { loop.quit(); });
    loop.exec();
}

} // namespace platform
