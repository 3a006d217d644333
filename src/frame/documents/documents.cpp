#include "frame/documents/documents.h"

#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "platform/paths.h"

namespace {

/// The commands that only some modes have; the first column of each is its menu entry.
constexpr std::array<const char*, 8> ModeCommands = {"mnuSelectEleBlock", "mnuFinishEle",     "mnuEditAnimation",
                                                     "mnuEditEdCom",      "mnuEDViewElement", "mnuRndFastLoad",
                                                     "mnuRNDLevPal",      "mnuExtraHeadline"};

} // namespace

const std::array<ModeRow, ModeCount>& Modes()
{
    constexpr const char* Nothing = "*.1xxx9"; // fits no file
    constexpr const char* Sheets = "*.pcx";
    static constexpr std::array<ModeRow, ModeCount> Rows = {{
        {"TXT", "Text Mode  ", Nothing, Nothing, {}, false},
        {"GFX",
         "Graphics Mode  ",
         Sheets,
         Sheets,
         {"mnuSelectEleBlock", "mnuFinishEle", "mnuEditAnimation", "mnuEditEdCom", "mnuEDViewElement", "mnuRndFastLoad",
          "mnuRNDLevPal"},
         true},
        {"SFX", "Sound Mode  ", "*.wav", Nothing, {"mnuEDViewElement"}, false},
        {"MUS", "Music Mode  ", "*.wav;*.mp3;*.mid;*.mod;*.mdz;*.s3m;*.xm;*.it", Nothing, {"mnuEDViewElement"}, false},
        {"LVL", "Level Mode  ", "*.level", Nothing, {}, false},
        {"HLT", "HelpText Mode  ", Sheets, Sheets, {}, false},
        {"HLA", "HelpAnim Mode  ", Sheets, Sheets, {}, false},
        {"EDI", "Editor Mode  ", Sheets, Sheets, {"mnuExtraHeadline"}, true},
    }};
    return Rows;
}

QString ModeName(int mode)
{
    return QString::fromLatin1(Modes().at(mode).Name);
}

int ModeFromFileName(const QString& name)
{
    int mode = ModeTxt;
    for (int i = 0; i < ModeCount; ++i)
        if (Frame.ConfNames.at(i) == name)
            mode = i;
    return mode;
}

EditorPane& CurrentPane()
{
    return Host().Pane(Frame.CurrentTab);
}

void ShowTab(int tab)
{
    Host().SetTab(tab, Frame.Documents.at(tab).Face);
}

void SetMode(int mode)
{
    const ModeRow& row = Modes().at(mode);
    Frame.CurrentMode = mode;
    Host().SetPanel(1, ModeName(mode), mode + 1);
    Host().SetCaption(QStringLiteral("Gemforge - ") + ModeName(mode));
    for (const char* command : ModeCommands)
        Host().EnableCommand(QString::fromLatin1(command), false, false);
    Document& document = Frame.Documents.at(Frame.CurrentTab);
    document.Mode = mode;
    document.Face.Picture = mode + 1;
    ShowTab(Frame.CurrentTab);
    ShowMedia();
    const QString language = QString::fromLatin1(row.Language);
    EditorPane& pane = CurrentPane();
    if (Frame.ForceLanguage || pane.Language() != language)
        pane.SetLanguage(language);
    for (const char* command : row.Commands)
        if (command)
            Host().EnableCommand(QString::fromLatin1(command), true, row.Buttons);
}

void UpdateCaretStatus(EditorPane& pane)
{
    const Range at = pane.GetSel(true);
    pane.SetHighlightedLine(at.StartLine);
    Host().SetPanel(2, QStringLiteral("X:%1    Y:%2    Lines:%3    Sel X:%4    Sel Y:%5    Sel:%6     ")
                           .arg(at.StartCol)
                           .arg(at.StartLine)
                           .arg(pane.LineCount() - 1)
                           .arg(qMax(at.EndCol - at.StartCol, 0))
                           .arg(qMax(at.EndLine - at.StartLine, 0))
                           .arg(pane.SelLength()));
}

void ActivateTab()
{
    StopPreview();
    if (Frame.StartingUp)
        return;
    Frame.CurrentTab = Host().SelectedTab();
    const Document& document = Frame.Documents.at(Frame.CurrentTab);
    const bool filed = HasFile(document);
    Frame.CurrentFolder = filed ? paths::FolderOfPath(document.Path) : Frame.ProgramFolder;
    Frame.CurrentFile = filed ? paths::FileNameOfPath(document.Path) : QString();
    ShowCurrentPath();
    UpdateCaretStatus(CurrentPane());
    SetMode(document.Mode);
    Host().FocusPane();
    ApplyStoredInjectPath();
}

void ShowCurrentPath()
{
    paths::ChangeToFolder(Frame.CurrentFolder);
    Host().SetPanel(3, paths::Native(Frame.CurrentFolder + Frame.CurrentFile));
}

void StopPreview()
{
    Host().StopPlayers();
}
