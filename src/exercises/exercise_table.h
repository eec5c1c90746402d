// The eight exercises by name, for the menu to open.
#pragma once

void RegistraEsercizi();
