#include "windows/images/frm_avi2bmp.h"

#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/messages/asker.h"
#include "frame/messages/messages.h"
#include "graphics/convert_pictures.h"
#include "graphics/picture_lab.h"
#include "platform/files/paths.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/image_kinds.h"
#include "windows/images/fit_choice.h"
#include "windows/images/frm_pcx_lab.h"
#include "windows/images/picture_viewer.h"
#include "windows/images/tile_player.h"
#include "windows/images/work_strip.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/dropped_paths.h"

#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

namespace {

constexpr int EmptySheetHeight = 600;
constexpr int TicksASecond = 50;
const QString FilmFilter = QStringLiteral("AVI Files (*.AVI)|*.AVI|"
                                          "Films (*.avi *.mp4 *.mov *.mkv *.webm *.mpg *.mpeg *.gif *.ogv *.flv)|"
                                          "*.avi;*.mp4;*.mov;*.mkv;*.webm;*.mpg;*.mpeg;*.gif;*.ogv;*.flv|All files|*");

/// Pictures that move are films.
bool IsPicture(const QString& path)
{
    const int kind = ImageKindOfFile(path);
    return kind >= 0 && kind != InterchangeKind;
}

} // namespace

void frmAVI2BMP::Run(QWidget* owner)
{
    const QTemporaryDir folder; // where the sheet lies until the Lab is closed
    {
        const ModalScope modal;
        frmAVI2BMP window(owner);
        window.exec();
        if (!window.toLab)
            return;
        const QString path = folder.filePath(QStringLiteral("avi.bmp"));
        const Result<> written = paths::WriteWholePrivate(path, BitmapFile(window.picBMP));
        if (!written) {
            ShowFailure(written.error());
            return;
        }
        PcxLab.AviBitmap = path;
    }
    PcxLab.FromAVI = true;
    frmPCXLab::Run(owner); // forgets all of it when it is closed
}

void frmAVI2BMP::AskForFilm()
{
    const FileQuestion question{.Title = QStringLiteral("Open an AVI file"),
                                .Filter = FilmFilter,
                                .Folder = Lists().Base.Folder(),
                                .Preset = {}};
    if (const auto path = AskText(question))
        TakeFilm(*path);
}

void frmAVI2BMP::AskForPictures()
{
    const QStringList files = AskFiles({.Title = QStringLiteral("Make a Sheet of Pictures"),
                                        .Filter = LabOpenFilter(),
                                        .Folder = Lists().Base.Folder(),
                                        .Preset = {},
                                        .Selected = -1});
    if (!files.isEmpty())
        TakePictures(files);
}

/// A film, or pictures and the folders that hold them.
void frmAVI2BMP::TakeDropped(const QStringList& files)
{
    if (files.size() == 1 && QFileInfo(files.constFirst()).isFile() && !IsPicture(files.constFirst())) {
        TakeFilm(files.constFirst());
        return;
    }
    QStringList all;
    for (const QString& file : files)
        all << (QFileInfo(file).isDir() ? PicturesIn(file) : QStringList{file});
    TakePictures(all);
}

void frmAVI2BMP::TakeFilm(const QString& path)
{
    film = path;
    pictures.clear();
    paceIsFilms = true;
    txtFile->setText(paths::Native(path));
    RunAll();
}

void frmAVI2BMP::TakePictures(const QStringList& files)
{
    if (files.isEmpty()) {
        lblResult->setText(QStringLiteral("There are no pictures."));
        return;
    }
    film.clear();
    pictures = files;
    std::sort(pictures.begin(), pictures.end(), NaturallyBefore);
    paceIsFilms = false;
    const QString folder = paths::Native(paths::FolderOfPath(files.constFirst()));
    txtFile->setText(QStringLiteral("%1 pictures of %2").arg(files.size()).arg(folder));
    RunAll();
}

bool frmAVI2BMP::HasSource() const
{
    return !film.isEmpty() || !pictures.isEmpty();
}

void frmAVI2BMP::MarkTiles(bool waiting)
{
    QPalette colours = palette();
    if (waiting)
        colours.setColor(QPalette::Text, Qt::red);
    txtTiles->setPalette(colours);
}

void frmAVI2BMP::ApplyTiles()
{
    if (!HasSource()) {
        MarkTiles(true);
        return;
    }
    const int tiles = TilesAcross(txtTiles->text());
    txtTiles->setText(QString::number(tiles));
    txtWidth->setText(QString::number(tiles * TileSize));
    ClearSheet();
    MarkTiles(false);
    RunAll();
}

void frmAVI2BMP::ClearSheet()
{
    picBMP = QImage(txtWidth->text().toInt(), EmptySheetHeight, QImage::Format_RGB32);
    picBMP.fill(Qt::black);
    view->ShowPicture({});
    player->Play({}, 0);
    lblResult->clear();
}

void frmAVI2BMP::RunAll()
{
    Busy().BusyPointer(true);
    ClearSheet();
    FilmReport report = ReadAll();
    if (fit->SetFrameSize({int(report.Told.Width), int(report.Told.Height)}) && report.How != films::End::Stopped)
        report = ReadAll();
    Busy().BusyPointer(false);
    if (!report.Sheet.isNull())
        ShowSheet(report);
    TellEnd(report);
}

FilmReport frmAVI2BMP::ReadAll()
{
    const FilmPlan plan{
        .Tiles = txtWidth->text().toInt() / TileSize, .IgnoreDups = chkDups->isChecked(), .Frames = fit->Plan()};
    FilmReport report;
    strip->Run(QStringLiteral("Reading the frames"), 0, [&](const Turn& turn) {
        const FilmTurn between = [&](int done, int most) {
            strip->Tell(done, most);
            return turn();
        };
        report = pictures.isEmpty() ? SheetFromFilm(film, plan, between) : SheetFromPictures(pictures, plan, between);
    });
    return report;
}

void frmAVI2BMP::ShowSheet(const FilmReport& report)
{
    picBMP = report.Sheet;
    view->ShowPicture(picBMP);
    for (QPushButton* button : cmdSave)
        button->setEnabled(true);
    QStringList lines{QStringLiteral("%1 tiles of %2 %3")
                          .arg(report.Tiles)
                          .arg(report.Frames)
                          .arg(pictures.isEmpty() ? QStringLiteral("frames") : QStringLiteral("pictures"))};
    if (report.Full)
        lines << QStringLiteral("The sheet is full: what follows is left out.");
    if (report.Incomplete)
        lines << QStringLiteral("The film tells of %1 frames: not all can be read.").arg(report.Told.Length);
    if (report.How == films::End::Stopped)
        lines << QStringLiteral("Stopped.");
    lblResult->setText(lines.join(QLatin1Char('\n')));
    SetPace(report.Told);
    player->Play(picBMP, report.Tiles);
}

/// A film that was just chosen is played in its own time.
void frmAVI2BMP::SetPace(const films::Facts& facts)
{
    if (paceIsFilms && facts.RateCount > 0)
        spnDelay->setValue(qRound(double(TicksASecond) * facts.RateSeconds / facts.RateCount));
    paceIsFilms = false;
}

void frmAVI2BMP::TellEnd(const FilmReport& report)
{
    if (!report.Refused.empty()) {
        const Failure& first = report.Refused.front();
        const qsizetype more = std::ssize(report.Refused) - 1;
        ShowMessage(message::PathError,
                    more == 0 ? first.Text() : first.Text() + QStringLiteral("^^and %1 more like it").arg(more));
        return;
    }
    switch (report.How) {
    case films::End::WrongSize:
        ShowMessage(message::BadAviSize);
        break;
    case films::End::NoDecoder:
        ShowMessage(message::NoAviDecoder);
        break;
    case films::End::NotOpened:
    case films::End::Broken:
        ShowMessage(message::AviFailed, paths::Native(film));
        break;
    case films::End::Whole:
    case films::End::Stopped:
        break;
    }
}

void frmAVI2BMP::Save()
{
    const FileQuestion question{.For = FileQuestion::Save,
                                .Title = QStringLiteral("Save to BMP"),
                                .Filter = QStringLiteral("Windows Bitmap (*.bmp)|*.bmp"),
                                .Folder = Lists().Base.Folder(),
                                .Preset = {},
                                .Completes = true};
    const auto path = AskText(question);
    if (!path || (paths::FileExists(*path) && !Confirmed(message::OverwriteFile)))
        return;
    if (const Result<> written = paths::WriteWhole(*path, BitmapFile(picBMP)); !written)
        ShowFailure(written.error());
    else
        lblResult->setText(QStringLiteral("Saved as ") + paths::FileNameOfPath(*path));
}

void frmAVI2BMP::SendToLab()
{
    toLab = true;
    accept();
}

void frmAVI2BMP::dragEnterEvent(QDragEnterEvent* event)
{
    if (!LocalFiles(*event->mimeData()).isEmpty())
        AcceptAsCopy(*event);
}

void frmAVI2BMP::dropEvent(QDropEvent* event)
{
    const QStringList files = LocalFiles(*event->mimeData());
    AcceptAsCopy(*event);
    QTimer::singleShot(0, this, [this, files] { TakeDropped(files); });
}

void frmAVI2BMP::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (auto* button = qobject_cast<QPushButton*>(focusWidget()); enter && button)
        button->click();
    else if (!enter) // in a box it belongs to that
        QDialog::keyPressEvent(event);
}

/// A key that the box swallows marks it too.
bool frmAVI2BMP::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtTiles && event->type() == QEvent::KeyPress) {
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (!typed.isEmpty() && typed.front().isPrint())
            MarkTiles(true);
    }
    return QDialog::eventFilter(watched, event);
}
