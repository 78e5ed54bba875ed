#pragma once

#include <QtGlobal>

/// What goes with a garment on paper, each in a preview, as its row is saved. Where the row is gone, says so.
namespace printAssignment {

/// The worker's slip. A shop that works in Hindi and has asked for it (settings 0 and 12) gets the captions that
/// `Lang.mdb` has, and the others in English; where that file cannot be read, this is told, and all are in English.
void slip(qint32 rowID);

void label(qint32 rowID);

} // namespace printAssignment
