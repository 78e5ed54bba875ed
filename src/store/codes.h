#pragma once

#include <QString>

/// What the numbers in coded columns stand for.

/// `JOBS_DETAIL.DoneByWorker`: where a garment stands.
namespace rowStatus {

inline constexpr int Uncompleted = 0;
inline constexpr int Completed = 1;
inline constexpr int Delivered = 2;
inline constexpr int Alteration = 3;
inline constexpr int Canceled = 4;

/// As all lists and the status report show it; empty for a number that is none of these.
[[nodiscard]] QString word(int status);
/// The column with the day of that state; empty for a state that has none.
[[nodiscard]] QString dateColumn(int status);

} // namespace rowStatus

/// `JOBS_DETAIL.CuttingStatus`.
namespace cutting {

inline constexpr int NotDone = 0;
inline constexpr int Done = 1;

/// As `rowStatus::word`.
[[nodiscard]] QString word(int status);

} // namespace cutting

/// `JOBS.appeared`: what became of the trial of a job card. Each screen has words of its own for it.
namespace trial {

inline constexpr int NotAppeared = 0;
inline constexpr int Appeared = 1;
inline constexpr int Canceled = 2;

} // namespace trial

/// `Accounts.Type`: what a row of the accounts stands for. Every list of the program selects on it.
namespace accountType {

inline constexpr int Client = 0;
inline constexpr int Worker = 1;
inline constexpr int Ledger = 2;

} // namespace accountType

/// `Accounts.Nature`, of ledger accounts alone.
namespace accountNature {

inline constexpr int Income = 0;
inline constexpr int Expenses = 1;

} // namespace accountNature

/// `Postings.Vtype`: which kind of document a posting is of. Documents of different kinds may share a number.
namespace documentKind {

inline constexpr int JobCard = 1;
/// A payroll is one too.
inline constexpr int Voucher = 2;

} // namespace documentKind

/// `Postings.Status`: a posting out of the books counts in no balance.
namespace postingStatus {

inline constexpr int Live = 0;
inline constexpr int OutOfTheBooks = 1;

} // namespace postingStatus

/// `JOBS.Status`: a cancelled card stays, out of the books.
namespace cardStatus {

inline constexpr int Live = 0;
inline constexpr int Cancelled = 1;

} // namespace cardStatus

/// `JOBS.JobFinished`.
namespace jobState {

inline constexpr int Open = 0;
/// All its items are delivered.
inline constexpr int Finished = 1;

} // namespace jobState

/// `JOBS_DETAIL.MarkAsPaid`: whether the worker has his wage; any other number is paid too.
namespace wage {

inline constexpr int Unpaid = 0;
inline constexpr int Paid = 1;

} // namespace wage
