// The one window that fills the screen. The main forms take turns in it: a change of forms is only
// a painting, and costs neither the window system a window nor the machine a new picture of the
// screen's size.
#pragma once

#include <QPointer>
#include <QRect>
#include <QTimer>
#include <QWidget>

namespace platform {

class Stage : public QWidget {
public:
    // Shows this form, which is being set up, instead of the one before, over `screen`. The
    // keyboard comes to it when the one before goes.
    static void Show(QWidget &form, const QRect &screen);
    // A form that was shown here stands before the others again, and has the keyboard; false for
    // one that has a window of its own.
    static bool BringForward(QWidget &form);
    // Before a form that is shown here is hidden. The one that was shown before it stands in front
    // again; with the last one goes the window.
    static void Leaves(QWidget &form);
    // Whether another form stands before this one.
    static bool Hides(const QWidget &form);
    // Its caption has changed.
    static void Retitle(const QWidget &form);
    // Before the end of the application.
    static void Close();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    Stage();
    void Fill(const QRect &screen);
    QWidget *NextBehind() const;
    void TakeKeyboard();

    QPointer<QWidget> m_form; // in front
    QTimer m_rest;            // after a change of forms
    bool m_fullScreen = false;
};

} // namespace platform
