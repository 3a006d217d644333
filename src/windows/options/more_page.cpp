#include "windows/options/more_page.h"

#include "frame/frame_state.h"
#include "frame/messages/asker.h"
#include "frame/messages/messages.h"
#include "platform/files/paths.h"
#include "services/file_associations.h"
#include "services/registry_store.h"
#include "windows/options/general_rows.h"
#include "windows/parts/frame_columns.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

struct MoreTick
{
    const char *Control, *Caption, *Key, *Tip;
};

constexpr MoreTick ViewTicks[] = {
    {"chkLineNumbers", "Line Numbers", "ShowLineNumbers", "Lines are numbered"},
    {"chkSpaces", "Spaces + Tabs", "ShowSpaces", "Blanks and tabs show"},
    {"chkSyntaxColours", "Syntax Colours", "UseColour", "Words are coloured by what they are"},
    {"chkSuperTab", "Super Tab", "SuperTab", "Tab goes to the column of the values"},
    {"chkLineHints", "Line Hints", "LineHints", "Marks beside lines that something is to be said of"},
    {"chkThumbnails", "Thumbnails", "Thumbnails", "The media lists show small pictures"},
};
constexpr MoreTick AskTicks[] = {
    {"chkAskBeforeMacros", "Before A New Macro Runs", "AskBeforeMacros",
     "A macro that has not run here yet is asked about"},
    {"chkWelcome", "Welcome At The Start", "1stTime", "The welcome shows at each start"},
};
struct MoreFrame
{
    const char* Title;
    std::span<const MoreTick> Ticks;
};
constexpr MoreFrame TickFrames[] = {{"View", ViewTicks}, {"Questions", AskTicks}};

bool IsOn(const SettingRow& row)
{
    return SettingNow(row).toInt() == 1;
}

} // namespace

MorePage::MorePage(int index, QWidget* parent) : OptionPage(index, QStringLiteral("More Options"), parent)
{
    auto* content = new QWidget(this);
    auto* columns = new FrameColumns(content);
    columns->WishedColumns = 2;
    for (const MoreFrame& row : TickFrames) {
        auto* frame = new QGroupBox(QString::fromLatin1(row.Title), content);
        auto* column = new QVBoxLayout(frame);
        for (const MoreTick& tick : row.Ticks) {
            auto* box = new QCheckBox(QString::fromLatin1(tick.Caption), frame);
            const SettingRow& setting = MiscSetting(tick.Key);
            box->setObjectName(QString::fromLatin1(tick.Control));
            box->setToolTip(QString::fromLatin1(tick.Tip));
            box->setChecked(IsOn(setting));
            NameSetting(*box, tick.Key);
            column->addWidget(box);
            ticks.emplace_back(box, &setting);
        }
        columns->addWidget(frame);
    }
    columns->addWidget(MakeEditor(content));
    columns->addWidget(MakeScreenReader(content));
    columns->addWidget(MakeFileTypes(content));
    SetContent(content);
}

QGroupBox* MorePage::MakeEditor(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Image Editor"), parent);
    auto* row = new QHBoxLayout(frame);
    txtImageEditor = new QLineEdit(paths::Native(Frame.Settings.ImageEditor), frame);
    txtImageEditor->setObjectName(QStringLiteral("txtImageEditor"));
    txtImageEditor->setAccessibleName(frame->title());
    txtImageEditor->setPlaceholderText(QStringLiteral("the desktop's own"));
    txtImageEditor->setToolTip(QStringLiteral("The program that opens the image of a sheet"));
    NameSetting(*txtImageEditor, "ImageEditor");
    auto* choose = new QPushButton(QStringLiteral("..."), frame);
    choose->setObjectName(QStringLiteral("cmdGetImageEditor"));
    choose->setAccessibleName(QStringLiteral("Choose the image editor"));
    choose->setAutoDefault(false);
    choose->setMaximumWidth(choose->fontMetrics().averageCharWidth() * 7);
    connect(choose, &QPushButton::clicked, this, &MorePage::ChooseEditor);
    row->addWidget(txtImageEditor, 1);
    row->addWidget(choose);
    return frame;
}

QGroupBox* MorePage::MakeScreenReader(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Screen Reader"), parent);
    auto* column = new QVBoxLayout(frame);
    cmbScreenReader = new QComboBox(frame);
    cmbScreenReader->setObjectName(QStringLiteral("cmbScreenReader"));
    cmbScreenReader->setAccessibleName(QStringLiteral("Texts for a screen reader"));
    cmbScreenReader->addItems({QStringLiteral("Texts can be read while one runs"),
                               QStringLiteral("Texts can always be read"), QStringLiteral("Texts cannot be read")});
    cmbScreenReader->setToolTip(QStringLiteral("From the next start on. Long texts are faster without"));
    cmbScreenReader->setCurrentIndex(Frame.Settings.ScreenReader);
    NameSetting(*cmbScreenReader, "ScreenReader");
    column->addWidget(cmbScreenReader);
    return frame;
}

QGroupBox* MorePage::MakeFileTypes(QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("File Types"), parent);
    auto* column = new QVBoxLayout(frame);
    lblFileTypes = new QLabel(frame);
    lblFileTypes->setObjectName(QStringLiteral("lblFileTypes"));
    lblFileTypes->setWordWrap(true);
    cmdUndoFileTypes = new QPushButton(QStringLiteral("Undo"), frame);
    cmdUndoFileTypes->setObjectName(QStringLiteral("cmdUndoFileTypes"));
    cmdUndoFileTypes->setAccessibleName(QStringLiteral("Undo the file types"));
    cmdUndoFileTypes->setToolTip(QStringLiteral("The files open again with what opened them before; done at once"));
    cmdUndoFileTypes->setAutoDefault(false);
    connect(cmdUndoFileTypes, &QPushButton::clicked, this, &MorePage::TakeBackFileTypes);
    column->addWidget(lblFileTypes);
    column->addWidget(cmdUndoFileTypes, 0, Qt::AlignLeft);
    return frame;
}

/// An Apply of the first page may have made file types.
void MorePage::showEvent(QShowEvent* event)
{
    OptionPage::showEvent(event);
    ShowFileTypes();
}

void MorePage::ChooseEditor()
{
    const auto chosen = AskText(FileQuestion{.Title = QStringLiteral("Locate An Image Editor"),
                                             .Filter = QStringLiteral("Programs (*)|*"),
                                             .Folder = paths::FolderOfPath(Frame.Settings.ImageEditor),
                                             .Preset = {}});
    if (chosen)
        txtImageEditor->setText(paths::Native(*chosen));
}

void MorePage::ShowFileTypes()
{
    const bool there = file_types::Associated(file_types::OfUser());
    lblFileTypes->setText(
        there ? QStringLiteral("The desktop knows Gemforge's file types. Undo takes them back.")
              : QStringLiteral("The desktop knows none of Gemforge's file types. General Options make them."));
    cmdUndoFileTypes->setEnabled(there);
}

void MorePage::TakeBackFileTypes()
{
    RegistryStore store;
    if (const Result<> back = TakeBackFiles(file_types::OfUser(), store); !back)
        ShowFailure(back.error());
    else
        Tell(QStringLiteral("Taken back."));
    ShowFileTypes();
}

void MorePage::Apply()
{
    for (const auto& [box, setting] : ticks)
        if (box->isChecked() != IsOn(*setting))
            ChangeSetting(*setting, box->isChecked() ? 1 : 0);
    ChangeSetting(MiscSetting("ImageEditor"), txtImageEditor->text().trimmed());
    ChangeSetting(MiscSetting("ScreenReader"), cmbScreenReader->currentIndex());
}
