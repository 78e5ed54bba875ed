#include "base/windows1252.h"

#include "support/testRegistry.h"

#include <QStringDecoder>
#include <QTest>

using namespace Qt::StringLiterals;

class Windows1252Test : public QObject {
    Q_OBJECT

private slots:
    void aCharacterIsOneByte_data();
    void aCharacterIsOneByte();
    void thePageComesBackWhole();
};

void Windows1252Test::aCharacterIsOneByte_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("plain") << u"A z~\t"_s << "A z~\t"_ba;
    QTest::newRow("Latin letters") << u"Señor Müller ÿ"_s << "Se\xf1or M\xfcller \xff"_ba;
    QTest::newRow("the page's own") << u"€‚ŒŽ‘’“”•–—™œžŸ"_s
                                    << "\x80\x82\x8c\x8e\x91\x92\x93\x94\x95\x96\x97\x99\x9c\x9e\x9f"_ba;
    QTest::newRow("what it lacks") << u"₹5 आशा ₧"_s << "?5 ??? ?"_ba;
    QTest::newRow("beside the page") << u"\u0080\u0100\u20ad"_s << "???"_ba;
    QTest::newRow("of two halves") << u"a\U0001F9F5b"_s << "a?b"_ba;
    QTest::newRow("a half alone") << u"a"_s + QChar(0xd83e) + u"b"_s << "a?b"_ba;
    QTest::newRow("nothing") << QString() << QByteArray();
}

void Windows1252Test::aCharacterIsOneByte()
{
    QFETCH(const QString, text);
    QTEST(windows1252(text), "bytes");
}

/// Against what the system's own table says of it.
void Windows1252Test::thePageComesBackWhole()
{
    QStringDecoder reader("windows-1252");
    if (!reader.isValid())
        QFAIL("this Qt knows no such page");
    for (int code = 0; code < 256; ++code) {
        const QByteArray byte(1, static_cast<char>(code));
        QCOMPARE(windows1252(QString(reader(byte))), byte);
    }
}

CORVANE_TEST(Windows1252Test)
#include "tst_windows1252.moc"
