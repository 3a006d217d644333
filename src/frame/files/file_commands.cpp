#include "frame/files/file_commands.h"

#include "frame/files/closed_tabs.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/messages/asker.h"
#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "platform/files/paths.h"

#include <QCoreApplication>

namespace {

struct TemplateRow
{
    const char* Title;
    const char* Name; ///< null: no header lines
};
constexpr TemplateRow Templates[] = {
    {"", nullptr},
    {"#      GraphicsInfo.conf       #", "YourGraphicsSetName"},
    {"#       SoundsInfo.conf        #", "YourSoundSetName"},
    {"#        MusicInfo.conf        #", "YourMusicSetName"},
    {"#        LevelInfo.conf        #", "YourGameName"},
    {"#         HelpText.conf        #", nullptr},
    {"#         HelpAnim.conf        #", nullptr},
    {"#       editorsetup.conf       #", nullptr},
};

QString HeaderLine(const QString& key, int blanks, const QString& value)
{
    return key + QString(qAbs(blanks), u' ') + value;
}

QStringList TemplateLines(int mode)
{
    const TemplateRow& row = Templates[mode];
    const QString rule(32, u'#');
    QStringList lines = {rule, QString::fromLatin1(row.Title), QStringLiteral("#      Made With Gemforge      #"), rule,
                         QString()};
    const int width = Frame.Settings.SpacerWidth;
    if (row.Name)
        lines << HeaderLine(QStringLiteral("name:"), width - 6, QString::fromLatin1(row.Name))
              << HeaderLine(QStringLiteral("sort_priority:"), width - 15, QStringLiteral("100"));
    return lines << QString();
}

QString DialogFolder()
{
    const bool inLevels = Frame.CurrentFolder == Frame.ProgramFolder && !Frame.Settings.LevelsFolder.isEmpty() &&
                          Frame.Settings.OpenSaveInLevelDir == 1;
    return inLevels ? Frame.Settings.LevelsFolder : Frame.CurrentFolder;
}

/// The name chosen in a file dialog; empty for a cancel. Waiting events run, so that the dialog is gone.
QString AskFile(FileQuestion::Use use, const QString& title, const QString& preset = {})
{
    const QString name =
        AskText(FileQuestion{use, title, DocumentFilter(), DialogFolder(), preset}).value_or(QString());
    if (!name.isEmpty())
        QCoreApplication::processEvents();
    return paths::Inside(name);
}

} // namespace

QString DocumentFilter()
{
    return QStringLiteral("RND Config Files (*.conf)|*.conf"
                          "|Text Files |*.txt;*.doc;*.me;*.now;*.1st;*.nfo;*.c;*.h"
                          "|RND V1.0 Config Files (Unsupported) (*.cnf)|*.cnf");
}

void MakeTemplate(int mode)
{
    EditorPane& pane = CurrentPane();
    const QStringList lines = mode == ModeTxt ? QStringList() : TemplateLines(mode);
    pane.SetText(lines.join(QStringLiteral("\r\n")));
    const int last = qMax(int(lines.size()) - 1, 0);
    pane.SetSel({last, 0, last, 0}, true);
}

void NewDocument(int mode)
{
    EditorPane& pane = CurrentPane();
    if (!MayGiveUp(pane))
        return;
    Frame.DocumentLoading = true;
    pane.SetEncoding(FileEncoding::Utf8);
    pane.SetLineEnd(LineBreak::CrLf);
    MakeTemplate(mode);
    Frame.DocumentLoading = false;
    pane.SetModified(false);

    Frame.CurrentFolder = Frame.ProgramFolder;
    Frame.CurrentFile.clear();
    Document& document = Frame.Documents.at(Frame.CurrentTab);
    document.Path = Frame.CurrentFolder;
    document.Face.Caption = EmptyCaption;
    document.ForeignText = false;
    document.DiskSize = -1;
    SetMode(mode);
    UpdateCaretStatus(pane);
    ShowCurrentPath();
    pane.ClearUndoBuffer();
    if (Frame.Keeper)
        Frame.Keeper->TextSettled(Frame.CurrentTab);
}

void OpenCommand()
{
    if (!MayGiveUp(CurrentPane()))
        return;
    const QString name = AskFile(FileQuestion::Open, QStringLiteral("Open a file"));
    if (!name.isEmpty())
        OpenDocument(name, false);
}

void RevertDocument()
{
    if (!MayGiveUp(CurrentPane()))
        return;
    const QString path = Frame.CurrentFolder + Frame.CurrentFile;
    if (Frame.CurrentFile.isEmpty())
        ShowNotice(QStringLiteral("This text was never saved, so there is nothing to go back to"));
    else if (!paths::FileExists(path))
        ShowNotice(QStringLiteral("The file is not there any more: ") + paths::Native(path));
    else
        OpenDocument(path, true);
}

void InsertFileAtCaret()
{
    const QString name = AskFile(FileQuestion::Open, QStringLiteral("Insert a file"));
    if (name.isEmpty())
        return;
    EditorPane& pane = CurrentPane();
    const Range at = pane.GetSel(true);
    const QString path = paths::Existing(name);
    const Result<> done = pane.InsertFile(path.isEmpty() ? name : path, {at.StartLine, at.StartCol, 0, 0});
    if (!done)
        ShowFailure(done.error());
    UpdateCaretStatus(pane);
}

void SaveDocumentAs()
{
    const QString name =
        AskFile(FileQuestion::Save, QStringLiteral("Save file as"), Frame.ConfNames.at(Frame.CurrentMode));
    if (!name.isEmpty())
        SaveDocument(name);
}

QString UniqueName(const QString& base, bool folder)
{
    for (int n = 0;; ++n) {
        QString candidate = base + QStringLiteral("_%1").arg(n, 3, 10, QLatin1Char('0'));
        if (folder ? !paths::FolderExists(candidate) : !paths::FileExists(candidate))
            return candidate;
    }
}
