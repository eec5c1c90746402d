#pragma once

class QKeyEvent;

namespace platform {

// The classic code of a key, 0 for one without.
int ClassicKey(const QKeyEvent &event);
// Shift 1, Ctrl 2, Alt 4, added up.
int ShiftState(const QKeyEvent &event);

} // namespace platform
