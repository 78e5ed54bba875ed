#include "mutations.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void giveUp(const QString &text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    std::exit(EXIT_FAILURE);
}

QStringList sourcesIn(const QString &folder)
{
    QStringList sources;
    for (QDirIterator files(folder, {u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
        sources += files.next();
    sources.sort();
    return sources;
}

QString contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        giveUp(path + u": "_s + file.errorString());
    return QString::fromUtf8(file.readAll());
}

struct Choice {
    QString path;
    QString source;
    mutations::Mutation mutation;
};

/// Each of the sources' mutations is as likely as any other.
Choice choose(const QStringList &sources, quint64 seed)
{
    QList<Choice> all;
    for (const QString &path : sources) {
        const QString source = contentOf(path);
        for (const mutations::Mutation &mutation : mutations::of(source))
            all.push_back({path, source, mutation});
    }
    if (all.isEmpty())
        giveUp(u"There is nothing to change."_s);
    std::mt19937_64 random(seed);
    return all.at(static_cast<qsizetype>(random() % static_cast<quint64>(all.size())));
}

} // namespace

/// Puts one fault into one of a folder's sources, chosen by a seed, and prints the path and what was changed.
int main(int count, char **values)
{
    const QCoreApplication application(count, values);
    const QStringList arguments = QCoreApplication::arguments();
    bool isSeed = false;
    const quint64 seed = arguments.value(2).toULongLong(&isSeed);
    if (arguments.size() != 3 || !isSeed)
        giveUp(u"corvane-mutant FOLDER SEED"_s);
    const Choice choice = choose(sourcesIn(arguments.at(1)), seed);
    QFile file(choice.path);
    const QByteArray changed = mutations::applied(choice.mutation, choice.source).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(changed) != changed.size())
        giveUp(choice.path + u": "_s + file.errorString());
    std::printf("%s\n%s\n", qPrintable(choice.path),
        qPrintable(mutations::described(choice.mutation, choice.source, choice.path.mid(arguments.at(1).size() + 1))));
    return EXIT_SUCCESS;
}
