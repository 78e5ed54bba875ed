#include "store/jetsql.h"

#include "base/RuntimeError.h"
#include "base/values.h"

#include <QVarLengthArray>

#include <algorithm>
#include <optional>
#include <string>

namespace jetsql {

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Word, Name, Number, Text, Date, Sign, End };

struct Token {
    Kind kind = Kind::End;
    QStringView source;
    Value value;
};

bool isWordStart(QChar c)
{
    return c.isLetter() || c == u'_' || c.isSurrogate();
}

bool isWordPart(QChar c)
{
    return isWordStart(c) || c.isDigit() || c == u'$';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

class Tokens {
public:
    explicit Tokens(QStringView statement) : m_statement(statement) { }

    Token next()
    {
        while (m_at < m_statement.size() && m_statement[m_at].isSpace())
            ++m_at;
        if (m_at == m_statement.size())
            return {};
        const QChar c = m_statement[m_at];
        // The engine would take it for the statement's end and drop the condition behind it.
        if (c.isNull())
            throw RuntimeError(Fault::Syntax, m_statement.toString().replace(QChar(), u' '));
        if (c == u'\'' || c == u'"')
            return text(c);
        if (c == u'#')
            return date();
        if (c == u'`')
            return name(u'`');
        if (c == u'[')
            return name(u']');
        if (isDigit(c) || (c == u'.' && m_at + 1 < m_statement.size() && isDigit(m_statement[m_at + 1])))
            return number();
        if (isWordStart(c))
            return word();
        return {Kind::Sign, m_statement.sliced(m_at++, 1), {}};
    }

private:
    [[noreturn]] void unfinished(qsizetype from) const
    {
        throw RuntimeError(
            Fault::Syntax, u"Missing end of: %1"_s.arg(m_statement.sliced(from).left(40)), m_statement.toString());
    }

    qsizetype endOf(QChar closing) const
    {
        const auto end = m_statement.indexOf(closing, m_at + 1);
        if (end < 0)
            unfinished(m_at);
        return end;
    }

    Token text(QChar quote)
    {
        const auto start = m_at;
        QString content;
        for (;;) {
            const auto end = endOf(quote);
            content += m_statement.sliced(m_at + 1, end - m_at - 1);
            m_at = end + 1;
            if (m_at == m_statement.size() || m_statement[m_at] != quote)
                break;
            content += quote;
        }
        return {Kind::Text, m_statement.sliced(start, m_at - start), content};
    }

    Token date()
    {
        const auto start = m_at;
        m_at = endOf(u'#') + 1;
        const auto source = m_statement.sliced(start, m_at - start);
        const auto moment = readDateTime(source.sliced(1, source.size() - 2));
        if (!moment)
            throw RuntimeError(
                Fault::TypeMismatch, u"Impossible date in the statement: %1"_s.arg(source), m_statement.toString());
        return {Kind::Date, source, *moment};
    }

    Token name(QChar closing)
    {
        const auto start = m_at;
        m_at = endOf(closing) + 1;
        const auto source = m_statement.sliced(start, m_at - start);
        if (source.contains(QChar()))
            throw RuntimeError(Fault::Syntax, m_statement.toString().replace(QChar(), u' '));
        return {Kind::Name, source, {}};
    }

    Token number()
    {
        const auto start = m_at;
        const auto digits = [this] {
            while (m_at < m_statement.size() && isDigit(m_statement[m_at]))
                ++m_at;
        };
        digits();
        bool whole = true;
        if (m_at < m_statement.size() && m_statement[m_at] == u'.') {
            whole = false;
            ++m_at;
            digits();
        }
        // An exponent only where digits follow: "12else" is a number and a word.
        if (m_at < m_statement.size() && m_statement[m_at].toLower() == u'e') {
            auto ahead = m_at + 1;
            if (ahead < m_statement.size() && (m_statement[ahead] == u'+' || m_statement[ahead] == u'-'))
                ++ahead;
            if (ahead < m_statement.size() && isDigit(m_statement[ahead])) {
                whole = false;
                m_at = ahead;
                digits();
            }
        }
        const auto source = m_statement.sliced(start, m_at - start);
        bool fits = false;
        const qint64 integer = whole ? source.toLongLong(&fits) : 0;
        return {Kind::Number, source, fits ? Value(integer) : Value(source.toDouble())};
    }

    Token word()
    {
        const auto start = m_at;
        while (m_at < m_statement.size() && isWordPart(m_statement[m_at]))
            ++m_at;
        return {Kind::Word, m_statement.sliced(start, m_at - start), {}};
    }

    QStringView m_statement;
    qsizetype m_at = 0;
};

bool isWord(const Token &token, QLatin1StringView word)
{
    return token.kind == Kind::Word && token.source.compare(word, Qt::CaseInsensitive) == 0;
}

bool isSign(const Token &token, QChar sign)
{
    return token.kind == Kind::Sign && token.source[0] == sign;
}

std::vector<Token> readTokens(QStringView statement)
{
    std::vector<Token> tokens;
    Tokens reader(statement);
    for (Token token = reader.next(); token.kind != Kind::End; token = reader.next())
        tokens.push_back(std::move(token));
    if (!tokens.empty() && isSign(tokens.back(), u';'))
        tokens.pop_back();
    for (const Token &token : tokens) {
        if (isSign(token, u';'))
            throw RuntimeError(Fault::Syntax, u"More than one statement"_s, statement.toString());
    }
    if (tokens.empty())
        throw RuntimeError(Fault::Syntax, u"The statement is empty"_s, statement.toString());
    return tokens;
}

QString bareName(const Token &token)
{
    const bool enclosed = token.kind == Kind::Name;
    return (enclosed ? token.source.sliced(1, token.source.size() - 2) : token.source).toString();
}

/// The table of a "Select * from T" that has nothing behind it but a condition and an order; else empty.
QString writableTable(const std::vector<Token> &tokens)
{
    const auto isName = [](const Token &token) { return token.kind == Kind::Word || token.kind == Kind::Name; };
    if (tokens.size() < 4 || !isWord(tokens[0], "select"_L1) || !isSign(tokens[1], u'*')
        || !isWord(tokens[2], "from"_L1) || !isName(tokens[3]))
        return {};
    const bool plain = tokens.size() == 4 || isWord(tokens[4], "where"_L1) || isWord(tokens[4], "order"_L1);
    return plain ? bareName(tokens[3]) : QString();
}

} // namespace

Translation translate(QStringView statement, const QStringList &columns)
{
    const std::vector<Token> tokens = readTokens(statement);
    Translation result;
    result.table = writableTable(tokens);
    const bool narrowed = !columns.isEmpty() && !result.table.isEmpty();
    if (narrowed)
        result.table.clear();
    result.sql.reserve(statement.size() + 8);
    const bool starAfterDelete = tokens.size() > 1 && isWord(tokens[0], "delete"_L1) && isSign(tokens[1], u'*');
    bool columnNumbers = false;
    for (size_t i = 0; i < tokens.size(); ++i) {
        const Token &token = tokens[i];
        if (i == 1 && starAfterDelete)
            continue;
        if (i == 1 && narrowed) {
            result.sql += '[' + columns.join("], ["_L1).toUtf8() + "] ";
            continue;
        }
        if (i == 1 && !result.table.isEmpty())
            result.sql += "rowid, ";
        // "order by 2" names the second column; a bound value there would order nothing.
        if (isWord(token, "by"_L1))
            columnNumbers = true;
        const bool literal =
            token.kind == Kind::Text || token.kind == Kind::Date || (token.kind == Kind::Number && !columnNumbers);
        if (literal) {
            // Our own columns compare without regard to case by themselves; those of a foreign file do not.
            result.sql += token.kind == Kind::Text ? "? collate FOLDED" : "?";
            result.values.push_back(token.value);
        } else {
            result.sql += token.source.toUtf8();
        }
        // A blank behind each word keeps glued numbers apart and two minus signs from opening a comment.
        // Signs of two characters ("<=", "<>") stay together, and so do a function and its bracket.
        const bool joins = token.kind == Kind::Sign && QStringView(u"<>=!").contains(token.source[0]);
        if (!joins)
            result.sql += ' ';
    }
    return result;
}

QString quoted(const QString &text)
{
    return QString(text).replace(u'\'', u"''"_s);
}

namespace {

/// Reads the set that starts behind "[" at `at` and moves `at` behind its "]".
/// A bracket that is never closed is an ordinary character: then `at` stays.
template <typename Char>
bool inSet(std::basic_string_view<Char> pattern, size_t &at, Char c)
{
    const size_t end = pattern.find(Char(']'), at + 1);
    if (end == pattern.npos)
        return false;
    const bool negated = pattern[at] == '!';
    bool found = false;
    for (size_t i = negated ? at + 1 : at; i < end; ++i) {
        if (i + 2 < end && pattern[i + 1] == '-') {
            found = found || (c >= pattern[i] && c <= pattern[i + 2]);
            i += 2;
        } else {
            found = found || c == pattern[i];
        }
    }
    at = end + 1;
    return found != negated;
}

template <typename Char>
bool matchesFolded(std::basic_string_view<Char> text, std::basic_string_view<Char> pattern)
{
    // Walks both once, going back to the last % with one character more for it whenever the rest does not fit.
    size_t t = 0;
    size_t p = 0;
    std::optional<size_t> retryPattern;
    size_t retryText = 0;
    for (;;) {
        if (p < pattern.size() && pattern[p] == '%') {
            retryPattern = ++p;
            retryText = t;
            continue;
        }
        if (t == text.size() && p == pattern.size())
            return true;
        bool fits = false;
        if (t < text.size() && p < pattern.size()) {
            const bool set = pattern[p] == '[' && pattern.find(Char(']'), p + 2) != pattern.npos;
            if (set) {
                ++p;
                fits = inSet(pattern, p, text[t]);
            } else {
                fits = pattern[p] == '_' || pattern[p] == text[t];
                ++p;
            }
            ++t;
        }
        if (fits)
            continue;
        if (!retryPattern || retryText >= text.size())
            return false;
        t = ++retryText;
        p = *retryPattern;
    }
}

char foldedPlain(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool isPlain(std::string_view text)
{
    return std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
}

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

bool isLike(std::string_view text, std::string_view pattern)
{
    if (isPlain(text) && isPlain(pattern)) {
        QVarLengthArray<char, 512> folded;
        folded.append(text.data(), static_cast<qsizetype>(text.size()));
        folded.append(pattern.data(), static_cast<qsizetype>(pattern.size()));
        for (char &c : folded)
            c = foldedPlain(c);
        const std::string_view both(folded.data(), text.size() + pattern.size());
        return matchesFolded(both.substr(0, text.size()), both.substr(text.size()));
    }
    const std::u16string foldedText = fromUtf8(text).toCaseFolded().toStdU16String();
    const std::u16string foldedPattern = fromUtf8(pattern).toCaseFolded().toStdU16String();
    return matchesFolded<char16_t>(foldedText, foldedPattern);
}

int compareFolded(std::string_view a, std::string_view b)
{
    const size_t shorter = std::min(a.size(), b.size());
    for (size_t i = 0; i < shorter; ++i) {
        // Plain characters decide by themselves; from the first other one on the whole texts must be looked at.
        if ((a[i] | b[i]) & 0x80)
            return QString::compare(fromUtf8(a), fromUtf8(b), Qt::CaseInsensitive);
        const int difference = foldedPlain(a[i]) - foldedPlain(b[i]);
        if (difference != 0)
            return difference;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

QString storedDate(const QDateTime &moment)
{
    const bool timed = moment.time() != QTime(0, 0);
    return moment.toString(timed ? u"yyyy-MM-dd HH:mm:ss" : u"yyyy-MM-dd");
}

QDateTime dateFromStored(QByteArrayView text)
{
    const auto digits = [&text](qsizetype at, qsizetype count) {
        int number = 0;
        for (auto i = at; i < at + count; ++i)
            number = number * 10 + (text[i] - '0');
        return number;
    };
    if (text.size() < 10)
        throw RuntimeError(Fault::TypeMismatch, u"\"%1\" is not a date"_s.arg(QString::fromUtf8(text)));
    const QDate date(digits(0, 4), digits(5, 2), digits(8, 2));
    const QTime time = text.size() < 19 ? QTime(0, 0) : QTime(digits(11, 2), digits(14, 2), digits(17, 2));
    return {date, time, Qt::UTC};
}

} // namespace jetsql
