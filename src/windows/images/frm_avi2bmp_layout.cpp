#include "windows/images/fit_choice.h"
#include "windows/images/frm_avi2bmp.h"
#include "windows/images/picture_viewer.h"
#include "windows/images/tile_player.h"
#include "windows/images/viewer_tools.h"
#include "windows/images/work_strip.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QSpinBox>
#include <QVBoxLayout>

// The parts of the film window and where they stand.

namespace {

constexpr int FilmSideWidth = 250;     // pixels at 96 dpi
constexpr QSize FilmFrameRoom{20, 40}; // what a window manager puts around a window
constexpr QSize SheetRoom{560, 490};   // 16 tiles and a bar
constexpr int SlowestDelay = 50;       // ticks: a second

QLineEdit* FilmLine(const char* name, const char* text, QWidget* parent)
{
    auto* made = new QLineEdit(QString::fromLatin1(text), parent);
    made->setObjectName(QString::fromLatin1(name));
    return made;
}

QPushButton* FilmButton(const char* name, const char* caption, QWidget* parent)
{
    auto* made = new QPushButton(QString::fromLatin1(caption), parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setAutoDefault(false); // Enter belongs to the boxes
    return made;
}

} // namespace

frmAVI2BMP::frmAVI2BMP(QWidget* owner) : QDialog(DialogParent(owner))
{
    setObjectName(QStringLiteral("frmAVI2BMP"));
    SetHelpSubject(this, HelpIdFor("avi_to_bitmap"));
    setWindowTitle(QStringLiteral("AVI To BMP"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setAcceptDrops(true);
    auto* row = new QHBoxLayout(this);
    row->addWidget(MakeSide());
    row->addWidget(MakeSheet(), 1);
    Connect();
    cmdLoad->setFocus();
    const QRect whole = (parentWidget() ? parentWidget()->screen() : screen())->availableGeometry();
    resize(sizeHint()
               .expandedTo({Pixels(*this, FilmSideWidth + SheetRoom.width()), Pixels(*this, SheetRoom.height())})
               .boundedTo(whole.size() - FilmFrameRoom));
}

QWidget* frmAVI2BMP::MakeSide()
{
    auto* side = new QWidget(this);
    side->setFixedWidth(Pixels(*this, FilmSideWidth));
    txtFile = FilmLine("txtFile", "", side);
    txtFile->setReadOnly(true);
    txtFile->setPlaceholderText(QStringLiteral("Drop a film or pictures here"));
    cmdLoad = FilmButton("cmdLoad", "...", side);
    cmdLoad->setAccessibleName(QStringLiteral("Choose a film"));
    cmdLoad->setFixedWidth(Pixels(*this, 32));
    auto* file = new QHBoxLayout;
    file->addWidget(txtFile, 1);
    file->addWidget(cmdLoad);
    cmdPictures = FilmButton("cmdPictures", "Pictures Instead...", side);
    txtTiles = FilmLine("txtTiles", "16", side);
    txtTiles->setToolTip(QStringLiteral("1 to 25; Enter takes it"));
    txtTiles->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d*")), txtTiles));
    txtWidth = FilmLine("txtWidth", "512", side);
    txtWidth->setReadOnly(true);
    chkDups = new QCheckBox(QStringLiteral("Ignore Dups"), side);
    chkDups->setObjectName(QStringLiteral("chkDups"));
    chkDups->setToolTip(QStringLiteral("A frame that repeats the one before takes no tile"));
    chkDups->setChecked(true);
    fit = new FitChoice(side);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Horizontal Tiles"), txtTiles);
    form->addRow(QStringLiteral("Image Width"), txtWidth);
    form->addRow(chkDups);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins({});
    column->addWidget(new QLabel(QStringLiteral("Current AVI"), side));
    column->addLayout(file);
    column->addWidget(cmdPictures);
    column->addLayout(form);
    column->addWidget(new QLabel(QStringLiteral("Frames of another size"), side));
    column->addWidget(fit);
    column->addSpacing(Pixels(*this, 12));
    column->addLayout(MakePreview());
    column->addStretch();
    const char* const captions[] = {"Quick Save BMP", "Send To PCX Lab"};
    const char* const names[] = {"cmdSave0", "cmdSave1"};
    for (size_t i = 0; i < cmdSave.size(); ++i) {
        cmdSave[i] = FilmButton(names[i], captions[i], side);
        cmdSave[i]->setEnabled(false);
        column->addWidget(cmdSave[i]);
    }
    return side;
}

QLayout* frmAVI2BMP::MakePreview()
{
    player = new TilePlayer(this);
    spnDelay = new QSpinBox(this);
    spnDelay->setObjectName(QStringLiteral("spnDelay"));
    spnDelay->setRange(1, SlowestDelay);
    spnDelay->setToolTip(QStringLiteral("How many fiftieths of a second a tile stays, as \"delay\" in the game"));
    lblTile = new QLabel(this);
    lblResult = new QLabel(this);
    lblResult->setObjectName(QStringLiteral("lblResult"));
    lblResult->setWordWrap(true);
    auto* beside = new QFormLayout;
    beside->addRow(QStringLiteral("Delay"), spnDelay);
    beside->addRow(lblTile);
    auto* pair = new QHBoxLayout;
    pair->addWidget(player);
    pair->addLayout(beside, 1);
    auto* column = new QVBoxLayout;
    column->addLayout(pair);
    column->addWidget(lblResult);
    return column;
}

QWidget* frmAVI2BMP::MakeSheet()
{
    auto* part = new QWidget(this);
    view = new PictureViewer(0, QStringLiteral("Sheet"), part);
    view->setObjectName(QStringLiteral("picBMP"));
    strip = new WorkStrip(this);
    auto* above = new QHBoxLayout;
    above->addWidget(new ViewerTools(QStringLiteral("AVI To BMP"), {view}, part));
    above->addWidget(strip, 1);
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addLayout(above);
    column->addWidget(view, 1);
    return part;
}

void frmAVI2BMP::Connect()
{
    connect(cmdLoad, &QPushButton::clicked, this, &frmAVI2BMP::AskForFilm);
    connect(cmdPictures, &QPushButton::clicked, this, &frmAVI2BMP::AskForPictures);
    txtTiles->installEventFilter(this);
    connect(txtTiles, &QLineEdit::textEdited, this, [this] { MarkTiles(true); }); // pasted too
    connect(txtTiles, &QLineEdit::returnPressed, this, &frmAVI2BMP::ApplyTiles);
    connect(chkDups, &QCheckBox::clicked, this, &frmAVI2BMP::RunAll);
    connect(fit, &FitChoice::Changed, this, [this] {
        if (HasSource())
            RunAll();
    });
    connect(spnDelay, &QSpinBox::valueChanged, player, &TilePlayer::SetDelay);
    connect(player, &TilePlayer::TileShown, this, [this](int tile, int tiles) {
        lblTile->setText(tiles > 0 ? QStringLiteral("Tile %1 of %2").arg(tile + 1).arg(tiles) : QString());
    });
    connect(cmdSave[0], &QPushButton::clicked, this, &frmAVI2BMP::Save);
    connect(cmdSave[1], &QPushButton::clicked, this, &frmAVI2BMP::SendToLab);
}
