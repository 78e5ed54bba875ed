#pragma once

#include "reports/Report.h"

#include <span>

/// What the shop's printed sheets have in common: one look, the shop's head, a table of columns. Places in twips.
namespace sheet {

inline constexpr QColor accent(0x1d, 0x3f, 0x5e);
inline constexpr QColor quiet(0x5a, 0x64, 0x70);
inline constexpr QColor hairline(0xc2, 0xca, 0xd3);
inline constexpr QColor band(0xe6, 0xeb, 0xf1);

/// What all stands between, on upright paper.
inline constexpr int left = 144;
inline constexpr int width = 9360;

/// The lower edge of what `addShopHead` adds.
inline constexpr int shopHeadHeight = 2110;

/// A column of a table: its head, and the field under it.
struct Column {
    QString title;
    QString name;
    QString column;
    int left;
    int width;
    ReportControl::Format format = ReportControl::Format::Plain;
    /// Aligned right, head included.
    bool numeric = false;
    bool wraps = false;
};

/// The shop's logo, name, address, contacts and tag line over a rule, at the top of a head: `logo`, `lblCompany`,
/// `lblAddress1` to `lblAddress3`, `lblContact`, `lblTag`.
void addShopHead(ReportSection &head);

/// Fills a shop head with what the session and the settings say. `logo` is the path of a picture; where there is none
/// the texts take its place. Throws RuntimeError: FileNotFound, or FileFault where the file holds no picture.
void dressShop(ReportSection &head, const QString &logo);
/// The logo alone.
void setLogo(ReportSection &head, const QString &path);

/// The heads of the columns, on a band at `top`. Returns its lower edge.
int addColumnHeads(ReportSection &head, int top, std::span<const Column> columns);

/// A line of the table as the details' section, under `Section1`'s name as all sheets have it.
ReportSection &addLines(Report &report, std::span<const Column> columns);

/// For a sheet that ends with its last line: of two or more that one doesn't stand alone on a page.
void keepLastLines(Report &report);

/// "Page 1 of 3" at the right of a page foot that is `footWidth` wide.
void addPageCount(ReportSection &foot, int top, int footWidth = left + width);

} // namespace sheet
