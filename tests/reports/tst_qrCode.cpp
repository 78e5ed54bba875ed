#include "reports/qrCode.h"

#include "support/expectFault.h"
#include "support/testRegistry.h"

using namespace Qt::StringLiterals;

/// Codes for scanners.
class QrCodeTest : public QObject {
    Q_OBJECT

private slots:
    void aCodeIsWhatScannersRead();
    void aTextTooLongForACodeIsRefused();
};

namespace {

/// "321/2", as a scanner of another make has read it.
constexpr auto known = "#######.###.#.#######"
                       "#.....#.#..#..#.....#"
                       "#.###.#..#..#.#.###.#"
                       "#.###.#.#..#..#.###.#"
                       "#.###.#...#...#.###.#"
                       "#.....#.......#.....#"
                       "#######.#.#.#.#######"
                       "........##..........."
                       "#.##.###.##...#..#.##"
                       ".####.....#.#..#..##."
                       "..#...#..##.######..."
                       "##.##..#..#.##....##."
                       "...##.##..##.#..##..#"
                       "........##...#.#.#..#"
                       "#######.#.#..##.#..##"
                       "#.....#.#..####...#.#"
                       "#.###.#..#.#..#.....#"
                       "#.###.#.##...#..#..#."
                       "#.###.#.##.#.#..#.#.."
                       "#.....#..#.##.#.##..."
                       "#######.#####..#...#.";

} // namespace

void QrCodeTest::aCodeIsWhatScannersRead()
{
    const QImage code = qrCode(u"321/2"_s);
    constexpr int quiet = 4;
    constexpr int modules = 21;
    const int whole = modules + 2 * quiet;
    QCOMPARE(code.width() % whole, 0);
    QCOMPARE(code.height(), code.width());
    const int pixels = code.width() / whole;
    for (int y = 0; y < code.height(); ++y) {
        for (int x = 0; x < code.width(); ++x) {
            const bool isDark = qGray(code.pixel(x, y)) < 128;
            const QPoint module(x / pixels - quiet, y / pixels - quiet);
            const bool isQuiet = !QRect(0, 0, modules, modules).contains(module);
            QCOMPARE(isDark, !isQuiet && known[module.y() * modules + module.x()] == '#');
        }
    }
}

void QrCodeTest::aTextTooLongForACodeIsRefused()
{
    QVERIFY(!qrCode(QString(1000, u'x')).isNull());
    EXPECT_FAULT(Fault::FileFault, static_cast<void>(qrCode(QString(3000, u'x'))));
}

CORVANE_TEST(QrCodeTest)
#include "tst_qrCode.moc"
