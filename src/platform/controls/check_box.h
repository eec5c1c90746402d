// A box that is ticked or not. Each change raises the click, by a person or by code.
#pragma once

#include "platform/controls/visual_control.h"

namespace platform {

class CheckBox : public VisualControl {
public:
    CheckBox(const ControlId &id, const Place &place, const QString &caption = {});

    bool Value() const;
    void SetValue(bool ticked);

    QString Caption() const override;
    void SetCaption(const QString &caption) override;

protected:
    void Refresh() override;
};

} // namespace platform
