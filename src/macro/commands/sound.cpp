#include "frame/frame_state.h"
#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "platform/files/paths.h"
#include "platform/sound/audio.h"

namespace {

void RndSfx(RunState& run, Arguments& in)
{
    const QString name = in.Text(1);
    if (run.Failed() || !run.Stage.HasWindow())
        return;
    const QString folder = Frame.Settings.RndFolder + Frame.Settings.RndSfxFolderName;
    const QString path = Frame.Settings.RndFolder.isEmpty()
                             ? QString()
                             : paths::Closed(paths::Inside(folder)) + name + QLatin1String(".wav");
    if (path.isEmpty() || !paths::FileExists(path))
        run.Fail(QStringLiteral("Can't find the RND sound: ") + name + QLatin1String(".wav"));
    else
        audio::PlayMedia(paths::Existing(path));
}

constexpr CommandWord SoundRows[] = {
    {"rndsfx", Exactly(1), NoWordFlags, "NAME", "Plays a sound of the game, by its name without .wav.", RndSfx},
};

} // namespace

std::span<const CommandWord> SoundCommands()
{
    return SoundRows;
}
