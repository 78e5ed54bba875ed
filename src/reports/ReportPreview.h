#pragma once

#include "reports/ReportPages.h"
#include "ui/Screen.h"

class Command;
class QComboBox;
class QLabel;
class PageView;

/// "Print Preview": turns the pages of a report, zooms, prints it and saves it as PDF. Page Down and Page Up read on
/// and back, with Ctrl they turn at once; Home and End go to the first and last page, + and - zoom, the arrow keys move
/// the page in sight.
class ReportPreview : public Screen {
    Q_OBJECT

public:
    /// REQUIRES: `pages` has at least one page.
    explicit ReportPreview(const ReportPages &pages);

private:
    void buildForm();
    void connectCommands();
    void turnTo(int number);
    void zoomIn();
    void zoomOut();
    [[nodiscard]] int shownPercent() const;
    void chooseZoom(int entry);
    void showState();

    ReportPages m_pages;
    PageView *m_view;
    QLabel *lblPage;
    QComboBox *cmbZoom;
    Command *cmdFirst;
    Command *cmdPrevious;
    Command *cmdNext;
    Command *cmdLast;
    Command *cmdZoomOut;
    Command *cmdZoomIn;
    Command *cmdPrint;
    Command *cmdSavePdf;
    Command *cmdClose;
};
