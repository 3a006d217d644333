#include "windows/game/frm_games.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "game/game_program.h"
#include "game/games.h"
#include "game/launcher.h"
#include "platform/files/paths.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum GamesColumn { NameColumn, VersionColumn, ArgumentsColumn, PathColumn };

/// The list as it stands in user.ini: every change is written at once. Versions are read one after the other once the
/// window is there.
class frmGames : public QDialog
{
public:
    explicit frmGames(QWidget* owner);
    void done(int result) override;

private:
    QTreeWidgetItem* AddRow(const GameEntry& game);
    GameEntry EntryOf(const QTreeWidgetItem& item) const;
    QTreeWidgetItem* Selected() const { return treeGames->selectedItems().value(0); }
    void MarkInUse();
    void UpdateButtons();
    void Save();
    QTreeWidgetItem* RowOf(const QString& program) const;
    void ShowFields();
    void TakeFields();
    void ReadVersions();
    void AddGame();
    void FindGames();
    void UseSelected();
    void UseIfNone(const QString& program);
    void Use(const QString& program);
    void RemoveSelected();

    QTreeWidget* treeGames;
    QLineEdit *txtName, *txtArguments;
    QPushButton *cmdAdd, *cmdFind, *cmdUse, *cmdRemove, *cmdClose;
};

frmGames::frmGames(QWidget* owner) : QDialog(DialogParent(owner))
{
    setObjectName(QStringLiteral("frmGames"));
    SetHelpSubject(this, HelpIdFor("games"));
    setWindowTitle(QStringLiteral("Gemforge - Games"));
    treeGames = new QTreeWidget(this);
    treeGames->setObjectName(QStringLiteral("treeGames"));
    treeGames->setAccessibleName(QStringLiteral("Games"));
    treeGames->setHeaderLabels(
        {QStringLiteral("Name"), QStringLiteral("Version"), QStringLiteral("Arguments"), QStringLiteral("Program")});
    treeGames->setRootIsDecorated(false);
    treeGames->setAllColumnsShowFocus(true);
    const auto button = [this](const char* name, const char* caption) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name));
        made->setAutoDefault(false); // Enter belongs to the list
        return made;
    };
    cmdAdd = button("cmdAdd", "&Add...");
    cmdFind = button("cmdFind", "&Find");
    cmdUse = button("cmdUse", "&Use");
    cmdRemove = button("cmdRemove", "&Remove");
    cmdClose = button("cmdClose", "C&lose");
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtArguments = new QLineEdit(this);
    txtArguments->setObjectName(QStringLiteral("txtArguments"));
    auto* fields = new QFormLayout;
    fields->addRow(QStringLiteral("&Name:"), txtName);
    fields->addRow(QStringLiteral("Argumen&ts:"), txtArguments);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* one : {cmdAdd, cmdFind, cmdUse, cmdRemove})
        buttons->addWidget(one);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* column = new QVBoxLayout(this);
    column->addWidget(treeGames, 1);
    column->addLayout(fields);
    column->addLayout(buttons);
    resize(Pixels(*this, 620), Pixels(*this, 300));
    const int widths[] = {150, 80, 130};
    for (int i = 0; i < 3; ++i)
        treeGames->setColumnWidth(i, Pixels(*this, widths[i]));

    connect(treeGames, &QTreeWidget::itemSelectionChanged, this, [this] {
        UpdateButtons();
        ShowFields();
    });
    connect(treeGames, &QTreeWidget::itemActivated, this, [this] { UseSelected(); });
    for (QLineEdit* field : {txtName, txtArguments})
        connect(field, &QLineEdit::editingFinished, this, [this] { TakeFields(); });
    connect(cmdAdd, &QPushButton::clicked, this, [this] { AddGame(); });
    connect(cmdFind, &QPushButton::clicked, this, [this] { FindGames(); });
    connect(cmdUse, &QPushButton::clicked, this, [this] { UseSelected(); });
    connect(cmdRemove, &QPushButton::clicked, this, [this] { RemoveSelected(); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    for (const GameEntry& game : LoadGames())
        AddRow(game);
    treeGames->setCurrentItem(treeGames->topLevelItem(0));
    MarkInUse();
    UpdateButtons();
    ShowFields();
    treeGames->setFocus();
    QTimer::singleShot(0, this, [this] { ReadVersions(); });
}

/// A version that is still asked for is of no use then.
void frmGames::done(int result)
{
    if (RunInFront())
        StopRuns(StopReason::Break);
    QDialog::done(result);
}

QTreeWidgetItem* frmGames::AddRow(const GameEntry& game)
{
    const QString name = game.Name.isEmpty() ? paths::FileNameOfPath(game.Program) : game.Name;
    auto* item = new QTreeWidgetItem(treeGames, {name, {}, ArgumentText(game.Arguments), paths::Native(game.Program)});
    item->setToolTip(PathColumn, item->text(PathColumn));
    return item;
}

GameEntry frmGames::EntryOf(const QTreeWidgetItem& item) const
{
    return {item.text(NameColumn), paths::Inside(item.text(PathColumn)), CommandWords(item.text(ArgumentsColumn))};
}

QTreeWidgetItem* frmGames::RowOf(const QString& program) const
{
    for (int row = 0; row < treeGames->topLevelItemCount(); ++row)
        if (paths::Canonical(EntryOf(*treeGames->topLevelItem(row)).Program) == paths::Canonical(program))
            return treeGames->topLevelItem(row);
    return nullptr;
}

void frmGames::ShowFields()
{
    const QTreeWidgetItem* item = Selected();
    txtName->setText(item ? item->text(NameColumn) : QString());
    txtArguments->setText(item ? item->text(ArgumentsColumn) : QString());
    for (QLineEdit* field : {txtName, txtArguments})
        field->setEnabled(item != nullptr);
}

void frmGames::TakeFields()
{
    QTreeWidgetItem* item = Selected();
    if (!item)
        return;
    item->setText(NameColumn, txtName->text().trimmed());
    item->setText(ArgumentsColumn, txtArguments->text().trimmed());
    Save();
}

void frmGames::MarkInUse()
{
    const QString inUse = paths::Canonical(Frame.Settings.RNDPath);
    for (int row = 0; row < treeGames->topLevelItemCount(); ++row) {
        QTreeWidgetItem& item = *treeGames->topLevelItem(row);
        const bool used = paths::Canonical(EntryOf(item).Program) == inUse;
        QFont font = treeGames->font();
        font.setBold(used);
        item.setFont(NameColumn, font);
        item.setIcon(NameColumn, used ? CommandIcon(QStringLiteral("run_rnd")) : QIcon());
        item.setData(NameColumn, Qt::AccessibleDescriptionRole, used ? QStringLiteral("in use") : QString());
    }
}

void frmGames::UpdateButtons()
{
    const QTreeWidgetItem* item = Selected();
    const bool used = item && paths::Canonical(EntryOf(*item).Program) == paths::Canonical(Frame.Settings.RNDPath);
    cmdUse->setEnabled(item && !used);
    cmdRemove->setEnabled(item && !used);
}

void frmGames::Save()
{
    std::vector<GameEntry> games;
    for (int row = 0; row < treeGames->topLevelItemCount(); ++row)
        games.push_back(EntryOf(*treeGames->topLevelItem(row)));
    SaveGames(games);
}

void frmGames::ReadVersions()
{
    QStringList programs;
    for (int row = 0; row < treeGames->topLevelItemCount(); ++row)
        programs << EntryOf(*treeGames->topLevelItem(row)).Program;
    for (const QString& program : programs) {
        const auto version = ProveGame(program);
        QTreeWidgetItem* item = RowOf(program); // it may have been removed meanwhile
        if (!isVisible())
            return;
        if (!item)
            continue;
        item->setText(VersionColumn, version ? *version : QStringLiteral("no game"));
        item->setToolTip(VersionColumn, version ? QString() : version.error().Reason);
    }
}

void frmGames::AddGame()
{
    const auto told = AskText(FileQuestion{.Title = QStringLiteral("Locate Rocks'n'Diamonds Executable"),
                                           .Filter = QStringLiteral("Programs (*)|*"),
                                           .Folder = paths::FolderOfPath(Frame.Settings.RNDPath),
                                           .Preset = {}});
    if (!told || told->isEmpty())
        return;
    const QString program = paths::Inside(*told);
    const auto version = ProveGame(program);
    if (!isVisible())
        return;
    if (!version) {
        ShowMessage(message::NotTheGame);
        return;
    }
    QTreeWidgetItem* item = RowOf(program);
    if (!item)
        item = AddRow({QStringLiteral("Rocks'n'Diamonds ") + *version, program, {}});
    item->setText(VersionColumn, *version);
    treeGames->setCurrentItem(item);
    Save();
    UseIfNone(program);
}

void frmGames::FindGames()
{
    const int before = treeGames->topLevelItemCount();
    for (const QString& program : GameCandidates()) {
        if (RowOf(program))
            continue;
        const auto version = ProveGame(program);
        if (!isVisible())
            return;
        if (!version)
            continue;
        QTreeWidgetItem* item = AddRow({QStringLiteral("Rocks'n'Diamonds ") + *version, program, {}});
        item->setText(VersionColumn, *version);
        treeGames->setCurrentItem(item);
        UseIfNone(program);
    }
    if (treeGames->topLevelItemCount() == before)
        ShowNotice(QStringLiteral("No game was found that is not listed."));
    Save();
}

void frmGames::UseSelected()
{
    const QTreeWidgetItem* item = Selected();
    if (!item)
        return;
    const QString program = EntryOf(*item).Program;
    const bool isGame = ProveGame(program).has_value();
    if (!isVisible())
        return;
    if (isGame)
        Use(program);
    else
        ShowMessage(message::NotTheGame);
}

void frmGames::UseIfNone(const QString& program)
{
    if (!paths::FileExists(Frame.Settings.RNDPath))
        Use(program);
}

void frmGames::Use(const QString& program)
{
    UseGame(program);
    if (!paths::FolderExists(Frame.Settings.LevelsFolder))
        ShowMessage(message::LevelsFolderMissing);
    Save();
    MarkInUse();
    UpdateButtons();
}

void frmGames::RemoveSelected()
{
    delete Selected();
    Save();
    UpdateButtons();
}

} // namespace

void RunGamesWindow(QWidget* owner)
{
    const ModalScope scope;
    frmGames window(owner);
    window.exec();
}
