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

/// The path that the arguments of the process (without its own name) name: absolute, or empty if they name none.
QString ToldPath(const QStringList& arguments);

/// The start up to the window: folders, the check of tables and help, names of the conf files. `arguments` are those
/// of the process without its own name; the path among them is made absolute before the folder changes. False: the
/// start has failed and the message was shown.
bool PrepareStart(const StartFolders& folders, const QStringList& arguments);

/// Frame.ConfNames from compat.ini.
void FillConfNames();

/// The once-only part of the first activation, once the host is there: tabs, languages, settings, recent list and the
/// first document. Window size and the caption's start-up time are the window's. What went wrong is held: the window
/// calls ShowHeldMessages when it is complete.
void FinishStart();

/// The welcome, once a run, while Frame.ShowWelcome is 1. "OK" and "Don't Show This Again" are done here; the caller
/// acts on the other answers (message::WelcomeButton).
int ShowWelcomeMessage();
