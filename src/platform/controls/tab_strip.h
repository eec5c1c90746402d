// A strip of tabs, one of which is chosen; the pages are the form's own. A person's choice always
// raises the click, a choice by code only when it changes.
#pragma once

#include "platform/controls/visual_control.h"

#include <QStringList>

namespace platform {

class TabStripView;

class TabStrip : public VisualControl {
public:
    TabStrip(const ControlId &id, const Place &place, const QStringList &captions);

    int TabCount() const;
    QString TabCaption(int number) const; // from 1; error 380 outside
    int SelectedItem() const;             // from 1
    void SetSelectedItem(int number);     // error 380 outside
    // A drawing before the caption.
    void SetTabPicture(int number, const QString &name);

protected:
    void Refresh() override;

private:
    int Position(int number) const;
    TabStripView *m_view;
};

} // namespace platform
