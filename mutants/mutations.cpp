#include "mutations.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using mutations::Mutation;

namespace {

/// The source with all that is no code (comments, texts, preprocessor lines) as blanks, each character at its place.
QString codeOf(const QString &source)
{
    static const QRegularExpression noCode(
        uR"re(//[^\n]*|/\*.*?\*/|R"\(.*?\)"|"(?:[^"\\\n]|\\.)*"|(?<![0-9A-Za-z_])'(?:[^'\\\n]|\\.)+'|^[ \t]*#[^\n]*)re"_s,
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::MultilineOption);
    QString code = source;
    for (auto matches = noCode.globalMatch(source); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        for (qsizetype i = match.capturedStart(); i < match.capturedEnd(); ++i) {
            if (code.at(i) != u'\n')
                code[i] = u' ';
        }
    }
    return code;
}

void addTokens(QList<Mutation> &found, const QString &code)
{
    static const std::pair<QString, QString> tokens[]{{u" < "_s, u" <= "_s}, {u" <= "_s, u" < "_s},
        {u" > "_s, u" >= "_s}, {u" >= "_s, u" > "_s}, {u" == "_s, u" != "_s}, {u" != "_s, u" == "_s},
        {u" && "_s, u" || "_s}, {u" || "_s, u" && "_s}, {u" + "_s, u" - "_s}, {u" - "_s, u" + "_s}};
    for (const auto &[token, becomes] : tokens) {
        for (qsizetype at = code.indexOf(token); at >= 0; at = code.indexOf(token, at + 1))
            found.push_back({at, token.size(), becomes});
    }
    static const QRegularExpression words(u"\\b(true|false)\\b"_s);
    for (auto matches = words.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        found.push_back(
            {match.capturedStart(), match.capturedLength(), match.capturedView() == u"true" ? u"false"_s : u"true"_s});
    }
}

void addNumbers(QList<Mutation> &found, const QString &code)
{
    static const QRegularExpression numbers(u"(?<![\\w.'])\\d+(?![\\w.'])"_s);
    for (auto matches = numbers.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        found.push_back(
            {match.capturedStart(), match.capturedLength(), QString::number(match.captured().toLongLong() + 1)});
    }
}

void addConditions(QList<Mutation> &found, const QString &code, const QString &source)
{
    static const QRegularExpression negations(u"(?<=[(\\s&|=])!(?=[\\w(])"_s);
    for (auto matches = negations.globalMatch(code); matches.hasNext();)
        found.push_back({matches.next().capturedStart(), 1, {}});
    const QString opening = u"if ("_s;
    for (qsizetype at = code.indexOf(opening); at >= 0; at = code.indexOf(opening, at + 1)) {
        const qsizetype first = at + opening.size();
        int depth = 1;
        qsizetype end = first;
        for (; end < code.size() && depth > 0; ++end)
            depth += code.at(end) == u'(' ? 1 : code.at(end) == u')' ? -1 : 0;
        const QString condition = code.sliced(first, end - 1 - first);
        // One that declares a name can't be put in brackets.
        if (depth == 0 && !condition.contains(u" = ") && !condition.contains(u';'))
            found.push_back({first, condition.size(), u"!("_s + source.sliced(first, condition.size()) + u')'});
    }
}

/// Statements of one line that are a call.
void addCalls(QList<Mutation> &found, const QString &code)
{
    static const QRegularExpression calls(
        u"(?<=[;{}])\\n[ ]+(?!return|delete|throw|using|static|const|auto|if|for|while)([A-Za-z_][\\w.:>-]*\\([^\\n]*\\);)(?=\\n)"_s);
    for (auto matches = calls.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        found.push_back({match.capturedStart(1), match.capturedLength(1), u";"_s});
    }
}

} // namespace

QList<Mutation> mutations::of(const QString &source)
{
    const QString code = codeOf(source);
    QList<Mutation> found;
    addTokens(found, code);
    addNumbers(found, code);
    addConditions(found, code, source);
    addCalls(found, code);
    std::stable_sort(
        found.begin(), found.end(), [](const Mutation &one, const Mutation &other) { return one.place < other.place; });
    return found;
}

QString mutations::applied(const Mutation &mutation, QString source)
{
    return source.replace(mutation.place, mutation.length, mutation.becomes);
}

QString mutations::described(const Mutation &mutation, const QString &source, const QString &fileName)
{
    const qsizetype lineStart = source.lastIndexOf(u'\n', mutation.place - 1) + 1;
    const qsizetype lineEnd = source.indexOf(u'\n', mutation.place + mutation.length);
    const QString line = source.sliced(lineStart, lineEnd - lineStart);
    Mutation inLine = mutation;
    inLine.place -= lineStart;
    return u"%1:%2: %3  ->  %4"_s.arg(fileName)
        .arg(source.first(lineStart).count(u'\n') + 1)
        .arg(line.simplified(), applied(inLine, line).simplified());
}
