#pragma once

#include "store/Value.h"

#include <QDate>

#include <span>

class Recordset;

/// A side of a document: one row of `Postings`.
struct Leg {
    QString particulars;
    qint32 account;
    /// Account of the other side.
    qint32 otherSide;
    /// Above zero a credit to `account`, below zero a debit. A text goes in as it was typed.
    Value amount;
};

/// What all legs of a document have in common.
struct Document {
    qint32 VID;
    /// See `documentKind`.
    int Vtype;
    QDate date;
    QString remark;
    /// See `postingStatus`.
    int status = 0;
    int isPayroll = 0;
};

/// Adds the legs to `postings`, numbered from 1 in their order, and writes each at once: they stand or fall with the
/// group of writes that the caller has open. A status and a payroll mark of 0 are left to the file's default.
/// Throws RuntimeError as `Recordset::set` and `update` do.
void addLegs(Recordset &postings, const Document &document, std::span<const Leg> legs);
