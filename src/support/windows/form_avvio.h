// The splash: the first thing shown, until its picture button is pressed.
#pragma once

#include "platform/controls/button.h"
#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/picture.h"

class FormAvvio : public platform::Form {
public:
    FormAvvio();

    platform::Image Image1;
    platform::ControlArray<platform::Label> Label2;
    platform::Button Command1;

private:
    void Attiva();
};
