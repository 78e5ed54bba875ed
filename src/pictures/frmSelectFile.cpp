#include "pictures/frmSelectFile.h"

#include "devices/shell.h"
#include "pictures/Thumbnails.h"
#include "pictures/frmPreview.h"
#include "pictures/isPictureThere.h"
#include "pictures/picturePlaces.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/NameLabel.h"
#include "ui/boxType.h"
#include "ui/complain.h"
#include "ui/entryFilters.h"
#include "ui/fieldTip.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QProgressBar>
#include <QScrollBar>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

const QString cancelled = u"Cancel"_s;
const QString above = u".."_s;

/// Nothing is chosen by merely coming to it.
class PictureList : public QListView {
protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QListView::focusInEvent(event);
        if (!selectionModel()->hasSelection())
            selectionModel()->clearCurrentIndex();
    }
};

/// A list of names: the same rows as the thumbnails, without them.
class NamesOnly : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features &= ~QStyleOptionViewItem::HasDecoration;
        option->icon = {};
        option->decorationSize = {};
    }
};

/// Below a thumbnail stands the file's name and, where it can't be loaded, why.
class NameAndReason : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override
    {
        constexpr int around = 12;
        return {Thumbnails::side + textBeside, Thumbnails::side + 2 * option.fontMetrics.height() + around};
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
        const QString reason = index.data(Thumbnails::ReasonRole).toString().section(u'\n', -1);
        const auto fitted = [option](const QString &text) {
            return option->fontMetrics.elidedText(text, Qt::ElideMiddle, Thumbnails::side + textBeside / 2);
        };
        option->text = fitted(option->text);
        if (!reason.isEmpty())
            option->text += QChar::LineSeparator + fitted(reason);
    }

private:
    static constexpr int textBeside = 32;
};

} // namespace

frmSelectFile::frmSelectFile() : Screen(u"frmSelectFile"_s, u"Select Picture"_s), m_result(cancelled)
{
    thumbs = new Thumbnails(devicePixelRatioF(), this);
    buildForm();
    connectCommands();
}

void frmSelectFile::buildForm()
{
    buildPictures();
    txtfilename = new kvTextBox(u"txtfilename"_s, boxType::Plain);
    lblStatus = new QLabel;
    lblStatus->setObjectName(u"lblStatus"_s);
    m_progress = new QProgressBar;
    m_progress->setObjectName(u"progress"_s);
    m_progress->setAccessibleName(u"Thumbnails"_s);
    m_progress->setTextVisible(false);
    m_progress->setFixedWidth(160);
    QSizePolicy keepsRoom = m_progress->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(keepsRoom);
    cmdOK = new Command(u"cmdOK"_s, u"Select"_s);
    cmdOK->setDefault(true);
    Command1 = new Command(u"Command1"_s, u"Cancel"_s);
    Command2 = new Command(u"Command2"_s, u"Remember Location"_s);

    auto *columns = new QHBoxLayout;
    columns->addLayout(buildPlaces(), 1);
    columns->addWidget(preview, 3);
    auto *status = new QHBoxLayout;
    status->addWidget(lblStatus, 1);
    status->addWidget(m_progress);
    auto *name = new QHBoxLayout;
    name->addWidget(captionOf(txtfilename, u"File name :"_s));
    name->addWidget(txtfilename, 1);
    name->addWidget(cmdOK);
    name->addWidget(Command1);
    name->addWidget(Command2);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(columns, 1);
    whole->addLayout(status);
    whole->addLayout(name);
    resize(960, 620);
    chainTabs({preview, txtfilename, cmdOK, Command1, Command2, m_drives, m_directories, cmbFIletype, m_files});
    preview->setFocus();
}

QLayout *frmSelectFile::buildPlaces()
{
    m_drives = new QComboBox;
    m_drives->setObjectName(u"drive"_s);
    m_drives->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const PicturePlace &place : picturePlaces())
        m_drives->addItem(place.name, place.folder);
    m_path = new NameLabel(u"path"_s);
    m_directories = new QListWidget;
    m_directories->setObjectName(u"directory"_s);
    cmbFIletype = new QComboBox;
    cmbFIletype->setObjectName(u"cmbFIletype"_s);
    cmbFIletype->addItems({u"*.gif"_s, u"*.bmp"_s, u"*.jpg"_s, u"*.jpeg"_s, u"*.png"_s});
    cmbFIletype->setCurrentText(u"*.jpg"_s);

    auto *fields = new QGridLayout;
    fields->setColumnStretch(1, 1);
    addField(*fields, 0, u"Drive :"_s, m_drives);
    fields->addWidget(m_path, 1, 0, 1, 2);
    fields->addWidget(m_directories, 2, 0, 1, 2);
    addField(*fields, 3, u"Files :"_s, cmbFIletype);
    fields->addWidget(m_files, 4, 0, 1, 2);
    fields->setRowStretch(2, 2);
    fields->setRowStretch(4, 3);
    nameAloud(m_directories, u"Folders"_s);
    return fields;
}

/// Two views on the same files, of which one is chosen in both.
void frmSelectFile::buildPictures()
{
    preview = new PictureList;
    preview->setObjectName(u"preview"_s);
    preview->setModel(thumbs);
    preview->setViewMode(QListView::IconMode);
    preview->setMovement(QListView::Static);
    preview->setResizeMode(QListView::Adjust);
    preview->setUniformItemSizes(true);
    preview->setIconSize({Thumbnails::side, Thumbnails::side});
    preview->setSpacing(4);
    preview->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    preview->setItemDelegate(new NameAndReason(preview));
    nameAloud(preview, u"Pictures"_s);
    m_files = new PictureList;
    m_files->setObjectName(u"files"_s);
    m_files->setModel(thumbs);
    m_files->setUniformItemSizes(true);
    m_files->setTextElideMode(Qt::ElideMiddle);
    m_files->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_files->setItemDelegate(new NamesOnly(m_files));
    delete m_files->selectionModel();
    m_files->setSelectionModel(preview->selectionModel());
    nameAloud(m_files, u"Files"_s);
}

void frmSelectFile::connectCommands()
{
    const auto isOnPictures = [this] { return preview->hasFocus() || m_files->hasFocus(); };
    const auto isOnFolders = [this] { return m_directories->hasFocus(); };
    onKey(
        Qt::Key_Return, u"On a picture: Select"_s, [this] { select(); }, isOnPictures);
    onKey(
        Qt::Key_Return, u"On a folder: enter it"_s, [this] { enterChosen(); }, isOnFolders);
    onKey(
        Qt::Key_Backspace, u"Among the folders and pictures: the folder above"_s,
        [this] { enter(QDir(m_folder).filePath(above)); }, [=] { return isOnPictures() || isOnFolders(); });
    onKey(Qt::CTRL | Qt::Key_P, u"Show the picture"_s, [this] { previewCurrent(); });
    onKey(Qt::CTRL | Qt::Key_O, u"Open the picture"_s, [this] { openCurrent(); });
    onKey(Qt::CTRL | Qt::Key_R, u"Remember Location"_s, [this] { Command2->trigger(); });
    onKey(Qt::Key_F5, u"Read the folder again"_s, [this] { enter(m_folder); });

    txtfilename->setAutoTab(false);
    onEnter(txtfilename, [this] { select(); });
    // Also the one that is shown: back to its root.
    connect(m_drives, &QComboBox::activated, this, [this] { enter(m_drives->currentData().toString()); });
    connect(m_directories, &QListWidget::itemDoubleClicked, this, &frmSelectFile::enterChosen);
    connect(cmbFIletype, &QComboBox::currentIndexChanged, this, &frmSelectFile::refresh);
    // A click makes current first, a key chooses first.
    connect(preview->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmSelectFile::takeChosen);
    connect(preview->selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmSelectFile::takeChosen);
    connect(preview, &QListView::doubleClicked, this, &frmSelectFile::openCurrent);
    connect(m_files, &QListView::doubleClicked, this, &frmSelectFile::select);
    connect(preview->verticalScrollBar(), &QScrollBar::valueChanged, this, &frmSelectFile::lookAtVisible);
    connect(thumbs, &Thumbnails::progressed, this, &frmSelectFile::showProgress);
    connect(cmdOK, &Command::clicked, this, &frmSelectFile::select);
    connect(Command1, &Command::clicked, this, &frmSelectFile::reject);
    connect(Command2, &Command::clicked, this, &frmSelectFile::remember);
}

QString frmSelectFile::SelFile()
{
    frmSelectFile picker;
    picker.exec();
    return picker.m_result;
}

void frmSelectFile::activated()
{
    // Back from a picture it stays where it was.
    if (m_folder.isEmpty())
        openRemembered();
}

void frmSelectFile::openRemembered()
{
    const QString drive = GetSetting(setting::PickerDrive);
    const QString folder = GetSetting(setting::PickerFolder);
    const int place = m_drives->findData(drive);
    if (drive.isEmpty())
        return enter(m_drives->currentData().toString());
    if (place >= 0)
        m_drives->setCurrentIndex(place);
    if (QFileInfo(folder).isDir())
        return enter(folder);
    enter(m_drives->currentData().toString());
    tell(u"The remembered location is not there: "_s + folder);
}

void frmSelectFile::enter(const QString &folder)
{
    m_folder = QDir::cleanPath(folder);
    m_path->setText(QDir::toNativeSeparators(m_folder));
    const QDir directory(m_folder);
    m_directories->clear();
    if (!directory.isRoot())
        m_directories->addItem(above);
    m_directories->addItems(
        directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase | QDir::LocaleAware));
    m_directories->setCurrentRow(0);
    refresh();
    if (!directory.isReadable())
        tell(u"This folder can't be read"_s);
}

void frmSelectFile::enterChosen()
{
    if (const QListWidgetItem *chosen = m_directories->currentItem())
        enter(QDir(m_folder).filePath(chosen->text()));
}

void frmSelectFile::refresh()
{
    const QStringList names = QDir(m_folder).entryList(
        {cmbFIletype->currentText()}, QDir::Files, QDir::Name | QDir::IgnoreCase | QDir::LocaleAware);
    txtfilename->setText({});
    thumbs->list(m_folder, names);
    m_progress->setVisible(!names.isEmpty());
    m_progress->setRange(0, static_cast<int>(names.size()));
    m_progress->setValue(0);
    tell({});
}

void frmSelectFile::showProgress(int done, int total)
{
    m_progress->setValue(done);
    m_progress->setVisible(done < total);
    showStatus();
}

/// The name alone may be one that the user typed: it is replaced by what he chooses, and by nothing else.
void frmSelectFile::takeChosen()
{
    const QModelIndex current = preview->currentIndex();
    if (!preview->selectionModel()->isSelected(current))
        return;
    txtfilename->setText(thumbs->nameOf(current.row()));
    tell({});
}

/// The message stands until the user's next act.
void frmSelectFile::tell(const QString &message)
{
    m_message = message;
    showStatus();
}

void frmSelectFile::showStatus()
{
    const QString reason = thumbs->reasonOf(preview->currentIndex().row());
    const int count = thumbs->rowCount();
    if (!m_message.isEmpty())
        lblStatus->setText(m_message);
    else if (!reason.isEmpty())
        lblStatus->setText(reason.section(u'\n', 0, 0) + u' ' + reason.section(u'\n', 1));
    else if (count == 0)
        lblStatus->setText(u"No file of this type here"_s);
    else if (!m_progress->isHidden())
        lblStatus->setText(u"Creating Thumbnails of :%1 of %2"_s.arg(qMax(1, m_progress->value())).arg(count));
    else
        lblStatus->setText(count == 1 ? u"1 picture"_s : u"%1 pictures"_s.arg(count));
}

void frmSelectFile::lookAtVisible()
{
    thumbs->lookAt(preview->indexAt({Thumbnails::side / 2, Thumbnails::side / 2}).row());
}

QString frmSelectFile::currentPath() const
{
    const QModelIndex current = preview->currentIndex();
    return current.isValid() ? QDir(m_folder).filePath(thumbs->nameOf(current.row())) : QString();
}

void frmSelectFile::openCurrent()
{
    if (const QString path = currentPath(); !path.isEmpty() && isPictureThere(path))
        shell::openFile(path);
}

void frmSelectFile::previewCurrent()
{
    if (const QString path = currentPath(); !path.isEmpty())
        frmPreview().ShowImage(path);
}

void frmSelectFile::select()
{
    if (txtfilename->Text().isEmpty())
        return;
    const QString path = m_folder + (m_folder.endsWith(u'/') ? u""_s : u"/"_s) + txtfilename->Text();
    if (!QFileInfo(path).isFile())
        return complain(u"There is no such picture in this folder!"_s, txtfilename);
    m_result = path;
    accept();
}

void frmSelectFile::remember()
{
    WriteGroup::run(DE().CN, [this] {
        SaveSetting(setting::PickerDrive, m_drives->currentData().toString());
        SaveSetting(setting::PickerFolder, m_folder);
    });
    tell(u"The picker opens here from now on"_s);
}
