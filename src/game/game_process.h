#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <memory>

struct GameStart
{
    QString Program; ///< absolute; runs in its own folder, that of a link's target if the game's data lie there
    QStringList Arguments;
    QString Home;        ///< home folder of the run; empty: the user's own
    bool Unseen = false; ///< without window and sound
    int HeldFile = -1;   ///< an open file that the run holds as long as it lives
};

/// A game that runs. Its lines come as they are printed. It is never sent TERM, at which it would drop the set it
/// played from its own settings and now and then hang: its windows are closed, and what does not end then is killed.
class GameProcess : public QObject
{
    Q_OBJECT

public:
    explicit GameProcess(QObject* parent = nullptr);
    ~GameProcess() override; ///< ends what still runs

    [[nodiscard]] Result<> Start(const GameStart& start); ///< fails if it cannot be started
    bool Runs() const;
    void Stop(); ///< closes its windows, and kills it at once if it has none, else if it lives on after a wait
    void Kill();
    void End(); ///< Stop, and returns when it has ended

    const QByteArray& Printed() const; ///< on standard output, up to a limit
    const QByteArray& Errors() const;  ///< on standard error, up to a limit
    int ExitCode() const;              ///< of a run that ended by itself
    bool Crashed() const;
    bool Stopped() const; ///< by Stop or Kill

signals:
    void Spoken(); ///< Printed has grown
    void Ended();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// What is kept of each of the two outputs; the rest is read and dropped.
constexpr qsizetype MostGameOutput = qsizetype(32) << 20;
