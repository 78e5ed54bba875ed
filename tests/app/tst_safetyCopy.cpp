#include "app/safetyCopy.h"

#include "app/SafetyCopier.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// The copies that the program makes by itself.
class SafetyCopyTest : public QObject {
    Q_OBJECT

private slots:
    void sevenDaysAndTwelveMonthsAreKept();
    void theDayGetsItsCopyAndOldOnesGo();
    void aDamagedFileDoesNotReplaceGoodCopies();
    void theCopierMakesOneADay();
    void whatIsStoppedOrHalfDoneIsNotCopied();
};

namespace {

const std::atomic_bool goOn = false;
const QDate today(2011, 4, 1);

QStringList copies(const TestShop &shop)
{
    return QDir(shop.folder.filePath(u"copies"_s)).entryList(QDir::Files, QDir::Name);
}

} // namespace

void SafetyCopyTest::sevenDaysAndTwelveMonthsAreKept()
{
    QList<QDate> days;
    for (int i = 0; i < 500; ++i)
        days += today.addDays(-i);
    QList<QDate> wanted;
    for (int i = 0; i < 7; ++i)
        wanted += today.addDays(-i);
    // April has its last day among the seven, March its last, too.
    for (QDate month(2011, 3, 1); month > QDate(2010, 5, 1); month = month.addMonths(-1))
        wanted += month.addDays(-1);
    QCOMPARE(safetyCopy::kept(days), wanted);
    // Days on which nobody came count as little as months.
    QCOMPARE(safetyCopy::kept({QDate(2009, 1, 5), QDate(2005, 1, 5)}), QList({QDate(2009, 1, 5), QDate(2005, 1, 5)}));
    QCOMPARE(safetyCopy::kept({}), QList<QDate>());
}

void SafetyCopyTest::theDayGetsItsCopyAndOldOnesGo()
{
    TestShop shop;
    SaveSetting(setting::TagLine, u"of today"_s);
    QDir(shop.folder.path()).mkdir(u"copies"_s);
    const auto lay = [&shop](const QString &name) { writeContent(shop.folder.filePath(u"copies/"_s + name), "old"); };
    for (int day = 10; day < 20; ++day)
        lay(u"data15-201103%1.mdb"_s.arg(day));
    lay(u"data15-20100310.mdb"_s);
    lay(u"data15-20110305.mdb.new"_s);
    // Of other files and other hands, and of a clock that was wrong.
    const QStringList others{u"data15-20110402.mdb"_s, u"data15-20990101.mdb"_s, u"demo-20110310.mdb"_s,
        u"data15-20110399.mdb"_s, u"data15-20110310.txt"_s, u"notes"_s};
    for (const QString &name : others)
        lay(name);
    safetyCopy::make(shop.connection.content(), session::DBPath, today, goOn);
    QStringList wanted = others;
    for (int day = 14; day < 20; ++day)
        wanted += u"data15-201103%1.mdb"_s.arg(day);
    wanted << u"data15-20100310.mdb"_s << u"data15-20110401.mdb"_s;
    wanted.sort();
    QCOMPARE(copies(shop), wanted);
    QCOMPARE(contentOf(safetyCopy::pathOf(session::DBPath, today)), contentOf(session::DBPath));
    QCOMPARE(
        QFileInfo(safetyCopy::pathOf(session::DBPath, today)).permissions() & (QFile::ReadGroup | QFile::ReadOther),
        QFile::Permissions());
}

void SafetyCopyTest::aDamagedFileDoesNotReplaceGoodCopies()
{
    TestShop shop;
    SaveSetting(setting::FootNote, QString(40'000, u'x'));
    safetyCopy::make(shop.connection.content(), session::DBPath, today, goOn);
    const QByteArray good = contentOf(safetyCopy::pathOf(session::DBPath, today));
    QByteArray damaged = good;
    damaged[damaged.size() - 6000] = static_cast<char>(damaged.at(damaged.size() - 6000) ^ 1);
    EXPECT_FAULT(Fault::Damaged, safetyCopy::make(damaged, session::DBPath, today, goOn));
    EXPECT_FAULT(Fault::Damaged, safetyCopy::make(damaged, session::DBPath, today.addDays(1), goOn));
    QCOMPARE(copies(shop), QStringList{u"data15-20110401.mdb"_s});
    QCOMPARE(contentOf(safetyCopy::pathOf(session::DBPath, today)), good);
}

void SafetyCopyTest::theCopierMakesOneADay()
{
    TestShop shop;
    SafetyCopier copier;
    QSignalSpy made(&copier, &SafetyCopier::made);
    copier.look();
    QVERIFY(made.wait());
    QCOMPARE(copies(shop), QStringList{u"data15-20110401.mdb"_s});
    const QByteArray first = contentOf(safetyCopy::pathOf(session::DBPath, today));
    SaveSetting(setting::TagLine, u"later that day"_s);
    QTest::qWait(50);
    copier.look();
    QTest::qWait(200);
    QCOMPARE(contentOf(safetyCopy::pathOf(session::DBPath, today)), first);
    machineClock::replace([] { return QDateTime(today.addDays(1), QTime(10, 0)); });
    copier.look();
    QVERIFY(made.wait());
    QCOMPARE(copies(shop).size(), 2);
}

void SafetyCopyTest::whatIsStoppedOrHalfDoneIsNotCopied()
{
    TestShop shop;
    const std::atomic_bool stop = true;
    safetyCopy::make(shop.connection.content(), session::DBPath, today, stop);
    QCOMPARE(copies(shop), QStringList());
    SafetyCopier copier;
    WriteGroup::run(shop.connection, [&copier] {
        SaveSetting(setting::TagLine, u"half"_s);
        copier.look();
    });
    QTest::qWait(100);
    QCOMPARE(copies(shop), QStringList());
    renewDE();
    copier.look();
    QTest::qWait(100);
    QCOMPARE(copies(shop), QStringList());
}

CORVANE_TEST(SafetyCopyTest)

#include "tst_safetyCopy.moc"
