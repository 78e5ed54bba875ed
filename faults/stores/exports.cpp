#include "Store.h"

#include "base/session.h"
#include "comms/modBuildCVJS.h"
#include "shopFolder.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// The status report of all cards, or of none, in place of the last one.
class StatusReport : public Task {
public:
    explicit StatusReport(Random random) : m_last(random.chance(80) ? 2100 : 2000, 12, 31) { }
    void run() override { statusReport::write({2000, 1, 1}, m_last, session::programPath(u"data.xml"_s)); }

private:
    QDate m_last;
};

/// The moment of its making stands in the first line.
std::optional<QString> reportSays(const QFileInfo &file)
{
    if (file.suffix() != u"xml")
        return {};
    const QByteArray content = contentOf(file.filePath());
    return QString::fromLatin1(content.startsWith("<jobcards created=") ? content.mid(content.indexOf('\n')) : content);
}

} // namespace

std::vector<Store> exportStores()
{
    return {{.name = u"status report"_s,
        .make = [](const Random &random) { return std::make_unique<StatusReport>(random); },
        .begins = Begins::OpenShop,
        .look = reportSays}};
}

} // namespace faults
