#pragma once

/// What the system lets a helper for files of strangers do: nothing but computing and talking over what it was handed
/// before. Files, programs, processes, addresses and rights are out of reach, whatever a file makes of the process.
namespace confinement {

/// What a helper does beyond that.
struct Needs
{
    bool Threads = false; ///< starts threads
};

/// For good. Called before the first byte of a stranger is read and before the first thread is started. What the
/// system does not know how to forbid stays open; true: both walls stand.
bool Enter(const Needs& needs);

/// The first wall: no file is opened, changed, made or removed, no address is connected to, no process gets a signal,
/// as far as the system's version of Landlock knows them.
bool LeaveTheFiles();

/// The second wall: a list of the system's calls that go through. Any other fails with EPERM.
bool KeepToTheList(const Needs& needs);

} // namespace confinement
