#pragma once

struct DocumentTag;

/// Opens a document on its screen, a job card or a voucher, and returns when that has closed: whether anything of it
/// was written, so that the list that it was opened from is to be filled anew. A document that is gone is told.
[[nodiscard]] bool openDocument(const DocumentTag &tag);
