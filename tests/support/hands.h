// What a child's hands do: real presses on the real control, in the order in which the toolkit
// sends them.
#pragma once

#include "frame/exercise_window.h"

#include "support/scripted_host.h"

#include <QAction>
#include <QMenuBar>
#include <QPoint>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <array>

inline void ClickAt(const platform::VisualControl &control, const QPoint &place)
{
    QTest::mouseClick(control.Widget(), Qt::LeftButton, {}, place);
}

// Two presses within the toolkit's double-click time: the second one comes as a double click.
inline void ClickTwiceQuickly(const platform::VisualControl &control, const QPoint &place)
{
    ClickAt(control, place);
    QTest::mouseDClick(control.Widget(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(control.Widget(), Qt::LeftButton, {}, place);
}

inline void ClickTwiceQuickly(const platform::VisualControl &control)
{
    ClickTwiceQuickly(control, control.Widget()->rect().center());
}

// Where a part of the house, 1 to 8, lies in the control as it is now.
inline QPoint PlaceOfPart(const platform::MovieControl &figure, int part)
{
    // The drawing's own size, and a spot inside each part.
    constexpr double Width = 700;
    constexpr double Height = 900;
    constexpr std::array<std::array<int, 2>, 8> Inside = {{{525, 275},
                                                           {350, 420},
                                                           {350, 592},
                                                           {215, 640},
                                                           {320, 700},
                                                           {350, 830},
                                                           {560, 150},
                                                           {150, 130}}};
    const std::array<int, 2> &spot = Inside.at(static_cast<size_t>(part) - 1);
    const QSize size = figure.Widget()->size();
    const double scale = std::min(size.width() / Width, size.height() / Height);
    return {qRound((size.width() - Width * scale) / 2 + spot[0] * scale),
            qRound((size.height() - Height * scale) / 2 + spot[1] * scale)};
}

inline void ClickOnPart(const platform::MovieControl &figure, int part)
{
    ClickAt(figure, PlaceOfPart(figure, part));
}

inline void MoveOver(const platform::VisualControl &control, const QPoint &place)
{
    QTest::mouseMove(control.Widget(), place);
    QCoreApplication::processEvents();
}

// Onto the window itself, where no control lies.
inline void MoveOverWindow(const platform::Form &form)
{
    QWidget *client = form.Client();
    for (int x = client->width() - 1; x > 0; x -= 5)
        for (int y = 1; y < client->height(); y += 5)
            if (client->childAt(x, y) == nullptr) {
                QTest::mouseMove(client, QPoint(x, y));
                QCoreApplication::processEvents();
                return;
            }
    QTest::qFail("controls lie everywhere", __FILE__, __LINE__);
}

// By its key, F1 for the first one.
inline void ChooseLevel(const FinestraEsercizio &form, int level)
{
    QTest::keyClick(form.Window(), static_cast<Qt::Key>(Qt::Key_F1 + level - 1));
}

// An entry that stands in the menu bar itself.
inline void ClickInMenuBar(FinestraEsercizio &form, const QString &name)
{
    for (QAction *entry : form.MenuBar()->actions())
        if (entry->objectName() == name) {
            QTest::mouseClick(form.MenuBar(), Qt::LeftButton, {},
                              form.MenuBar()->actionGeometry(entry).center());
            return;
        }
    QTest::qFail(qPrintable(name), __FILE__, __LINE__);
}

// Where the keys go in the input mode in force, one of those without a mouse.
inline const platform::PictureBox &KeyTarget(const FinestraEsercizio &form)
{
    return ModoInput == 2 ? form.PictureScansioneAutomatica : form.PictureScansioneManuale;
}

// One step of the light: by itself after its time, by Space, or by an arrow.
inline void Step(ScriptedHost &host, const FinestraEsercizio &form, Qt::Key arrow = Qt::Key_Right)
{
    if (ModoInput == 2)
        host.Advance(form.Timer1.Interval());
    else
        QTest::keyClick(KeyTarget(form).Widget(), ModoInput == 1 ? Qt::Key_Space : arrow);
}

// The choice of what the light stands on.
inline void Choose(const FinestraEsercizio &form)
{
    QTest::keyClick(KeyTarget(form).Widget(), ModoInput == 2 ? Qt::Key_Space : Qt::Key_Return);
}
