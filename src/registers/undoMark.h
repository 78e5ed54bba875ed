#pragma once

class MarkedRows;
class QString;

/// Takes the mark `what` back, and tells the user in a line that goes by itself that it is done, or in a message why it
/// is not.
void undoMark(const QString &what, const MarkedRows &marked);
