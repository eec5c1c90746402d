#include "platform/controls/combo_box.h"

#include "platform/controls/form_window.h"

#include <QComboBox>
#include <QFont>
#include <QLabel>
#include <QSignalBlocker>

namespace platform {

ComboBox::ComboBox(const ControlId &id, const Place &place)
    : VisualControl(id, place, new QComboBox), m_box(static_cast<QComboBox *>(Widget()))
{
    TellsItsClicks();
    // `activated` is a person's choice, also of what is chosen already; code is handled below.
    QObject::connect(m_box, &QComboBox::activated, m_box, [this] { Click(); });
    ComboBox::Refresh();
}

void ComboBox::Clear()
{
    m_box->clear();
}

void ComboBox::AddItem(const QString &text)
{
    // The toolkit would choose the first item by itself.
    const int chosen = m_box->currentIndex();
    m_box->addItem(text);
    if (chosen < 0)
        m_box->setCurrentIndex(-1);
}

int ComboBox::ListCount() const
{
    return m_box->count();
}

QString ComboBox::List(int index) const
{
    return m_box->itemText(index);
}

int ComboBox::ListIndex() const
{
    return m_box->currentIndex();
}

void ComboBox::SetListIndex(int index)
{
    if (index < -1 || index >= m_box->count())
        throw RunTimeError(InvalidPropertyValue, Key());
    if (index == m_box->currentIndex())
        return;
    m_box->setCurrentIndex(index);
    Note("ListIndex", QString::number(index));
    if (index >= 0)
        Click();
}

QString ComboBox::Text() const
{
    return m_box->currentText();
}

void ComboBox::SetHeight(double)
{
    throw RunTimeError(SetNotSupported, Key());
}

// The name of a drop-down list is its chosen text, whatever it was given; what it is for is told by
// a label that belongs to it.
void ComboBox::Speak(const QString &name)
{
    VisualControl::Speak(name);
    if (m_spoken == nullptr) {
        m_spoken = new QLabel(m_box->parentWidget());
        m_spoken->setTextFormat(Qt::PlainText);
        m_spoken->setBuddy(m_box);
        m_spoken->hide();
    }
    m_spoken->setText(name);
}

void ComboBox::Refresh()
{
    m_box->setFont(ToQFont(Font(), Font().Size));
    m_place.Height = m_box->sizeHint().height() * TwipsPerPixel;
    PutInPlace();
}

} // namespace platform
