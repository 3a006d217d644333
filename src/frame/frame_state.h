#pragma once

#include "frame/documents/documents.h"
#include "frame/editor_pane.h"
#include "frame/files/recent_list.h"
#include "frame/messages/messages.h"
#include "frame/settings/settings.h"
#include "frame/vocabulary.h"
#include "platform/files/name_swap.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <array>
#include <memory>
#include <vector>

class Asker;
class FrameEvents;
class HostWindow;
class IniStore;
class Recovery;
class RunScope;
struct MediaLists;

/// A saved document whose tab was closed.
struct ClosedFile
{
    QString Path;
    QDateTime When;
};

/// All state of the application frame: one instance, reset between tests. Folder texts end with "/".
struct FrameState
{
    QElapsedTimer StartTicks;
    QString CommandLine; ///< path of the file to open, absolute; or empty
    QString ProgramFolder, DataFolder, MacrosFolder, HelpExe, HelpZip;
    bool StartingUp = false;
    QStringList FinishedWrites;    ///< files whose interrupted save this start has finished
    name_swap::PutBack PutBack;    ///< of fast tests that had not ended properly, put back by this start
    bool SettingsReadOnly = false; ///< changes of settings hold in memory only

    std::array<Document, 8> Documents;
    int CurrentTab = 0;
    int CurrentMode = ModeGfx;
    QString CurrentFolder, CurrentFile;
    bool DocumentLoading = false, ForceLanguage = false;
    int FlashTab = 0, FlashCount = -1;
    bool Flashing = false;

    int ShowWelcome = 0;
    std::array<QString, 8> ConfNames;

    SettingsRecord Settings;
    LookForm DesktopForm = LookForm::Light;
    WordListTable WordLists;
    EditorGlobals Globals;
    MessageRecord Message;
    bool HoldMessages = false; ///< the window is being built: messages with one button wait for ShowHeldMessages
    std::vector<MessageRecord> HeldMessages;
    std::vector<RecentEntry> Recent;
    std::vector<ClosedFile> Closed; ///< of this run, the last closed last

    MediaPatterns Media; ///< what the three file lists show
    std::shared_ptr<MediaLists> Lists;
    std::shared_ptr<IniStore> Ini; ///< of DataFolder
    std::vector<RunScope*> Work;   ///< what is under way, the innermost last; null: a modal window
    bool Closing = false;          ///< a close unwinds what is under way: questions are answered with their way out
    bool Ending = false;           ///< the program ends by a signal: nothing is asked any more

    HostWindow* Host = nullptr;
    std::shared_ptr<FrameEvents> Events;
    Asker* Ask = nullptr;
    Recovery* Keeper = nullptr; ///< null: nothing is kept (batch, most tests)
};
extern FrameState Frame;
void ResetFrame();

void InstallHost(HostWindow& host, Asker& asker);
