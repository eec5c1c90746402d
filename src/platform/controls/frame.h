// A container of controls: a page, or a group with a line round it and a heading.
#pragma once

#include "platform/controls/visual_control.h"

namespace platform {

class Frame : public VisualControl {
public:
    Frame(const ControlId &id, const Place &place, const QString &caption = {});

    QString Caption() const override;
    void SetCaption(const QString &caption) override;

protected:
    void Refresh() override;
};

} // namespace platform
