#include "base/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

QString usualText(Fault fault)
{
    switch (fault) {
    case Fault::Overflow: return u"Overflow"_s;
    case Fault::SubscriptOutOfRange: return u"Subscript out of range"_s;
    case Fault::TypeMismatch: return u"Type mismatch"_s;
    case Fault::FileNotFound: return u"File not found"_s;
    case Fault::DeviceFault: return u"Device I/O error"_s;
    case Fault::FileFault: return u"Path/File access error"_s;
    case Fault::InvalidUseOfNull: return u"Invalid use of Null"_s;
    case Fault::Picture: return u"The picture cannot be loaded."_s;
    case Fault::NoCurrentRecord: return u"No current record."_s;
    case Fault::ItemNotFound: return u"Item cannot be found in the collection corresponding to the requested name."_s;
    case Fault::NotOpen: return u"Operation is not allowed when the object is closed."_s;
    case Fault::AlreadyOpen: return u"Operation is not allowed when the object is open."_s;
    case Fault::RowNotFound: return u"The row cannot be located for updating: it has been deleted since it was read."_s;
    case Fault::NumberTaken: return u"The number is taken."_s;
    case Fault::MissingValue: return u"A required field has no value."_s;
    case Fault::Syntax: return u"The statement cannot be understood."_s;
    case Fault::DiskFull: return u"There is not enough space on the disk."_s;
    case Fault::Locked: return u"The file is in use by another program."_s;
    case Fault::CannotOpen: return u"The file cannot be opened."_s;
    case Fault::NotADatabase: return u"The file is not a database of this program, or its password differs."_s;
    case Fault::Damaged: return u"The file is damaged."_s;
    case Fault::Engine: return u"The database has failed."_s;
    }
    return {};
}

} // namespace

RuntimeError::RuntimeError(Fault fault, const QString &source, Written written)
    : RuntimeError(fault, usualText(fault), source, written)
{
}

RuntimeError::RuntimeError(Fault fault, const QString &text, const QString &source, Written written)
    : m_fault(fault), m_text(text), m_source(source), m_written(written), m_what(report().toUtf8())
{
}

bool RuntimeError::canGoOn() const
{
    return m_written != Written::UpToTheFault && m_fault != Fault::Damaged && m_fault != Fault::NotADatabase;
}

QString RuntimeError::report() const
{
    QString text = u"Run-time error '%1':\n\n%2"_s.arg(number()).arg(m_text);
    if (!m_source.isEmpty())
        text += u"\n\n"_s + m_source;
    return text;
}
