// A control of a form: a design name, an index or none, a tag, and the properties that code may ask
// of any control. What a kind of control does not have raises error 438.
#pragma once

#include "platform/base/errors.h"

#include <QString>

#include <functional>

namespace platform {

class Form;
class VisualControl;

// Twips from the top left corner of the form's client area, or of the control in which one lies; 15
// are one logical pixel.
struct Place {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
};

// Who a control is. The form keeps its controls in the order in which they are made.
struct ControlId {
    Form &Parent;
    const char *Name;
    int Index = -1;                     // -1: not an element of an array
    VisualControl *Container = nullptr; // the control in which it lies; none: the form itself
};

// The classic codes: Space 32, Enter 13 (the keypad's too), arrows 37 to 40, letters and digits
// their capital ASCII, F1 to F12 112 to 123; 0 for a key without one.
enum KeyCode : int { KeyEnter = 13, KeySpace = 32, KeyLeft = 37, KeyUp, KeyRight, KeyDown };

class Control {
public:
    explicit Control(const ControlId &id);
    virtual ~Control();
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;

    Form &Parent() const { return m_form; }
    const QString &Name() const { return m_name; }
    // Index in its array; error 343 for a control that is no element.
    int Index() const;
    // The design name with the index of an element: "Command1(2)".
    const QString &Key() const { return m_key; }

    const QString &Tag() const { return m_tag; }
    void SetTag(const QString &tag) { m_tag = tag; }

    virtual QString Caption() const { throw RunTimeError(NoSuchProperty); }
    virtual void SetCaption(const QString &) { throw RunTimeError(NoSuchProperty); }
    virtual QString ToolTipText() const { throw RunTimeError(NoSuchProperty); }
    virtual void SetToolTipText(const QString &) { throw RunTimeError(NoSuchProperty); }
    // How many tabs; only a control whose tabs are a number gives one.
    virtual int Tabs() const { throw RunTimeError(NoSuchProperty); }
    virtual void SetTabCaption(int, const QString &) { throw RunTimeError(NoSuchProperty); }

    // What a screen reader calls a control that shows no text of its own. The name by design is
    // Italian; a translation stands before it until an empty one gives it back.
    const QString &SpokenName() const { return m_spokenName; }
    void SetSpokenName(const QString &name);
    void TranslateSpokenName(const QString &name);

    virtual bool Enabled() const { throw RunTimeError(NoSuchProperty); }
    virtual void SetEnabled(bool) { throw RunTimeError(NoSuchProperty); }
    virtual bool Visible() const { throw RunTimeError(NoSuchProperty); }
    virtual void SetVisible(bool) { throw RunTimeError(NoSuchProperty); }

    virtual double Left() const { throw RunTimeError(NoSuchProperty); }
    virtual double Top() const { throw RunTimeError(NoSuchProperty); }
    virtual double Width() const { throw RunTimeError(NoSuchProperty); }
    virtual double Height() const { throw RunTimeError(NoSuchProperty); }
    virtual void SetLeft(double) { throw RunTimeError(NoSuchProperty); }
    virtual void SetTop(double) { throw RunTimeError(NoSuchProperty); }
    virtual void SetWidth(double) { throw RunTimeError(NoSuchProperty); }
    virtual void SetHeight(double) { throw RunTimeError(NoSuchProperty); }

    // What its form tells it: that it has a new size, and that no event comes any more.
    virtual void FormResized() {}
    virtual void FormGone() {}

protected:
    // The spoken name is another one now.
    virtual void Speak(const QString &) {}
    // Tells the host that a property shown to the person has changed.
    void Note(const char *property, const QString &value) const;
    void Note(const char *property, bool value) const;

private:
    Form &m_form;
    QString m_name;
    QString m_key;
    QString m_tag;
    QString m_spokenName; // by design
    int m_index;
};

} // namespace platform
