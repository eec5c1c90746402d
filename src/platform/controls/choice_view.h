// How a choice looks, an option or a check box: its mark, its text beside it, a ring round the mark
// while it has the keyboard.
#pragma once

#include "platform/base/colors.h"
#include "platform/base/fitted_text.h"
#include "platform/base/font.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

namespace platform {

struct ChoiceLook {
    QString Caption;
    Font Letters;
    Color Back = SystemButtonFace;
    Color Fore = SystemButtonText;
};

enum class ChoiceMark { Dot, Tick };

struct ChoiceState {
    bool Marked = false;
    bool Enabled = true;
    bool Focused = false;
};

void DrawChoice(QPainter &painter, const QRect &room, const ChoiceLook &look, ChoiceMark mark,
                const ChoiceState &state);

// `Base` is the toolkit's own button, for the keyboard and for screen readers.
template <typename Base, ChoiceMark Mark> class ChoiceView : public Base {
public:
    ChoiceLook Look;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        DrawChoice(painter, this->rect(), Look, Mark,
                   {this->isChecked(), this->isEnabled(), this->hasFocus()});
    }
    // The whole of its place, not only the mark.
    bool hitButton(const QPoint &point) const override { return this->rect().contains(point); }
};

} // namespace platform
