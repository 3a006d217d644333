#pragma once

#include "platform/result.h"

#include <QString>

class DocumentText;

/// Title of the file dialogs' filter, one for open, save and insert.
QString DocumentFilter();

/// A zipped set does not: the Level Manager shows it. Nor does a macro, which the workbench shows.
bool OpensInTab(const QString& path);

void NewDocument(int mode);
void MakeTemplate(int mode);
void OpenCommand();
/// Opens a file in the current tab, or shows the tab that has it unless `force` is set. True if a tab shows it now;
/// otherwise the reason was told and tab, path and text are as they were. What does not
/// open in a tab is shown by its tool instead, once the caller has returned.
bool OpenDocument(const QString& path, bool force);
void RevertDocument();
void InsertFileAtCaret();
void SaveCommand();
void SaveDocumentAs();
/// True if the file was written.
bool SaveDocument(const QString& path);
/// The same with the backup that the setting wants, and without the question for a file that stands there.
bool SaveDocumentOver(const QString& path);
/// A text that is no document into a file, with a backup if the setting wants one.
[[nodiscard]] Result<> WriteWithBackup(DocumentText& text, const QString& path);
QString UniqueName(const QString& base, bool folder);
/// Copies a file to the first free numbered backup; its path, empty if there is no file.
[[nodiscard]] Result<QString> MakeBackup(const QString& path);

/// Notes size and time of a tab's file, so that a change by another program is seen.
void NoteDiskState(int tab);
/// Has another program changed or made the tab's file since it was read or written? False if it has gone.
bool ChangedOnDisk(int tab);
/// Looks for files that another program has changed or removed since they were read or written; asks once for all.
/// Call when the main window gets the focus.
void CheckChangedOutside();
