// Tries what a helper for files of strangers must not do, with the walls that it is told to build first. It is started
// like a helper: its standard input is a socket. It is told a line, "WALLS FOLDER", with an open file beside it, and
// answers with a line "ATTEMPT ERROR" for each attempt (0: it went through), the last of them "end 0".
#include "decoder/channel.h"
#include "decoder/program/confinement.h"

#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <string>
#include <sys/inotify.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Socket = STDIN_FILENO;
constexpr size_t Page = 4096;

/// All that is prepared before the walls stand.
struct Field
{
    std::string Folder;
    pid_t Parent = 0;
    int File = -1; ///< handed over, to read and to write
    int Memory = -1;
    int Local = -1, Abstract = -1, Network = -1; ///< sockets that are not connected
    sockaddr_un LocalAt{}, AbstractAt{};
    sockaddr_in NetworkAt{};

    std::string In(const char* name) const { return Folder + "/" + name; }
};

int Connect(int socket, const void* address, socklen_t size)
{
    return connect(socket, static_cast<const sockaddr*>(address), size);
}

int Thread(const Field&)
{
    static char stack[16 * Page];
    constexpr int Flags = CLONE_VM | CLONE_FS | CLONE_FILES | CLONE_SIGHAND | CLONE_THREAD;
    return clone([](void*) { return 0; }, stack + sizeof(stack), Flags, nullptr);
}

struct Attempt
{
    const char* Name;
    long (*Try)(const Field& field);
};

constexpr Attempt Attempts[] = {
    {"open", [](const Field& f) { return long(open(f.In("a").c_str(), O_RDONLY)); }},
    {"list", [](const Field& f) { return long(open(f.Folder.c_str(), O_RDONLY | O_DIRECTORY)); }},
    {"create", [](const Field& f) { return long(open(f.In("new").c_str(), O_WRONLY | O_CREAT, 0600)); }},
    {"truncate", [](const Field& f) { return long(truncate(f.In("a").c_str(), 1)); }},
    {"truncate-handed", [](const Field& f) { return long(ftruncate(f.File, 1)); }},
    {"chmod", [](const Field& f) { return long(chmod(f.In("a").c_str(), 0600)); }},
    {"chmod-handed", [](const Field& f) { return long(fchmod(f.File, 0600)); }},
    {"chown", [](const Field& f) { return long(chown(f.In("a").c_str(), getuid(), getgid())); }},
    {"stat",
     [](const Field& f) {
         struct stat facts = {};
         return long(stat(f.In("a").c_str(), &facts));
     }},
    {"access", [](const Field& f) { return long(access(f.In("a").c_str(), R_OK)); }},
    {"touch", [](const Field& f) { return long(utimensat(AT_FDCWD, f.In("a").c_str(), nullptr, 0)); }},
    {"rename", [](const Field& f) { return long(rename(f.In("b").c_str(), f.In("c").c_str())); }},
    {"link", [](const Field& f) { return long(link(f.In("a").c_str(), f.In("hard").c_str())); }},
    {"symlink", [](const Field& f) { return long(symlink("a", f.In("soft").c_str())); }},
    {"mkdir", [](const Field& f) { return long(mkdir(f.In("folder").c_str(), 0700)); }},
    {"unlink", [](const Field& f) { return long(unlink(f.In("d").c_str())); }},
    {"chdir", [](const Field& f) { return long(chdir(f.Folder.c_str())); }},
    {"umask", [](const Field&) { return syscall(SYS_umask, 077); }},
    {"watch", [](const Field&) { return long(inotify_init1(0)); }},
    {"socket", [](const Field&) { return long(socket(AF_UNIX, SOCK_STREAM, 0)); }},
    {"connect-local", [](const Field& f) { return long(Connect(f.Local, &f.LocalAt, sizeof(f.LocalAt))); }},
    {"connect-abstract", [](const Field& f) { return long(Connect(f.Abstract, &f.AbstractAt, sizeof(f.AbstractAt))); }},
    {"connect-network", [](const Field& f) { return long(Connect(f.Network, &f.NetworkAt, sizeof(f.NetworkAt))); }},
    {"kill", [](const Field& f) { return long(kill(f.Parent, 0)); }},
    {"fork", [](const Field&) { return syscall(SYS_clone, SIGCHLD, nullptr, nullptr, nullptr, nullptr); }},
    {"thread", [](const Field& f) { return long(Thread(f)); }},
    {"exec",
     [](const Field&) {
         char program[] = "/bin/true";
         char* const arguments[] = {program, nullptr};
         return long(execve(program, arguments, nullptr));
     }},
    {"trace", [](const Field&) { return ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); }},
    {"process-handle", [](const Field&) { return syscall(SYS_pidfd_open, getpid(), 0); }},
    {"unshare", [](const Field&) { return long(unshare(CLONE_FILES)); }},
    {"memory-file", [](const Field&) { return long(memfd_create("a", 0)); }},
    {"shared-memory", [](const Field&) { return long(shmget(IPC_PRIVATE, Page, 0600)); }},
    {"run-memory",
     [](const Field&) { return long(mmap(nullptr, Page, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)); }},
    {"run-memory-later",
     [](const Field&) {
         void* const page = mmap(nullptr, Page, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
         return long(mprotect(page, Page, PROT_READ | PROT_EXEC));
     }},
    {"limits",
     [](const Field&) {
         const rlimit files{8, 8};
         return long(setrlimit(RLIMIT_NOFILE, &files));
     }},
    {"name", [](const Field&) { return long(prctl(PR_SET_NAME, "probe", 0, 0, 0)); }},
    {"session", [](const Field&) { return long(getsid(0)); }},
};

int ErrorOf(const Attempt& attempt, const Field& field)
{
    errno = 0;
    const long got = attempt.Try(field);
    const int error = got == -1 ? (errno ? errno : -1) : 0;
    if (std::strcmp(attempt.Name, "fork") == 0 && got == 0)
        _exit(0); // the child of the attempt itself
    return error;
}

/// In a child of its own, which the attempt may change or end.
int ErrorApart(const Attempt& attempt, const Field& field)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(ErrorOf(attempt, field));
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void Tell(const std::string& name, int error)
{
    const std::string line = name + " " + std::to_string(error) + "\n";
    decoder::SendAll(Socket, std::as_bytes(std::span(line)));
}

std::string ReadLine(int& file)
{
    std::string line;
    for (char letter = 0; letter != '\n';) {
        int came = -1;
        if (!decoder::ReceiveAll(Socket, std::as_writable_bytes(std::span(&letter, 1)), came))
            _exit(1);
        file = came >= 0 ? came : file;
        line += letter;
    }
    line.pop_back();
    return line;
}

Field Prepared(std::string folder, int file)
{
    Field field;
    field.Folder = std::move(folder);
    field.Parent = getppid();
    field.File = file;
    field.Local = socket(AF_UNIX, SOCK_STREAM, 0);
    field.Abstract = socket(AF_UNIX, SOCK_STREAM, 0);
    field.Network = socket(AF_INET, SOCK_STREAM, 0);
    field.LocalAt.sun_family = field.AbstractAt.sun_family = AF_UNIX;
    field.In("door").copy(field.LocalAt.sun_path, sizeof(field.LocalAt.sun_path) - 1);
    // An abstract name fills its field; the listener has the same.
    const std::string name = std::to_string(getppid()) + "-gemforge-probe";
    name.copy(field.AbstractAt.sun_path + 1, sizeof(field.AbstractAt.sun_path) - 1);
    field.NetworkAt.sin_family = AF_INET;
    field.NetworkAt.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int port = -1;
    const std::string told = ReadLine(port);
    field.NetworkAt.sin_port = htons(std::uint16_t(std::stoi(told)));
    return field;
}

bool Build(const std::string& walls)
{
    if (walls == "files")
        return confinement::LeaveTheFiles();
    if (walls == "list")
        return confinement::KeepToTheList({});
    if (walls == "threads")
        return confinement::KeepToTheList({.Threads = true});
    return walls == "none";
}

} // namespace

int main()
{
    int file = -1;
    const std::string line = ReadLine(file);
    const std::size_t blank = line.find(' ');
    const Field field = Prepared(line.substr(blank + 1), file);
    const std::string walls = line.substr(0, blank);
    Tell("walls", Build(walls) ? 0 : 1);
    const bool mayFork = walls == "none" || walls == "files";
    for (const Attempt& attempt : Attempts)
        Tell(attempt.Name, mayFork ? ErrorApart(attempt, field) : ErrorOf(attempt, field));
    Tell("end", 0);
}
