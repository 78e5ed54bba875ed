#include "app/programFolder.h"

#include "StartFolder.h"
#include "support/testRegistry.h"

#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

/// Where the program keeps its files.
class ProgramFolderTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { qunsetenv("CORVANE_FOLDER"); }
    void theOptionWinsOverTheEnvironmentOverTheOwnFolder();
    void aFolderIsMadeAndGetsTheDemo();
    void aDemoThatIsThereStays();
};

void ProgramFolderTest::theOptionWinsOverTheEnvironmentOverTheOwnFolder()
{
    StartFolder own;
    QCOMPARE(chooseProgramFolder({}, own.folder.path()), own.folder.path());
    qputenv("XDG_DATA_HOME", "/home/tailor/data");
    QCOMPARE(chooseProgramFolder({}, own.path(u"gone"_s)), u"/home/tailor/data/corvane"_s);
    qunsetenv("XDG_DATA_HOME");
    qputenv("CORVANE_FOLDER", "/by/environment/");
    QCOMPARE(chooseProgramFolder({}, own.folder.path()), u"/by/environment"_s);
    QCOMPARE(chooseProgramFolder(u"/by/option"_s, own.folder.path()), u"/by/option"_s);
    QCOMPARE(chooseProgramFolder(u"shop"_s, own.folder.path()), QDir::currentPath() + u"/shop"_s);
}

void ProgramFolderTest::aFolderIsMadeAndGetsTheDemo()
{
    StartFolder own;
    own.write(u"demo.mdb"_s, "delivered");
    QVERIFY(QFile::setPermissions(own.path(u"demo.mdb"_s), QFile::ReadOwner));
    prepareProgramFolder(own.path(u"new/shop"_s), own.folder.path());
    QCOMPARE(own.content(u"new/shop/demo.mdb"_s), "delivered"_ba);
    QVERIFY(QFile::permissions(own.path(u"new/shop/demo.mdb"_s)).testFlag(QFile::WriteOwner));
    QVERIFY(!QFile::permissions(own.path(u"demo.mdb"_s)).testFlag(QFile::WriteOwner));
}

void ProgramFolderTest::aDemoThatIsThereStays()
{
    StartFolder own;
    StartFolder shop;
    own.write(u"demo.mdb"_s, "delivered");
    shop.write(u"demo.mdb"_s, "worked in");
    prepareProgramFolder(shop.folder.path(), own.folder.path());
    QCOMPARE(shop.content(u"demo.mdb"_s), "worked in"_ba);

    // Delivered without a demo, there is none.
    StartFolder bare;
    prepareProgramFolder(bare.folder.path(), bare.folder.path());
    QVERIFY(!QFileInfo::exists(bare.path(u"demo.mdb"_s)));
}

CORVANE_TEST(ProgramFolderTest)
#include "tst_programFolder.moc"
