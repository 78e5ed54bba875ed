#pragma once

#include "ui/Screen.h"

class Command;
class DateField;
class MorningGlance;
class NameLabel;
class QBoxLayout;
class QLabel;
class SafetyCopier;
class WallArea;

/// The main screen: the shop's name, the working date, a wallpaper, and the commands that lead to all other screens.
/// When it is first shown it asks for the login, where the shop wants one; without it, it stays hidden and the process
/// ends. Closing it ends the process.
class frmMain : public Screen {
    Q_OBJECT

public:
    frmMain();

    void setVisible(bool visible) override;

    /// Reads the shop's row into the session and shows its name and the working date. A shop without a row gets one
    /// with the name "Kovrel"; the session's copy of it follows when this runs next.
    void RefershINFO();
    /// Shows the shop's wallpaper. A failure leaves what is there.
    void SetWall();

protected:
    void escapePressed() override;
    void activated() override;
    void paintEvent(QPaintEvent *event) override;
    void done(int result) override;

private:
    void buildForm();
    [[nodiscard]] QWidget *buildHead();
    [[nodiscard]] QWidget *buildCommands();
    [[nodiscard]] QWidget *buildFoot();
    [[nodiscard]] bool load();
    void takeDate();
    void tellIfNotToday();
    void addGlance();
    void leadOn(const std::function<void()> &next);
    void tellCopyFailed(const QString &why);

    NameLabel *lblShopName;
    DateField *TodayDate;
    WallArea *Picture1;
    QLabel *lblUser;
    NameLabel *lblCopies;
    QLabel *lblNotToday;
    SafetyCopier *m_copier;
    /// None before the screen was painted.
    MorningGlance *m_glance = nullptr;
    bool m_isPainted = false;
    bool m_loaded = false;
};
