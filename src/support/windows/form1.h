// A choice of three houses to print and to colour by hand.
#pragma once

#include "platform/control_array.h"
#include "platform/form.h"
#include "platform/label.h"
#include "platform/menu.h"
#include "platform/picture.h"

class Form1 : public platform::Form {
public:
    Form1();

    platform::Label Label1;
    platform::ControlArray<platform::PictureBox> Picture1;
    platform::MenuItem mnuesci;
};
