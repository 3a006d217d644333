#include "windows/sets/frm_wizard.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/run_scope.h"
#include "game/game_folders.h"
#include "platform/files/ini_file.h"
#include "platform/files/paths.h"
#include "platform/processes/counted_turn.h"
#include "sets/make_set.h"
#include "windows/media/folder_tree.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <unistd.h>

namespace {

enum WizardPage { NamesPage, PlacePage, LevelinfoPage, FirstArtworkPage, ExtrasPage = FirstArtworkPage + 3 };

constexpr QSize WizardFrameRoom{20, 40}; // what a window manager puts around a window

const QString WizardSection = QStringLiteral("Wizard");

/// What the last set was made with; empty the first time.
QString LastTime(const char* key)
{
    const QString value = ReadIni(WizardSection, QString::fromLatin1(key));
    return value == IniFile::NotFound ? QString() : value;
}

/// The game's levels folder, or the player's own where that one cannot be written.
QString FirstFolder()
{
    const QString& levels = Frame.Settings.LevelsFolder;
    const QString own = paths::Closed(GameUserFolder() + GameCompat(QStringLiteral("DefMyDocsRND3")));
    const bool isClosed = paths::FolderExists(levels) && access(QFile::encodeName(levels), W_OK) != 0;
    return isClosed && paths::FolderExists(own) ? own : levels;
}

} // namespace

void frmWizard::Run(QWidget* owner)
{
    const ModalScope scope;
    frmWizard window(owner);
    window.exec();
}

frmWizard::frmWizard(QWidget* owner) : QDialog(DialogParent(owner)), page(new QStackedWidget(this))
{
    setObjectName(QStringLiteral("frmWizard"));
    SetHelpSubject(this, NoHelpSubject);
    setWindowTitle(QStringLiteral("Gemforge - Game Structure Wizard"));
    page->setObjectName(QStringLiteral("page"));
    MakeNamesPage();
    MakePlacePage();
    MakeLevelinfoPage();
    MakeArtworkPage(Artworks()[0], "Graphicinfo.conf", "txtExampleGFX",
                    {"This is the graphicsinfo.conf file. ",
                     "You may add all the default elements which will be dumped by the RnDs exe. You may also add a "
                     "small example, just to see if its all working :-)"});
    MakeArtworkPage(Artworks()[1], "Soundsinfo.conf", "txtexampleSFX",
                    {"This is the soundsinfo.conf file.",
                     "Like the graphics you can include the default sounds and an example WAV for custom element 1"});
    MakeArtworkPage(Artworks()[2], "Musicinfo.conf", "txtExampleMus",
                    {"This is the musicinfo.conf file.",
                     "Like the sounds you can include the default tunes and an example MOD tune for Level 1"});
    MakeExtrasPage();
    const auto button = [this](const char* name, const char* caption) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name));
        made->setAutoDefault(false);
        return made;
    };
    cmdBack = button("cmdBack", " Back");
    cmdNext = button("cmdNext", "Next");
    cmdCancel = button("cmdCancel", "Cancel");
    cmdBack->setEnabled(false);
    lblMaking = new QLabel(this);
    lblMaking->setObjectName(QStringLiteral("lblMaking"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblMaking, 1);
    for (QPushButton* one : {cmdBack, cmdNext, cmdCancel})
        buttons->addWidget(one);
    auto* column = new QVBoxLayout(this);
    column->addWidget(page, 1);
    column->addLayout(buttons);
    const QRect whole = (parentWidget() ? parentWidget()->screen() : screen())->availableGeometry();
    resize(QSize(Pixels(*this, 640), Pixels(*this, 520)).boundedTo(whole.size() - WizardFrameRoom));

    connect(cmdBack, &QPushButton::clicked, this, [this] { GoTo(page->currentIndex() - 1); });
    connect(cmdNext, &QPushButton::clicked, this, [this] { GoTo(page->currentIndex() + 1); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    cmdNext->setDefault(true);
    txtGameName->setFocus();
    GoToFolder(FirstFolder());
    if (!paths::FolderExists(Frame.Settings.LevelsFolder))
        QTimer::singleShot(0, this, [] { ShowMessage(message::LevelsFolderMissing); });
}

void frmWizard::ReadTexts()
{
    const QString own = txtGameShortName->text();
    set.GameName = NewSetText(txtGameName->text());
    set.ShortName = NewSetText(own);
    set.Author = NewSetText(txtAuthor->text());
}

void frmWizard::GoTo(int number)
{
    const int from = page->currentIndex();
    page->setCurrentIndex(number);
    cmdBack->setEnabled(number > NamesPage);
    cmdNext->setEnabled(number < ExtrasPage);
    QPushButton& onward = number < ExtrasPage ? *cmdNext : *cmdDone;
    onward.setDefault(true); // Enter goes on, or makes the game
    Entered(from);
    if (number == NamesPage)
        txtGameName->setFocus();
    else
        (onward.isEnabled() ? onward : *cmdBack).setFocus();
}

void frmWizard::Entered(int from)
{
    const int now = page->currentIndex();
    if (now == PlacePage && from == NamesPage) {
        set.ShortName = FilterFileName(set.ShortName);
        ShowPath(true);
    } else if (now == LevelinfoPage && from == PlacePage) {
        txtLevelinfoPrev->setPlainText(LevelinfoText(set));
    } else if (now >= FirstArtworkPage && now < ExtrasPage) {
        ShowArtwork(size_t(now - FirstArtworkPage));
    }
}

void frmWizard::GoToFolder(const QString& folder)
{
    set.Path = folder;
    int best = 0;
    for (int i = 0; i < Drive1->count(); ++i)
        if (folder.startsWith(Drive1->itemData(i).toString()) &&
            Drive1->itemData(i).toString().size() > Drive1->itemData(best).toString().size())
            best = i;
    Drive1->setCurrentIndex(best);
    Dir1->ShowFolder(Drive1->itemData(best).toString(), paths::Closed(folder));
}

void frmWizard::FolderPicked(const QString& folder)
{
    set.Path = folder;
    ShowPath(false);
}

/// A game of that name bars the way on. `withMessage`: the user has just come here from the first page.
void frmWizard::ShowPath(bool withMessage)
{
    txtPath->setText(NewSetPath(set.Path, set.ShortName));
    const bool stands = QFileInfo::exists(set.Folder());
    cmdNext->setEnabled(!stands);
    lblTaken->setText(stands ? QStringLiteral("There is already a game with that name in this folder.") : QString());
    if (stands && withMessage)
        ShowMessage(message::GameExists);
}

void frmWizard::ShowArtwork(size_t number)
{
    txtExamples.at(number)->setPlainText(ArtworkText(Artworks()[number], set));
}

void frmWizard::TakeLastTime()
{
    txtAuthor->setText(LastTime("Author"));
    const QString place = LastTime("Place");
    if (paths::FolderExists(place))
        GoToFolder(paths::Closed(place));
    cmdLastTime->setEnabled(false);
    cmdNext->setFocus();
}

void frmWizard::reject()
{
    if (making)
        StopRuns(StopReason::Break);
    else
        QDialog::reject();
}

/// All but Cancel is off meanwhile.
void frmWizard::SetMaking(bool on)
{
    making = on;
    for (QWidget* part : std::initializer_list<QWidget*>{page, cmdBack})
        part->setEnabled(!on);
    lblMaking->setText(on ? QStringLiteral("The game is being made. Cancel stops it.") : QString());
    Busy().BusyPointer(on);
    (on ? cmdCancel : cmdDone)->setFocus();
}

void frmWizard::MakeGame()
{
    set.Levelinfo = txtLevelinfoPrev->toPlainText().replace(u'\n', QStringLiteral("\r\n"));
    if (!set.IsFinished()) {
        ShowMessage(message::NotFinished);
        return;
    }
    SetMaking(true);
    const auto made = MakeSet(set, DumpOfGame);
    SetMaking(false);
    if (!made) {
        if (!WasStopped(made.error()))
            ShowFailure(made.error());
        return;
    }
    {
        const SettingsBatch batch;
        WriteIni(txtAuthor->text().trimmed(), WizardSection, QStringLiteral("Author"));
        WriteIni(set.Path, WizardSection, QStringLiteral("Place"));
    }
    if (!made->NotPrinted.isEmpty())
        ShowNotice(QStringLiteral("The game has printed no default data for ") + made->NotPrinted.join(u", "));
    ShowMessage(message::GameMade, set.ShortName);
    accept();
}
