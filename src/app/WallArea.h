#pragma once

#include <QWidget>

class QLabel;

/// The area of the main screen that holds the wallpaper, in its own size and centred. What goes beyond the area is cut
/// off.
class WallArea : public QWidget {
    Q_OBJECT

public:
    WallArea();

    /// The built-in picture.
    void showDefault();
    /// A file that holds no picture leaves what is there.
    void showFile(const QString &path);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void show(const QPixmap &picture);
    void centre();

    /// Holds the built-in picture, which is drawn for the size of the screen; never visible itself.
    QLabel *Image1;
    QLabel *MyWall;
};
