#include "windows/options/general_page.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/settings/option_limits.h"
#include "frame/settings/settings.h"
#include "platform/paths.h"
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

const QString MiscSection = QStringLiteral("Misc");
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
            box->setChecked(row.Flags(Frame.Settings)[i] == 1);
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
        if (row.Value)
            box->setChecked(Frame.Settings.*row.Value == 1);
        else if (row.Key)
            box->setChecked(ReadIni(MiscSection, Latin(row.Key)) == QLatin1StringView("1"));
        chkOther[row.Index] = box;
    }
    return frame;
}

QGroupBox* GeneralPage::MakeLimits(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Limits"), parent);
    auto* form = new QFormLayout(frame);
    for (const LimitRow& row : LimitRows()) {
        QLineEdit* box = MakeBox(row.Control, LimitColumns, frame);
        box->setToolTip(row.Lowest < 0 ? QStringLiteral("0 to %1; -1: without a limit").arg(row.Highest)
                                       : QStringLiteral("%1 to %2").arg(row.Lowest).arg(row.Highest));
        box->setText(QString::number(Frame.Settings.*row.Value));
        connect(box, &QLineEdit::editingFinished, this,
                [box, row] { box->setText(CheckLimit(box->text(), row.MaxLength, row.Lowest, row.Highest)); });
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
    form->addRow(QStringLiteral("Search"), txtSearch);
    form->addRow(QStringLiteral("Line"), txtline);
    form->addRow(chkSortComList);
    return frame;
}

void GeneralPage::FindTheGame()
{
    const std::optional<QString> chosen = AskForGame(Frame.Settings.RNDPath);
    if (!chosen || !IsTheGame(*chosen, ports.ProveGame))
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
    ApplyMisc(ConfFilesBox, 9);
    emit Events().MenuStripsChanged(Frame.Settings.Gradients == 1);
    ApplyCharacters();
    ApplyLimits();
    Frame.Settings.RNDPath = paths::Inside(txtRndPath->text().trimmed());
    WriteIni(Frame.Settings.RNDPath, MiscSection, QStringLiteral("RNDPath"));
    DeriveGameFolders();
    lookedElsewhere = false;
    ApplyFlags();
}

void GeneralPage::ApplyMisc(int first, int last)
{
    for (const TickRow& row : MiscTicks()) {
        if (row.Index < first || row.Index > last || !row.Key)
            continue;
        const int value = Ticked(row.Index) ? 1 : 0;
        if (row.Value)
            Frame.Settings.*row.Value = value;
        WriteIni(value, MiscSection, Latin(row.Key));
    }
}

void GeneralPage::ApplyCharacters()
{
    SettingsRecord& settings = Frame.Settings;
    const auto take = [](const QLineEdit& box, QString& value, const char* key) {
        if (box.text().isEmpty())
            return;
        value = box.text();
        WriteIni(value, MiscSection, Latin(key));
    };
    take(*txtSearch, settings.LineCommentSearchChar, "LineCommentSearchChar");
    take(*txtline, settings.LineCommentLineChar, "LineCommentLineChar");
    settings.SortGotoList = chkSortComList->isChecked() ? 1 : 0;
    WriteIni(settings.SortGotoList, MiscSection, QStringLiteral("SortGotoList"));
}

void GeneralPage::ApplyLimits()
{
    SettingsRecord& settings = Frame.Settings;
    for (const LimitRow& row : LimitRows()) {
        settings.*row.Value = limits.at(Latin(row.Control))->text().toInt();
        WriteIni(settings.*row.Value, MiscSection, Latin(row.Key));
    }
    ApplyViewSetting(4, settings.UndoLimit);
    ApplyViewSetting(5, settings.SpacerWidth);
}

void GeneralPage::ApplyFlags()
{
    for (const FlagFrame& row : FlagFrames()) {
        const std::vector<QCheckBox*>& boxes = flags.at(Latin(row.Section));
        for (size_t i = 0; i < boxes.size(); ++i) {
            const int value = boxes[i]->isChecked() ? 1 : 0;
            row.Flags(Frame.Settings)[i] = value;
            WriteIni(value, Latin(row.Section), QString::number(i));
        }
    }
}
