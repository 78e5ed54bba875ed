#pragma once

#include <QLabel>
#include <QPixmap>

/// Shows a picture file the way up that its camera noted, scaled down to fit: a large one is never held whole. A double
/// click asks for the file to be opened.
class PictureBox : public QLabel {
    Q_OBJECT

public:
    /// `name` becomes the object name.
    explicit PictureBox(const QString &name, QWidget *parent = nullptr);

    /// Shows the picture in `path`; false, and nothing changed, where it can't be loaded.
    [[nodiscard]] bool load(const QString &path);
    void clearPicture();
    [[nodiscard]] bool hasPicture() const { return !m_path.isEmpty(); }

signals:
    void doubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    /// Of the size that the box has room for; none where the file is no picture.
    [[nodiscard]] QPixmap scaled(const QString &path) const;

    QString m_path;
};
