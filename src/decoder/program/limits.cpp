#include "decoder/program/limits.h"

#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace limits {

namespace {

constexpr rlim_t MostMemory = rlim_t(1536) << 20; ///< the largest file, its largest image and a copy
constexpr rlim_t MostFiles = 16;
constexpr rlim_t LeastSeconds = 2;
constexpr std::uint64_t PixelsASecond = 12u << 20; ///< of the slowest kinds on a slow machine

void Limit(int resource, rlim_t most)
{
    const rlimit limit{most, most};
    setrlimit(resource, &limit);
}

/// From here on no file can be opened, made or removed, where the system knows how to forbid it.
void LeaveTheFiles()
{
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    landlock_ruleset_attr rules{};
    rules.handled_access_fs = (LANDLOCK_ACCESS_FS_MAKE_SYM << 1) - 1; // all that the first version knows
    const long handle = syscall(SYS_landlock_create_ruleset, &rules, sizeof(rules), 0);
    if (handle < 0)
        return;
    syscall(SYS_landlock_restrict_self, int(handle), 0);
    close(int(handle));
}

} // namespace

void Set()
{
    Limit(RLIMIT_AS, MostMemory);
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_FSIZE, 0);
    Limit(RLIMIT_NOFILE, MostFiles);
    LeaveTheFiles();
}

void StartClock(std::uint64_t pixels)
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    rlimit limit{};
    getrlimit(RLIMIT_CPU, &limit);
    limit.rlim_cur =
        rlim_t(used.ru_utime.tv_sec) + rlim_t(used.ru_stime.tv_sec) + LeastSeconds + rlim_t(pixels / PixelsASecond);
    setrlimit(RLIMIT_CPU, &limit);
}

} // namespace limits
