#include "windows/frm_pcx.h"

#include "conf/block_fields.h"
#include "conf/element_record.h"
#include "conf/write_block.h"
#include "frame/frame_state.h"
#include "frame/media_lists.h"
#include "graphics/animation.h"
#include "graphics/sheet.h"
#include "graphics/sheet_marks.h"
#include "graphics/tiles_in_use.h"
#include "platform/images.h"
#include "platform/paths.h"
#include "platform/processes.h"
#include "windows/animation_panel.h"
#include "windows/animation_preview.h"
#include "windows/dialog_help.h"
#include "windows/help_subject.h"
#include "windows/new_element_panel.h"
#include "windows/sheet_tools.h"
#include "windows/sheet_view.h"

#include <QApplication>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int FromMacro = 4; // Conf.MediaSource: MediaFile is the whole path
constexpr int BadImage = 107, ImageErrors = 108;
constexpr int ImageErrorNag = 2;
constexpr int MarkPhases = 10;
constexpr int RedrawDelay = 100; // a preview with a longer delay is drawn again by the marks' timer
const QString SheetAlone = QStringLiteral("PREVIEW");
constexpr QSize QuickSize{120, 127}; // pixels at 96 dpi, without the frame
constexpr int QuickLift = 30;
constexpr QSize FrameRoom{20, 40}; // what a window manager puts around a window
constexpr QPoint NewElementPlace{60, 54};

QString PathOfMedia()
{
    if (Conf.MediaSource == FromMacro)
        return paths::Inside(Conf.MediaFile);
    return Lists().List(Conf.MediaSource).Folder() + Conf.MediaFile;
}

QStringList KnownModes()
{
    return Frame.Settings.AnimModes + ReadWordList(QStringLiteral("AnimModifiers"));
}

} // namespace

void frmPCX::Run(QWidget* owner)
{
    const QString path = PathOfMedia();
    const auto picture = images::Load(path);
    if (!picture) {
        ShowMessage(BadImage);
        return;
    }
    ShowSheet(picture->Pixels);
    if (picture->EndsEarly)
        Sheet.ImageWarnings += QStringLiteral("The image file ends early.\n\n");
    const ModalScope modal;
    frmPCX window(DialogParent(owner), path);
    window.exec();
    Sheet.PickPrompt.clear();
    Sheet.Picture = QImage();
}

frmPCX::frmPCX(QWidget* owner, const QString& file)
    : QDialog(owner),
      path(file),
      opening(FitElementToSheet(KnownModes())),
      isPick(Conf.MediaSource == FromMacro),
      isPreview(isPick && Sheet.PickPrompt == SheetAlone),
      isQuick(Conf.QuickPreview && !isPick)
{
    setObjectName(QStringLiteral("frmPCX"));
    SetHelpSubject(this, NoHelpSubject);
    LayOut();
    ConnectParts();
    ShowElement();
    EnableTools();
    if (!Sheet.PickPrompt.isEmpty())
        ShowPick();
    if (isQuick)
        BecomeQuickPreview();
    else
        CentreOnScreen();
    Conf.Element.ImageFile = Conf.MediaFile;
    if (!isPreview) {
        tmrFlash.start(100);
        preview->Start();
    }
    MarkTilesInUse();
    WatchFile();
}

frmPCX::~frmPCX() = default;

void frmPCX::LayOut()
{
    picScroll = new SheetView(this);
    preview = new AnimationPreview(this);
    tools = new SheetTools(*picScroll, *preview, this);
    panel = new AnimationPanel(this);
    picFlash = new QLabel(this);
    picFlash->setObjectName(QStringLiteral("picFlash"));
    picFlash->setTextFormat(Qt::PlainText);
    picFlash->setAlignment(Qt::AlignCenter);
    picFlash->hide();
    place = new QLabel(this);
    const auto button = [this](const char* name, const char* caption) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name));
        made->setAutoDefault(false); // Enter belongs to the boxes
        return made;
    };
    cmdExit = button("cmdQuit0", "Exit");
    cmdNew = button("cmdQuit1", "New Element");
    cmdUpdate = button("cmdQuit2", "Update Element");
    side = new QWidget(this);
    auto* beside = new QVBoxLayout(side);
    beside->setContentsMargins({});
    beside->addWidget(preview);
    beside->addWidget(panel);
    beside->addStretch();
    for (QPushButton* made : {cmdUpdate, cmdNew, cmdExit})
        beside->addWidget(made);
    auto* middle = new QHBoxLayout;
    middle->addWidget(picScroll, 1);
    middle->addWidget(side);
    auto* column = new QVBoxLayout(this);
    column->addWidget(picFlash);
    column->addWidget(tools);
    column->addLayout(middle, 1);
    column->addWidget(place);
    picNewElement = new NewElementPanel(this);
    picScroll->ShowPicture();
    picScroll->setFocus();
}

void frmPCX::ConnectParts()
{
    connect(picScroll, &SheetView::TilePressed, this, &frmPCX::Press);
    connect(picScroll, &SheetView::PixelHovered, this, &frmPCX::ShowPlace);
    connect(preview, &AnimationPreview::FrameShown, this, &frmPCX::ShowPlayed);
    connect(panel, &AnimationPanel::RestartWanted, this, &frmPCX::Restart);
    connect(panel, &AnimationPanel::StartWanted, preview, &AnimationPreview::Start);
    connect(picNewElement, &NewElementPanel::CancelWanted, this, &frmPCX::CloseNewElement);
    connect(picNewElement, &NewElementPanel::MakeWanted, this, &frmPCX::MakeElement);
    connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdNew, &QPushButton::clicked, this, &frmPCX::OpenNewElement);
    connect(cmdUpdate, &QPushButton::clicked, this, &frmPCX::UpdateElement);
    connect(tools, &SheetTools::ImageEditorWanted, this, &frmPCX::OpenInEditor);
    connect(&tmrFlash, &QTimer::timeout, this, &frmPCX::FlashMarks);
    connect(&tmrFlashTitle, &QTimer::timeout, this, &frmPCX::FlashTitle);
    readAgain.setSingleShot(true);
    readAgain.setInterval(150); // a program that is still writing has written by then
    connect(&readAgain, &QTimer::timeout, this, &frmPCX::ReadAgain);
    connect(&watcher, &QFileSystemWatcher::fileChanged, &readAgain, qOverload<>(&QTimer::start));
    connect(&watcher, &QFileSystemWatcher::directoryChanged, &readAgain, qOverload<>(&QTimer::start));
}

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
        panel->EnableFound();
    panel->ShowRecord();
    setWindowTitle(opening.FromBlock ? Conf.Element.BlockKey + QStringLiteral(" - ") + Conf.MediaFile : Conf.MediaFile);
    picScroll->MarksMoved();
}

void frmPCX::ShowPick()
{
    setWindowTitle(QStringLiteral("Gemforge BASIC - ") +
                   (isPreview ? QStringLiteral("Preview") : QStringLiteral("PickFromPCX")));
    if (isPreview) {
        Sheet.Start = Sheet.End = Sheet.InStart = std::nullopt;
        picScroll->MarksMoved();
        for (QWidget* part : std::initializer_list<QWidget*>{side, tools, place})
            part->hide();
    } else {
        picFlash->setText(Sheet.PickPrompt);
        picFlash->show();
        FlashTitle();
        tmrFlashTitle.start(200);
    }
    Sheet.PickPrompt.clear();
}

void frmPCX::BecomeQuickPreview()
{
    const ElementRecord& element = Conf.Element;
    const QString names[] = {element.ElementName, element.BlockKey, QStringLiteral("Error!")};
    setWindowTitle(
        *std::find_if(std::begin(names), std::end(names) - 1, [](const QString& n) { return !n.isEmpty(); }));
    for (QWidget* part : std::initializer_list<QWidget*>{picScroll, tools, panel, place, cmdExit, cmdNew, cmdUpdate})
        part->hide();
    layout()->setContentsMargins({});
    layout()->setSpacing(0);
    preview->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // The name needs the room of the other buttons.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setFixedSize(Pixels(*this, QuickSize.width()), Pixels(*this, QuickSize.height()));
    const QPoint mouse = QCursor::pos();
    QRect where(QPoint(), size());
    where.moveCenter(mouse - QPoint(0, Pixels(*this, QuickLift)));
    const QScreen* screen = QGuiApplication::screenAt(mouse);
    const QRect whole = (screen ? screen : this->screen())->availableGeometry();
    where.moveLeft(qBound(whole.left(), where.left(), whole.right() - where.width()));
    where.moveTop(qBound(whole.top(), where.top(), whole.bottom() - where.height()));
    move(where.topLeft());
}

void frmPCX::CentreOnScreen()
{
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    const QRect whole = (parentWidget() ? parentWidget()->screen() : screen())->availableGeometry();
    resize(sizeHint().boundedTo(whole.size() - FrameRoom));
    move(whole.center() - rect().center());
}

void frmPCX::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, &frmPCX::ShowWarnings);
}

void frmPCX::ShowWarnings()
{
    if (Frame.Settings.Nags[ImageErrorNag] == 1 && !Sheet.ImageWarnings.isEmpty())
        ShowMessage(ImageErrors, Sheet.ImageWarnings.chopped(1));
}

void frmPCX::leaveEvent(QEvent* event)
{
    QDialog::leaveEvent(event);
    const bool hasMessage = QApplication::activeModalWidget() != this; // the mouse went to that
    if (isQuick && Frame.Settings.QuickClose && !hasMessage)
        close();
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
        picScroll->MarksMoved();
        panel->ShowPlace();
        if (button == Qt::LeftButton)
            preview->ShowFrame(BaseTile());
        if (restarts)
            Restart();
    }
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
    restartAnimation();
}

void frmPCX::ShowPlayed(QPoint tile)
{
    if (!isPreview)
        picScroll->SetCurrentTile(tile);
    panel->ShowCurrent();
}

void frmPCX::ShowPlace(QPoint pixel)
{
    const QPoint tile(pixel.x() / TileSize, pixel.y() / TileSize);
    place->setText(pixel.x() < 0 ? QString()
                                 : QStringLiteral("Tile %1 (column %2, row %3)   Pixel %4, %5")
                                       .arg(tile.y() * Sheet.SheetColumns + tile.x())
                                       .arg(tile.x())
                                       .arg(tile.y())
                                       .arg(pixel.x())
                                       .arg(pixel.y()));
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
    picNewElement->move(Pixels(*this, NewElementPlace.x()), Pixels(*this, NewElementPlace.y()));
    picNewElement->Open();
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
    EditorPane& pane = CurrentPane();
    UndoGroup group(pane);
    const int line = pane.GetSel(true).StartLine;
    pane.InsertLine(line, key);
    pane.SelectLine(line, true);
    ElementRecord& element = Conf.Element;
    if (element.Reverse)
        element.AnimMode = element.AnimMode == QLatin1StringView("loop")
                               ? QStringLiteral("reverse")
                               : element.AnimMode + QStringLiteral(",reverse");
    WriteElementBlock(full, CallersUndoGroup);
    element.ImageFile.clear();
    accept();
}

void frmPCX::UpdateElement()
{
    UpdateElementBlock();
    accept();
}

void frmPCX::MarkTilesInUse()
{
    if (Frame.CurrentMode != ModeGfx || isPick)
        return;
    const int own = Conf.Element.ElementOpen ? Conf.MainLine : -1;
    picScroll->SetTilesInUse(TilesInUse(CurrentPane(), Conf.MediaFile, own));
}

void frmPCX::WatchFile()
{
    watcher.addPath(path);
    watcher.addPath(paths::FolderOfPath(path)); // a save that replaces the file
}

void frmPCX::ReadAgain()
{
    if (!watcher.files().contains(path))
        watcher.addPath(path);
    const auto picture = images::Load(path);
    if (!picture)
        return; // a program is still at it
    ReplacePicture(picture->Pixels);
    picScroll->PictureChanged();
    preview->Redraw();
}

void frmPCX::OpenInEditor()
{
    const QString editor = ReadIni(QStringLiteral("Misc"), QStringLiteral("ImageEditor"));
    const bool named = !editor.isEmpty() && editor != QLatin1StringView("[NOT FOUND]");
    const bool started = named ? processes::StartDetached(editor, {path}).has_value()
                               : QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    if (!started)
        place->setText(QStringLiteral("No image editor answers; name one as ImageEditor in user.ini"));
}

void frmPCX::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool arrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
    if (event->key() == Qt::Key_D && event->modifiers() == Qt::ControlModifier)
        close();
    else if (auto* button = qobject_cast<QPushButton*>(focusWidget()); button && enter)
        button->click();
    else if (arrow && picScroll->hasFocus() && !isPreview && !opening.TooSmall)
        MoveMark(event->key(), event->modifiers());
    else
        QDialog::keyPressEvent(event);
}

void PickFromSheet(QWidget* owner, const QString& file, const QString& prompt)
{
    Conf.MediaSource = FromMacro;
    Conf.MediaFile = file;
    Conf.Element.ImageFile.clear();
    Sheet.PickPrompt = prompt;
    frmPCX::Run(owner);
}
