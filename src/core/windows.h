// Main windows by name, so that none includes another. Each exists at most once.
#pragma once

#include "platform/controls/form.h"

#include <QString>

// Makes the window; it deletes itself after it is unloaded.
using CreaFinestra = platform::Form *(*)();

void RegistraFinestra(const QString &nome, CreaFinestra crea);
// Shows the window, made when it is not loaded; error 5 for one that nobody makes.
void MostraFinestra(const QString &nome);
// The same as a modal window; comes back when it is closed.
void MostraFinestraModale(const QString &nome);
// Unloads it when it is loaded.
void ScaricaFinestra(const QString &nome);
