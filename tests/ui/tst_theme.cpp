#include "support/contrast.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/signs.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QPainter>
#include <QPalette>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOption>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using contrast::enoughForMarks;
using contrast::enoughForText;

namespace {

/// The colour that differs most from `ground` along a line across the picture.
double strongest(const QImage &picture, int row, int from, int to, const QColor &ground)
{
    double most = 1;
    for (int x = from; x < to; ++x)
        most = std::max(most, contrast::between(picture.pixelColor(x, row), ground));
    return most;
}

QImage drawn(const QIcon &icon, QSize size, qreal factor)
{
    QImage paper(size * factor, QImage::Format_ARGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    icon.paint(&painter, paper.rect());
    return paper;
}

} // namespace

/// What can be told apart on the screen, and what not.
class ThemeTest : public QObject {
    Q_OBJECT

private slots:
    void textsStandOutFromTheirGround();
    void rulesOfTheSheetKeepTheContrast();
    void boxesAndRingsAreSeen();
    void signsDifferInShape();
    void starsCount();
};

void ThemeTest::textsStandOutFromTheirGround()
{
    const QPalette colours = QApplication::palette();
    const auto standsOut = [&colours](const QColor &text, QPalette::ColorRole ground,
                               QPalette::ColorGroup group = QPalette::Active) {
        const double seen = contrast::between(text, colours.color(group, ground));
        if (seen < enoughForText)
            qWarning() << "too weak:" << text << ground << group << seen;
        return seen >= enoughForText;
    };
    using Role = QPalette::ColorRole;
    for (const auto &[text, ground] : {std::pair(Role::WindowText, Role::Window), std::pair(Role::Text, Role::Base),
             std::pair(Role::Text, Role::AlternateBase), std::pair(Role::ButtonText, Role::Button),
             std::pair(Role::HighlightedText, Role::Highlight), std::pair(Role::ToolTipText, Role::ToolTipBase),
             std::pair(Role::PlaceholderText, Role::Base)}) {
        QVERIFY(standsOut(colours.color(text), ground));
        // What is off has no hint, and its tip is not off.
        if (ground != Role::ToolTipBase && text != Role::PlaceholderText)
            QVERIFY(standsOut(colours.color(QPalette::Disabled, text), ground, QPalette::Disabled));
    }
    for (const QColor &colour : {theme::accent(), theme::muted(), theme::warning(), theme::good(), theme::gold()}) {
        for (const Role ground : {Role::Base, Role::AlternateBase, Role::Window})
            QVERIFY(standsOut(colour, ground));
    }
    QVERIFY(standsOut(theme::muted(), Role::Button));
}

void ThemeTest::rulesOfTheSheetKeepTheContrast()
{
    static const QRegularExpression rule(u"([^{}]+)\\{([^{}]*)\\}"_s);
    static const QRegularExpression ground(u"background: (#\\w+)"_s);
    static const QRegularExpression text(u"[^-]color: (#?\\w+)"_s);
    static const QRegularExpression border(u"border(?:-color)?:[^;#]*(#\\w+)"_s);
    int texts = 0;
    int rings = 0;
    for (auto rules = rule.globalMatch(qApp->styleSheet()); rules.hasNext();) {
        const auto match = rules.next();
        const QString selector = match.captured(1).trimmed();
        const auto on = ground.match(match.captured(2));
        if (const auto ink = text.match(match.captured(2)); ink.hasMatch()) {
            ++texts;
            // Without a ground of its own it stands on that of the screen.
            const QColor window = QApplication::palette().color(QPalette::Window);
            QVERIFY2(contrast::between(QColor(ink.captured(1)), on.hasMatch() ? QColor(on.captured(1)) : window)
                    >= enoughForText,
                qPrintable(selector));
        }
        if (selector.contains(u":focus"_s)) {
            ++rings;
            const QColor ring(border.match(match.captured(2)).captured(1));
            QVERIFY2(contrast::between(ring, QApplication::palette().color(QPalette::Window)) >= enoughForMarks,
                qPrintable(selector));
        }
    }
    QVERIFY(texts >= 7 && rings >= 3);
}

void ThemeTest::boxesAndRingsAreSeen()
{
    QWidget window;
    QVBoxLayout form(&window);
    QCheckBox box(u"Delivered"_s);
    QRadioButton option(u"Completed"_s);
    form.addWidget(&box);
    form.addWidget(&option);
    QVERIFY(driver::show(window));
    const QColor ground = window.palette().color(QPalette::Window);
    for (QAbstractButton *button : std::initializer_list<QAbstractButton *>{&box, &option}) {
        QStyleOptionButton look;
        look.initFrom(button);
        const bool round = button == &option;
        const QRect mark = button->style()->subElementRect(
            round ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator, &look, button);
        (round ? static_cast<QAbstractButton *>(&box) : &option)->setFocus();
        const QImage plain = button->grab().toImage();
        QVERIFY(strongest(plain, mark.center().y(), mark.left(), mark.left() + 4, ground) >= enoughForMarks);
        const double empty = strongest(plain, mark.center().y(), mark.left() + 5, mark.right() - 5, Qt::white);
        button->setChecked(true);
        const QImage ticked = button->grab().toImage();
        QVERIFY(empty < 1.2
            && strongest(ticked, mark.center().y(), mark.left() + 5, mark.right() - 5, Qt::white) >= enoughForMarks);
    }
    QVERIFY(contrast::between(theme::focusRing(), ground) >= enoughForMarks);
    QVERIFY(contrast::between(theme::focusRing(), Qt::white) >= enoughForMarks);
}

void ThemeTest::signsDifferInShape()
{
    using signs::Status;
    QList<QImage> shapes;
    for (const Status status :
        {Status::Uncompleted, Status::Completed, Status::Delivered, Status::Alteration, Status::Canceled}) {
        // In black and white: not by the colour alone.
        QImage shape =
            drawn(signs::status(status), {16, 16}, 1).convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
        QVERIFY2(!shapes.contains(shape), qPrintable(QString::number(static_cast<int>(status))));
        shapes += shape;
    }
}

void ThemeTest::starsCount()
{
    QVERIFY(signs::stars(-1).isNull() && signs::stars(6).isNull());
    const auto fullStars = [](int rating, qreal factor) {
        const QImage picture = drawn(signs::stars(rating), {80, 16}, factor);
        int full = 0;
        for (int place = 0; place < 5; ++place)
            full +=
                contrast::between(picture.pixelColor(QPoint(place * 16 + 8, 8) * factor), Qt::white) > enoughForMarks
                ? 1
                : 0;
        return full;
    };
    for (int rating = 0; rating <= 5; ++rating) {
        QCOMPARE(fullStars(rating, 1), rating);
        QCOMPARE(fullStars(rating, 2), rating);
    }
}

CORVANE_TEST(ThemeTest)
#include "tst_theme.moc"
