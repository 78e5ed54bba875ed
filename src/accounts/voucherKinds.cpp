#include "accounts/voucherKinds.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Kind {
    QString name;
    bool mainIsCredit;
};

const std::array<Kind, 5> &kinds()
{
    static const std::array<Kind, 5> all{
        {{u"Payment"_s, false}, {u"Purchase"_s, true}, {u"Receipt"_s, true}, {u"Sales"_s, false}, {u"Wages"_s, true}}};
    return all;
}

const Kind *find(const QString &name)
{
    const auto found = std::ranges::find(kinds(), name, &Kind::name);
    return found == kinds().end() ? nullptr : &*found;
}

} // namespace

QStringList voucherKinds::names()
{
    QStringList names;
    for (const Kind &kind : kinds())
        names += kind.name;
    return names;
}

voucherKinds::Sides voucherKinds::sides(bool mainIsCredit)
{
    if (mainIsCredit)
        return {u"To"_s, u"Cr"_s, u"By"_s, u"Dr"_s};
    return {u"By"_s, u"Dr"_s, u"To"_s, u"Cr"_s};
}

std::optional<voucherKinds::Sides> voucherKinds::sidesOf(const QString &kind)
{
    const Kind *found = find(kind);
    return found ? std::optional(sides(found->mainIsCredit)) : std::nullopt;
}

bool voucherKinds::isMainCredit(const QString &kind)
{
    return find(kind)->mainIsCredit;
}
