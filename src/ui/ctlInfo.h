#pragma once

#include <QFrame>

class QLabel;

/// A help balloon: hidden until it has something to say, and gone on a click on it.
class ctlInfo : public QFrame {
    Q_OBJECT

public:
    explicit ctlInfo(QWidget *parent = nullptr);

    void ShowInfo(const QString &text);
    void HideInfo();

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    QLabel *m_picture;
    QLabel *m_text;
};
