// The "RIB Messages" window, where the lines of the Ri layer and of the scene
// library go. It is made by the first line, and made anew, empty, by the first
// line after the user has closed it.
#pragma once

class TRendEdit;

// The text of the open RIB Messages window, or null while there is none.
extern TRendEdit* gMsgWindow;

// Appends one line to the window, creating the window first if needed.
void showRibMessage(const char* line);
