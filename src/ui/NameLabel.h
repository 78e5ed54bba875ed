#pragma once

#include <QLabel>

/// A label for a name of any length: it widens nothing, shows as much as there is room for, and all of it in a tool
/// tip.
class NameLabel : public QLabel {
    Q_OBJECT

public:
    /// `name` becomes the object name. It wants the room of its text, but of no more than `most` letters; with 0 it
    /// takes what room there is.
    explicit NameLabel(const QString &name, int most = 0);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString shown() const;

    int m_most;
};
