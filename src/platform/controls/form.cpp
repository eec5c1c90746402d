#include "platform/controls/form.h"

#include "platform/controls/control.h"
#include "platform/controls/form_window.h"
#include "platform/controls/reading_order.h"
#include "platform/controls/spoken_control.h"
#include "platform/controls/stage.h"
#include "platform/host/host.h"

#include <QApplication>
#include <QCursor>
#include <QMenuBar>
#include <QScopeGuard>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

std::vector<Form *> loaded;

// Deletes the form when the event loop is back at the depth where this was made.
class Undertaker : public QObject {
public:
    explicit Undertaker(Form *form) : m_form(form) { deleteLater(); }
    ~Undertaker() override { delete m_form; }

private:
    Form *m_form;
};

} // namespace

Form::Form(const char *name, double scaleWidth, double scaleHeight)
    : m_name(QString::fromLatin1(name)), m_scaleWidth(scaleWidth), m_scaleHeight(scaleHeight),
      m_window(std::make_unique<FormWindow>(*this)), m_self(std::make_shared<Form *>(this))
{
    m_window->resize(ToPixels(scaleWidth), ToPixels(scaleHeight));
    m_window->LayOut();
}

Form::~Form()
{
    std::erase(loaded, this);
}

const std::vector<Form *> &Form::Loaded()
{
    return loaded;
}

Form *Form::Find(const QString &name)
{
    const auto found = std::find_if(loaded.begin(), loaded.end(),
                                    [&](Form *form) { return form->m_name == name; });
    return found == loaded.end() ? nullptr : *found;
}

QString Form::Caption() const
{
    return m_window->windowTitle();
}

void Form::SetCaption(const QString &caption)
{
    m_window->setWindowTitle(caption);
    Stage::Retitle(*m_window);
}

void Form::SetBackColor(Color color)
{
    m_backColor = color;
    m_window->Client()->update();
    if (host().Watches())
        host().Changed(
            QStringLiteral("%1.BackColor=%2").arg(m_name).arg(color, 8, 16, QChar(u'0')));
}

void Form::SetMousePointer(platform::MousePointer pointer)
{
    m_pointer = pointer;
    if (pointer == MousePointer::Hourglass)
        m_window->setCursor(Qt::WaitCursor);
    else
        m_window->unsetCursor();
    if (host().Watches())
        host().Changed(
            QStringLiteral("%1.MousePointer=%2").arg(m_name).arg(static_cast<int>(pointer)));
}

double Form::Left() const
{
    return m_window->Left;
}
double Form::Top() const
{
    return m_window->Top;
}
double Form::Width() const
{
    return m_window->width() * TwipsPerPixel;
}
double Form::Height() const
{
    return m_window->height() * TwipsPerPixel;
}
double Form::ScaleWidth() const
{
    return m_window->Client()->width() * TwipsPerPixel;
}
double Form::ScaleHeight() const
{
    return m_window->Client()->height() * TwipsPerPixel;
}

void Form::Move(double left, double top, double width, double height)
{
    m_moved = true;
    m_window->Left = left;
    m_window->Top = top;
    m_window->setGeometry(ToPixels(left), ToPixels(top), ToPixels(width), ToPixels(height));
    // A window that is not shown yet gets no event of its new size.
    if (!m_shown)
        m_window->LayOut();
}

bool Form::Minimised() const
{
    return m_window->isMinimized() || m_window->window()->isMinimized();
}

void Form::LockDrawing(bool locked)
{
    m_window->Lock(locked);
}

void Form::SetDrawingUnits(double units)
{
    m_window->Client()->Units = units;
    m_window->Client()->Bands.clear();
}

void Form::DrawBand(double fromUnit, double toUnit, Color color)
{
    m_window->Client()->Bands.push_back({fromUnit, toUnit, color});
    m_window->Client()->update();
}

void Form::Load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    loaded.push_back(this);
    // The menu bar comes on top of the designed client area.
    if (!m_moved)
        m_window->resize(ToPixels(m_scaleWidth),
                         ToPixels(m_scaleHeight) + m_window->MenuBarHeight());
    m_window->LayOut();
    OnLoad();
    TabInReadingOrder(*m_window->Client());
}

void Form::Show()
{
    if (m_unloaded)
        return;
    Load();
    if (m_shown) {
        if (!Stage::BringForward(*m_window)) {
            m_window->raise();
            m_window->activateWindow();
        }
        return;
    }
    m_window->Left = m_window->Top = 0;
    m_window->BeingSetUp(true);
    const auto shows = qScopeGuard([this] { m_window->BeingSetUp(false); });
    Stage::Show(*m_window, QRect(0, 0, ToPixels(ScreenWidth()), ToPixels(ScreenHeight())));
    m_shown = true;
    Resized();
    if (!m_unloaded)
        OnActivate();
}

void Form::ShowModal()
{
    if (m_unloaded || m_shown)
        return;
    // The form in front is the one shown last.
    const auto front = std::find_if(loaded.rbegin(), loaded.rend(), [this](const Form *form) {
        return form != this && form->m_shown && !form->m_unloaded;
    });
    const FormRef opener = front == loaded.rend() ? FormRef() : FormRef(**front);
    Load();
    if (m_unloaded)
        return;
    if (!m_moved)
        Move((ScreenWidth() - Width()) / 2, (ScreenHeight() - Height()) / 2, Width(), Height());
    ShowWhatIsBeingSetUp();
    m_window->setWindowFlag(Qt::Dialog);
    DrawnAs(*m_window, QAccessible::Dialog);
    m_window->setWindowModality(Qt::ApplicationModal);
    m_window->winId();
    if (const Form *under = opener.Get())
        m_window->windowHandle()->setTransientParent(under->Window()->window()->windowHandle());
    m_window->show();
    m_window->activateWindow();
    m_shown = true;
    Resized();
    if (!m_unloaded)
        OnActivate();
    if (!m_unloaded && m_shown)
        host().WaitForModal(*this);
    if (Form *under = opener.Get()) {
        under->m_window->activateWindow();
        under->OnActivate();
    }
}

void Form::Closed()
{
    if (const auto closed = std::exchange(m_whenClosed, nullptr))
        closed();
}

void Form::Resized()
{
    if (!m_shown || m_unloaded)
        return;
    m_window->LayOut();
    for (Control *control : m_controls)
        control->FormResized();
    OnResize();
}

void Form::Unload()
{
    if (m_unloaded)
        return;
    Drop();
    if (loaded.empty())
        host().EndProgram();
}

void Form::Drop()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    m_self.reset();
    std::erase(loaded, this);
    for (Control *control : m_controls)
        control->FormGone();
    Stage::Leaves(*m_window);
    m_window->hide();
    m_window->setEnabled(false);
    Closed();
    new Undertaker(this);
}

bool Form::InFront() const
{
    return !Stage::Hides(*m_window);
}

QWidget *Form::Window() const
{
    return m_window.get();
}
QWidget *Form::Client() const
{
    return m_window->Client();
}

QMenuBar *Form::MenuBar()
{
    QMenuBar *bar = m_window->MenuBar();
    m_window->LayOut();
    return bar;
}

Form *FormRef::Get() const
{
    const auto form = m_form.lock();
    return form ? *form : nullptr;
}

void DoEvents()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void EndProgram()
{
    // Not deleted here: a handler of one of them may be what ends the program.
    while (!loaded.empty())
        loaded.back()->Drop();
    host().EndProgram();
}

double ScreenWidth()
{
    return host().Screen().Width * TwipsPerPixel;
}
double ScreenHeight()
{
    return host().Screen().Height * TwipsPerPixel;
}

} // namespace platform
