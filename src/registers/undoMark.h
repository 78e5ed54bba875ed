#pragma once

class MarkedRows;

/// Takes a mark back, and tells the user in a line that goes by itself that it is done, or in a message why it is not.
void undoMark(const MarkedRows &marked);
