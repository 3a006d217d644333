#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"
#include "windows/parts/rolling.h"
#include "windows/sets/frm_lvl_manager.h"
#include "windows/sets/set_maps.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTreeView>
#include <QVBoxLayout>

// The parts of the Level Manager and where they stand.

namespace {

/// A button of one of the two frames, and what it does.
struct GameButton
{
    const char* Caption;
    const char* Icon;
    void (LevelManager::*Do)();
    bool Changes; ///< needs to write in the folder above the game
};

constexpr GameButton FolderButtons[] = {
    {"Set", "set_game", &LevelManager::Set, false},
    {"Set - Play", "play_game", &LevelManager::SetAndPlay, false},
    {"Zip", "zip_game", &LevelManager::Zip, true},
    {"Install Tapes", "install_tapes", &LevelManager::InstallTapes, false},
    {"View Contents", "", &LevelManager::ViewFolder, false},
};

constexpr GameButton ZipButtons[] = {
    {"Unzip", "unzip_game", &LevelManager::Unzip, true},
    {"Unzip - Set", "set_game", &LevelManager::UnzipAndSet, true},
    {"Unzip - Set - Play", "play_game", &LevelManager::UnzipSetAndPlay, true},
    {"Unzip -  Play - Delete", "play_game", &LevelManager::UnzipPlayAndDelete, true},
    {"View Contents", "", &LevelManager::ViewZip, false},
};

constexpr QSize ManagerFrameRoom{20, 40}; // what a window manager puts around a window

constexpr const char* FactCaptions[] = {"Name", "Author", "Levels", "Size", "Tapes"};

QPushButton* ManagerButton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* made = new QPushButton(caption, parent);
    made->setObjectName(name);
    made->setAutoDefault(false); // Enter belongs to the list
    return made;
}

QLineEdit* ShownLine(const char* name, const char* accessible, QWidget* parent)
{
    auto* line = new QLineEdit(parent);
    line->setObjectName(QString::fromLatin1(name));
    line->setAccessibleName(QString::fromLatin1(accessible));
    line->setReadOnly(true);
    return line;
}

} // namespace

frmLVLManager::frmLVLManager(QWidget* owner) : QDialog(DialogParent(owner)), filter(manager.Tree)
{
    setObjectName(QStringLiteral("frmLVLManager"));
    SetHelpSubject(this, HelpIdFor("rnd_levman"));
    setWindowTitle(QStringLiteral("Level Manager"));
    setAcceptDrops(true);
    auto* both = new QHBoxLayout;
    both->addLayout(MakeList(), 1);
    both->addWidget(MakeButtons());
    auto* column = new QVBoxLayout(this);
    column->addLayout(both, 1);
    column->addWidget(MakePaths());
    column->addLayout(MakeFoot());
    const QRect whole = (parentWidget() ? parentWidget()->screen() : screen())->availableGeometry();
    resize(QSize(Pixels(*this, 660), Pixels(*this, 680)).boundedTo(whole.size() - ManagerFrameRoom));
    Connect();
}

QLayout* frmLVLManager::MakeList()
{
    cmdScan = ManagerButton(QStringLiteral("cmdScan"), QStringLiteral("Scan Levels Folder"), this);
    cmdScan->setIcon(CommandIcon(QStringLiteral("scan_levels")));
    txtFilter = new QLineEdit(this);
    txtFilter->setObjectName(QStringLiteral("txtFilter"));
    txtFilter->setAccessibleName(QStringLiteral("Filter"));
    txtFilter->setPlaceholderText(QStringLiteral("Filter"));
    txtFilter->setClearButtonEnabled(true);
    treeLVL = new QTreeView(this);
    treeLVL->setObjectName(QStringLiteral("treeLVL"));
    treeLVL->setAccessibleName(QStringLiteral("Games"));
    treeLVL->setModel(&filter);
    treeLVL->setHeaderHidden(true);
    treeLVL->setRootIsDecorated(false);
    treeLVL->setUniformRowHeights(true);
    treeLVL->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QSizePolicy policy = treeLVL->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    treeLVL->setSizePolicy(policy);
    auto* column = new QVBoxLayout;
    column->addWidget(cmdScan);
    column->addWidget(txtFilter);
    column->addWidget(treeLVL, 1);
    maps = new SetMaps(this);
    column->addWidget(maps);
    return column;
}

QWidget* frmLVLManager::MakePaths()
{
    Frame2 = new QWidget(this);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    txtCurSetGame = ShownLine("txtCurSetGame", "Current Set Game", Frame2);
    txtSelected = ShownLine("txtSelected", "Levels folder of the selected game", Frame2);
    txtSel2 = ShownLine("txtSel2", "Selected Path", Frame2);
    auto* form = new QFormLayout(Frame2);
    form->setContentsMargins({});
    form->addRow(QStringLiteral("Current Set Game"), txtCurSetGame);
    form->addRow(QStringLiteral("Selected Path"), txtSelected);
    form->addRow(QString(), txtSel2);
    return Frame2;
}

QGroupBox* frmLVLManager::MakeButtonFrame(const char* name, const char* caption, const char* button, bool zipped)
{
    auto* frame = new QGroupBox(QString::fromLatin1(caption), this);
    frame->setObjectName(QString::fromLatin1(name));
    auto* column = new QVBoxLayout(frame);
    auto& buttons = zipped ? cmdZip : cmdFolder;
    for (size_t i = 0; i < buttons.size(); ++i) {
        const GameButton& row = zipped ? ZipButtons[i] : FolderButtons[i];
        buttons[i] =
            ManagerButton(QString::fromLatin1(button) + QString::number(i), QString::fromLatin1(row.Caption), frame);
        buttons[i]->setIcon(CommandIcon(QString::fromLatin1(row.Icon)));
        buttons[i]->setProperty("changes", row.Changes);
        column->addWidget(buttons[i]);
        connect(buttons[i], &QPushButton::clicked, this, [this, what = row.Do] {
            lblTold->clear();
            (manager.*what)();
            soon.start();
            if (isVisible() && !txtFilter->hasFocus())
                treeLVL->setFocus();
        });
    }
    return frame;
}

QWidget* frmLVLManager::MakeButtons()
{
    auto* inside = new QWidget(this);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins({});
    frmDir = MakeButtonFrame("frmDir", "Normal Game", "cmdFolder", false);
    frmZip = MakeButtonFrame("frmZip", "Zipped Game", "cmdZip", true);
    column->addWidget(frmDir);
    column->addWidget(frmZip);
    column->addWidget(MakeFacts());
    column->addStretch();
    Frame3 = new Rolling(inside, this);
    Frame3->setObjectName(QStringLiteral("Frame3"));
    return Frame3;
}

QWidget* frmLVLManager::MakeFacts()
{
    auto* part = new QWidget(this);
    auto* grid = new QGridLayout(part); // a form would cut the last of lines that wrap, the first time it shows them
    grid->setContentsMargins({});
    grid->setColumnStretch(1, 1);
    for (size_t i = 0; i < facts.size(); ++i) {
        facts[i] = new QLabel(part);
        facts[i]->setTextFormat(Qt::PlainText);
        facts[i]->setWordWrap(true);
        facts[i]->setMinimumWidth(Pixels(*this, 150));
        facts[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        facts[i]->setObjectName(QStringLiteral("lblFact%1").arg(i));
        grid->addWidget(new QLabel(QString::fromLatin1(FactCaptions[i]), part), int(i), 0, Qt::AlignTop);
        grid->addWidget(facts[i], int(i), 1);
    }
    return part;
}

QLayout* frmLVLManager::MakeFoot()
{
    cmdZipmess = new QLabel(this);
    cmdZipmess->setObjectName(QStringLiteral("cmdZipmess"));
    lblTold = new QLabel(this);
    lblTold->setObjectName(QStringLiteral("lblTold"));
    lblTold->setTextFormat(Qt::PlainText);
    lblTold->setWordWrap(true);
    bar = new QProgressBar(this);
    bar->setTextVisible(false);
    cmdStop = ManagerButton(QStringLiteral("cmdStop"), QStringLiteral("Stop"), this);
    cmdStop->setToolTip(QStringLiteral("Stop (Esc)"));
    cmdClose = ManagerButton(QStringLiteral("cmdClose"), QStringLiteral("Close"), this);
    auto* row = new QHBoxLayout;
    row->addWidget(lblTold, 1);
    row->addWidget(cmdZipmess);
    row->addWidget(bar, 1);
    row->addWidget(cmdStop);
    row->addWidget(cmdClose);
    return row;
}
