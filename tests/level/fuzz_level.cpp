#include "fuzz_level.h"

#include "level/level_bytes.h"
#include "level_builder.h"

namespace {

void ChangeEverything()
{
    LevelInfo& info = Level.Info;
    info.Cavename = QStringLiteral("changed");
    info.Time = QStringLiteral("77");
    info.Count = QStringLiteral("5");
    if (Level.Offsets.Author != NoField)
        info.Author = QStringLiteral("changed too, to thirty-two chars");
    info.Width = QString::number(1 + info.Width.toInt() % 128);
    info.Height = QString::number(1 + info.Height.toInt() % 7);
    ResizeLevelMap(false);
    Level.Map.At(0, 0) = 77;
}

} // namespace

QString FuzzLevel(QByteArrayView bytes)
{
    const Result<LevelRecord> level = ParseLevel(bytes, KnownOffsets);
    if (!level)
        return {};
    const QByteArrayView working = bytes.first(level->MapEnd);
    const Result<QByteArray> same = PatchLevel(*level, working);
    if (!same || *same != working)
        return QStringLiteral("an unchanged level did not come back");
    static_cast<LevelRecord&>(Level) = *level;
    ChangeEverything();
    Result<QByteArray> changed = PatchLevel(Level, working);
    if (!changed)
        return QStringLiteral("a changed level was refused: ") + changed.error().Reason;
    changed->append(bytes.sliced(level->MapEnd));
    const Result<LevelRecord> again = ParseLevel(*changed, KnownOffsets);
    if (!again)
        return QStringLiteral("a changed level is no level: ") + again.error().Reason;
    return again->Info == Level.Info && again->Map == Level.Map ? QString() : QStringLiteral("a change got lost");
}
