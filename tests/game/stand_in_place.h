#pragma once

#include "test_support.h"

#include <QMap>
#include <QStringList>

/// The stand-in for the game, installed in a folder of its own, with a home folder of its own for all that is started.
class StandInPlace
{
public:
    StandInPlace();
    ~StandInPlace();

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

    TestFolder Game, Home;
};
