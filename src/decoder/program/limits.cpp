#include "decoder/program/limits.h"

#include <sys/resource.h>

namespace limits {

namespace {

constexpr rlim_t MostFiles = 16;
constexpr rlim_t LeastSeconds = 2;
constexpr std::uint64_t PixelsASecond = 12u << 20; ///< of the slowest kinds on a slow machine

void Limit(int resource, rlim_t most)
{
    const rlimit limit{most, most};
    setrlimit(resource, &limit);
}

} // namespace

void Set(std::uint64_t mostMemory)
{
    Limit(RLIMIT_AS, mostMemory);
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_FSIZE, 0);
    Limit(RLIMIT_NOFILE, MostFiles);
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
