#pragma once

#include "frame/program_scope.h"
#include "frame/run_scope.h"
#include "game/game_folders.h"
#include "game/game_state.h"

#include <QDir>
#include <QTimer>
#include <memory>

/// A running program whose game is the stand-in, installed in a folder of its own, with homes of its own.
class GameScope
{
public:
    GameScope();
    ~GameScope();

    /// What the stand-in does in its menu; empty: it ends at once, unseen it plays on.
    static void Acts(const QByteArray& acts) { qputenv("GAME_STAND_IN", acts); }
    static void ActsAtPrint(const QByteArray& acts) { qputenv("GAME_STAND_IN_PRINT", acts); }
    static void ActsAtProof(const QByteArray& acts) { qputenv("GAME_STAND_IN_PROOF", acts); }

    /// A line a start of the stand-in since the last call.
    QStringList TakeStarts();

    QString Program() const { return Game.Path(QStringLiteral("rocksndiamonds")); }

    /// A level set in the player's own levels: levelinfo.conf, a level and a graphicsinfo.conf of this text.
    QString MakeSet(const QString& name, const QByteArray& graphics) const;
    QString UserFile(const QString& name) const { return Home.Path(QStringLiteral(".rocksndiamonds/")) + name; }

    /// All files below a folder with their bytes, to see that nothing has changed.
    static QMap<QString, QByteArray> Snapshot(const QString& folder);
    static QStringList Names(const QString& folder);

    TestFolder Game, Home;
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

    GameScope Scope;
    BatchHost& Window = Scope.Run.Scope.Host;
    AnswerList& Answers = Scope.Run.Scope.Answers;

private:
    std::unique_ptr<QObject> later;
};
