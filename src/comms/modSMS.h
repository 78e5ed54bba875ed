#pragma once

#include <QString>

/// The texts of messages to clients, their numbers, and how far a job is.
///
/// In a draft "%eid%" stands for the job number and "%amount%" for an amount, in their plain number form. Drafts are
/// the shop's own from the settings, or the defaults. Rows are looked up through `rsaccounts` and `rsJOBS_DETAIL2`.

[[nodiscard]] QString DefaultBookedSMS();
[[nodiscard]] QString DefaultCompletedSMS();
[[nodiscard]] QString DefaultDueSMS();

/// With the shop's signature in a last line.
[[nodiscard]] QString GetBookedSMS(qint32 jobID, double amount);
[[nodiscard]] QString GetCompletedSMS(qint32 jobID, double amount);
/// Without: the caller adds it.
[[nodiscard]] QString GetDueSMS(const QString &amount);

/// Mobile number of the client with that title or, where `id` is above 0 and a client has it, of that one. Empty where
/// neither is found.
[[nodiscard]] QString GetClientMobile(const QString &name, qint16 id);
/// Mobile, address and city of an account in one line; empty where there is no such account.
[[nodiscard]] QString GetContactLine(qint16 id);

/// Whether all rows that are made in the shop stand at completed; a job without such rows does.
[[nodiscard]] bool IsJobCompleted(qint32 jobID);
/// Whether as many rows stand at delivered, bought goods among them, as are made in the shop.
[[nodiscard]] bool IsJobDelivered(qint32 jobID);
