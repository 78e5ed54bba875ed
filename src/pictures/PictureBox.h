#pragma once

#include <QLabel>
#include <QPixmap>

/// Shows a picture file, scaled to fit. A double click asks for the file to be opened.
class PictureBox : public QLabel {
    Q_OBJECT

public:
    /// `name` becomes the object name.
    explicit PictureBox(const QString &name, QWidget *parent = nullptr);

    /// Shows the picture in `path`; false, and nothing changed, where it can't be loaded.
    [[nodiscard]] bool load(const QString &path);
    void clearPicture();
    [[nodiscard]] bool hasPicture() const { return !m_picture.isNull(); }

signals:
    void doubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showScaled();

    QPixmap m_picture;
};
