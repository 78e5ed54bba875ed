#pragma once

#include <QLabel>

/// Shows a picture file the way up that its camera noted, scaled down to fit: a large one is never held whole. A double
/// click asks for the file to be opened.
class PictureBox : public QLabel {
    Q_OBJECT

public:
    /// `name` becomes the object name.
    explicit PictureBox(const QString &name, QWidget *parent = nullptr);

    /// Shows the picture in `path` and returns an empty text; where it can't be loaded the reason, and nothing changed.
    [[nodiscard]] QString load(const QString &path);
    void clearPicture();
    /// Shows a sign and `reason` in place of a picture.
    void tellMissing(const QString &reason);
    [[nodiscard]] bool hasPicture() const { return !m_path.isEmpty(); }

signals:
    void doubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] QSize room() const { return contentsRect().size() * devicePixelRatioF(); }
    void put(const QImage &picture);

    QString m_path;
};
