#pragma once

#include "frame/host_ports.h"

#include <QString>
#include <array>

class DocumentText;
class EditorPane;

/// Mode codes; they index every table by mode.
enum ModeCode : int { ModeTxt, ModeGfx, ModeSfx, ModeMus, ModeLvl, ModeHlt, ModeHla, ModeEdi, ModeCount };

inline const QString EmptyCaption = QStringLiteral("  Empty ");

/// One of the eight tab slots. Text, caret, undo history and Modified live in the slot's pane.
struct Document
{
    QString Path; ///< program folder after NewDocument; empty for a closed slot
    int Mode = ModeGfx;
    TabFace Face;             ///< what the strip shows; EmptyCaption marks a document without a file
    bool ForeignText = false; ///< the text came from another file than Path names: the next save asks message 9
    qint64 DiskSize = -1;     ///< of Path when it was last read or written, to notice a change by another program
    qint64 DiskTime = 0;      ///< milliseconds since 1970
};

/// A row of the mode table.
struct ModeRow
{
    const char* Language;
    const char* Name; ///< with its two trailing blanks
    const char* BasePattern;
    const char* ListPattern; ///< of the Extra and the RnD list
};
const std::array<ModeRow, ModeCount>& Modes();
QString ModeName(int mode);

/// What the media lists show now.
struct MediaPatterns
{
    QString BaseFolder, ExtraFolder, RndFolder; ///< RndFolder empty: the list is disabled
    QString BasePattern, ListPattern;           ///< several patterns joined with ";"
};

/// Mode for a bare file name, by ConfNames, exact; the last hit wins; 0 for none.
int ModeFromFileName(const QString& name);

void SetMode(int mode);
void UpdateCaretStatus(EditorPane& pane);
void ActivateTab();
void StopPreview();

/// Does the slot hold a document with a file?
bool HasFile(const Document& document);

/// The tab that holds a file, by whatever spelling or link; -1 for none.
int TabWithFile(const QString& path);

int ModifiedTabs(); ///< visible tabs with unsaved text

/// Status panel 3 and the process's folder follow CurrentFolder and CurrentFile.
void ShowCurrentPath();

/// Starts the flash of a tab: nine phases of 200 ms, four of them dark.
void FlashTabCaption(int tab);
bool FlashTick(); ///< one phase; true while there are more. Runs by itself.

/// Shows what Documents[tab].Face says.
void ShowTab(int tab);
