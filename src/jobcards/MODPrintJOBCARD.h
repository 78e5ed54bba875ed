#pragma once

#include <QString>

class Recordset;
class Report;

/// Prints the job card that is saved under `JobID`: in a preview where setting 15 is 1, on the default printer at once
/// where it is 0, not at all with any other value. The scratch tables of the print hold this card afterwards.
///
/// Nothing of the card itself changes. Throws RuntimeError: NoCurrentRecord for a card that isn't there, FileNotFound
/// or FileFault for a logo of the settings that can't be shown; nothing is printed then.
void PrintJobCard(int JobID);

/// Empties the two scratch tables of the print and fills them from the card `JobID`, as one group of writes.
void FillJobCardTemp(int JobID);

/// Each adds one row, the first from the current row of `job`, the other from that of `row`, both of the card `JobID`;
/// `head` and `body` are open on the scratch tables.
void AddTmpHead(Recordset &head, const Recordset &job, int JobID);
void AddTmpBody(Recordset &body, const Recordset &row, int JobID);

/// Puts the picture file `path` at the head of the report. With an empty path its space goes to the shop's name and
/// address. Throws RuntimeError as `ReportSection::setPicture` does.
void SetJobCardLogo(Report &report, const QString &path);
