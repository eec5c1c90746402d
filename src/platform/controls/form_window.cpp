#include "platform/controls/form_window.h"

#include "platform/controls/spoken_control.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QPainter>

#include <cmath>

namespace platform {

int ToPixels(double twips)
{
    return static_cast<int>(std::lround(twips / TwipsPerPixel));
}

ClientArea::ClientArea(Form &form, QWidget *parent) : QWidget(parent), m_form(form)
{
    setMouseTracking(true);
    // Every pixel is painted here, so no older window shines through while one replaces another.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ClientArea::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(m_form.BackColor()));
    const double unit = height() / Units;
    for (const Band &band : Bands) {
        const int top = static_cast<int>(std::floor(band.From * unit));
        const int bottom = static_cast<int>(std::ceil(band.To * unit));
        painter.fillRect(0, top, width(), bottom - top, ToQColor(band.Fill));
    }
}

void ClientArea::mouseMoveEvent(QMouseEvent *)
{
    if (!m_form.Unloaded())
        m_form.OnMouseMove();
}

FormWindow::FormWindow(Form &form) : m_form(form), m_client(new ClientArea(form, this))
{
    DrawnAs(*this, QAccessible::Client); // a modal one is a dialog
    setAttribute(Qt::WA_OpaquePaintEvent);
    setObjectName(form.Name());
    setAccessibleDescription(form.Name());
}

QMenuBar *FormWindow::MenuBar()
{
    if (m_menuBar == nullptr) {
        m_menuBar = new QMenuBar(this);
        m_menuBar->setNativeMenuBar(false);
    }
    return m_menuBar;
}

int FormWindow::MenuBarHeight() const
{
    return m_menuBar == nullptr ? 0 : m_menuBar->sizeHint().height();
}

void FormWindow::LayOut()
{
    const int bar = MenuBarHeight();
    if (m_menuBar != nullptr)
        m_menuBar->setGeometry(0, 0, width(), bar);
    m_client->setGeometry(0, bar, width(), height() - bar);
}

void FormWindow::Lock(bool locked)
{
    m_locked = locked;
    LetPaint();
}

void FormWindow::BeingSetUp(bool busy)
{
    if (busy == m_beingSetUp)
        return;
    m_beingSetUp = busy;
    LetPaint();
    if (!busy && !isWindow())
        parentWidget()->setUpdatesEnabled(true);
}

void ShowWhatIsBeingSetUp()
{
    for (const Form *form : Form::Loaded())
        static_cast<FormWindow *>(form->Window())->BeingSetUp(false);
}

void FormWindow::resizeEvent(QResizeEvent *)
{
    m_form.Resized();
}

void FormWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    m_form.Unload();
}

} // namespace platform
