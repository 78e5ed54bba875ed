#pragma once

#include <QDateEdit>

/// A date, shown "01-Apr-2011" with English month names whatever the locale. F4 and Alt+Down drop a calendar down, F2
/// selects the whole text, `+` and `-` step a day, `t` is the machine's today.
///
/// It is typed as people write dates, always from the beginning: "1/4/11", "1-apr-2011", "010411", or just "5" or "5/4"
/// for another day of the same month or year. A year of two digits is one of this century. What is typed counts when
/// the field is left, or another key is pressed in it; Escape drops it. What is pasted counts as typed. Left
/// and Right go to a part, Up and Down change it, after typing the day; Tab leaves.
///
/// What is no date stays in the field, marked, and the date stays too, until something else is typed, chosen or set, or
/// Escape drops it. A screen that saves asks for that first (`hasRefusedDate`).
///
/// A field for birthdays may be empty, which Delete makes it; into an empty one the whole date is typed. Its years of
/// two digits lie in the hundred years up to now.
class DateField : public QDateEdit {
    Q_OBJECT

public:
    explicit DateField(QWidget *parent = nullptr);
    /// `name` becomes the object name.
    explicit DateField(const QString &name, QWidget *parent = nullptr);

    /// From now on the field is one for birthdays, and empty.
    void setForBirthdays();
    [[nodiscard]] bool isEmpty() const;
    /// Invalid while the field is empty. `setBirthday` with an invalid date empties it.
    [[nodiscard]] QDate birthday() const;
    void setBirthday(QDate date);

    /// Drops what is typed.
    void setDate(QDate date);

    /// What stands in the field and is no date; else empty. What is typed and is one counts from then on.
    [[nodiscard]] QString refused();
    /// Shows the date again in place of what was typed. False where nothing was.
    bool dropTyped();

signals:
    /// The calendar has closed, with or without a choice.
    void calendarClosed();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    QValidator::State validate(QString &input, int &place) const override;

private:
    void type(const QString &text);
    void takeEdit();
    [[nodiscard]] QString shownText() const;
    void showTyped();
    /// False, and told to the user, where what was typed is no date.
    bool takeTyped();
    void refuse();
    void selectWhole();
    void moveToPart(int index);
    void deleteTyped(int key);
    /// True where `character` is one of `+`, `-` and `t` that acts here instead of being typed.
    bool actAtOnce(const QString &character);
    [[nodiscard]] bool isWholeSelected() const;
    [[nodiscard]] QDate typedDate() const;
    [[nodiscard]] int wholeYear(int ofTwoDigits) const;
    void makeEmpty();
    void openCalendar();
    void prepareCalendar();

    bool m_forBirthdays = false;
    QString m_typed;
    bool m_isRefused = false;
    bool m_isTakingBack = false;
    bool m_calendarPrepared = false;
};
