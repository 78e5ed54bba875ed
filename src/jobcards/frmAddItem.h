#pragma once

#include "ui/Screen.h"

#include <vector>

class Command;
class ItemDetails;
class ImageSlot;
class NameLabel;
class QLabel;
class QRadioButton;
class QPushButton;
class clsJobCardData;
class kvComboBox;
class kvTextBox;
class kvTextBoxMultiLine;

/// The editor of one item row of a job card. It writes only to the open card's rows; the database learns of them when
/// the card is saved.
class frmAddItem : public Screen {
    Q_OBJECT

public:
    frmAddItem();

    /// Takes a new row for the client. `Cancelled` comes back false where "&OK" closed it with the row appended to
    /// `Rows`.
    void ItemDetails(clsJobCardData &Rows, int ClientID, bool &Cancelled);
    /// Changes row `Index`, counted from 1. `Cancelled` as above.
    void EditItemDetails(clsJobCardData &Rows, int ClientID, int Index, bool &Cancelled);

    /// Fills the measurements from a row's labels and values. Throws RuntimeError (SubscriptOutOfRange) where a value
    /// has no label.
    void LoadEditItems(const QString &labels, const QString &values);
    /// Fills them from the item master, with its default values.
    void LoadEmptyItems(int ItemID);
    /// Fills them from the client's last order of the item, else from the master. Throws SubscriptOutOfRange for an
    /// order with fewer values than labels.
    void LoadLastConfig(int ItemID, int ClientID);

protected:
    void activated() override;

private:
    void buildForm();
    [[nodiscard]] QLayout *buildOrder();
    [[nodiscard]] QLayout *buildCloth();
    void connectCommands();
    void itemChosen();
    void itemConfirmed();
    void itemLeft();
    void focusMeasurements();
    [[nodiscard]] QString newPicturePath(int number) const;
    void photograph(ImageSlot &image, int number);
    void drawNote();
    void insertImage();
    void cleanForm();
    void chooseColor();
    void showColor(double number);
    void confirm();
    void addSplitLine(const QString &line);
    void measurementTexts(QString &labels, QString &values) const;

    NameLabel *lblClint;
    kvComboBox *cmbItems;
    QLabel *lblLast;
    kvTextBox *txtQnt;
    kvTextBox *txtFees;
    class ItemDetails *ItemDetails1;
    kvTextBox *txtRemark;
    kvTextBoxMultiLine *txtClientRemark;
    QPushButton *picColor;
    QRadioButton *opIsInv;
    ImageSlot *m_image1;
    ImageSlot *m_image2;
    Command *Command1;
    Command *Command2;
    Command *Command3;
    Command *Command4;
    Command *Command5;
    Command *Command6;
    Command *Command7;
    Command *Command8;

    QString ItemEditMode;
    /// The item whose measurements and fee stand on the screen.
    QString m_loadedItem;
    int m_clientID = 0;
    int RowIndex = 0;
    clsJobCardData *m_rows = nullptr;
    bool ItemCancelled = true;
    double m_color = 0;
    /// Where the caret stands in the client's remark when the key before was Enter; -1 when it was not.
    int m_caretBehindEnter = -1;
};
