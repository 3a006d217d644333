#pragma once

#include "platform/file_steps.h"

#include <atomic>
#include <memory>
#include <vector>

namespace images {
class Service;
}

class PlayerProcess;
class QString;

namespace processes {
class Wait;
}

/// All that this room remembers between calls.
struct PlatformState
{
    PlatformState();
    ~PlatformState();

    FileSteps Steps = FileSteps::OfSystem();
    std::vector<processes::Wait*> Waits;                    ///< in progress; they nest, the innermost is the last
    std::atomic<int> SignalPipe{-1};                        ///< where the signal handler writes
    std::unique_ptr<images::Service> Images;                ///< none before the first image
    std::unique_ptr<PlayerProcess> Player;                  ///< none before the first sound
    std::function<void(const QString& words)> SoundTrouble; ///< who is told that a sound could not be played
};

extern PlatformState Platform;
