#include "windows/options/general_page.h"

#include "frame/frame_state.h"
#include "frame/messages/messages.h"
#include "frame/settings/option_limits.h"
#include "platform/files/paths.h"
#include "services/file_associations.h"
#include "services/registry_store.h"
#include "windows/options/find_game.h"
#include "windows/options/general_rows.h"
#include "windows/parts/frame_columns.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int CharacterColumns = 4, LimitColumns = 6; // widths of boxes in characters

QString Latin(const char* text)
{
    return QString::fromLatin1(text);
}

QCheckBox* MakeTick(const char* caption, const QString& name, QGroupBox* frame)
{
    auto* box = new QCheckBox(Latin(caption), frame);
    box->setObjectName(name);
    frame->layout()->addWidget(box);
    return box;
}

QGroupBox* MakeFrame(const char* title, QWidget* parent)
{
    auto* frame = new QGroupBox(Latin(title), parent);
    new QVBoxLayout(frame);
    return frame;
}

QLineEdit* MakeBox(const char* name, int characters, QWidget* parent)
{
    auto* box = new QLineEdit(parent);
    box->setObjectName(Latin(name));
    box->setMinimumWidth(box->fontMetrics().averageCharWidth() * (characters + 3));
    box->setMaximumWidth(box->fontMetrics().averageCharWidth() * (characters + 6));
    return box;
}

} // namespace

GeneralPage::GeneralPage(int index, OptionsPorts given, QWidget* parent)
    : OptionPage(index, QStringLiteral("General Options"), parent), ports(std::move(given))
{
    auto* content = new QWidget(this);
    auto* columns = new FrameColumns(content);
    columns->addWidget(MakeMisc(content));
    columns->addWidget(MakeLimits(content));
    columns->addWidget(MakePath(content));
    columns->addWidget(MakeGotoComment(content));
    for (const FlagFrame& row : FlagFrames()) {
        QGroupBox* frame = MakeFrame(row.Title, content);
        for (size_t i = 0; i < row.Captions.size(); ++i) {
            QCheckBox* box = MakeTick(row.Captions[i], Latin(row.Control) + QString::number(i), frame);
            box->setChecked(SettingNow(FlagOf(row, i)).toInt() == 1);
            NameSetting(*box, row.Section);
            flags[Latin(row.Section)].push_back(box);
        }
        columns->addWidget(frame);
    }
    SetContent(content);
}

GeneralPage::~GeneralPage()
{
    if (lookedElsewhere && Frame.Host)
        DeriveGameFolders();
}

QGroupBox* GeneralPage::MakeMisc(QWidget* parent)
{
    QGroupBox* frame = MakeFrame("Misc", parent);
    for (const TickRow& row : MiscTicks()) {
        QCheckBox* box = MakeTick(row.Caption, QStringLiteral("chkOther%1").arg(row.Index), frame);
        box->setToolTip(Latin(row.Tip));
        if (row.Key) {
            box->setChecked(SettingNow(MiscSetting(row.Key)).toInt() == 1);
            NameSetting(*box, row.Key);
        }
        chkOther[row.Index] = box;
    }
    NameSetting(*chkOther[SavePositionBox], "Window Positions Left Top Width Height Max");
    return frame;
}

QGroupBox* GeneralPage::MakeLimits(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Limits"), parent);
    auto* form = new QFormLayout(frame);
    for (const LimitRow& row : LimitRows()) {
        QLineEdit* box = MakeBox(row.Control, LimitColumns, frame);
        const SettingRow& setting = MiscSetting(row.Key);
        box->setToolTip(setting.Low < 0 ? QStringLiteral("0 to %1; -1: without a limit").arg(setting.High)
                                        : QStringLiteral("%1 to %2").arg(setting.Low).arg(setting.High));
        box->setText(SettingNow(setting).toString());
        NameSetting(*box, row.Key);
        connect(box, &QLineEdit::editingFinished, this, [box, row, &setting] {
            box->setText(CheckLimit(box->text(), row.MaxLength, setting.Low, setting.High));
        });
        form->addRow(Latin(row.Caption), box);
        limits[Latin(row.Control)] = box;
    }
    return frame;
}

QGroupBox* GeneralPage::MakePath(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Rocks'n'Diamonds Path"), parent);
    auto* row = new QHBoxLayout(frame);
    txtRndPath = new QLineEdit(paths::Native(Frame.Settings.RNDPath), frame);
    txtRndPath->setObjectName(QStringLiteral("txtRndPath"));
    txtRndPath->setAccessibleName(frame->title());
    NameSetting(*txtRndPath, "RNDPath");
    auto* cmdGetRnDPath = new QPushButton(QStringLiteral("..."), frame);
    cmdGetRnDPath->setObjectName(QStringLiteral("cmdGetRnDPath"));
    cmdGetRnDPath->setAccessibleName(QStringLiteral("Locate the game"));
    cmdGetRnDPath->setToolTip(QStringLiteral("Choose the game's program; it is run once to see that it is the game"));
    cmdGetRnDPath->setAutoDefault(false);
    cmdGetRnDPath->setMaximumWidth(cmdGetRnDPath->fontMetrics().averageCharWidth() * 7);
    connect(cmdGetRnDPath, &QPushButton::clicked, this, &GeneralPage::FindTheGame);
    row->addWidget(txtRndPath, 1);
    row->addWidget(cmdGetRnDPath);
    return frame;
}

QGroupBox* GeneralPage::MakeGotoComment(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Goto Comment"), parent);
    auto* form = new QFormLayout(frame);
    txtSearch = MakeBox("txtSearch", CharacterColumns, frame);
    txtline = MakeBox("txtline", CharacterColumns, frame);
    txtSearch->setText(Frame.Settings.LineCommentSearchChar);
    txtline->setText(Frame.Settings.LineCommentLineChar);
    connect(txtSearch, &QLineEdit::editingFinished, this,
            [this] { txtSearch->setText(CheckSearchChar(txtSearch->text(), txtline->text())); });
    connect(txtline, &QLineEdit::editingFinished, this,
            [this] { txtline->setText(CheckLineChar(txtline->text(), txtSearch->text())); });
    chkSortComList = new QCheckBox(QStringLiteral("Sort Comment List"), frame);
    chkSortComList->setObjectName(QStringLiteral("chkSortComList"));
    chkSortComList->setChecked(Frame.Settings.SortGotoList == 1);
    NameSetting(*txtSearch, "LineCommentSearchChar");
    NameSetting(*txtline, "LineCommentLineChar");
    NameSetting(*chkSortComList, "SortGotoList");
    form->addRow(QStringLiteral("Search"), txtSearch);
    form->addRow(QStringLiteral("Line"), txtline);
    form->addRow(chkSortComList);
    return frame;
}

void GeneralPage::FindTheGame()
{
    const std::optional<QString> chosen = AskForGame(Frame.Settings.RNDPath);
    if (!chosen || !IsTheGame(*chosen))
        return;
    txtRndPath->setText(paths::Native(*chosen));
    lookedElsewhere = true;
    ShowGameFolders(*chosen);
}

bool GeneralPage::Ticked(int index) const
{
    return chkOther.at(index)->isChecked();
}

/// A box that still has the focus has not been looked at yet.
void GeneralPage::CheckLimits()
{
    for (const auto& [control, box] : limits)
        emit box->editingFinished();
    emit txtSearch->editingFinished();
    emit txtline->editingFinished();
}

void GeneralPage::Apply()
{
    CheckLimits();
    if (Ticked(SavePositionBox)) {
        ports.SaveCoolbar();
        ports.SaveWindowPosition();
    }
    ApplyMisc();
    ApplyCharacters();
    for (const LimitRow& row : LimitRows())
        ChangeSetting(MiscSetting(row.Key), limits.at(Latin(row.Control))->text());
    ChangeSetting(MiscSetting("RNDPath"), txtRndPath->text().trimmed());
    lookedElsewhere = false;
    for (const FlagFrame& row : FlagFrames())
        for (size_t i = 0; i < row.Captions.size(); ++i)
            ChangeSetting(FlagOf(row, i), flags.at(Latin(row.Section))[i]->isChecked() ? 1 : 0);
}

void GeneralPage::ApplyMisc()
{
    for (const TickRow& row : MiscTicks()) {
        if (row.Key)
            ChangeSetting(MiscSetting(row.Key), Ticked(row.Index) ? 1 : 0);
        else if (row.Index == ConfFilesBox && Ticked(row.Index))
            AssociateTicked(file_types::Group::Confs);
        else if (row.Index == LevelFilesBox && Ticked(row.Index))
            AssociateTicked(file_types::Group::Levels);
    }
}

void GeneralPage::AssociateTicked(file_types::Group group)
{
    RegistryStore store;
    const file_types::Places places = file_types::OfUser();
    const bool missing = !paths::FileExists(file_types::ProgramOf(group, places));
    if (missing && group == file_types::Group::Levels) {
        ShowMessage(message::MapglassMissing);
        return;
    }
    if (const Result<> made = AssociateFiles(group, places, store); !made)
        ShowFailure(made.error());
}

void GeneralPage::ApplyCharacters()
{
    const auto take = [](const QLineEdit& box, const char* key) {
        if (!box.text().isEmpty())
            ChangeSetting(MiscSetting(key), box.text());
    };
    take(*txtSearch, "LineCommentSearchChar");
    take(*txtline, "LineCommentLineChar");
    ChangeSetting(MiscSetting("SortGotoList"), chkSortComList->isChecked() ? 1 : 0);
}
