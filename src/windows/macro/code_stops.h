#pragma once

#include <QHash>
#include <QObject>
#include <QString>

class EditorPane;
class QEventLoop;
struct RunState;

/// Where test runs stop: at lines of the code that its user has marked, perhaps under a condition, at the caret, or
/// step by step. A run that stands still waits in Wait, its state open to whoever asks.
class CodeStops : public QObject
{
    Q_OBJECT

public:
    explicit CodeStops(EditorPane& code);

    void Toggle(int line);
    void AskForCondition(int line); ///< marks the line if it is not yet
    void Clear();

    /// How a run goes on, and what it stops for beside the marked lines.
    enum class Way { On, Step, Over, Out, ToLine };
    void Begin(Way wanted, int line = -1); ///< before a run; `line`: of ToLine
    bool StopsBefore(RunState& run);
    /// Returns when Go says how the run goes on, or when it is stopped.
    void Wait(RunState& run);
    void Go(Way wanted);

    RunState* Waiting() const { return waiting; }  ///< null: none stands still
    const QString& Fault() const { return fault; } ///< of the condition of the line at hand

private:
    bool WayStops(const RunState& run) const;
    bool MarkStops(RunState& run);

    EditorPane& code;
    Way way = Way::On;
    int target = -1, depth = 0; ///< depth of subs when the way was chosen
    QHash<int, QString> marked; ///< conditions of the lines that really run; read anew when `fresh` is false
    bool fresh = false;
    QString fault;
    RunState* waiting = nullptr;
    QEventLoop* loop = nullptr;
};
