// What a screen reader, or a switch of the desktop's, finds where a control is drawn here and not
// by the toolkit: what it is drawn as, or a button where a click does something, which can be
// pressed.
#pragma once

#include <QAccessible>
#include <QEvent>

class QWidget;

namespace platform {

class Pressable {
public:
    virtual ~Pressable() = default;
    // Whether a click does something.
    virtual bool TakesClicks() const = 0;
};

// Comes to the widget when a press was asked for: the one who asked has an answer before a box that
// opens then waits for a person.
constexpr auto PressAsked = static_cast<QEvent::Type>(QEvent::User + 1);

// Of a window, or of a widget that a control is being made of: what it is while nothing can be
// clicked. The first time before anybody has asked what it is.
void DrawnAs(QWidget &widget, QAccessible::Role role);

// Joins the widget to its control, which goes together with it.
void LetBePressed(QWidget &widget, Pressable &control);

} // namespace platform
