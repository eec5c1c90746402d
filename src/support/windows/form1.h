// A choice of three houses to print and to colour by hand.
#pragma once

#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/menu.h"
#include "platform/controls/picture.h"

class Form1 : public platform::Form {
public:
    Form1();

    platform::Label Label1;
    platform::ControlArray<platform::PictureBox> Picture1;
    platform::MenuItem mnuesci;
};
