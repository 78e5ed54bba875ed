#pragma once

#include <QDateEdit>

/// A date, shown "01-Apr-2011" with English month names whatever the locale. F4 and Alt+Down drop a calendar down.
///
/// It is typed as people write dates, from the part on at which the caret stands, which is the day when the field is
/// entered by key: "1/4/11", "1-apr-2011", "010411", or just "5" or "5/4" for another day of the same month or year. A
/// year of two digits is one of this century. What is typed counts when the field is left, or another key is pressed in
/// it; something that is no date is told and the date stays. Up and Down change the part at the caret; Tab leaves.
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
    /// What was typed last where it was no date, from when it was told until the field is entered or typed in again;
    /// else empty. For a screen that is about to save the date that stayed.
    [[nodiscard]] QString refused() const { return m_refused; }

signals:
    /// The calendar has closed, with or without a choice.
    void calendarClosed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    QValidator::State validate(QString &input, int &place) const override;

private:
    void type(const QString &text);
    void showTyped();
    /// False, and told to the user, where what was typed is no date.
    bool takeTyped();
    [[nodiscard]] bool isWholeSelected() const;
    [[nodiscard]] QDate typedDate() const;
    [[nodiscard]] int wholeYear(int ofTwoDigits) const;
    void makeEmpty();
    void openCalendar();
    void prepareCalendar();

    bool m_forBirthdays = false;
    QString m_typed;
    QString m_refused;
    /// 0 for the day, 1 for the month, 2 for the year.
    int m_firstPart = 0;
    bool m_calendarPrepared = false;
};
