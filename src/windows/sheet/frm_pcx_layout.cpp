#include "conf/element_record.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/rolling.h"
#include "windows/sheet/animation_panel.h"
#include "windows/sheet/animation_preview.h"
#include "windows/sheet/frm_pcx.h"
#include "windows/sheet/new_element_panel.h"
#include "windows/sheet/sheet_tools.h"
#include "windows/sheet/sheet_view.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

// The parts of the sheet window and where they stand.

namespace {

constexpr QSize QuickSize{120, 127}; // pixels at 96 dpi, without the frame
constexpr const char* ButtonsHint =
    "Left button: first tile, held down: a whole run.  Right: last tile.  Middle: where it "
    "begins to play.";
constexpr int QuickLift = 30;
constexpr int MostPromptLines = 5; // the whole of it is in its tool tip
constexpr QSize FrameRoom{20, 40}; // what a window manager puts around a window

} // namespace

void frmPCX::LayOut()
{
    picScroll = new SheetView(this);
    preview = new AnimationPreview(this);
    panel = new AnimationPanel(this);
    picFlash = new QLabel(this);
    picFlash->setObjectName(QStringLiteral("picFlash"));
    picFlash->setTextFormat(Qt::PlainText);
    picFlash->setAlignment(Qt::AlignHCenter | Qt::AlignTop); // what is too long is cut at its end
    picFlash->setWordWrap(true);
    picFlash->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long prompt widens no window
    picFlash->setMaximumHeight(MostPromptLines * picFlash->fontMetrics().lineSpacing());
    picFlash->hide();
    place = new QLabel(this);
    place->setObjectName(QStringLiteral("place"));
    buttonsHint = new QLabel(QString::fromLatin1(ButtonsHint), this);
    buttonsHint->setObjectName(QStringLiteral("buttonsHint"));
    buttonsHint->setWordWrap(true);
    buttonsHint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    buttonsHint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Maximum); // as wide as the sheet
    const auto button = [this](const char* name, const char* caption, const char* tip) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name));
        made->setAutoDefault(false); // Enter belongs to the boxes
        made->setToolTip(QString::fromLatin1(tip));
        return made;
    };
    // The keyboard goes from the sheet down the column beside it, and by the row above back to the sheet.
    cmdUpdate = button("cmdQuit2", "&Update Element", "Ctrl+Enter: the values go into the block");
    cmdNew = button("cmdQuit1", "&New Element", "Ctrl+N: a block of its own");
    cmdExit = button("cmdQuit0", "E&xit", "Esc or Ctrl+D: the text stays as it is");
    tools = new SheetTools(*picScroll, *preview, this);
    side = new QWidget(this);
    auto* beside = new QVBoxLayout(side);
    beside->setContentsMargins({});
    beside->addWidget(preview);
    panelArea = new Rolling(panel, side);
    beside->addWidget(panelArea, 1);
    for (QPushButton* made : {cmdUpdate, cmdNew, cmdExit})
        beside->addWidget(made);
    sheetColumn = new QVBoxLayout;
    sheetColumn->addWidget(tools);
    sheetColumn->addWidget(picScroll, 1);
    sheetColumn->addWidget(buttonsHint);
    sheetColumn->addWidget(place);
    place->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* middle = new QHBoxLayout;
    middle->addLayout(sheetColumn, 1);
    middle->addWidget(side);
    auto* column = new QVBoxLayout(this);
    column->addWidget(picFlash);
    column->addLayout(middle, 1);
    picNewElement = new NewElementPanel(this);
    picScroll->ShowPicture();
    picScroll->setFocus();
}

void frmPCX::ConnectParts()
{
    connect(picScroll, &SheetView::TilePressed, this, &frmPCX::Press);
    connect(picScroll, &SheetView::TilesDragged, this, &frmPCX::MarkDragged);
    connect(picScroll, &SheetView::UsersWanted, this, &frmPCX::GoToUser);
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
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(QKeySequence(Qt::CTRL | key), this), &QShortcut::activated, this, &frmPCX::AcceptByKey);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_N), this), &QShortcut::activated, cmdNew,
            &QPushButton::click);
    connect(&tmrMouseLeave, &QTimer::timeout, this, &frmPCX::CloseIfLeft);
    connect(&tmrFlash, &QTimer::timeout, this, &frmPCX::FlashMarks);
    connect(&tmrFlashTitle, &QTimer::timeout, this, &frmPCX::FlashTitle);
    readAgain.setSingleShot(true);
    readAgain.setInterval(150); // a program that is still writing has written by then
    connect(&readAgain, &QTimer::timeout, this, &frmPCX::ReadAgain);
    connect(&watcher, &QFileSystemWatcher::fileChanged, &readAgain, qOverload<>(&QTimer::start));
    connect(&folderWatch, &FolderWatch::Changed, &readAgain, qOverload<>(&QTimer::start));
}

void frmPCX::BecomeQuickPreview()
{
    const ElementRecord& element = Conf.Element;
    const QString names[] = {element.ElementName, element.BlockKey, QStringLiteral("Error!")};
    setWindowTitle(
        *std::find_if(std::begin(names), std::end(names) - 1, [](const QString& n) { return !n.isEmpty(); }));
    for (QWidget* part :
         std::initializer_list<QWidget*>{picScroll, tools, panelArea, buttonsHint, place, cmdExit, cmdNew, cmdUpdate})
        part->hide();
    preview->SetZoom(1);
    tmrMouseLeave.start(10);
    preview->setToolTip(windowTitle().toHtmlEscaped()); // a desktop may leave a title no room beside its buttons
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
    if (!isPreview)
        FitSheetColumn();
    resize(sizeHint().boundedTo(whole.size() - FrameRoom));
    move(whole.center() - rect().center());
}

/// What the column beside needs more than the sheet goes to the line below the sheet, so that the view has its own
/// size.
void frmPCX::FitSheetColumn()
{
    const int cut =
        panel->sizeHint().height() - panelArea->sizeHint().height(); // an area hints at no more than it likes
    const int more = side->sizeHint().height() + qMax(0, cut) - sheetColumn->sizeHint().height();
    place->setMinimumHeight(place->sizeHint().height() + qMax(0, more));
}
