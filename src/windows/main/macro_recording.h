#pragma once

#include "macro/recorder.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <optional>

class CommandSet;
class EditorPane;
class FrameEvents;
class QToolButton;
class StatusPanels;
struct CommandRow;

/// What came of a recording.
struct RecordedMacro
{
    QString Code;            ///< empty: nothing was done
    QStringList NotReplayed; ///< each once
};

/// A recording of what is done to the text in front: by keys, mouse, commands and dialogs. A sign in the status bar
/// tells that one is under way, and ends it when it is clicked.
class MacroRecording : public QObject
{
    Q_OBJECT

public:
    MacroRecording(const CommandSet& commands, StatusPanels& panels, QObject* parent);

    void Listen(FrameEvents& events);
    bool Running() const { return recorder.has_value(); }
    void Start();
    RecordedMacro Stop();
    bool HasCode(); ///< is a recording under way that would make a macro?

signals:
    void Changed(); ///< a recording has begun or ended
    void StopWanted();

private:
    void Watch(EditorPane& wanted);
    void Note();
    void Catch();
    void CannotReplay(const QString& name);
    void RowBegins(const CommandRow& row);
    void RowDone(const CommandRow& row);
    void CommandBegins();
    void CommandDone(int number);
    void WorkChanged();

    QToolButton* sign;
    std::optional<MacroRecorder> recorder;
    QPointer<EditorPane> pane;
    QString path; ///< of its document
    QTimer soon;
    bool happened = false;  ///< something that no command has told of
    bool inCommand = false; ///< which tells of itself when it is done
    int rows = 0;           ///< commands of the window under way
    QString macro;          ///< that runs
};
