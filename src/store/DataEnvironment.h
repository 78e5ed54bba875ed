#pragma once

#include "store/Connection.h"
#include "store/Recordset.h"

/// The one place through which the program talks to its database: the connection and the shared command objects.
/// A user of an object closes it if it is open, gives it a statement, opens it, reads or updates, closes it. Two uses
/// of one object must never overlap: whoever needs rows for longer than a moment, or across a call that borrows the
/// same object, takes another object.
struct DataEnvironment {
    DataEnvironment();

    Connection CN;

    Recordset rsITEMS;
    Recordset rsJOBS;
    Recordset rsJOBS_DETAIL;
    Recordset rsItems2;
    Recordset rsSHOP;
    Recordset rsJOBS_DETAIL2;
    Recordset rsSettings;
    Recordset rsINFO;
    Recordset rsPrintHead;
    Recordset rsPrintBody;
    Recordset rsJobs2;
    Recordset rspostings;
    Recordset rsrank;
    Recordset rsaccounts;
    Recordset rstmpWagesRegister;
    Recordset rsaccountbooks;
    Recordset rspostings2;
    Recordset rsReport2_Grouping;
    Recordset rsPrintVoucher;
};

/// The data environment in force. The reference is good until `renewDE`.
[[nodiscard]] DataEnvironment &DE();

/// Discards the data environment with all its open recordsets, closing the file, and makes a new one, not connected.
void renewDE();
