#include "Store.h"

#include "base/session.h"
#include "reports/ReportPages.h"
#include "reports/scratch.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// A list goes to paper by way of its scratch table.
class ListOnPaper : public Task {
public:
    explicit ListOnPaper(Random random) : m_count(20 + random.below(60)) { }
    void run() override
    {
        std::vector<ListRow> rows;
        for (int i = 0; i < m_count; ++i)
            rows.push_back({.cells = {QString(200, u'r'), QString::number(i)}});
        ListModel list({{u"Worker"_s}, {u"Rating"_s}});
        list.setRows(std::move(rows));
        const std::vector<scratch::Column> columns{
            {u"NAME"_s, scratch::textOf(0)}, {u"Score"_s, scratch::numberOf(1)}, {u"Rating"_s, scratch::numberOf(1)}};
        static_cast<void>(scratch::refill(DE().rsrank, DE().CN,
            {u"Delete * from rank"_s, u"Select * from rank"_s, u"Select * from rank order by id"_s}, list,
            scratch::Which::All, columns, u"The list is printed..."_s));
    }

private:
    int m_count;
};

/// A report becomes a PDF file, in place of the last one.
class SavedPdf : public Task {
public:
    explicit SavedPdf(Random random) : m_pages(1 + random.below(5)) { }
    void run() override
    {
        // Lines alone: letters want fonts, and those a desktop.
        const ReportPages pages(u"Report"_s, {11906, 16838}, m_pages, [](int) {
            ReportPages::Page page;
            for (int line = 0; line < linesOfAPage; ++line)
                page.push_back({.kind = ReportPages::Item::Kind::Line,
                    .place = QRectF(700 + line * 7 % 5000, 700 + line * 3, 4000, 0),
                    .thickness = 1 + line % 9});
            return page;
        });
        static_cast<void>(pages.savePdf(session::programPath(u"report.pdf")));
    }

private:
    static constexpr int linesOfAPage = 1500;
    int m_pages;
};

/// The moment of its making stands in the file.
std::optional<QString> pdfSays(const QFileInfo &file)
{
    if (file.suffix() != u"pdf")
        return {};
    const QByteArray content = contentOf(file.filePath());
    const bool isWhole = content.startsWith("%PDF") && content.endsWith("%%EOF\n");
    return u"%1, %2 pages, %3 bytes"_s.arg(isWhole ? u"whole"_s : u"in part"_s)
        .arg(content.count("/Type /Page\n"))
        .arg(content.size());
}

template <typename Kind>
std::unique_ptr<Task> made(const Random &random)
{
    return std::make_unique<Kind>(random);
}

} // namespace

std::vector<Store> reportStores()
{
    return {{u"list on paper"_s, made<ListOnPaper>},
        {.name = u"PDF file"_s, .make = made<SavedPdf>, .begins = Begins::OpenShop, .look = pdfSays}};
}

} // namespace faults
