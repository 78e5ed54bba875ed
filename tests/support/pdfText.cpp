#include "support/pdfText.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

QStringList pdfText(const QString &path)
{
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    if (!reader.waitForFinished() || reader.exitCode() != 0) {
        QTest::qFail("pdftotext did not read the file", __FILE__, __LINE__);
        return {};
    }
    QStringList pages = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
    // Each page ends with a form feed.
    pages.removeLast();
    return pages;
}
