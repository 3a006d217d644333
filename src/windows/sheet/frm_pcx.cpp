#include "windows/sheet/frm_pcx.h"

#include "conf/element_record.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "graphics/animation.h"
#include "graphics/sheet.h"
#include "graphics/sheet_answer.h"
#include "graphics/sheet_marks.h"
#include "graphics/tiles_in_use.h"
#include "platform/files/paths.h"
#include "platform/images/images.h"
#include "platform/processes/processes.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/sheet/animation_panel.h"
#include "windows/sheet/animation_preview.h"
#include "windows/sheet/new_element_panel.h"
#include "windows/sheet/sheet_tools.h"
#include "windows/sheet/sheet_view.h"

#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QUrl>
#include <QWindow>
#include <utility>

namespace {

constexpr int ImageErrorNag = 2;
constexpr int MarkPhases = 10;
constexpr int RedrawDelay = 100; // a preview with a longer delay is drawn again by the marks' timer
constexpr QPoint NewElementPlace{60, 54};

/// Keys and mouse go on while a sheet is slow to read. Esc stops the reading, and so does whatever leaves the block for
/// which it is read.
Result<images::Picture> ReadSheet(const QString& path, bool& stopped)
{
    RunScope run(RunKind::Child, QStringLiteral("Reading ") + paths::FileNameOfPath(path));
    QObject here;
    const auto leave = [&run] { run.Stop(StopReason::Break); };
    QObject::connect(&CurrentPane(), &DocumentText::TextChanged, &here, leave);
    QObject::connect(&Events(), &FrameEvents::ModeChanged, &here, leave);
    Busy().BusyPointer(true);
    Sheet.Reading = true;
    const auto picture = images::Load(path, -1, [&run] { return run.Turn(); });
    Sheet.Reading = false;
    Busy().BusyPointer(false);
    stopped = !picture && run.Stopped();
    return picture;
}

QStringList KnownModes()
{
    return Frame.Settings.AnimModes + ReadWordList(QStringLiteral("AnimModifiers"));
}

} // namespace

SheetAnswer frmPCX::Run(QWidget* owner, const SheetRequest& request)
{
    if (Sheet.Reading) {
        ShowNotice(QStringLiteral("Another sheet is being read"));
        return {};
    }
    TakeElement(request, CurrentPane());
    const QString path = PathOf(request.Source, request.File);
    bool stopped = false;
    const auto picture = ReadSheet(path, stopped);
    if (stopped)
        return {};
    if (!picture) {
        const QString failed = picture.error().Path;
        if (failed == path || failed == paths::Existing(path)) // which may have other letter cases
            ShowMessage(message::BadPcx);
        else
            ShowFailure(picture.error()); // the decoder is not there
        return {};
    }
    ShowSheet(picture->Pixels);
    if (picture->EndsEarly)
        Sheet.ImageWarnings += QStringLiteral("The image file ends early.\n\n");
    const ModalScope modal;
    frmPCX window(DialogParent(owner), request);
    window.exec();
    Sheet.Picture = QImage();
    window.answer.Element = Conf.Element;
    return window.answer;
}

frmPCX::frmPCX(QWidget* owner, const SheetRequest& wanted)
    : QDialog(owner),
      request(wanted),
      path(PathOf(wanted.Source, wanted.File)),
      opening(FitElementToSheet(wanted, KnownModes())),
      isPick(wanted.IsPick()),
      isPreview(wanted.Purpose == SheetPurpose::Show),
      isQuick(wanted.Purpose == SheetPurpose::Quick)
{
    setObjectName(QStringLiteral("frmPCX"));
    SetHelpSubject(this, NoHelpSubject);
    LayOut();
    ConnectParts();
    ShowElement();
    EnableTools();
    if (isPreview || !request.Prompt.isEmpty())
        ShowPick();
    if (isQuick)
        BecomeQuickPreview();
    else
        CentreOnScreen();
    answer.Outcome = SheetOutcome::Closed;
    Conf.Element.ImageFile = request.File;
    if (!isPreview) {
        tmrFlash.start(100);
        preview->Start();
    }
    MarkTilesInUse();
    WatchFile();
    QCoreApplication::instance()->installEventFilter(this);
}

frmPCX::~frmPCX() = default;

void frmPCX::EnableTools()
{
    cmdUpdate->setEnabled(opening.MayUpdate && !isPick);
    cmdNew->setEnabled(!opening.TooSmall && !isPick && Frame.CurrentMode == ModeGfx);
    picScroll->setEnabled(!opening.TooSmall);
    panel->EnablePlace(!opening.TooSmall);
    picScroll->SetPickable(!isPreview);
}

void frmPCX::ShowElement()
{
    if (opening.FromBlock)
        panel->EnableFound(opening.MayUpdate && !isPick);
    panel->ShowRecord();
    const bool named = opening.FromBlock && !Conf.Element.BlockKey.isEmpty();
    setWindowTitle(named ? Conf.Element.BlockKey + QStringLiteral(" - ") + request.File : request.File);
    picScroll->MarksMoved();
}

void frmPCX::ShowPick()
{
    setWindowTitle(QStringLiteral("Gemforge BASIC - ") +
                   (isPreview ? QStringLiteral("Preview") : QStringLiteral("PickFromPCX")));
    if (isPreview) {
        Sheet.Start = Sheet.End = Sheet.InStart = std::nullopt;
        picScroll->MarksMoved();
        for (QWidget* part : std::initializer_list<QWidget*>{side, tools, buttonsHint, place})
            part->hide();
        layout()->setContentsMargins({});
        picScroll->setFrameShape(QFrame::NoFrame);
    } else {
        picFlash->setText(request.Prompt);
        picFlash->setToolTip(request.Prompt.toHtmlEscaped());
        picFlash->show();
        FlashTitle();
        tmrFlashTitle.start(200);
    }
}

void frmPCX::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    if (opening.FromBlock && Sheet.Start)
        picScroll->Centre(*Sheet.Start);
    QTimer::singleShot(0, this, &frmPCX::ShowWarnings);
}

void frmPCX::ShowWarnings()
{
    if (Frame.Settings.Nags[ImageErrorNag] == 1 && !Sheet.ImageWarnings.isEmpty())
        ShowMessage(message::ImageErrors, Sheet.ImageWarnings.chopped(1));
}

/// The quick preview is small, and the mouse may never have come into it, or have left it while a message was up.
void frmPCX::CloseIfLeft()
{
    const bool hasMessage = QApplication::activeModalWidget() != this; // the mouse went to that
    const bool shown = windowHandle() && windowHandle()->isExposed();
    mouseWasHere = mouseWasHere || underMouse();
    const bool left = WindowsHavePlaces() ? !frameGeometry().contains(QCursor::pos()) : mouseWasHere && !underMouse();
    if (Frame.Settings.QuickClose && shown && !hasMessage && left)
        close();
}

void frmPCX::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    if (!picNewElement->isHidden())
        PlaceNewElement();
}

void frmPCX::Press(QPoint tile, Qt::MouseButton button)
{
    struct Row
    {
        Qt::MouseButton Button;
        bool (*Mark)(QPoint);
    };
    static constexpr Row Rows[] = {
        {Qt::LeftButton, MarkFirstTile}, {Qt::RightButton, MarkLastTile}, {Qt::MiddleButton, MarkPlayStart}};
    for (const Row& row : Rows) {
        if (row.Button != button)
            continue;
        const bool restarts = row.Mark(tile);
        if (button == Qt::LeftButton)
            preview->ShowFrame(BaseTile());
        ShowMarked(restarts);
    }
}

void frmPCX::MarkDragged(QPoint from, QPoint to)
{
    ShowMarked(MarkRun(from, to));
}

void frmPCX::ShowMarked(bool restarts)
{
    picScroll->MarksMoved();
    panel->ShowPlace();
    if (restarts)
        Restart();
}

void frmPCX::MoveMark(int key, Qt::KeyboardModifiers keys)
{
    const QPoint steps[] = {{-1, 0}, {0, -1}, {1, 0}, {0, 1}}; // left, up, right, down, as Qt counts its keys
    const bool end = keys & Qt::ShiftModifier, inStart = keys & Qt::ControlModifier;
    const auto& mark = end ? Sheet.End : inStart ? Sheet.InStart : Sheet.Start;
    const QPoint from = mark ? *mark : Sheet.Start.value_or(QPoint(-1, 0));
    const QPoint tile = from + steps[key - Qt::Key_Left];
    if (!QRect(0, 0, Sheet.SheetColumns, Sheet.SheetRows).contains(tile))
        return;
    Press(tile, end ? Qt::RightButton : inStart ? Qt::MiddleButton : Qt::LeftButton);
    picScroll->Uncover(tile);
}

void frmPCX::Restart()
{
    preview->Restart();
}

void frmPCX::ShowPlayed(QPoint tile)
{
    if (!isPreview)
        picScroll->SetCurrentTile(tile);
    panel->ShowCurrent(tile.y() * Sheet.SheetColumns + tile.x());
}

void frmPCX::ShowPlace(QPoint pixel)
{
    const QPoint tile(pixel.x() / TileSize, pixel.y() / TileSize);
    if (pixel.x() < 0) {
        place->clear();
        return;
    }
    const bool whole = tile.x() < Sheet.SheetColumns && tile.y() < Sheet.SheetRows;
    const QString where = whole ? QStringLiteral("Tile %1 (column %2, row %3)")
                                      .arg(tile.y() * Sheet.SheetColumns + tile.x())
                                      .arg(tile.x())
                                      .arg(tile.y())
                                : QStringLiteral("No whole tile");
    place->setText(where + QStringLiteral("   Pixel %1, %2").arg(pixel.x()).arg(pixel.y()));
}

void frmPCX::FlashMarks()
{
    MarkerPhase = MarkerPhase % MarkPhases + 1;
    picScroll->SetMarkPhase(MarkerPhase);
    if (Conf.Element.Delay > RedrawDelay)
        preview->Redraw();
}

void frmPCX::FlashTitle()
{
    const bool green = picFlash->palette().color(QPalette::WindowText) != QColor(0, 255, 0);
    QPalette colours = picFlash->palette();
    colours.setColor(QPalette::Window, Qt::black);
    colours.setColor(QPalette::WindowText, green ? QColor(0, 255, 0) : QColor(255, 0, 0));
    picFlash->setAutoFillBackground(true);
    picFlash->setPalette(colours);
}

void frmPCX::OpenNewElement()
{
    panel->EnableAll(false);
    picScroll->setEnabled(false);
    PlaceNewElement();
    picNewElement->Open();
}

/// Inside the window, however small that is.
void frmPCX::PlaceNewElement()
{
    QRect where({Pixels(*this, NewElementPlace.x()), Pixels(*this, NewElementPlace.y())}, picNewElement->sizeHint());
    where.setSize(where.size().boundedTo(size()));
    where.moveLeft(qMin(where.left(), width() - where.width()));
    where.moveTop(qMin(where.top(), height() - where.height()));
    picNewElement->setGeometry(where);
}

/// Ctrl+Enter: the button of what is in work, with what is typed in a box but not taken yet.
void frmPCX::AcceptByKey()
{
    if (!picNewElement->isHidden())
        picNewElement->Make();
    else if (cmdUpdate->isEnabled() && cmdUpdate->isVisible())
        UpdateElement();
}

void frmPCX::CloseNewElement()
{
    picNewElement->hide();
    panel->EnableAll(true);
    picScroll->setEnabled(true);
    panel->FocusFirst();
}

void frmPCX::MakeElement(const QString& key, bool full)
{
    answer.Key = key;
    answer.Full = full;
    End(SheetOutcome::NewElement);
}

void frmPCX::UpdateElement()
{
    cmdUpdate->setFocus(); // a box takes what is typed into it when the keyboard leaves
    if (const auto mode = std::exchange(Conf.UnknownMode, std::nullopt))
        Conf.Element.AnimMode = *mode;
    answer.Added = panel->Added();
    End(SheetOutcome::Update);
}

void frmPCX::End(SheetOutcome outcome)
{
    answer.Outcome = outcome;
    accept();
}

void frmPCX::MarkTilesInUse()
{
    if (Frame.CurrentMode != ModeGfx || isPick)
        return;
    const DocumentText& text = CurrentPane();
    const int own = request.Block ? request.Block->MainLine : -1;
    picScroll->SetTilesInUse(
        TilesInUse(text.Bytes(), LinesOf(text),
                   {request.File, Sheet.SheetColumns, Sheet.SheetRows, own, Frame.Settings.SheetKinds}));
}

void frmPCX::GoToUser(const std::vector<TileUser>& users)
{
    const auto go = [this](int line) {
        answer.Line = line;
        End(SheetOutcome::GoTo);
    };
    if (users.size() == 1) {
        go(users.front().Line);
        return;
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const TileUser& user : users)
        menu->addAction(QStringLiteral("%1 (line %2)").arg(WithoutMnemonic(user.Key)).arg(user.Line + 1), this,
                        [go, line = user.Line] { go(line); });
    menu->popup(QCursor::pos());
}

void frmPCX::WatchFile()
{
    watcher.addPath(path);
    folderWatch.Follow({paths::FolderOfPath(path)}); // a save that replaces the file, a set that is unpacked anew
}

void frmPCX::ReadAgain()
{
    watcher.removePath(path); // another file may stand there now
    watcher.addPath(path);
    images::LoadLater(path, this, [this](const Result<images::Picture>& picture) {
        if (!picture)
            return; // a program is still at it
        ReplacePicture(picture->Pixels);
        picScroll->PictureChanged();
        picScroll->MarksMoved();
        preview->Redraw();
    });
}

void frmPCX::OpenInEditor()
{
    const QString& editor = Frame.Settings.ImageEditor;
    const bool started = !editor.isEmpty() ? processes::StartDetached(editor, {path}).has_value()
                                           : QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    if (!started)
        place->setText(QStringLiteral("No image editor answers; name one in the options"));
}

/// Ctrl+D closes the window wherever the focus is: a text box would take the key for itself.
bool frmPCX::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_D || key.modifiers() != Qt::ControlModifier)
        return false;
    QWidget* list = static_cast<QWidget*>(watched)->window();
    const bool popped = list->windowType() == Qt::Popup && list->parentWidget();
    if ((popped ? list->parentWidget()->window() : list) != this)
        return false;
    if (popped)
        list->close();
    close();
    return true;
}

void frmPCX::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool arrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
    QWidget* focus = focusWidget();
    if (enter && (qobject_cast<QPushButton*>(focus) || qobject_cast<QToolButton*>(focus)))
        static_cast<QAbstractButton*>(focus)->click();
    else if (arrow && picScroll->hasFocus() && !isPreview && !opening.TooSmall)
        MoveMark(event->key(), event->modifiers());
    else
        QDialog::keyPressEvent(event);
}

void OpenSheet(QWidget* owner, const SheetRequest& request)
{
    WriteSheetAnswer(CurrentPane(), request, frmPCX::Run(owner, request));
}
