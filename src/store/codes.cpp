#include "store/codes.h"

using namespace Qt::StringLiterals;

QString rowStatus::word(int status)
{
    switch (status) {
    case Uncompleted: return u"Uncompleted"_s;
    case Completed: return u"Completed"_s;
    case Delivered: return u"Delivered"_s;
    case Alteration: return u"Alteration"_s;
    case Canceled: return u"Canceled"_s;
    default: return {};
    }
}

QString rowStatus::dateColumn(int status)
{
    switch (status) {
    case Completed: return u"CompletedDate"_s;
    case Delivered: return u"DelToCustDate"_s;
    case Alteration: return u"AltDate"_s;
    default: return {};
    }
}

QString cutting::word(int status)
{
    switch (status) {
    case NotDone: return u"Not Done"_s;
    case Done: return u"Done"_s;
    default: return {};
    }
}
