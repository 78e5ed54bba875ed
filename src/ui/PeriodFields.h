#pragma once

#include <QDate>
#include <QWidget>

class DateField;

/// The period of a register: the date fields `DateFrom` and `DateTo` with their captions, side by side.
class PeriodFields : public QWidget {
    Q_OBJECT

public:
    explicit PeriodFields(QWidget *parent = nullptr);

    [[nodiscard]] QDate from() const;
    [[nodiscard]] QDate to() const;
    void set(QDate from, QDate to);
    /// Both at the working date, and from there the shop's default period (see `SetDefaultPeriod`).
    void setShopDefault();

    /// The whole month before or behind the one that is shown. Where no whole month is shown, the one before the
    /// working date's, or that one itself.
    enum class Month { Before, Behind };
    void takeMonth(Month month);

    /// False where a field holds what is no date, or where the period ends before it begins: the user was told, and the
    /// focus is where it can be mended. Commands ask first.
    [[nodiscard]] bool isUsable();
    /// For a list that fills itself and must not ask: a last day before the first becomes the first.
    void raiseLastToFirst();

    /// "between #01-Apr-2011# and #30-Apr-2011#", for statements.
    [[nodiscard]] QString between() const;

    /// "between 01-Apr-2011 and 30-Apr-2011", or "on 01-Apr-2011".
    [[nodiscard]] QString inWords() const;

    /// In the order of their tabs.
    [[nodiscard]] QList<QWidget *> fields() const;

private:
    DateField *DateFrom;
    DateField *DateTo;
};
