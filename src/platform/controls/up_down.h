// Two arrows that raise and lower the number in a text box. Their spoken name is that of both, with
// " / " between them: "Più copie / Meno copie".
#pragma once

#include "platform/controls/text_box.h"

class QToolButton;

namespace platform {

class UpDown : public VisualControl {
public:
    // `increment` is what one click adds or takes.
    UpDown(const ControlId &id, const Place &place, TextBox &buddy, int min, int max,
           int increment = 1);

    // One click: the leading number of the box, a step on, within the ends. The box takes it, with
    // its own Change, and then Change is raised here, unless the number was there already.
    void Up() { Step(1); }
    void Down() { Step(-1); }

    EventHandler<void()> OnChange;

protected:
    void PutInPlace() override;
    void Speak(const QString &name) override;

private:
    void Step(int direction);

    TextBox &m_buddy;
    int m_min;
    int m_max;
    int m_increment;
    QToolButton *m_up;
    QToolButton *m_down;
};

// The leading number of a text, as far as it goes; 0 without one. Blanks are passed over.
double LeadingNumber(const QString &text);

} // namespace platform
