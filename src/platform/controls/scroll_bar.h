// A value between two ends, moved along a line. Each change raises Change, by a person or by code.
#pragma once

#include "platform/controls/visual_control.h"

namespace platform {

class HScrollBar : public VisualControl {
public:
    HScrollBar(const ControlId &id, const Place &place, int min, int max);

    int Min() const;
    int Max() const;
    int Value() const;
    void SetValue(int value); // error 380 outside the ends
    // Steps of the arrow keys, and of a click beside the knob.
    void SetChanges(int small, int large);

    EventHandler<void()> OnChange;

protected:
    void Refresh() override;
};

} // namespace platform
