#pragma once

#include "app/sessionStart.h"

class QApplication;

/// From the start of the process to the main screen.

/// Gives the process its folder, `folder` being the one that was asked for, and its look, and has `Main` run as soon as
/// the event loop does.
void startProgram(QApplication &application, const QString &folder);

/// Starts the session: finds the database, offers the choice of one on the user's first run, makes a missing one, opens
/// it, and shows the main screen. REQUIRES: an event loop runs, `session::ProgramFolder` is set.
void Main();
