// A form with one control of each kind, for the tests of controls.
#pragma once

#include "platform/base/errors.h"
#include "platform/controls/button.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/menu.h"
#include "platform/controls/movie_control.h"
#include "platform/controls/picture.h"
#include "platform/controls/shape.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/timer.h"

#include <QCoreApplication>

#include <functional>

// On the heap as all forms are.
class Sample : public platform::Form {
public:
    Sample()
        : Form("Sample", 3000, 3000), Label1({*this, "Label1"}, {150, 150, 1000, 500}),
          Combo1({*this, "Combo1"}, {150, 700, 1000, 300}),
          Target({*this, "Target"}, {4000, 0, 300, 300}), Timer1({*this, "Timer1"}, 100),
          StatusBar1({*this, "StatusBar1"}, {0, 2500, 3000, 500}, 3),
          Movie1({*this, "Movie1"}, {1500, 150, 1050, 1350}), Buttons(*this, "Buttons"),
          mnuTop({*this, "mnuTop"}, QStringLiteral("&Top")),
          mnuItem({*this, "mnuItem"}, mnuTop, QStringLiteral("item"), QStringLiteral("F1")),
          Line1({*this, "Line1"}, 10, 20, 30, 40)
    {
        Buttons.Add(0, platform::Place{150, 1200, 1000, 500}, QStringLiteral("zero"));
        Buttons.Add(3, platform::Place{150, 1800, 1000, 500}, QStringLiteral("tre"));
    }

    platform::Label Label1;
    platform::ComboBox Combo1;
    platform::PictureBox Target;
    platform::Timer Timer1;
    platform::StatusBar StatusBar1;
    platform::MovieControl Movie1;
    platform::ControlArray<platform::Button> Buttons;
    platform::MenuItem mnuTop;
    platform::MenuItem mnuItem;
    platform::Line Line1;
};

// The number of the error that a statement raises, 0 for none.
inline int ErrorOf(const std::function<void()> &statement)
{
    return platform::Skipping(statement);
}

inline Sample &Shown()
{
    auto *form = new Sample;
    form->Show();
    QCoreApplication::processEvents();
    return *form;
}
