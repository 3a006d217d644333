#include "windows/images/frm_pcx_lab.h"

#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "graphics/picture_lab.h"
#include "platform/files/paths.h"
#include "windows/images/frm_many_pictures.h"
#include "windows/images/picture_viewer.h"
#include "windows/images/work_strip.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/dropped_paths.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

void frmPCXLab::Run(QWidget* owner)
{
    {
        const ModalScope modal;
        frmPCXLab window(owner);
        window.exec();
    }
    if (!PcxLab.AviBitmap.isEmpty())
        QFile::remove(PcxLab.AviBitmap);
    ResetLab();
}

void frmPCXLab::AskForPicture()
{
    const FileQuestion question{.Title = QStringLiteral("Open A Graphic File"),
                                .Filter = LabOpenFilter(),
                                .Folder = lastFolder,
                                .Preset = {},
                                .Selected = -1};
    if (const auto path = AskText(question)) {
        lastFolder = paths::FolderOfPath(*path);
        Load(*path);
    }
}

void frmPCXLab::Load(const QString& path)
{
    Busy().BusyPointer(true);
    RunScope run(RunKind::Pass, QStringLiteral("Reading ") + paths::FileNameOfPath(path));
    const Result<> done = LoadAnyImage(path, [&run] { return run.Turn(); });
    Busy().BusyPointer(false);
    if (!done && run.Stopped())
        return;
    if (!done) {
        if (paths::Canonical(done.error().Path) == paths::Canonical(path))
            ShowMessage(message::BadImage);
        else
            ShowFailure(done.error()); // the decoder is not there
        return;
    }
    lastName = paths::FileNameOfPath(path);
    ShowBoth();
    ShowSaveButton();
    frameConvert->show();
    chkSeeThrough->setVisible(PcxLab.Loaded.Pixels.hasAlphaChannel());
    Tell(LabInfo(lastName, PcxLab.Loaded));
    if (PcxLab.Loaded.EndsEarly)
        Tell(QStringLiteral("The image file ends early.\n"));
}

void frmPCXLab::ShowBoth()
{
    viewers[0]->ShowPicture(PcxLab.Before);
    viewers[1]->ShowPicture(PcxLab.After);
}

void frmPCXLab::ShowSaveButton()
{
    cmdSave->setEnabled(true);
    cmdSave->setText(SaveCaption(PcxLab.SaveTag));
}

/// After what the box holds, and into view.
void frmPCXLab::Tell(const QString& lines)
{
    txtInfo->moveCursor(QTextCursor::End);
    txtInfo->insertPlainText(lines);
    txtInfo->moveCursor(QTextCursor::End);
    txtInfo->ensureCursorVisible();
}

void frmPCXLab::Convert()
{
    const PaletteSize size = PaletteSizeOf(txtPalSize->text());
    txtPalSize->setText(size.Text);
    const images::Reduction how{.Colours = quint32(size.Colours),
                                .Method =
                                    optQuant[0]->isChecked() ? images::Quantizer::Wu : images::Quantizer::NeuQuant,
                                .KeepBlack = chkKeepBlack->isChecked()};
    Result<> done;
    Busy().BusyPointer(true);
    const bool whole = strip->Run(QStringLiteral("Reducing the colours"), 0,
                                  [&](const Turn& turn) { done = ConvertColours(how, turn); });
    Busy().BusyPointer(false);
    if (!done) {
        if (whole)
            ShowFailure(done.error());
        return;
    }
    viewers[1]->ReplacePicture(PcxLab.After);
    ShowSaveButton();
}

void frmPCXLab::Save()
{
    const FileQuestion question{.For = FileQuestion::Save,
                                .Title = QStringLiteral("Save to PCX"),
                                .Filter = LabSaveFilter(),
                                .Folder = Lists().Base.Folder(),
                                .Preset = QFileInfo(lastName).completeBaseName() + EndingOf(PictureForm::Pcx),
                                .Completes = true};
    const auto path = AskText(question);
    if (!path || (paths::FileExists(*path) && !Confirmed(message::OverwriteFile)))
        return;
    Busy().BusyPointer(true);
    const Result<> done = WritePicture(*path, PcxLab.After, PcxLab.SaveTag);
    Busy().BusyPointer(false);
    if (!done) {
        ShowFailure(done.error());
        return;
    }
    Tell(QStringLiteral("Saved as %1 (%2 Bit)\n").arg(paths::FileNameOfPath(*path)).arg(int(PcxLab.SaveTag)));
    RefreshMedia();
}

void frmPCXLab::ConvertMany(const QStringList& files)
{
    const ConversionWishes wishes{.Colours = PaletteSizeOf(txtPalSize->text()).Colours,
                                  .Method =
                                      optQuant[0]->isChecked() ? images::Quantizer::Wu : images::Quantizer::NeuQuant,
                                  .KeepBlack = chkKeepBlack->isChecked(),
                                  .SeeThroughBlack = chkSeeThrough->isChecked()};
    RunManyPicturesWindow(this, files, wishes);
    RefreshMedia();
}

/// One picture is shown; several, or a folder, are for the other window.
void frmPCXLab::TakeDropped(const QStringList& files)
{
    if (files.size() == 1 && !QFileInfo(files.constFirst()).isDir())
        Load(files.constFirst());
    else
        ConvertMany(files);
}

void frmPCXLab::dragEnterEvent(QDragEnterEvent* event)
{
    if (!LocalFiles(*event->mimeData()).isEmpty())
        AcceptAsCopy(*event);
}

void frmPCXLab::dropEvent(QDropEvent* event)
{
    const QStringList files = LocalFiles(*event->mimeData());
    AcceptAsCopy(*event);
    QTimer::singleShot(0, this, [this, files] { TakeDropped(files); });
}

void frmPCXLab::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()); enter && button)
        button->click();
    else
        QDialog::keyPressEvent(event);
}
