#pragma once

#include <QString>
#include <QStringList>

/// Where a run lives; tests give their own.
struct StartFolders
{
    QString ProgramFolder; ///< holds data/, Macros/, Help.zip
    QString StateFolder;   ///< recovery copies, session
    QString HelpProgram;   ///< empty: ProgramFolder + "Help"
    bool SettingsReadOnly = false;
};

/// The folders of an ordinary run: the executable's own if data/user.ini lies beside it, else `gemforge` under the
/// user's data folder, filled from the installed files.
StartFolders OrdinaryFolders(const QString& executableFolder);

/// Steps 2 to 13 of the start, without a window. Empty: go on. Otherwise the start has failed; the message was shown.
bool PrepareStart(const StartFolders& folders, const QStringList& arguments);

/// The once-only part of the first activation, once the host is there.
void FinishStart();

/// Welcome, once a run; the caller acts on the answer.
QString ShowWelcomeMessage();
