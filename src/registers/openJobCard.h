#pragma once

#include <QtGlobal>

/// Opens the job card and returns when it has closed. Where the card is gone, says so.
void openJobCard(qint32 jobID);
