#include "store/engineFaults.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

Fault engineFaults::faultOf(int code, bool proven)
{
    if (code == SQLITE_READONLY_ROLLBACK)
        return Fault::CannotOpen;
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return Fault::Locked;
    case SQLITE_CORRUPT: return Fault::Damaged;
    case SQLITE_NOTADB: return proven ? Fault::Damaged : Fault::NotADatabase;
    case SQLITE_FULL: return Fault::DiskFull;
    case SQLITE_CANTOPEN: return Fault::CannotOpen;
    case SQLITE_READONLY:
    case SQLITE_IOERR:
    case SQLITE_PERM: return Fault::FileFault;
    case SQLITE_CONSTRAINT: return Fault::MissingValue;
    case SQLITE_ERROR: return Fault::Syntax;
    default: return Fault::Engine;
    }
}

bool engineFaults::isOfTheStatement(int code)
{
    switch (code & 0xff) {
    case SQLITE_ERROR:
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG:
    case SQLITE_RANGE:
    case SQLITE_MISUSE: return true;
    default: return false;
    }
}

bool engineFaults::standsAfter(int code)
{
    return code == SQLITE_IOERR_DIR_FSYNC;
}

QString engineFaults::wordsOf(int code)
{
    if (code == SQLITE_READONLY_DBMOVED)
        return u"The file was moved, removed or replaced while it was in use."_s;
    if (code == SQLITE_READONLY_ROLLBACK)
        return u"A write was cut short. The program must open the file, and take that write back, before it can be looked at."_s;
    switch (code & 0xff) {
    case SQLITE_READONLY: return u"The file, or the folder that it lies in, may only be read."_s;
    case SQLITE_PERM: return u"The system does not let the program work on this file."_s;
    case SQLITE_CANTOPEN: return u"The disk failed: the file, or the journal beside it, cannot be opened."_s;
    case SQLITE_IOERR: return u"The disk failed: the file cannot be read or written."_s;
    case SQLITE_NOMEM: return u"There is not enough memory."_s;
    default: return {};
    }
}

QString engineFaults::aftermath(Written written)
{
    switch (written) {
    case Written::UpToTheFault:
    case Written::NotTried: return {};
    case Written::Nothing:
        return u"\n\nNothing of this entry was written. When the cause is mended, it can be entered again."_s;
    case Written::AllOrNothing:
        return u"\n\nIt is not known whether this entry was written. Look before you enter it again."_s;
    }
    return {};
}
