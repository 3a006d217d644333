#include "windows/images/frm_many_pictures.h"

#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/messages/asker.h"
#include "graphics/convert_pictures.h"
#include "graphics/picture_lab.h"
#include "platform/files/paths.h"
#include "windows/images/work_strip.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/dropped_paths.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/window_position.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

struct FormRow
{
    const char* Caption;
    PictureForm Form;
    bool Palette;
};
constexpr FormRow FormRows[] = {{"PCX, 24 bit", PictureForm::Pcx, false},
                                {"PCX, 8 bit with a palette", PictureForm::Pcx, true},
                                {"PNG, 24 bit", PictureForm::Png, false},
                                {"PNG, 8 bit with a palette", PictureForm::Png, true}};

QString Pictures(qsizetype count)
{
    return count == 1 ? QStringLiteral("1 picture") : QStringLiteral("%1 pictures").arg(count);
}

class frmManyPictures : public QDialog
{
public:
    frmManyPictures(QWidget* owner, const QStringList& files, const ConversionWishes& wishes);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLayout* MakeFiles();
    QLayout* MakeForm(const ConversionWishes& wishes);
    QPushButton* Button(const char* name, const char* caption, void (frmManyPictures::*action)());
    void Add(const QStringList& files);
    void AddFiles();
    void AddFolder();
    void Remove();
    void ChooseFolder();
    void ListChanged();
    void FormChanged();
    QStringList Files() const;
    ConversionPlan Plan() const;
    void Convert();
    void Report(const ConversionReport& report);

    QLabel* lblCount;
    QListWidget* lstFiles;
    QLineEdit* txtFolder;
    QComboBox *cmbForm, *cmbQuant;
    QSpinBox* spnPalette;
    QCheckBox *chkKeepBlack, *chkSeeThrough, *chkOverwrite;
    QPlainTextEdit* txtReport;
    QPushButton *cmdRemove, *cmdConvert;
    WorkStrip* strip;
};

frmManyPictures::frmManyPictures(QWidget* owner, const QStringList& files, const ConversionWishes& wishes)
    : QDialog(DialogParent(owner))
{
    setObjectName(QStringLiteral("frmManyPictures"));
    SetHelpSubject(this, HelpIdFor("pcx_lab"));
    setWindowTitle(QStringLiteral("Convert Many Pictures"));
    setAcceptDrops(true);
    auto* middle = new QHBoxLayout;
    middle->addLayout(MakeFiles(), 1);
    middle->addLayout(MakeForm(wishes));
    txtReport = new QPlainTextEdit(this);
    txtReport->setObjectName(QStringLiteral("txtReport"));
    txtReport->setAccessibleName(QStringLiteral("What became of them"));
    txtReport->setReadOnly(true);
    txtReport->setTabChangesFocus(true);
    txtReport->setAcceptDrops(false);
    txtReport->setFixedHeight(Pixels(*this, 90));
    strip = new WorkStrip(this);
    cmdConvert = Button("cmdConvert", "Convert", &frmManyPictures::Convert);
    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* foot = new QHBoxLayout;
    foot->addWidget(strip, 1);
    foot->addWidget(cmdConvert);
    foot->addWidget(close);
    auto* column = new QVBoxLayout(this);
    column->addLayout(middle, 1);
    column->addWidget(txtReport);
    column->addLayout(foot);
    Add(files);
    FormChanged();
    ResizeOnScreen(*this, QSize(Pixels(*this, 760), Pixels(*this, 480)));
    lstFiles->setFocus();
}

QPushButton* frmManyPictures::Button(const char* name, const char* caption, void (frmManyPictures::*action)())
{
    auto* made = new QPushButton(QString::fromLatin1(caption), this);
    made->setObjectName(QString::fromLatin1(name));
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, action);
    return made;
}

QLayout* frmManyPictures::MakeFiles()
{
    lblCount = new QLabel(this);
    lstFiles = new QListWidget(this);
    lstFiles->setObjectName(QStringLiteral("lstFiles"));
    lstFiles->setAccessibleName(QStringLiteral("Pictures"));
    lstFiles->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstFiles->setTextElideMode(Qt::ElideLeft);
    connect(lstFiles, &QListWidget::itemSelectionChanged, this,
            [this] { cmdRemove->setEnabled(!lstFiles->selectedItems().isEmpty()); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Button("cmdAdd", "Add Pictures...", &frmManyPictures::AddFiles));
    buttons->addWidget(Button("cmdAddFolder", "Add Folder...", &frmManyPictures::AddFolder));
    cmdRemove = Button("cmdRemove", "Remove", &frmManyPictures::Remove);
    cmdRemove->setEnabled(false);
    buttons->addWidget(cmdRemove);
    auto* column = new QVBoxLayout;
    column->addWidget(lblCount);
    column->addWidget(lstFiles, 1);
    column->addLayout(buttons);
    return column;
}

QLayout* frmManyPictures::MakeForm(const ConversionWishes& wishes)
{
    txtFolder = new QLineEdit(paths::Native(Lists().Base.Folder()), this);
    txtFolder->setObjectName(QStringLiteral("txtFolder"));
    txtFolder->setMinimumWidth(Pixels(*this, 220));
    QPushButton* choose = Button("cmdFolder", "...", &frmManyPictures::ChooseFolder);
    choose->setAccessibleName(QStringLiteral("Choose the folder"));
    choose->setFixedWidth(Pixels(*this, 32));
    auto* folder = new QHBoxLayout;
    folder->addWidget(txtFolder, 1);
    folder->addWidget(choose);
    cmbForm = new QComboBox(this);
    cmbForm->setObjectName(QStringLiteral("cmbForm"));
    for (const FormRow& row : FormRows)
        cmbForm->addItem(QString::fromLatin1(row.Caption));
    connect(cmbForm, &QComboBox::currentIndexChanged, this, &frmManyPictures::FormChanged);
    spnPalette = new QSpinBox(this);
    spnPalette->setObjectName(QStringLiteral("spnPalette"));
    spnPalette->setRange(2, 256);
    spnPalette->setValue(wishes.Colours);
    cmbQuant = new QComboBox(this);
    cmbQuant->addItems({QStringLiteral("Xiaolin Wu"), QStringLiteral("NeuQuant neural-net")});
    cmbQuant->setCurrentIndex(int(wishes.Method));
    const auto check = [this](const char* name, const char* caption, bool on) {
        auto* made = new QCheckBox(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name));
        made->setChecked(on);
        return made;
    };
    chkKeepBlack = check("chkKeepBlack", "Keep black apart", wishes.KeepBlack);
    chkSeeThrough = check("chkSeeThrough", "See-through becomes black", wishes.SeeThroughBlack);
    chkOverwrite = check("chkOverwrite", "Replace files that are there", false);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Into Folder"), folder);
    form->addRow(QStringLiteral("As"), cmbForm);
    form->addRow(QStringLiteral("Palette Size"), spnPalette);
    form->addRow(QStringLiteral("Algorithm"), cmbQuant);
    for (QCheckBox* made : {chkKeepBlack, chkSeeThrough, chkOverwrite})
        form->addRow(made);
    return form;
}

void frmManyPictures::Add(const QStringList& files)
{
    QStringList known = Files();
    for (const QString& file : files) {
        const QStringList all = QFileInfo(file).isDir() ? PicturesIn(file) : QStringList{file};
        for (const QString& one : all)
            if (!known.contains(one))
                known << one;
    }
    lstFiles->clear();
    lstFiles->addItems(known);
    ListChanged();
}

void frmManyPictures::AddFiles()
{
    Add(AskFiles({.Title = QStringLiteral("Add Pictures"),
                  .Filter = LabOpenFilter(),
                  .Folder = Lists().Base.Folder(),
                  .Preset = {},
                  .Selected = -1}));
}

void frmManyPictures::AddFolder()
{
    if (const auto folder = AskText(FolderQuestion{QStringLiteral("Add the Pictures of a Folder"), {}}))
        Add({*folder});
}

void frmManyPictures::Remove()
{
    qDeleteAll(lstFiles->selectedItems());
    ListChanged();
}

void frmManyPictures::ChooseFolder()
{
    if (const auto folder = AskText(FolderQuestion{QStringLiteral("Write the Pictures into a Folder"), {}}))
        txtFolder->setText(paths::Native(*folder));
}

void frmManyPictures::ListChanged()
{
    lblCount->setText(Pictures(lstFiles->count()));
    cmdConvert->setEnabled(lstFiles->count() > 0);
}

void frmManyPictures::FormChanged()
{
    const bool palette = FormRows[cmbForm->currentIndex()].Palette;
    for (QWidget* part : std::initializer_list<QWidget*>{spnPalette, cmbQuant, chkKeepBlack})
        part->setEnabled(palette);
}

QStringList frmManyPictures::Files() const
{
    QStringList files;
    for (int row = 0; row < lstFiles->count(); ++row)
        files << lstFiles->item(row)->text();
    return files;
}

ConversionPlan frmManyPictures::Plan() const
{
    const FormRow& row = FormRows[cmbForm->currentIndex()];
    ConversionPlan plan{
        .Form = row.Form, .SeeThroughBlack = chkSeeThrough->isChecked(), .Overwrite = chkOverwrite->isChecked()};
    if (row.Palette)
        plan.Fewer = images::Reduction{.Colours = quint32(spnPalette->value()),
                                       .Method = images::Quantizer(cmbQuant->currentIndex()),
                                       .KeepBlack = chkKeepBlack->isChecked()};
    return plan;
}

void frmManyPictures::Convert()
{
    const QStringList files = Files();
    const QString folder = paths::Inside(txtFolder->text().trimmed());
    if (!paths::FolderExists(folder)) {
        txtReport->setPlainText(QStringLiteral("There is no folder ") + txtFolder->text());
        txtFolder->setFocus();
        return;
    }
    ConversionReport report;
    Busy().BusyPointer(true);
    strip->Run(Pictures(files.size()), int(files.size()), [&](const Turn& turn) {
        report = ConvertPictures(files, folder, Plan(), [&](int done) {
            strip->Tell(done, paths::FileNameOfPath(files.at(done)));
            return turn();
        });
    });
    Busy().BusyPointer(false);
    Report(report);
}

void frmManyPictures::Report(const ConversionReport& report)
{
    QStringList lines(Pictures(report.Written) + QStringLiteral(" written") +
                      (report.Stopped ? QStringLiteral(", then stopped") : QString()));
    for (const Failure& refused : report.Refused)
        lines << paths::FileNameOfPath(refused.Path) + QStringLiteral(": ") + refused.Reason;
    for (const QString& path : report.EndEarly)
        lines << paths::FileNameOfPath(path) + QStringLiteral(": The image file ends early.");
    txtReport->setPlainText(lines.join(QLatin1Char('\n')));
}

void frmManyPictures::dragEnterEvent(QDragEnterEvent* event)
{
    if (!LocalFiles(*event->mimeData()).isEmpty())
        AcceptAsCopy(*event);
}

void frmManyPictures::dropEvent(QDropEvent* event)
{
    AcceptAsCopy(*event);
    Add(LocalFiles(*event->mimeData()));
}

void frmManyPictures::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (enter && button)
        button->click();
    else if (event->key() == Qt::Key_Delete && lstFiles->hasFocus())
        Remove();
    else
        QDialog::keyPressEvent(event);
}

} // namespace

void RunManyPicturesWindow(QWidget* owner, const QStringList& files, const ConversionWishes& wishes)
{
    const ModalScope modal;
    frmManyPictures(owner, files, wishes).exec();
}
