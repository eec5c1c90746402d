// The choice of a font: each family written in itself, those for early readers first, its size, its
// style, and a sample. It opens with nothing chosen; a family and a size have to be.
#pragma once

#include "platform/host/host.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace platform {

class FontDialog : public QDialog {
public:
    explicit FontDialog(QWidget *parent);

    FontChoice Chosen() const;

private:
    void Fill();
    void Update();

    QListWidget *m_families;
    QLabel *m_order; // of the families, told
    QListWidget *m_sizes;
    QCheckBox *m_bold;
    QCheckBox *m_italic;
    QCheckBox *m_underline;
    QLabel *m_sample;
    QPushButton *m_ok = nullptr;
};

} // namespace platform
