#pragma once

#include <QString>

/// Title of the file dialogs' filter, one for open, save and insert.
QString DocumentFilter();

void NewDocument(int mode);
void MakeTemplate(int mode);
void OpenCommand();
void OpenDocument(const QString& path, bool force);
void RevertDocument();
void InsertFileAtCaret();
void SaveCommand();
void SaveDocumentAs();
/// True if the file was written.
bool SaveDocument(const QString& path);
/// Copies the file on disk to the first free numbered backup. False if there is a file and it could not be copied.
bool BackupCurrentFile();
void ApplyInjectPath(const QString& text);
/// The button "<- Inject Path": the Extra folder as a new first line.
void InsertInjectPath();
QString UniqueName(const QString& base, bool folder);

/// Looks for files that another program has changed or removed since they were read or written; asks once for all.
/// Call when the main window gets the focus.
void CheckChangedOutside();
