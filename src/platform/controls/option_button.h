// One of several in the same container, of which at most one is chosen. A person's choice always
// raises the click, a choice by code only when it changes.
#pragma once

#include "platform/controls/visual_control.h"

namespace platform {

class OptionButton : public VisualControl {
public:
    OptionButton(const ControlId &id, const Place &place, const QString &caption = {});

    bool Value() const;
    // Choosing takes the choice from the others of the container, silently. Taking the choice away
    // raises nothing.
    void SetValue(bool chosen);

    QString Caption() const override;
    void SetCaption(const QString &caption) override;

protected:
    void Refresh() override;
};

} // namespace platform
