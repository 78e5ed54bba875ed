#include "production/frmRatings.h"

#include "base/values.h"
#include "production/feedback.h"
#include "ui/ListView.h"
#include "ui/signs.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int ratingColumn = 3;

} // namespace

frmRatings::frmRatings() : RegisterScreen(u"frmRatings"_s, u"Ratings"_s, Refresh::OnCommand)
{
    lvSummary = new ListView(
        u"lvSummary"_s, {{u"Rank"_s, 12, true}, {u"Worker Name"_s, 48}, {u"Scorer"_s, 15, true}, {u"Rating"_s, 25}});
    lvSummary->setAccessibleName(windowTitle());
    lvSummary->setIconSize(signs::starsSize());
    lvSummary->setEmptyText(
        u"No workers yet.\nMasters, Workers adds them; Feedback on what they have made rates them."_s);
    lvSummary->letSort();
    setRegister(lvSummary, Rows::AreOnlyRead);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(lvSummary);
    resize(640, 480);
    GetRank();
}

void frmRatings::GetRank()
{
    std::vector<ListRow> rows;
    for (const feedback::Ranked &worker : feedback::rank()) {
        ListRow row{.cells = {QString::number(rows.size() + 1), worker.name, NumberText(worker.score)}};
        const QIcon stars = signs::stars(worker.rating);
        // More stars than there are, from scores beyond 5.
        if (stars.isNull())
            row.cells += QString::number(worker.rating);
        else
            row.looks = {{ratingColumn, {.icon = stars, .said = signs::starsInWords(worker.rating)}}};
        rows.push_back(std::move(row));
    }
    showRows(std::move(rows), Keep::First);
}
