// A large rounded button with one picture or one text. It never takes the keyboard by itself.
#pragma once

#include "platform/base/fitted_text.h"
#include "platform/controls/visual_control.h"

namespace platform {

class ButtonView;

class Button : public VisualControl {
public:
    Button(const ControlId &id, const Place &place, const QString &caption = {});

    QString Caption() const override;
    void SetCaption(const QString &caption) override;
    // Drawn in one size with `other` and all that share it already: the smallest that one needs.
    void ShareSize(const Button &other);
    DrawnText Drawn() const;
    // A picture of the program by its name; empty takes it away.
    void SetPicture(const QString &name);
    // Lets the button take the keyboard: Space and Enter press it then.
    void SetTakesFocus(bool takes);

protected:
    void Refresh() override;
    // A caption goes before it.
    void Speak(const QString &name) override;

private:
    QString m_spoken;
    ButtonView *m_view;
};

} // namespace platform
