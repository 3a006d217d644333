#pragma once

#include "platform/files/file_steps.h"

#include <QByteArray>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

namespace images {
class PictureMaker;
class Service;
} // namespace images

class PlayerProcess;
class QString;
class X11Connection;

namespace processes {
class Wait;
}

/// All that this room remembers between calls.
struct PlatformState
{
    PlatformState();
    ~PlatformState();

    FileSteps Steps = FileSteps::OfSystem();
    std::vector<processes::Wait*> Waits;         ///< in progress; they nest, the innermost is the last
    std::atomic<int> SignalPipe{-1};             ///< where the signal handler writes
    std::unique_ptr<images::Service> Images;     ///< none before the first image
    std::unique_ptr<images::PictureMaker> Maker; ///< none before the first picture that is reduced
    std::unique_ptr<PlayerProcess> Player;       ///< none before the first sound
    /// None before the first window of another program. Shared, so that this file, which every program has, brings
    /// no X11 with it.
    std::shared_ptr<X11Connection> Windows;
    std::mutex NotesGuard;             ///< around what follows: threads write files too
    std::set<QByteArray> NotedFolders; ///< where this process has put hidden files; see beside_notes.h
    int NotedBy = 0;                   ///< the process
    void* Reserve = nullptr;           ///< of memory; see memory_reserve.h
    std::atomic<bool> ReserveSpent{false};
    std::function<void()> SoundChange;                      ///< who is told that another sound plays
    std::function<void(const QString& words)> SoundTrouble; ///< who is told that a sound could not be played
};

extern PlatformState Platform;
