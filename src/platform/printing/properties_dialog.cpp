#include "platform/printing/properties_dialog.h"

#include "platform/controls/form.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPageSize>
#include <QSpinBox>
#include <QWidget>

namespace platform {

bool AskPrinterProperties(Form &owner, const QList<QPageSize> &papers, DeviceMode &mode)
{
    QDialog dialog(owner.Window());
    dialog.setWindowTitle(QStringLiteral("Proprietà di ") + mode.DeviceName);
    auto *paper = new QComboBox(&dialog);
    paper->setAccessibleDescription(QStringLiteral("paper"));
    for (const QPageSize &size : papers)
        paper->addItem(size.name(), size.key());
    paper->setCurrentIndex(paper->findData(mode.Paper));
    auto *orientation = new QComboBox(&dialog);
    orientation->setAccessibleDescription(QStringLiteral("orientation"));
    orientation->addItems({QStringLiteral("Verticale"), QStringLiteral("Orizzontale")});
    orientation->setCurrentIndex(mode.Orientation == 2 ? 1 : 0);
    auto *copies = new QSpinBox(&dialog);
    copies->setAccessibleDescription(QStringLiteral("copies"));
    copies->setRange(1, 100);
    copies->setValue(mode.Copies);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *layout = new QFormLayout(&dialog);
    layout->addRow(QStringLiteral("&Carta:"), paper);
    layout->addRow(QStringLiteral("&Orientamento:"), orientation);
    layout->addRow(QStringLiteral("C&opie:"), copies);
    layout->addRow(buttons);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    mode.Paper = paper->currentData().toString();
    mode.Orientation = static_cast<int16_t>(orientation->currentIndex() + 1);
    mode.Copies = static_cast<int16_t>(copies->value());
    return true;
}

} // namespace platform
