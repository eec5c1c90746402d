// A list of which one item is chosen. A person's choice always raises the click, also of what is
// chosen already, a choice by code only when it changes.
#pragma once

#include "platform/controls/visual_control.h"

#include <QStringList>

namespace platform {

class ListBoxView;

class ListBox : public VisualControl {
public:
    ListBox(const ControlId &id, const Place &place);

    void Clear();
    void AddItem(const QString &text);
    int ListCount() const;
    QString List(int index) const; // empty outside the list
    int ListIndex() const;         // -1: nothing chosen
    void SetListIndex(int index);  // error 380 outside the list
    QString Text() const;          // of the chosen item

protected:
    void Refresh() override;

private:
    ListBoxView *m_view;
    bool m_byCode = false;
};

} // namespace platform
