// Shapes without events: a rectangle and a line.
#pragma once

#include "platform/controls/visual_control.h"

namespace platform {

class Shape : public VisualControl {
public:
    Shape(const ControlId &id, const Place &place);
    void SetBorderColor(platform::Color color);
    void SetBorderWidth(int pixels);
    void SetFilled(bool filled);

protected:
    void Refresh() override;
};

// A line has two ends instead of a place; Left, Top, Width and Height raise error 438.
class Line : public Control {
public:
    Line(const ControlId &id, double x1, double y1, double x2, double y2);
    ~Line() override;

    bool Visible() const override { return m_visible; }
    void SetVisible(bool visible) override;

    virtual double X1() const { return m_x1; }
    virtual double Y1() const { return m_y1; }
    virtual double X2() const { return m_x2; }
    virtual double Y2() const { return m_y2; }
    virtual void SetX1(double twips);
    virtual void SetY1(double twips);
    virtual void SetX2(double twips);
    virtual void SetY2(double twips);

private:
    void PutInPlace();
    double m_x1;
    double m_y1;
    double m_x2;
    double m_y2;
    bool m_visible = true;
    QWidget *m_widget;
};

} // namespace platform
