#pragma once

#include "ui/Screen.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

/// The guide that comes with the program, without its pictures: to be read from the keyboard, by chapters, and searched
/// with Ctrl+F.
class frmGuide : public Screen {
    Q_OBJECT

public:
    frmGuide();

    /// Modal. Opens at the chapter about the screen of that class name, at the beginning where there is none.
    void ShowFor(const QString &screen);

protected:
    void activated() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildForm();
    void connectKeys();
    void fillChapters();
    void goToChapter(int row);
    void openFind();
    void leaveFind();
    void find(bool backward, bool anew);

    QListWidget *m_chapters;
    QTextBrowser *m_text;
    QWidget *m_find;
    QLineEdit *txtFind;
    QLabel *lblFound;
    /// The row of the chapter to open at.
    int m_first = 0;
};
