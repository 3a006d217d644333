#pragma once

#include "frame/run_scope.h"
#include "game/game_messages.h"
#include "game/game_process.h"
#include "game/prepared_set.h"

#include <QObject>
#include <QTimer>
#include <optional>
#include <vector>

/// A game that plays a copy of a level set while its author goes on working.
class SafeTest : public QObject
{
    Q_OBJECT

public:
    SafeTest(PreparedSet preparedSet, QString setName);
    ~SafeTest() override;

    [[nodiscard]] Result<> Start(const QString& program, const QStringList& arguments);
    void Stop() { scope.Stop(StopReason::Break); }
    void StartAgain(); ///< once this one has ended
    bool StartsAgain() const { return again; }

signals:
    void Ended();

private:
    void ReadOn();
    void ShowWords();
    void GameEnded();

    PreparedSet set;
    RunScope scope;
    GameProcess process;
    QTimer soon; ///< words are shown while the game runs
    FindingReader reader;
    std::optional<std::vector<GameFinding>> shown;
    bool again = false;
};

/// Starts the game on a copy of the current document's level set, in a home of its own: unsaved texts of all tabs
/// included, set and level chosen. No file, score or tape of the user is touched. A test that still runs is ended and
/// started anew.
void TestSetSafely();
