#pragma once

#include <QString>

#include <functional>

class QPageLayout;
class QPagedPaintDevice;
class QWidget;

/// The printers of the machine.
namespace printer {

/// `Failed`: the printer did not take the job, or not all of it.
enum class Outcome { Printed, Cancelled, NoPrinter, Failed };

struct Job {
    /// Its name in the printer's queue.
    QString title;
    int pageCount;
    const QPageLayout &layout;
    /// Draws the pages from the first to the last given, counted from 1, and says what came of it: printed, cancelled
    /// by the user or failed. What is begun on a printer is printed: cancelled, it has not been.
    std::function<Outcome(QPagedPaintDevice &device, int first, int last)> draw;
};

/// Prints on the default printer at once, nothing asked.
[[nodiscard]] Outcome print(const Job &job);

/// Asks which printer, pages and copies first. `parent` is the window in front.
[[nodiscard]] Outcome askAndPrint(const Job &job, QWidget *parent);

/// Tests put their own printer in, for both ways; an empty function brings the machine's back.
void replace(std::function<Outcome(const Job &)> replacement);

} // namespace printer
