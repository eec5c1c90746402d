// A window: designed in twips, filled with controls at absolute places, full screen when shown.
#pragma once

#include "platform/base/colors.h"
#include "platform/base/mouse_pointer.h"
#include "platform/host/event_handler.h"
#include "platform/host/host.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QWidget;
class QMenuBar;

namespace platform {

class Control;
class FormWindow;

class Form : public ModalWindow {
public:
    // The design size of the client area, under the menu bar, in twips.
    Form(const char *name, double scaleWidth, double scaleHeight);
    ~Form() override;
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    const QString &Name() const { return m_name; }
    QString Caption() const;
    void SetCaption(const QString &caption);
    const QString &Tag() const { return m_tag; }
    void SetTag(const QString &tag) { m_tag = tag; }

    Color BackColor() const { return m_backColor; }
    void SetBackColor(Color color);
    platform::MousePointer MousePointer() const { return m_pointer; }
    void SetMousePointer(platform::MousePointer pointer);

    // The whole window and its client area, in twips.
    double Left() const;
    double Top() const;
    double Width() const;
    double Height() const;
    double ScaleWidth() const;
    double ScaleHeight() const;
    void Move(double left, double top, double width, double height);
    bool Minimised() const;

    // Stops and lets go the drawing of the whole window.
    void LockDrawing(bool locked);

    // Persistent drawing: bands over the whole width, kept and drawn again at every size. The
    // client area counts `units` from top to bottom.
    void SetDrawingUnits(double units);
    void DrawBand(double fromUnit, double toUnit, Color color);

    // Raises Load the first time, shows the window over the whole screen, raises Resize with the
    // size it then has and Activate.
    void Show();
    // A window of its own size before the others, centred unless Load or Activate moved it; no
    // other takes keys or clicks, while timers go on. Comes back when the form is unloaded; the
    // form that was in front then gets Activate anew. An unloaded form may be deleted as soon as
    // events pass, so it is not to be used after this.
    void ShowModal();
    // The end of a modal form, once.
    void WhenClosed(std::function<void()> closed) override { m_whenClosed = std::move(closed); }
    bool Shown() const { return m_shown; }
    // Not behind another main form.
    bool InFront() const;
    // Hides the window, lets no event reach it any more, and deletes the form when the event loop
    // is back where this was asked. The end of the last form ends the program. Unloading twice does
    // nothing.
    void Unload();
    // Unload without the end of the program.
    void Drop();
    bool Unloaded() const { return m_unloaded; }

    // In the order of design.
    const std::vector<Control *> &Controls() const { return m_controls; }
    // The forms that are loaded, in the order of their loading.
    static const std::vector<Form *> &Loaded();
    static Form *Find(const QString &name);

    EventHandler<void()> OnLoad;
    EventHandler<void()> OnActivate;
    EventHandler<void()> OnResize;
    EventHandler<void()> OnMouseMove;

    // For the controls of this layer and for tests that send real events.
    QWidget *Window() const;
    QWidget *Client() const;
    QMenuBar *MenuBar();

private:
    friend class Control;
    friend class FormWindow;
    friend class FormRef;
    void Load();
    void Resized();
    void Closed();

    QString m_name;
    QString m_tag;
    double m_scaleWidth; // by design
    double m_scaleHeight;
    Color m_backColor = SystemButtonFace;
    platform::MousePointer m_pointer = platform::MousePointer::Default;
    bool m_loaded = false;
    bool m_shown = false;
    bool m_moved = false;
    bool m_unloaded = false;
    std::function<void()> m_whenClosed;
    std::vector<Control *> m_controls;
    std::unique_ptr<FormWindow> m_window;
    std::shared_ptr<Form *> m_self;
};

// Refers to a form weakly: nothing when the form is gone or unloaded.
class FormRef {
public:
    FormRef() = default;
    explicit FormRef(Form &form) : m_form(form.m_self) {}
    Form *Get() const;

private:
    std::weak_ptr<Form *> m_form;
};

// Lets timers, painting and posted events through; a person's keys and clicks stay queued in
// their order.
void DoEvents();

// Drops every form and ends the program in order.
void EndProgram();

// The screen in twips.
double ScreenWidth();
double ScreenHeight();

} // namespace platform
