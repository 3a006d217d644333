#include "windows/sets/frm_lvl_manager.h"

#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "platform/files/paths.h"
#include "sets/new_set.h"
#include "sets/set_facts.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/dropped_paths.h"
#include "windows/sets/set_maps.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

namespace {

constexpr int FactsAfter = 120; // ms

bool IsArchive(const QString& path)
{
    return path.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".levzip"), Qt::CaseInsensitive);
}

QString Dashed(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("-") : text;
}

/// How many tapes, and the first of them.
QString TapesText(const QStringList& tapes)
{
    constexpr qsizetype MostNamed = 6;
    if (tapes.isEmpty())
        return QStringLiteral("none");
    const QString first = tapes.first(std::min(tapes.size(), MostNamed)).join(QStringLiteral(", "));
    return QStringLiteral("%1: %2").arg(tapes.size()).arg(first) +
           (tapes.size() > MostNamed ? QStringLiteral(" ...") : QString());
}

/// The confs of a set that are there, by their usual places.
QStringList ConfsOf(const QString& folder)
{
    QStringList places;
    for (const int mode : {ModeLvl, ModeHlt, ModeHla, ModeEdi})
        places << Frame.ConfNames.at(size_t(mode));
    for (const ArtworkRow& row : Artworks())
        places << QLatin1String(row.Folder) + QLatin1String("/") + Frame.ConfNames.at(size_t(row.Mode));
    QStringList files;
    for (const QString& place : places)
        if (const QString file = paths::Existing(paths::Closed(folder) + place); !file.isEmpty())
            files << file;
    return files;
}

} // namespace

QStringList frmLVLManager::Run(QWidget* owner, const QString& archive)
{
    const ModalScope scope;
    frmLVLManager window(owner);
    QTimer::singleShot(1, &window, [&] { window.Opened(archive); }); // tmrLoad, tmrError
    window.hinders = window.manager.Open();
    window.ShowLists();
    window.exec();
    window.manager.Close();
    return window.wanted;
}

void frmLVLManager::Connect()
{
    soon.setSingleShot(true);
    soon.setInterval(FactsAfter);
    connect(&soon, &QTimer::timeout, this, &frmLVLManager::ShowFacts);
    connect(cmdScan, &QPushButton::clicked, this, &frmLVLManager::Scan);
    connect(cmdStop, &QPushButton::clicked, this, [] { StopRuns(StopReason::Break); });
    connect(cmdClose, &QPushButton::clicked, this, &frmLVLManager::reject);
    connect(txtFilter, &QLineEdit::textChanged, this, [this](const QString& text) {
        filter.setFilterFixedString(text);
        if (!treeLVL->currentIndex().isValid())
            treeLVL->setCurrentIndex(filter.index(0, 0));
        treeLVL->scrollTo(treeLVL->currentIndex());
        ShowButtons();
    });
    connect(treeLVL->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& now) {
        if (now.isValid() && filter.NodeOf(now) != manager.Selected())
            manager.SelectNode(filter.NodeOf(now));
        ShowButtons();
    });
    // A click beside the games leaves the one selected.
    connect(treeLVL->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!treeLVL->selectionModel()->hasSelection() && treeLVL->currentIndex().isValid())
            treeLVL->selectionModel()->select(treeLVL->currentIndex(), QItemSelectionModel::Select);
    });
    connect(treeLVL, &QTreeView::activated, this, &frmLVLManager::OpenConfs);
    connect(&manager, &LevelManager::NodeSelected, this, &frmLVLManager::ShowNode);
    connect(&manager, &LevelManager::CurrentGameShown, txtCurSetGame, &QLineEdit::setText);
    connect(&manager, &LevelManager::Busy, this, &frmLVLManager::ShowBusy);
    connect(&manager, &LevelManager::Progressed, this, &frmLVLManager::ShowProgress);
    connect(&manager, &LevelManager::Told, lblTold, &QLabel::setText);
    connect(&manager, &LevelManager::WorksChanged, this, [this] {
        ShowButtons();
        if (!manager.Works() && closing)
            QTimer::singleShot(0, this, &QDialog::reject);
    });
    ShowBusy({});
    ShowLists();
    ShowButtons();
}

void frmLVLManager::Opened(const QString& archive)
{
    if (!hinders.isEmpty()) {
        ShowMessage(message::PathError, hinders);
        QDialog::reject();
        return;
    }
    treeLVL->setFocus();
    treeLVL->setCurrentIndex(filter.index(filter.rowCount() - 1, 0));
    manager.ReadCurrentGame();
    if (archive.isEmpty())
        return;
    manager.TakeArchive(archive);
    ShowLists();
}

/// What needs a list shows once there is one.
void frmLVLManager::ShowLists()
{
    cmdScan->setText(manager.HasList() ? QStringLiteral("Re-scan Levels Folder")
                                       : QStringLiteral("Scan Levels Folder"));
    for (QWidget* part : {Frame2, Frame3, static_cast<QWidget*>(txtFilter), static_cast<QWidget*>(maps)})
        part->setVisible(manager.HasList());
}

void frmLVLManager::Scan()
{
    lblTold->clear();
    txtFilter->clear();
    treeLVL->hide();
    QApplication::setOverrideCursor(Qt::BusyCursor);
    manager.Scan();
    QApplication::restoreOverrideCursor();
    treeLVL->show();
    treeLVL->scrollTo(treeLVL->currentIndex());
    treeLVL->setFocus();
    ShowLists();
}

void frmLVLManager::ShowNode(int node)
{
    if (node < 0) {
        txtSelected->clear();
        txtSel2->clear();
        for (QLabel* fact : facts)
            fact->clear();
        maps->Show({}, {});
        return;
    }
    if (!filter.IndexOf(node).isValid())
        txtFilter->clear();
    if (filter.NodeOf(treeLVL->currentIndex()) != node)
        treeLVL->setCurrentIndex(filter.IndexOf(node));
    treeLVL->scrollTo(filter.IndexOf(node));
    const SetNode& game = *manager.SelectedNode();
    const QString root = manager.RootOf(game);
    txtSelected->setText(paths::Native(root));
    txtSel2->setText(paths::Native(game.Key.mid(root.size())));
    soon.start();
    ShowButtons();
}

void frmLVLManager::ShowButtons()
{
    const SetNode* game = treeLVL->currentIndex().isValid() ? manager.SelectedNode() : nullptr;
    const QString closed = game ? manager.WhyClosed(*game) : QString();
    const bool idle = !manager.Works();
    const auto enable = [&](QGroupBox& frame, const std::array<QPushButton*, 5>& buttons, bool shown) {
        frame.setEnabled(shown);
        for (QPushButton* button : buttons) {
            const bool barred = shown && !closed.isEmpty() && button->property("changes").toBool();
            button->setEnabled(shown && !barred);
            button->setToolTip(barred ? closed : QString());
        }
    };
    enable(*frmDir, cmdFolder, game && idle && !game->IsZipped());
    enable(*frmZip, cmdZip, game && idle && game->IsZipped());
    for (QWidget* part :
         {static_cast<QWidget*>(cmdScan), static_cast<QWidget*>(txtFilter), static_cast<QWidget*>(treeLVL)})
        part->setEnabled(idle);
}

void frmLVLManager::ShowFacts()
{
    const SetNode* game = manager.SelectedNode();
    if (!game || manager.Works())
        return;
    const SetFacts now = FactsOf(*game);
    const QString size = (now.More ? QStringLiteral("more than ") : QString()) +
                         QLocale().formattedDataSize(now.Bytes) + QStringLiteral(", %1 files").arg(now.Files);
    const QString texts[] = {now.Trouble.isEmpty() ? Dashed(now.Name) : now.Trouble, Dashed(now.Author),
                             QString::number(now.Levels), size, TapesText(now.Tapes)};
    for (size_t i = 0; i < facts.size(); ++i)
        facts[i]->setText(texts[i]);
    facts.back()->setToolTip(now.Tapes.join(QStringLiteral(", ")).toHtmlEscaped());
    maps->Show(FirstLevelsOf(*game, SetMaps::Most), game->OwnName());
}

void frmLVLManager::ShowBusy(const QString& text)
{
    busyText = text;
    cmdZipmess->setText(text);
    for (QWidget* part :
         {static_cast<QWidget*>(cmdZipmess), static_cast<QWidget*>(bar), static_cast<QWidget*>(cmdStop)})
        part->setVisible(!text.isEmpty());
    lblTold->setVisible(text.isEmpty());
    bar->setRange(0, 0);
}

void frmLVLManager::ShowProgress(int done, int of)
{
    constexpr int EveryFolders = 100;
    if (bar->maximum() != of)
        bar->setMaximum(of);
    if (of > 0)
        bar->setValue(done);
    else if (done % EveryFolders == 0)
        cmdZipmess->setText(busyText + QStringLiteral(": %1 folders").arg(done));
}

void frmLVLManager::OpenConfs()
{
    const SetNode* game = manager.SelectedNode();
    if (!game || manager.Works())
        return;
    if (game->IsZipped()) {
        manager.ViewZip();
        return;
    }
    wanted = ConfsOf(game->Key);
    if (wanted.isEmpty())
        lblTold->setText(QStringLiteral("This game has no conf files."));
    else
        accept();
}

/// What is under way ends first: the game by its player, the rest at once.
bool frmLVLManager::MayLeave()
{
    if (!manager.Works())
        return true;
    closing = true;
    if (RunInFront() && RunInFront()->Kind() == RunKind::Archive)
        StopRuns(StopReason::Break);
    else
        lblTold->setText(QStringLiteral("The window closes when the game has ended."));
    return false;
}

void frmLVLManager::reject()
{
    if (MayLeave())
        QDialog::reject();
}

void frmLVLManager::closeEvent(QCloseEvent* event)
{
    event->setAccepted(MayLeave());
    if (event->isAccepted())
        QDialog::closeEvent(event);
}

void frmLVLManager::dragEnterEvent(QDragEnterEvent* event)
{
    const QStringList files = LocalFiles(*event->mimeData());
    if (!manager.Works() && std::any_of(files.begin(), files.end(), IsArchive))
        AcceptAsCopy(*event);
}

void frmLVLManager::dropEvent(QDropEvent* event)
{
    const QStringList files = LocalFiles(*event->mimeData());
    AcceptAsCopy(*event);
    QTimer::singleShot(0, this, [this, files] { // the source waits until then
        for (const QString& file : files)
            if (IsArchive(file))
                manager.TakeArchive(file);
        ShowLists();
    });
}

void frmLVLManager::keyPressEvent(QKeyEvent* event)
{
    // Enter in the filter goes to the list.
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Down) &&
        txtFilter->hasFocus()) {
        treeLVL->setFocus();
        return;
    }
    QDialog::keyPressEvent(event);
}
