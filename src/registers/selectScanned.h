#pragma once

class ListView;
class kvTextBox;

/// After a search by what a scanner typed, "321/2": makes the garment's row current. Where it is not in the list, no
/// row is, lest a mark goes to another garment of the job, and a tip tells. A plain job number leaves the current row.
void selectScanned(ListView &list, int jobColumn, kvTextBox &field);
