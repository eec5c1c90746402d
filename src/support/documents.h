// Documents that lie beside the program, opened with the desktop's own viewer.
#pragma once

#include <QString>

// Comes back at once; silent when the document or a viewer is not there.
void ApriDocumento(const QString &percorso);
