#pragma once

#include <QObject>

/// The numbers of all messages by name; each has one row in message_table.cpp. Our own take 300 to 349.
namespace message {
Q_NAMESPACE

enum Number : int {
    CallersOwn = 0, ///< of a record that its caller has filled
    NoElementHighlighted = 1,
    FileMissing = 2, ///< text: the file
    HelpMissing = 4,
    RecentFileGone = 6, ///< text: the file
    ProjectNeedsTwoFiles = 7,
    CloseChanged = 8,
    OverwriteFile = 9,
    GameNotSet = 10,
    CloseAllForProject = 15,
    ProjectFileGone = 16, ///< text: the file
    CloseAllChanged = 17,
    ProjectGone = 18, ///< text: its name
    NoElementPicked = 19,
    NotTheGame = 21,
    LevelsFolderMissing = 23,
    GameImageMissing = 27,  ///< text: the image
    GameFolderMissing = 28, ///< text: the folder
    SubCommandRefused = 29,
    NoBlockSelected = 30,
    NoConfHeader = 31,
    NoErrorLog = 33,
    ColonMissing = 34,
    MapglassMissing = 35,
    PaletteMissing = 36,
    LevelElementsMissing = 37,
    LaunchNeedsSave = 38,
    PaletteNeedsSave = 39,
    NoImageNamed = 40,
    NamedImageMissing = 42,
    DeleteResource = 50,
    ResourceNotAdded = 51,
    ResourceIsItself = 52,
    ResourceNotFound = 53, ///< text: the file
    ResourceFolderMissing = 54,
    FileConsent = 58, ///< text: the macro's author
    BasicNotOverwritten = 59,
    ZipFailed = 60,
    ZippedFolderStays = 61,
    OverwriteZip = 62,
    OverwriteUnzipped = 63,
    UnzipFailed = 64,
    NoTapes = 65,
    InstallTapes = 66,
    MakeTapesFolder = 67,
    BadImage = 100,
    BadAviSize = 101,
    NoAviDecoder = 102,
    AviFailed = 103, ///< text: the file
    ResourceNeedsSave = 104,
    PathError = 105, ///< text: all of it; a Failure's by ShowFailure
    AnotherRuns = 106,
    BadPcx = 107,
    ImageErrors = 108, ///< text: all of it
    GameExists = 109,
    NotFinished = 110,
    GameMade = 111, ///< text: its name
    BadSound = 112,
    NoConfErrors = 120,
    ConfErrors = 121, ///< text: all of it
    ConfStillOpen = 122,
    BasicError = 200,       ///< text: the error; text2: the line's index
    BasicStep = 201,        ///< text: the line; text2: its index
    ChangedOutside = 300,   ///< text: the files
    ChangeToUtf8 = 301,     ///< text: the file
    SettingsBroken = 302,   ///< text: keys that took the shipped value
    SettingsNotSaved = 303, ///< text: path and reason; changes stay in memory
    FilesVanished = 304,    ///< text: the files
    NoBackup = 305,         ///< text: path and reason
    TextNotKept = 306,      ///< text: path and reason
    OverwriteChanged = 307, ///< text: the file, changed since it was loaded
    OutOfMemory = 308,      ///< text: what became of unsaved text
    WordListsDamaged = 309, ///< text: the sections
    PutBack = 320,          ///< text: what was put back after a fast test
    RecordedInPart = 321,   ///< text: what became comments
    Welcome = 999,
};
Q_ENUM_NS(Number)

/// Places of the buttons where there are more than two; for two ask Confirmed.
enum SafetyButton : int { Consent = 1, Refuse };
enum StepButton : int { NextStep = 1, Continue, Break };
enum WelcomeButton : int { WelcomeOk = 1, ReadHelp, WelcomeOptions, DoNotShowAgain };

} // namespace message
