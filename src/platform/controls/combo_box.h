// A drop-down list. A person's choice always raises the click, a choice by code only when it
// changes.
#pragma once

#include "platform/controls/visual_control.h"

#include <QStringList>

class QComboBox;
class QLabel;

namespace platform {

class ComboBox : public VisualControl {
public:
    ComboBox(const ControlId &id, const Place &place);

    void Clear();
    void AddItem(const QString &text);
    int ListCount() const;
    QString List(int index) const; // empty outside the list
    int ListIndex() const;         // -1: nothing chosen
    void SetListIndex(int index);  // error 380 outside the list
    QString Text() const;

    // The height is the list's own: error 383.
    void SetHeight(double twips) override;

protected:
    void Refresh() override;
    void Speak(const QString &name) override;

private:
    QComboBox *m_box;
    QLabel *m_spoken = nullptr; // never shown
};

} // namespace platform
