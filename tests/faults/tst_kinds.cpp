#include "Kind.h"
#include "cipher.h"
#include "looseCard.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 seed = 1;
constexpr int tries = 50;
constexpr auto timeEnough = std::chrono::minutes(5);

/// A day's work with some stores, in folders of its own.
struct Day {
    explicit Day(const std::vector<faults::Store> &stores, int length = 8) : course(prepared(stores, length)) { }

    [[nodiscard]] faults::Tally tally(const faults::Kind &kind) const
    {
        return faults::runTries(kind, area(), seed, timeEnough, tries);
    }
    [[nodiscard]] QString area() const { return QDir(folder.path()).canonicalPath(); }

    QTemporaryDir folder;
    faults::Course course;

private:
    faults::Course prepared(const std::vector<faults::Store> &stores, int length) const
    {
        faults::seedCipher(seed);
        faults::makeDelivery(area() + u"/delivered"_s);
        return faults::Course(stores, length, seed, area());
    }
};

QString toldBy(const faults::Tally &tally)
{
    return tally.failures.empty() ? QString() : tally.failures.front().second.told;
}

} // namespace

/// The tries find what a careless program does to its shop, and nothing in as many of the right one.
class KindsTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { faults::replaceOpening({}); }

    void theRightStoresLoseNothing();
    void aSaveWithoutItsGroupIsFoundHalf();
    void aProgramThatDoesNotWaitForTheDiskIsFoundToLose();
    void aStepThatFailsWithoutAnyFaultIsTold();
    void aTryIsTheSameAgain();
};

void KindsTest::theRightStoresLoseNothing()
{
    const Day day(faults::jobCardStores());
    QCOMPARE(day.course.failure(), QString());
    for (const auto &kind : {faults::kills(day.course, seed), faults::failingCalls(day.course, seed),
             faults::powerCuts(day.course, seed, day.area())}) {
        const faults::Tally tally = day.tally(*kind);
        QCOMPARE(toldBy(tally), QString());
        QCOMPARE(tally.tries, tries);
    }
}

void KindsTest::aSaveWithoutItsGroupIsFoundHalf()
{
    const Day day({looseCardStore()});
    QCOMPARE(day.course.failure(), QString());
    for (const auto &kind : {faults::kills(day.course, seed), faults::failingCalls(day.course, seed)}) {
        const faults::Tally tally = day.tally(*kind);
        QVERIFY2(tally.half > 0, qPrintable(kind->name()));
        QVERIFY(!tally.isGood());
    }
}

void KindsTest::aProgramThatDoesNotWaitForTheDiskIsFoundToLose()
{
    faults::replaceOpening([] { DE().CN.define(u"PRAGMA synchronous = OFF"_s); });
    const Day day(faults::jobCardStores());
    QCOMPARE(day.course.failure(), QString());
    const faults::Tally tally = day.tally(*faults::powerCuts(day.course, seed, day.area()));
    QVERIFY(tally.lost > 0);
}

void KindsTest::aStepThatFailsWithoutAnyFaultIsTold()
{
    class Failing : public faults::Task {
    public:
        void run() override { DE().CN.execute(u"Delete from Nowhere"_s); }
    };
    const Day day({{u"failing"_s, [](const faults::Random &) { return std::make_unique<Failing>(); }}}, 3);
    QVERIFY2(day.course.failure().contains(u"Nowhere"_s), qPrintable(day.course.failure()));
}

void KindsTest::aTryIsTheSameAgain()
{
    const Day day({looseCardStore()});
    const auto kind = faults::kills(day.course, seed);
    const faults::Tally tally = day.tally(*kind);
    QVERIFY(!tally.isGood());
    const auto &[number, verdict] = tally.failures.front();
    for (int again = 0; again < 2; ++again) {
        const faults::Verdict repeated = faults::runTry(*kind, number, day.area());
        QCOMPARE(repeated.what, verdict.what);
        QCOMPARE(repeated.told, verdict.told);
    }
}

CORVANE_TEST(KindsTest)
#include "tst_kinds.moc"
