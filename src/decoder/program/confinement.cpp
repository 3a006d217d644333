#include "decoder/program/confinement.h"

#include <cerrno>
#include <cstdint>
#include <iterator>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace confinement {

namespace {

// Landlock, by its numbers: the system's header may be older than the system.

struct Ruleset
{
    std::uint64_t Files = 0, Net = 0, Scoped = 0;
};

/// What each version of it has learned to forbid, as its highest right.
struct Version
{
    int From;
    int LastFileRight, LastNetRight, LastScope; ///< numbers of bits; -1: none
};

constexpr Version Versions[] = {
    {1, 12, -1, -1}, // open, list, make, remove
    {2, 13, -1, -1}, // link and rename elsewhere
    {3, 14, -1, -1}, // truncate
    {4, 14, 1, -1},  // bind and connect by TCP
    {5, 15, 1, -1},  // control devices
    {6, 15, 1, 1},   // connect to abstract sockets, signals
};

constexpr std::uint64_t UpTo(int bit)
{
    return (std::uint64_t(1) << (bit + 1)) - 1;
}

Ruleset AllRightsOf(long version)
{
    Ruleset all;
    for (const Version& row : Versions)
        if (version >= row.From)
            all = {UpTo(row.LastFileRight), UpTo(row.LastNetRight), UpTo(row.LastScope)};
    return all;
}

/// A call that goes through; with a comparison only if its argument fits.
struct Call
{
    int Number;
    unsigned Conditions = 0;
    scmp_arg_cmp First = {}, Second = {};
};

constexpr scmp_arg_cmp Equals(unsigned argument, scmp_datum_t value)
{
    return {argument, SCMP_CMP_EQ, value, 0};
}

constexpr scmp_arg_cmp HasBits(unsigned argument, scmp_datum_t mask, scmp_datum_t bits)
{
    return {argument, SCMP_CMP_MASKED_EQ, mask, bits};
}

constexpr scmp_datum_t AThread = CLONE_VM | CLONE_FS | CLONE_FILES | CLONE_SIGHAND | CLONE_THREAD;

constexpr Call Always[] = {
    // what was handed over
    {SCMP_SYS(read)},
    {SCMP_SYS(readv)},
    {SCMP_SYS(pread64)},
    {SCMP_SYS(write)},
    {SCMP_SYS(writev)},
    {SCMP_SYS(lseek)},
    {SCMP_SYS(recvmsg)},
    {SCMP_SYS(recvfrom)},
    {SCMP_SYS(sendmsg)},
    {SCMP_SYS(sendto)},
    {SCMP_SYS(poll)},
    {SCMP_SYS(ppoll)},
    {SCMP_SYS(close)},
    // memory, never to be run as a program
    {SCMP_SYS(mmap), 1, HasBits(2, PROT_EXEC, 0)},
    {SCMP_SYS(mprotect), 1, HasBits(2, PROT_EXEC, 0)},
    {SCMP_SYS(munmap)},
    {SCMP_SYS(mremap)},
    {SCMP_SYS(madvise)},
    {SCMP_SYS(brk)},
    {SCMP_SYS(sysinfo)}, // sorting asks how much there is
    // time
    {SCMP_SYS(clock_gettime)},
    {SCMP_SYS(clock_getres)},
    {SCMP_SYS(gettimeofday)},
    {SCMP_SYS(time)},
    {SCMP_SYS(alarm)},
    {SCMP_SYS(setitimer)},
    {SCMP_SYS(getrusage)},
    {SCMP_SYS(prlimit64), 2, Equals(0, 0), Equals(1, RLIMIT_CPU)},
    {SCMP_SYS(setrlimit), 1, Equals(0, RLIMIT_CPU)},
    {SCMP_SYS(getrlimit)},
    // itself
    {SCMP_SYS(getrandom)},
    {SCMP_SYS(getpid)},
    {SCMP_SYS(gettid)},
    {SCMP_SYS(futex)},
    {SCMP_SYS(sched_yield)},
    {SCMP_SYS(rt_sigprocmask)},
    {SCMP_SYS(rt_sigreturn)},
    {SCMP_SYS(restart_syscall)},
    {SCMP_SYS(exit)},
    {SCMP_SYS(exit_group)},
};

constexpr Call ForThreads[] = {
    {SCMP_SYS(clone), 1, HasBits(0, AThread, AThread)},
    {SCMP_SYS(set_robust_list)},
    {SCMP_SYS(rseq)},
    {SCMP_SYS(sigaltstack)},
    {SCMP_SYS(sched_getaffinity)},
    {SCMP_SYS(nanosleep)},
    {SCMP_SYS(clock_nanosleep)},
    {SCMP_SYS(prctl), 1, Equals(0, PR_SET_NAME)},
};

#ifdef __SANITIZE_ADDRESS__
constexpr Call ForSanitizer[] = {
    {SCMP_SYS(pipe2)},       // an object's type is known once its memory could be written to a pipe
    {SCMP_SYS(sigaltstack)}, // asked for where a function does not return
};
#endif

class Filter
{
public:
    Filter() : rules(seccomp_init(SCMP_ACT_ERRNO(EPERM))) {}
    ~Filter() { seccomp_release(rules); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    template <std::size_t Size>
    void Allow(const Call (&calls)[Size])
    {
        for (const Call& call : calls) {
            const scmp_arg_cmp conditions[] = {call.First, call.Second};
            good = good && seccomp_rule_add_array(rules, SCMP_ACT_ALLOW, call.Number, call.Conditions, conditions) == 0;
        }
    }
    /// The libraries then take another way.
    void SayUnknown(int call) { good = good && seccomp_rule_add(rules, SCMP_ACT_ERRNO(ENOSYS), call, 0) == 0; }
    bool Load() { return rules && good && seccomp_load(rules) == 0; }

private:
    scmp_filter_ctx rules;
    bool good = true;
};

} // namespace

bool LeaveTheFiles()
{
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    constexpr unsigned TellVersion = 1;
    constexpr long Create = 444, Restrict = 446; // the same on every machine
    const long version = syscall(Create, nullptr, 0, TellVersion);
    if (version < 1)
        return false;
    const Ruleset rules = AllRightsOf(version);
    const long handle = syscall(Create, &rules, sizeof(rules), 0);
    if (handle < 0)
        return false;
    const bool done = syscall(Restrict, int(handle), 0) == 0;
    close(int(handle));
    return done;
}

bool KeepToTheList(const Needs& needs)
{
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    Filter filter;
    filter.Allow(Always);
    if (needs.Threads)
        filter.Allow(ForThreads);
#ifdef __SANITIZE_ADDRESS__
    filter.Allow(ForSanitizer);
#endif
    filter.SayUnknown(SCMP_SYS(clone3)); // its arguments lie where no list can see them
    return filter.Load();
}

bool Enter(const Needs& needs)
{
    const bool files = LeaveTheFiles();
    return KeepToTheList(needs) && files;
}

} // namespace confinement
