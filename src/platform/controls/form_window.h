// The widget of a form: menu bar, client area, persistent drawing.
#pragma once

#include "platform/controls/form.h"

#include <QWidget>

namespace platform {

// Has no signals of its own, so it needs none of the toolkit's object machinery.
class ClientArea : public QWidget {
public:
    ClientArea(Form &form, QWidget *parent);

    struct Band {
        double From; // units from the top
        double To;
        Color Fill;
    };
    std::vector<Band> Bands;
    double Units = 1;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    Form &m_form;
};

class FormWindow : public QWidget {
public:
    explicit FormWindow(Form &form);

    ClientArea *Client() const { return m_client; }
    QMenuBar *MenuBar(); // made when first asked for
    int MenuBarHeight() const;
    void LayOut();

    // Nothing is painted while either is set: the drawing is locked, or the window is being set up
    // and a first frame would be painted over at once.
    void Lock(bool locked);
    void BeingSetUp(bool busy);

    // Places kept in twips, so that nothing drifts.
    double Left = 0;
    double Top = 0;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void LetPaint() { setUpdatesEnabled(!m_locked && !m_beingSetUp); }

    Form &m_form;
    bool m_locked = false;
    bool m_beingSetUp = false;
    QMenuBar *m_menuBar = nullptr;
    ClientArea *m_client;
};

// Before a box asks something of a person: what is being set up shows as far as it is.
void ShowWhatIsBeingSetUp();

constexpr double TwipsPerPixel = 15;
int ToPixels(double twips);

} // namespace platform
