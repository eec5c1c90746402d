// The order in which the Tab key goes through a window: that in which a person reads it, whatever
// the order of design.
#pragma once

class QWidget;

namespace platform {

// By rows from top to bottom and in a row from left to right; what lies in a control comes after
// it and before its neighbours. For what has a tab stop now.
void TabInReadingOrder(const QWidget &client);

} // namespace platform
