#pragma once

#include <QWidget>

class ListView;
class QLabel;
class QLineEdit;

/// Finds a text in a list, in any column and in any case: a field at the list's lower edge, which comes when it is
/// asked for or a text is typed in the list. While one types, the first line that has the text becomes current, from
/// the one on that was current before; Enter and Down go on to the next, Up and Shift+Enter back, round the ends. Of a
/// search that was begun by typing in the list, Enter opens the row.
class ListFinder : public QWidget {
    Q_OBJECT

public:
    explicit ListFinder(ListView &list);

    /// Shows the field, with what was sought last selected, and gives it the focus.
    void open();
    /// The same, with this as the beginning of what is sought.
    void open(const QString &typed);
    /// The list has the focus again, on the line found.
    void leave();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void search(int from, int step);
    void place();
    [[nodiscard]] bool holds(int row, const QString &text) const;

    ListView &m_list;
    QLineEdit *m_text;
    QLabel *m_told;
    /// Where the search began.
    int m_start = 0;
    /// It was opened by a letter: Enter is for the row found.
    bool m_isTyped = false;
};
