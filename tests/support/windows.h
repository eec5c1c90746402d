// All windows of the program by name, for the tests that look at each of them.
#pragma once

#include "platform/controls/form.h"

#include <QStringList>

#include <memory>

// By name.
QStringList WindowNames();
// As designed, neither loaded nor shown; nothing for a name that there is not.
std::unique_ptr<platform::Form> MakeWindow(const QString &name);
