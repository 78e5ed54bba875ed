#include "Judge.h"

#include "Shop.h"
#include "base/RuntimeError.h"
#include "store/DataEnvironment.h"

#include <QElapsedTimer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20;

QString lastWords(const Child &child)
{
    return child.lines().isEmpty() ? u"it said nothing"_s : QString::fromUtf8(child.lines().constLast());
}

} // namespace

void layOut(const Place &place)
{
    if (!QFile::copy(shop::fileIn(place.base), shop::fileIn(place.folder)))
        qFatal("the shop's file cannot be copied to %s", qPrintable(place.folder));
}

Course courseOf(const Place &place, quint32 seed, int steps, const std::vector<Operation> &operations)
{
    layOut(place);
    Child child([&](const Child::Say &say) {
        shop::open(place.folder);
        shop::Day day(seed, operations);
        say(shop::content());
        qint64 microseconds = 0;
        for (int i = 0; i < steps; ++i) {
            QElapsedTimer clock;
            clock.start();
            day.prepareNext()();
            microseconds += clock.nsecsElapsed() / 1000;
            say(shop::content());
        }
        say(QByteArray::number(microseconds));
        shop::close();
    });
    if (!child.finish(patience) || child.lines().size() != steps + 2)
        qFatal("a day without faults fails: %s", qPrintable(lastWords(child)));
    Course course{child.lines().first(steps + 1), child.lines().constLast().toInt()};
    QFile::remove(shop::fileIn(place.folder));
    return course;
}

Finding judge(const Place &place, const Course &course, int acknowledged)
{
    Child child([&](const Child::Say &say) {
        shop::open(place.folder);
        const QByteArray content = shop::content();
        shop::close();
        say(content);
        say("lack " + shop::lackOfAgreement(place.folder).toUtf8());
    });
    if (!child.finish(patience))
        return {Finding::CannotOpen, lastWords(child)};
    const auto found = course.contents.lastIndexOf(child.lines().constFirst());
    const QString lack = QString::fromUtf8(child.lines().constLast().mid(5));
    if (found < 0)
        return {Finding::Half, u"a content that no step leaves, after %1 steps told. %2"_s.arg(acknowledged).arg(lack)};
    if (found < acknowledged)
        return {Finding::Lost, u"%1 steps were told, %2 are there"_s.arg(acknowledged).arg(found)};
    if (found > acknowledged + 1)
        return {Finding::Half, u"%1 steps were told, %2 are there"_s.arg(acknowledged).arg(found)};
    if (!lack.isEmpty())
        return {Finding::Half, lack};
    return {};
}

Finding judgeStart(const Place &place)
{
    Child child([&](const Child::Say &say) {
        shop::start(place.folder);
        say("lack " + shop::lackOfNew(place.folder).toUtf8());
        shop::close();
        say("lack " + shop::lackOfAgreement(place.folder).toUtf8());
    });
    if (!child.finish(patience))
        return {Finding::CannotOpen, lastWords(child)};
    for (const QByteArray &line : child.lines()) {
        if (line != "lack ")
            return {Finding::Half, QString::fromUtf8(line)};
    }
    return {};
}
