#include "platform/sound/audio.h"

#include "platform/files/file_steps.h"
#include "platform/files/paths.h"
#include "platform/platform_state.h"
#include "platform/sound/player_process.h"

#include <QCoreApplication>
#include <QFile>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace audio {

namespace {

void TellTrouble(player::Trouble why, const QString& path)
{
    if (!Platform.SoundTrouble)
        return;
    const QString name = path.isEmpty() ? QStringLiteral("The tune") : paths::FileNameOfPath(path);
    Platform.SoundTrouble(why == player::Trouble::File
                              ? name + QStringLiteral(" can not be played: it is no sound, or a broken one.")
                              : name + QStringLiteral(" can not be played: there is no sound device."));
}

PlayerProcess& Process()
{
    if (!Platform.Player) {
        const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/gemforge-player");
        Platform.Player = std::make_unique<PlayerProcess>(program, TellTrouble, [] {
            if (Platform.SoundChange)
                Platform.SoundChange();
        });
    }
    return *Platform.Player;
}

/// An open file, closed with the scope.
class OpenSound
{
public:
    explicit OpenSound(int opened) : file(opened) {}
    ~OpenSound()
    {
        if (file >= 0)
            close(file);
    }
    OpenSound(const OpenSound&) = delete;
    OpenSound& operator=(const OpenSound&) = delete;

    int Handle() const { return file; }
    bool IsRegular() const
    {
        FileFacts facts{};
        return file >= 0 && fstat(file, &facts) == 0 && S_ISREG(facts.st_mode);
    }

private:
    int file;
};

bool Play(player::Voice voice, const QString& path)
{
    // A fifo must not be waited for.
    const QByteArray name = QFile::encodeName(paths::Existing(path));
    const OpenSound file(Persist([&] { return open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY); }));
    if (!file.IsRegular()) {
        // What played before is replaced by nothing.
        voice == player::Voice::Media ? StopMedia() : StopModule();
        return false;
    }
    return Process().Play(voice, file.Handle(), path);
}

} // namespace

bool PlayMedia(const QString& path)
{
    return Play(player::Voice::Media, path);
}

bool PlayModule(const QString& path)
{
    return Play(player::Voice::Module, path);
}

bool PlayModule(const QByteArray& bytes)
{
    const OpenSound file(memfd_create("module", MFD_CLOEXEC));
    if (file.Handle() < 0 || write(file.Handle(), bytes.constData(), size_t(bytes.size())) != bytes.size())
        return false;
    return Process().Play(player::Voice::Module, file.Handle(), {});
}

void StopMedia()
{
    if (Platform.Player)
        Platform.Player->Stop(player::Voice::Media);
}

void StopModule()
{
    if (Platform.Player)
        Platform.Player->Stop(player::Voice::Module);
}

void Stop()
{
    StopMedia();
    StopModule();
}

void OnTrouble(std::function<void(const QString& words)> told)
{
    Platform.SoundTrouble = std::move(told);
}

void OnChange(std::function<void()> told)
{
    Platform.SoundChange = std::move(told);
}

QString Playing()
{
    return Platform.Player ? Platform.Player->Playing() : QString();
}

bool IsPlaying()
{
    return Platform.Player && Platform.Player->IsPlaying();
}

void End()
{
    Platform.Player.reset();
}

} // namespace audio
