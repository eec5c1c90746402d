// The about box: who made the program, how it may be used, the language; its picture opens the
// document on the program.
#pragma once

#include "platform/controls/button.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/picture.h"

class FormInfo : public platform::Form {
public:
    FormInfo();

    platform::Image Image1;
    platform::Label Label1;
    platform::Label Label2;
    platform::Label Label3;
    platform::Label Label4; // the lines on the language
    platform::Button Command1;

private:
    void Attiva();
};
