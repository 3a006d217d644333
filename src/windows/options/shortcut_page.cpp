#include "windows/options/shortcut_page.h"

#include "editor/make_pane.h"
#include "frame/frame_events.h"
#include "frame/messages/asker.h"
#include "frame/messages/messages.h"
#include "platform/files/paths.h"
#include "windows/options/key_line.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

namespace {

constexpr int EntryRole = Qt::UserRole, KeyRole = Qt::UserRole;
enum Column { CommandColumn, KeysColumn };

QString Shown(const QList<QKeySequence>& keys)
{
    QStringList texts;
    for (const QKeySequence& key : keys)
        texts << key.toString(QKeySequence::NativeText);
    return texts.join(QStringLiteral(", "));
}

/// Runs `visit` with each item that stands for a command.
template <class Visit>
void ForEachCommand(const QTreeWidget& tree, Visit visit)
{
    for (int group = 0; group < tree.topLevelItemCount(); ++group)
        for (int row = 0; row < tree.topLevelItem(group)->childCount(); ++row)
            visit(*tree.topLevelItem(group)->child(row));
}

} // namespace

ShortcutPage::ShortcutPage(int index, ShortcutTable given, QWidget* parent)
    : OptionPage(index, QStringLiteral("Shortcuts"), parent), table(std::move(given))
{
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->addWidget(MakeFinders(content));
    treeCommands = new QTreeWidget(content);
    treeCommands->setObjectName(QStringLiteral("treeCommands"));
    treeCommands->setAccessibleName(QStringLiteral("Commands"));
    treeCommands->setHeaderLabels({QStringLiteral("Command"), QStringLiteral("Keys")});
    treeCommands->header()->setSectionResizeMode(CommandColumn, QHeaderView::ResizeToContents);
    treeCommands->setMinimumHeight(fontMetrics().lineSpacing() * 8);
    connect(treeCommands, &QTreeWidget::currentItemChanged, this, &ShortcutPage::ShowSelected);
    column->addWidget(treeCommands, 1);
    column->addWidget(MakeKeys(content));
    SetContent(content);
    FillTree();
    ShowSelected();
}

QWidget* ShortcutPage::MakeFinders(QWidget* parent)
{
    auto* finders = new QWidget(parent);
    auto* row = new QHBoxLayout(finders);
    row->setContentsMargins({});
    txtFindCommand = new QLineEdit(finders);
    txtFindCommand->setObjectName(QStringLiteral("txtFindCommand"));
    txtFindCommand->setAccessibleName(QStringLiteral("Find a command by its name"));
    txtFindCommand->setPlaceholderText(txtFindCommand->accessibleName());
    txtFindCommand->setClearButtonEnabled(true);
    connect(txtFindCommand, &QLineEdit::textChanged, this, &ShortcutPage::ShowFound);
    txtFindKey = new KeyLine(QStringLiteral("txtFindKey"), QStringLiteral("Press a key to find its command"), finders);
    connect(txtFindKey, &KeyLine::KeyChanged, this, &ShortcutPage::FindKey);
    row->addWidget(txtFindCommand, 1);
    row->addWidget(txtFindKey, 1);
    return finders;
}

QPushButton* ShortcutPage::MakeButton(const char* name, const char* caption, void (ShortcutPage::*act)(),
                                      QWidget* parent)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

QWidget* ShortcutPage::MakeKeys(QWidget* parent)
{
    auto* keys = new QWidget(parent);
    auto* grid = new QGridLayout(keys);
    grid->setContentsMargins({});
    lblCommand = new QLabel(keys);
    lstKeys = new QListWidget(keys);
    lstKeys->setObjectName(QStringLiteral("lstKeys"));
    lstKeys->setAccessibleName(QStringLiteral("Keys of the command"));
    lstKeys->setFixedHeight(fontMetrics().lineSpacing() * 4);
    connect(lstKeys, &QListWidget::currentRowChanged, this, [this](int row) { cmdTake->setEnabled(row >= 0); });
    cmdTake = MakeButton("cmdTake", "Take Away", &ShortcutPage::TakeAway, keys);
    cmdReset = MakeButton("cmdReset", "Back To Shipped", &ShortcutPage::Reset, keys);
    txtNewKey = new KeyLine(QStringLiteral("txtNewKey"), QStringLiteral("Press a new key for it"), keys);
    connect(txtNewKey, &KeyLine::KeyChanged, this, &ShortcutPage::ShowNewKey);
    cmdGive = MakeButton("cmdGive", "Give", &ShortcutPage::Give, keys);
    lblKey = new QLabel(keys);
    lblKey->setObjectName(QStringLiteral("lblKey"));
    lblKey->setWordWrap(true);
    lblKey->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    cmdResetAll = MakeButton("cmdResetAll", "All Back To Shipped", &ShortcutPage::ResetAll, keys);
    cmdExport = MakeButton("cmdExport", "Export List...", &ShortcutPage::ExportList, keys);
    cmdExport->setToolTip(QStringLiteral("Writes a page with all keys, to print or to read"));
    grid->addWidget(lblCommand, 0, 0, 1, 3);
    grid->addWidget(lstKeys, 1, 0, 2, 1);
    grid->addWidget(cmdTake, 1, 1);
    grid->addWidget(cmdReset, 2, 1);
    grid->addWidget(cmdResetAll, 1, 2);
    grid->addWidget(cmdExport, 2, 2);
    grid->addWidget(txtNewKey, 3, 0);
    grid->addWidget(cmdGive, 3, 1);
    grid->addWidget(lblKey, 4, 0, 1, 3);
    grid->setColumnStretch(0, 1);
    return keys;
}

void ShortcutPage::FillTree()
{
    QTreeWidgetItem* group = nullptr;
    for (size_t i = 0; i < table.Entries().size(); ++i) {
        const ShortcutEntry& entry = table.Entries()[i];
        if (!group || group->text(CommandColumn) != entry.Group) {
            group = new QTreeWidgetItem(treeCommands, {entry.Group});
            group->setFlags(Qt::ItemIsEnabled);
            group->setExpanded(true);
        }
        auto* item = new QTreeWidgetItem(group, {entry.Caption});
        item->setData(CommandColumn, EntryRole, int(i));
    }
    ShowEntries();
}

/// The keys of all commands; those that are not as shipped stand out.
void ShortcutPage::ShowEntries()
{
    ForEachCommand(*treeCommands, [this](QTreeWidgetItem& item) {
        const auto entry = size_t(item.data(CommandColumn, EntryRole).toInt());
        item.setText(KeysColumn, Shown(table.Entries()[entry].Keys));
        QFont font = treeCommands->font();
        font.setBold(!table.IsShipped(entry));
        item.setFont(KeysColumn, font);
    });
}

void ShortcutPage::ShowFound()
{
    const QString wanted = txtFindCommand->text().trimmed();
    ForEachCommand(*treeCommands, [&](QTreeWidgetItem& item) {
        const QString whole = item.parent()->text(CommandColumn) + u' ' + item.text(CommandColumn);
        item.setHidden(!whole.contains(wanted, Qt::CaseInsensitive));
    });
    for (int group = 0; group < treeCommands->topLevelItemCount(); ++group) {
        QTreeWidgetItem* item = treeCommands->topLevelItem(group);
        bool shows = false;
        for (int row = 0; row < item->childCount(); ++row)
            shows = shows || !item->child(row)->isHidden();
        item->setHidden(!shows);
    }
}

void ShortcutPage::FindKey(const QKeySequence& key)
{
    if (key.isEmpty())
        return;
    if (const auto owner = table.OwnerOf(key)) {
        txtFindCommand->clear();
        SelectEntry(*owner);
        return;
    }
    const QString why = table.WhyNot(key);
    lblKey->setText(why.isEmpty() ? QStringLiteral("No command has this key.") : why);
}

void ShortcutPage::SelectEntry(size_t entry) const
{
    ForEachCommand(*treeCommands, [&](QTreeWidgetItem& item) {
        if (item.data(CommandColumn, EntryRole).toInt() == int(entry)) {
            treeCommands->setCurrentItem(&item);
            treeCommands->scrollToItem(&item);
        }
    });
}

std::vector<OptionPart> ShortcutPage::Parts() const
{
    std::vector<OptionPart> parts;
    for (size_t i = 0; i < table.Entries().size(); ++i) {
        const ShortcutEntry& entry = table.Entries()[i];
        parts.push_back(
            {entry.Caption, entry.Group, QStringLiteral("key keys ") + Shown(entry.Keys), treeCommands, [this, i] {
                 txtFindCommand->clear(); // what it hides cannot be led to
                 SelectEntry(i);
             }});
    }
    return parts;
}

std::optional<size_t> ShortcutPage::Selected() const
{
    const QTreeWidgetItem* item = treeCommands->currentItem();
    if (!item || !item->parent())
        return {};
    return size_t(item->data(CommandColumn, EntryRole).toInt());
}

void ShortcutPage::ShowSelected()
{
    const auto entry = Selected();
    lblCommand->setText(
        entry ? QStringLiteral("Keys of \"%1\"; the menu names the first").arg(table.Entries()[*entry].Caption)
              : QStringLiteral("Choose a command"));
    lstKeys->clear();
    if (entry)
        for (const QKeySequence& key : table.Entries()[*entry].Keys) {
            auto* item = new QListWidgetItem(key.toString(QKeySequence::NativeText), lstKeys);
            item->setData(KeyRole, key.toString(QKeySequence::PortableText));
        }
    lstKeys->setCurrentRow(lstKeys->count() == 1 ? 0 : -1);
    cmdTake->setEnabled(lstKeys->currentRow() >= 0);
    cmdReset->setEnabled(entry && !table.IsShipped(*entry));
    ShowNewKey();
}

/// What giving the key would do, before it is done.
void ShortcutPage::ShowNewKey()
{
    const QKeySequence key = txtNewKey->Key();
    const auto entry = Selected();
    const QString why = key.isEmpty() ? QString() : table.WhyNot(key);
    cmdGive->setEnabled(entry && !key.isEmpty() && why.isEmpty());
    if (key.isEmpty() || !why.isEmpty()) {
        lblKey->setText(why);
        return;
    }
    const auto owner = table.OwnerOf(key);
    if (owner && owner != entry)
        lblKey->setText(
            QStringLiteral("\"%1\" has this key now and would lose it.").arg(table.Entries()[*owner].Caption));
    else if (owner)
        lblKey->setText(QStringLiteral("The command has this key; Give puts it in front."));
    else if (IsKeyOfText(key[0]))
        lblKey->setText(QStringLiteral("The text itself uses this key; the command would take it."));
    else
        lblKey->setText(QStringLiteral("This key is free."));
}

void ShortcutPage::Give()
{
    const auto entry = Selected();
    if (!entry)
        return;
    table.Give(*entry, txtNewKey->Key(), true);
    txtNewKey->SetKey({});
    ShowEntries();
    ShowSelected();
}

void ShortcutPage::TakeAway()
{
    const auto entry = Selected();
    const QListWidgetItem* item = lstKeys->currentItem();
    if (!entry || !item)
        return;
    table.Take(*entry, QKeySequence(item->data(KeyRole).toString(), QKeySequence::PortableText));
    ShowEntries();
    ShowSelected();
}

void ShortcutPage::Reset()
{
    if (const auto entry = Selected())
        table.Reset(*entry);
    ShowEntries();
    ShowSelected();
}

void ShortcutPage::ResetAll()
{
    table.ResetAll();
    ShowEntries();
    ShowSelected();
}

void ShortcutPage::ExportList()
{
    const auto path = AskText(FileQuestion{FileQuestion::Save,
                                           QStringLiteral("Export Keys"),
                                           QStringLiteral("Web pages (*.html)|*.html"),
                                           {},
                                           QStringLiteral("keys.html")});
    if (!path)
        return;
    if (paths::FileExists(*path) && !Confirmed(message::OverwriteFile))
        return;
    if (const Result<> written = paths::WriteWhole(*path, table.Printable()); !written)
        ShowFailure(written.error());
}

void ShortcutPage::Apply()
{
    table.Store();
    emit Events().ShortcutsChanged();
}
