#pragma once

class ReportPages;
class QWidget;

/// The ways of a report to the user. Each tells him when it does not come to pass; nothing is lost by it.
namespace reportOutput {

/// Prints on the default printer at once, nothing asked.
void print(const ReportPages &pages);

/// Asks for a printer and prints; `parent` is the window in front.
void askAndPrint(const ReportPages &pages, QWidget *parent);

/// Asks for a file and writes the report there as PDF. Where that fails, the user is told and asked again. It offers
/// the report's own name, in the folder used last.
void saveAsPdf(const ReportPages &pages);

} // namespace reportOutput
