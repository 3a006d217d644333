#pragma once

#include "frame/program_scope.h"
#include "frame/run_scope.h"
#include "game/game_folders.h"
#include "game/game_state.h"
#include "game/stand_in_place.h"

#include <QDir>
#include <QTimer>
#include <memory>

/// A running program whose game is the stand-in.
class GameScope : public StandInPlace
{
public:
    GameScope()
    {
        Run.Edit("RNDPath=\n", "RNDPath=" + QFile::encodeName(Program()) + '\n');
        Run.Start();
    }
    ~GameScope() { ResetGame(); }

    ProgramScope Run;
};

/// Has the run in front printed this line last?
inline bool ScopeSays(const QString& line)
{
    return RunInFront() && RunInFront()->Detail() == line;
}

class GameTest : public testing::Test
{
protected:
    /// Runs `work` in a while, unless another After or the end of the test comes first.
    template <class Work>
    void After(int ms, Work work)
    {
        later = std::make_unique<QObject>();
        QTimer::singleShot(ms, later.get(), work);
    }

    /// Runs `work` once the run in front has printed a line.
    template <class Work>
    void WhenSaid(const QString& line, Work work)
    {
        later = std::make_unique<QObject>();
        auto* look = new QTimer(later.get());
        QObject::connect(look, &QTimer::timeout, look, [=] {
            if (!ScopeSays(line))
                return;
            look->stop();
            work();
        });
        look->start(10);
    }

    /// The last message shown.
    MessageRecord Last() const
    {
        const auto shown = Answers.AskedFor<MessageQuestion>();
        return shown.empty() ? MessageRecord() : shown.back().Record;
    }

    GameScope Scope;
    BatchHost& Window = Scope.Run.Scope.Host;
    AnswerList& Answers = Scope.Run.Scope.Answers;

private:
    std::unique_ptr<QObject> later;
};
