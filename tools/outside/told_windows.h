// What a screen reader would be told of the windows, for a script on this machine.
#pragma once

// Answers as long as the process lives. A connection is a line of question and a line of answer,
// both for this machine alone; the number of the door is written into the file that the variable
// MORLENE_TOLD names. Without the variable nobody asks.
//
//     item 0      {"item": 0, "role": 14, "name": "...", "children": [3, 4], ...}: the application
//     item 3      any other; "null" when it is gone
void TellWindows();
