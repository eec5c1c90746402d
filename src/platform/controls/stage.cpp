#include "platform/controls/stage.h"

#include "platform/controls/spoken_control.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>

#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace platform {

namespace {

Stage *stage = nullptr;

constexpr int UntilAtRest = 200; // ms, when the new form is painted

// What the form before had used stays with the process else, in pieces.
void GiveMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace

Stage::Stage()
{
    DrawnAs(*this, QAccessible::Window);
    // A form covers it all.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, GiveMemoryBack);
    // A window manager does it too; without one the foot of a form would lie below a screen that
    // gets smaller.
    connect(QGuiApplication::primaryScreen(), &QScreen::geometryChanged, this,
            [this](const QRect &screen) { Fill(QRect(QPoint(), screen.size())); });
}

void Stage::Show(QWidget &form, const QRect &screen)
{
    if (stage == nullptr)
        stage = new Stage;
    const bool first = stage->m_form == nullptr;
    stage->m_form = &form;
    // Until the form has been set up.
    stage->setUpdatesEnabled(false);
    form.setParent(stage);
    form.setGeometry(QRect(QPoint(), screen.size()));
    Retitle(form);
    stage->Fill(screen);
    form.raise();
    form.show();
    if (!stage->isVisible()) {
        // A test's screen is only a size.
        stage->m_fullScreen = stage->screen()->size() == screen.size();
        if (stage->m_fullScreen)
            stage->setWindowState(Qt::WindowFullScreen);
        stage->show();
        // It fills the screen whatever the window manager says, or without one.
        stage->Fill(screen);
    }
    stage->activateWindow();
    if (first)
        stage->TakeKeyboard();
}

// A window that is given a place is no longer full-screen to the toolkit, which tells the window
// manager so: it is asked for anew.
void Stage::Fill(const QRect &screen)
{
    if (geometry() == screen)
        return;
    setGeometry(screen);
    if (m_fullScreen)
        setWindowState(Qt::WindowFullScreen);
}

bool Stage::BringForward(QWidget &form)
{
    if (stage == nullptr || form.parent() != stage)
        return false;
    if (stage->m_form != &form) {
        stage->m_form = &form;
        Retitle(form);
        form.raise();
        stage->TakeKeyboard();
    }
    stage->activateWindow();
    return true;
}

void Stage::Leaves(QWidget &form)
{
    if (stage == nullptr || form.parent() != stage)
        return;
    if (stage->m_form == &form) {
        QWidget *next = stage->NextBehind();
        if (next == nullptr)
            return Close();
        stage->m_form = next;
        Retitle(*next);
    }
    stage->TakeKeyboard();
    stage->m_rest.start(UntilAtRest);
}

bool Stage::Hides(const QWidget &form)
{
    return stage != nullptr && form.parent() == stage && stage->m_form != &form;
}

void Stage::Retitle(const QWidget &form)
{
    if (stage == nullptr || stage->m_form != &form)
        return;
    stage->setWindowTitle(form.windowTitle());
    stage->setAccessibleDescription(form.accessibleDescription());
}

void Stage::Close()
{
    if (stage == nullptr)
        return;
    // Forms have their own owners.
    for (QObject *child : QObjectList(stage->children()))
        if (child->isWidgetType())
            static_cast<QWidget *>(child)->setParent(nullptr);
    stage->hide();
    // Not from under an event that is on its way through it.
    std::exchange(stage, nullptr)->deleteLater();
}

// The uppermost of the forms that the one in front covers, which stands there until now.
QWidget *Stage::NextBehind() const
{
    QWidget *next = nullptr;
    for (QObject *child : children()) // from the lowest to the uppermost
        if (child->isWidgetType() && child != m_form && !static_cast<QWidget *>(child)->isHidden())
            next = static_cast<QWidget *>(child);
    return next;
}

// What the form chose itself, else the first in its order.
void Stage::TakeKeyboard()
{
    if (m_form == nullptr)
        return;
    QWidget *taker = m_form->focusWidget();
    for (QWidget *next = m_form->nextInFocusChain(); taker == nullptr && next != m_form;
         next = next->nextInFocusChain())
        if (m_form->isAncestorOf(next) && next->isVisible() && next->isEnabled() &&
            (next->focusPolicy() & Qt::TabFocus) != 0)
            taker = next;
    if (taker != nullptr)
        taker->setFocus(Qt::ActiveWindowFocusReason);
    else if (QWidget *other = focusWidget())
        other->clearFocus();
}

void Stage::resizeEvent(QResizeEvent *)
{
    if (m_form != nullptr)
        m_form->setGeometry(rect());
}

void Stage::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (m_form != nullptr)
        m_form->close();
}

} // namespace platform
