#include "mapglass/mapglass_window.h"

#include "frame/frame_state.h"
#include "level/element_names.h"
#include "mapglass/element_list.h"
#include "mapglass/level_strip.h"
#include "mapglass/map_view.h"
#include "mapglass/window_memory.h"
#include "platform/files/paths.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>

namespace {

/// The first file that is dragged; empty if it is none of this machine.
QString LocalFile(const QDropEvent& event)
{
    return event.mimeData()->urls().value(0).toLocalFile();
}

/// Whatever the source proposes: one that is told "moved" may remove its file.
void TakeCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

MapglassWindow::MapglassWindow(QWidget* parent) : QMainWindow(parent)
{
    setWindowTitle(QStringLiteral("Mapglass"));
    setAcceptDrops(true);
    LayOut();
    MakeActions();
    connect(strip, &LevelStrip::Chosen, this, &MapglassWindow::OpenLevel);
    connect(view, &MapView::CellUnderMouse, this, &MapglassWindow::TellCell);
    connect(view, &MapView::SideChanged, this, &MapglassWindow::TellZoom);
    connect(view, &MapView::BoxChanged, this, &MapglassWindow::TellBox);
    connect(elements, &ElementList::MarksChanged, this, &MapglassWindow::MarkElements);
    connect(palettes, &QComboBox::activated, this, &MapglassWindow::ChoosePalette);
    ShowFacts(QStringLiteral("Open a level, or drop one here."));
    view->setFocus();
}

void MapglassWindow::OpenLevel(const QString& told)
{
    statusBar()->clearMessage();
    const QString before = path;
    path = QFileInfo(told).absoluteFilePath();
    readAt = QFileInfo(path).lastModified();
    Result<LevelFile> read = ReadLevelFile(path);
    level = read ? std::move(*read) : LevelFile();
    const bool anotherFolder = folder != paths::FolderOfPath(path);
    folder = paths::FolderOfPath(path);
    if (anotherFolder)
        TakePalettes();
    view->SetPainter(painter);
    if (read && path == before)
        view->ReplaceMap(level.Record.Map);
    else if (read)
        view->ShowMap(level.Record.Map);
    ShowFacts(read ? QString()
                   : QStringLiteral("%1 cannot be shown:\n%2").arg(paths::FileNameOfPath(path), read.error().Reason));
    elements->ShowElements(level.Record.Map, painter);
    MarkElements();
    // The map first; the folder may hold a thousand.
    QTimer::singleShot(0, this, &MapglassWindow::FollowFolder);
}

void MapglassWindow::FollowFolder()
{
    strip->Levels().ShowFolder(folder);
    strip->ShowCurrent(paths::FileNameOfPath(path));
    if (palettes->currentData() == SetsGraphics && setPaletteOf != folder)
        MakeSetPalette();
}

void MapglassWindow::ShowFacts(const QString& failure)
{
    if (!failure.isEmpty())
        view->ShowReason(failure);
    for (QAction* action : std::as_const(levelActions))
        action->setEnabled(failure.isEmpty());
    ShowHeader();
}

void MapglassWindow::ShowHeader()
{
    const LevelInfo& info = level.Record.Info;
    const bool shown = level.Record.Map.Width() > 0;
    const QString title = answer ? info.Cavename : paths::FileNameOfPath(path);
    setWindowTitle(title.isEmpty() ? QStringLiteral("Mapglass") : title + QStringLiteral(" - Mapglass"));
    const QString values[] = {info.Cavename,
                              info.Author == QLatin1StringView("NA") ? QStringLiteral("(not told)") : info.Author,
                              QStringLiteral("%1 by %2").arg(info.Width, info.Height),
                              info.Time == QLatin1StringView("0") ? QStringLiteral("no limit") : info.Time,
                              info.Count,
                              level.Record.Form};
    for (qsizetype i = 0; i < facts.size(); ++i)
        facts.at(i)->setText(shown ? values[i] : QString());
}

// Palettes

/// What there is for the folder, and the best of it chosen: a palette of its own, else one of the set's graphics.
void MapglassWindow::TakePalettes()
{
    const QString name = wantedPalette.isEmpty() ? PaletteName(path) : wantedPalette;
    const QString found = FindPalette(name);
    const bool own = !found.isEmpty() && found != paths::Existing(DefaultPalette());
    const bool set = !GraphicsConfOf(folder).isEmpty();
    palettes->clear();
    setPaletteOf.clear();
    if (own)
        palettes->addItem(QStringLiteral("Palette of Its Own"), OwnPalette);
    if (set)
        palettes->addItem(QStringLiteral("The Set's Graphics"), SetsGraphics);
    palettes->addItem(QStringLiteral("Classic"), ClassicPalette);
    elements->SetDrawn({});
    undrawn->setEnabled(false);
    const Result<QImage> palette = ReadPalette(own ? found : DefaultPalette());
    painter = MapPainter(palette.value_or(QImage()));
    strip->Levels().SetPainter(painter);
    if (!palette)
        Tell(palette.error().Text().replace(u'^', u' '));
}

void MapglassWindow::ChoosePalette()
{
    if (palettes->currentData() == SetsGraphics) {
        MakeSetPalette();
        return;
    }
    const QString name = wantedPalette.isEmpty() ? PaletteName(path) : wantedPalette;
    const Result<QImage> palette =
        ReadPalette(palettes->currentData() == OwnPalette ? FindPalette(name) : DefaultPalette());
    if (palette)
        UsePalette(*palette);
    else
        Tell(palette.error().Text().replace(u'^', u' '));
}

void MapglassWindow::MakeSetPalette()
{
    if (setPaletteOf != folder) {
        QApplication::setOverrideCursor(Qt::BusyCursor);
        Result<SetPalette> made = PaletteOfSet(folder, false);
        QApplication::restoreOverrideCursor();
        if (!made) {
            Tell(made.error().Text().replace(u'^', u' '));
            return;
        }
        setPalette = std::move(*made);
        setPaletteOf = folder;
    }
    UsePalette(setPalette->Palette);
    elements->SetDrawn(setPalette->Drawn);
    undrawn->setEnabled(true);
}

void MapglassWindow::UsePalette(const QImage& palette)
{
    painter = MapPainter(palette);
    view->SetPainter(painter);
    elements->ShowElements(level.Record.Map, painter);
    strip->Levels().SetPainter(painter);
}

// A file that changes

void MapglassWindow::ReadAgain()
{
    if (path.isEmpty())
        return;
    OpenLevel(path);
    strip->Levels().MakeAnew(paths::FileNameOfPath(path));
}

/// The author comes back, perhaps from the game's editor.
void MapglassWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    const bool back = event->type() == QEvent::ActivationChange && isActiveWindow();
    if (back && !path.isEmpty() && QFileInfo(path).lastModified() != readAt)
        ReadAgain();
}

// What the window tells

/// For a moment: the line belongs to the cell under the mouse.
void MapglassWindow::Tell(const QString& text)
{
    constexpr int Moment = 8000; // ms
    statusBar()->showMessage(text, Moment);
}

void MapglassWindow::TellCell(int x, int y)
{
    if (x < 0) {
        cellText->clear();
        return;
    }
    const int element = level.Record.Map.At(x, y);
    const QString name = NamesOfElements().Name(element);
    cellText->setText(QStringLiteral("%1, %2:  %3  %4")
                          .arg(x + 1)
                          .arg(y + 1)
                          .arg(element)
                          .arg(name.isEmpty() ? QStringLiteral("(unknown)") : name));
}

void MapglassWindow::TellZoom()
{
    constexpr int Percent = 100;
    zoomText->setText(QStringLiteral("%1 %").arg(view->Side() * Percent / PaletteCell));
}

void MapglassWindow::TellBox()
{
    const std::optional<LevelBox> box = view->Box();
    boxText->setText(
        box ? QStringLiteral("%1, %2 to %3, %4   (%5 by %6)")
                  .arg(box->X1 + 1)
                  .arg(box->Y1 + 1)
                  .arg(box->X2 + 1)
                  .arg(box->Y2 + 1)
                  .arg(box->Width())
                  .arg(box->Height())
            : QStringLiteral("Draw a rectangle with the left mouse button, or with the arrow keys and Shift."));
}

void MapglassWindow::MarkElements()
{
    view->Mark(elements->Selected());
    unmark->setEnabled(!elements->Selected().empty());
}

// Going on

void MapglassWindow::StepLevel(int rows)
{
    if (answer)
        return;
    const int row = strip->Levels().RowOf(paths::FileNameOfPath(path));
    const QString next = strip->Levels().Path(row + rows);
    if (!next.isEmpty())
        OpenLevel(next);
}

void MapglassWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageDown)
        StepLevel(1);
    else if (event->key() == Qt::Key_PageUp)
        StepLevel(-1);
    else if (answer && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        FinishAndClose();
    else
        QMainWindow::keyPressEvent(event);
}

void MapglassWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!answer && !LocalFile(*event).isEmpty())
        TakeCopy(*event);
}

void MapglassWindow::dropEvent(QDropEvent* event)
{
    TakeCopy(*event);
    OpenLevel(LocalFile(*event));
}

// A macro that waits

void MapglassWindow::ServeMacro(const ViewRequest& request, Answering told)
{
    answer = std::move(told);
    wantedPalette = request.Palette;
    message->setText(request.Message);
    message->setVisible(!request.Message.isEmpty());
    banner->setVisible(true);
    view->SetDrawsBox(true);
    strip->setVisible(false); // it is this level that the macro asks about
    for (QAction* action : std::as_const(otherLevels))
        action->setVisible(false);
    TellBox();
}

void MapglassWindow::Finish(bool cancelled)
{
    if (!answer || answered)
        return;
    const Result<> done = answer({cancelled, cancelled ? std::nullopt : view->Box()});
    answered = true;
    if (!done)
        QMessageBox::warning(this, windowTitle(), done.error().Text().replace(u'^', u'\n'));
}

void MapglassWindow::FinishAndClose()
{
    Finish(false);
    close();
}

void MapglassWindow::closeEvent(QCloseEvent* event)
{
    Finish(true); // if no button has said otherwise
    KeepWindow({saveGeometry(), answer ? QByteArray() : split->saveState()});
    QMainWindow::closeEvent(event);
}
