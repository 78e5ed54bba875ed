#include "store/shape.h"

#include "base/RuntimeError.h"

namespace shape {

using namespace Qt::StringLiterals;

namespace {

class Parser {
public:
    explicit Parser(QStringView text) : m_text(text) { }

    bool takeWord(QStringView word)
    {
        skipBlanks();
        const auto rest = m_text.sliced(m_at);
        const bool found = rest.startsWith(word, Qt::CaseInsensitive)
            && (rest.size() == word.size() || !isNamePart(rest[word.size()]));
        if (found)
            m_at += word.size();
        return found;
    }

    bool takeSign(QChar sign)
    {
        skipBlanks();
        const bool found = m_at < m_text.size() && m_text[m_at] == sign;
        if (found)
            ++m_at;
        return found;
    }

    void expectWord(QStringView word) { require(takeWord(word), word); }
    void expectSign(QChar sign) { require(takeSign(sign), QStringView(&sign, 1)); }

    QString statement()
    {
        expectSign(u'{');
        const auto end = m_text.indexOf(u'}', m_at);
        require(end >= 0, u"}");
        const auto content = m_text.sliced(m_at, end - m_at).trimmed();
        m_at = end + 1;
        return content.toString();
    }

    QString name()
    {
        skipBlanks();
        const QChar quote = m_at < m_text.size() ? m_text[m_at] : QChar();
        const bool enclosed = quote == u'\'' || quote == u'`' || quote == u'"' || quote == u'[';
        const auto start = enclosed ? m_at + 1 : m_at;
        auto end = start;
        if (enclosed)
            end = m_text.indexOf(quote == u'[' ? QChar(u']') : quote, start);
        else
            while (end < m_text.size() && isNamePart(m_text[end]))
                ++end;
        require(end > start, u"a name");
        m_at = enclosed ? end + 1 : end;
        return m_text.sliced(start, end - start).toString();
    }

    QString optionalName() { return takeWord(u"AS") ? name() : QString(); }

    void expectEnd()
    {
        skipBlanks();
        require(m_at == m_text.size(), u"the end");
    }

private:
    static bool isNamePart(QChar c) { return c.isLetterOrNumber() || c == u'_'; }

    void skipBlanks()
    {
        while (m_at < m_text.size() && m_text[m_at].isSpace())
            ++m_at;
    }

    void require(bool condition, QStringView expected) const
    {
        if (!condition)
            throw RuntimeError(
                Fault::Syntax, u"Expected %1 at character %2"_s.arg(expected).arg(m_at + 1), m_text.toString());
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

Append appended(Parser &parser)
{
    Append child;
    parser.expectSign(u'(');
    child.statement = parser.statement();
    child.name = parser.optionalName();
    parser.expectWord(u"RELATE");
    child.parentColumn = parser.name();
    parser.expectWord(u"TO");
    child.childColumn = parser.name();
    parser.expectSign(u')');
    const QString outerName = parser.optionalName();
    if (!outerName.isEmpty())
        child.name = outerName;
    return child;
}

void readCompute(Parser &parser, Shape &shape)
{
    shape.groupChild = parser.name();
    while (parser.takeSign(u',')) {
        Total total;
        parser.expectWord(u"SUM");
        parser.expectSign(u'(');
        total.column = parser.name();
        if (parser.takeSign(u'.'))
            total.column = parser.name();
        parser.expectSign(u')');
        parser.expectWord(u"AS");
        total.name = parser.name();
        shape.totals.push_back(total);
    }
    parser.expectWord(u"BY");
    do
        shape.groupColumns.push_back(parser.name());
    while (parser.takeSign(u','));
}

} // namespace

std::optional<Shape> parse(QStringView text)
{
    Parser parser(text);
    if (!parser.takeWord(u"SHAPE"))
        return {};
    Shape shape;
    shape.statement = parser.statement();
    (void)parser.optionalName();
    if (parser.takeWord(u"COMPUTE")) {
        readCompute(parser, shape);
    } else {
        parser.expectWord(u"APPEND");
        do
            shape.children.push_back(appended(parser));
        while (parser.takeSign(u','));
    }
    parser.expectEnd();
    return shape;
}

} // namespace shape
