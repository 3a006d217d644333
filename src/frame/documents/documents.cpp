#include "frame/documents/documents.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/inject_path.h"
#include "frame/media/media_lists.h"
#include "platform/files/paths.h"

const std::array<ModeRow, ModeCount>& Modes()
{
    constexpr const char* Nothing = "*.1xxx9"; // fits no file
    constexpr const char* Sheets = "*.pcx";
    static constexpr std::array<ModeRow, ModeCount> Rows = {{
        {"TXT", "Text Mode  ", Nothing, Nothing},
        {"GFX", "Graphics Mode  ", Sheets, Sheets},
        {"SFX", "Sound Mode  ", "*.wav", Nothing},
        {"MUS", "Music Mode  ", "*.wav;*.mp3;*.mid;*.mod;*.mdz;*.s3m;*.xm;*.it", Nothing},
        {"LVL", "Level Mode  ", "*.level", Nothing},
        {"HLT", "HelpText Mode  ", Sheets, Sheets},
        {"HLA", "HelpAnim Mode  ", Sheets, Sheets},
        {"EDI", "Editor Mode  ", Sheets, Sheets},
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

void ShowTab(int tab)
{
    emit Events().TabChanged(tab);
}

void SetMode(int mode)
{
    const ModeRow& row = Modes().at(mode);
    Frame.CurrentMode = mode;
    Document& document = Frame.Documents.at(Frame.CurrentTab);
    document.Mode = mode;
    document.Face.Picture = mode + 1;
    ShowTab(Frame.CurrentTab);
    ShowMedia();
    const QString language = QString::fromLatin1(row.Language);
    EditorPane& pane = CurrentPane();
    if (Frame.ForceLanguage || pane.Language() != language)
        pane.SetLanguage(language);
    emit Events().ModeChanged(mode);
}

void UpdateCaretStatus(EditorPane& pane)
{
    const Range at = pane.GetSel(true);
    pane.SetHighlightedLine(at.StartLine);
    emit Events().CaretMoved(QStringLiteral("X:%1    Y:%2    Lines:%3    Sel X:%4    Sel Y:%5    Sel:%6     ")
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
    Frame.CurrentTab = Panes().SelectedTab();
    const Document& document = Frame.Documents.at(Frame.CurrentTab);
    const bool filed = HasFile(document);
    Frame.CurrentFolder = filed ? paths::FolderOfPath(document.Path) : Frame.ProgramFolder;
    Frame.CurrentFile = filed ? paths::FileNameOfPath(document.Path) : QString();
    ShowCurrentPath();
    UpdateCaretStatus(CurrentPane());
    SetMode(document.Mode);
    Panes().FocusPane();
    ApplyStoredInjectPath();
}

void ShowCurrentPath()
{
    paths::ChangeToFolder(Frame.CurrentFolder);
    emit Events().PathChanged(paths::Native(Frame.CurrentFolder + Frame.CurrentFile));
}

void StopPreview()
{
    Tools().StopPlayers();
}
