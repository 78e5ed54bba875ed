#include "store/voucherLegs.h"

#include "store/Recordset.h"
#include "store/RowFollower.h"
#include "store/codes.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

qint64 keyOf(qint32 number, int serial)
{
    return qint64(number) * 2 + serial;
}

class Legs : public RowFollower {
public:
    Legs()
        : RowFollower(Connection::Followed::Postings, u"Select Id, VID, sr from Postings"_s,
            u"vtype=%1 and (sr=1 or sr=2)"_s.arg(documentKind::Voucher))
    {
    }

    qint64 rowOf(Connection &connection, qint32 number, int serial)
    {
        bringUp(connection);
        return m_rows.value(keyOf(number, serial));
    }

protected:
    void forgetAll() override { m_rows.clear(); }
    // Whoever opens a row sees that it is gone.
    void forget(qint64) override { }
    void take(qint64 row, const Recordset &leg) override
    {
        const qint64 key = keyOf(leg.value(1).toInt(), leg.value(2).toInt());
        if (!m_rows.contains(key))
            m_rows.insert(key, row);
    }

private:
    QHash<qint64, qint64> m_rows;
};

} // namespace

qint64 voucherLegs::rowOf(Connection &connection, qint32 number, int serial)
{
    static Legs legs;
    return legs.rowOf(connection, number, serial);
}
