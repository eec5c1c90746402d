// A bar of panels, docked at the foot of the form; only its height can be set.
#pragma once

#include "platform/controls/visual_control.h"

class QLabel;

namespace platform {

class StatusBar : public VisualControl {
public:
    StatusBar(const ControlId &id, const Place &place, int panels);

    QString Panel(int number) const; // from 1; error 380 outside
    void SetPanel(int number, const QString &text);

    void SetLeft(double twips) override;  // 383: docked
    void SetTop(double twips) override;   // 383
    void SetWidth(double twips) override; // 383

    void FormResized() override { PutInPlace(); }

protected:
    void PutInPlace() override;

private:
    QLabel *Label(int number) const;
    std::vector<QLabel *> m_panels;
};

} // namespace platform
