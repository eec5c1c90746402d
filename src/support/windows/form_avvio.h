// The splash: the first thing shown, until its picture button is pressed.
#pragma once

#include "platform/button.h"
#include "platform/control_array.h"
#include "platform/form.h"
#include "platform/label.h"
#include "platform/picture.h"

class FormAvvio : public platform::Form {
public:
    FormAvvio();

    platform::Image Image1;
    platform::ControlArray<platform::Label> Label2;
    platform::Button Command1;

private:
    void Attiva();
};
