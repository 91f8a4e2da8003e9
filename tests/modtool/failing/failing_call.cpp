#include "failing_call.h"

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <vector>

namespace failing_test {

namespace {

struct Watched
{
    int number;
    const char* name;
    int error; ///< with which it fails
};

constexpr Watched watchedCalls[] = {
#ifdef SYS_open
    {SYS_open, "open", EIO},
    {SYS_mkdir, "mkdir", ENOSPC},
    {SYS_rename, "rename", EIO},
    {SYS_unlink, "unlink", EIO},
    {SYS_rmdir, "rmdir", EIO},
    {SYS_readlink, "readlink", EIO},
    {SYS_stat, "stat", EIO},
    {SYS_lstat, "lstat", EIO},
#endif
    {SYS_openat, "openat", EIO},
    {SYS_read, "read", EIO},
    {SYS_readv, "readv", EIO},
    {SYS_pread64, "pread", EIO},
    {SYS_lseek, "lseek", EIO},
    {SYS_write, "write", ENOSPC},
    {SYS_writev, "writev", ENOSPC},
    {SYS_pwrite64, "pwrite", ENOSPC},
    {SYS_ftruncate, "ftruncate", EIO},
    {SYS_fsync, "fsync", EIO},
    {SYS_mkdirat, "mkdirat", ENOSPC},
    {SYS_renameat, "renameat", EIO},
    {SYS_renameat2, "renameat2", EIO},
    {SYS_unlinkat, "unlinkat", EIO},
    {SYS_symlinkat, "symlinkat", ENOSPC},
    {SYS_getdents64, "getdents", EIO},
    {SYS_readlinkat, "readlinkat", EIO},
    {SYS_newfstatat, "fstatat", EIO},
    {SYS_fstat, "fstat", EIO},
    {SYS_statx, "statx", EIO},
    {SYS_flock, "flock", ENOLCK},
    {SYS_fcntl, "fcntl", EIO},
    {SYS_mmap, "mmap", ENOMEM},
    // not brk: where it fails once, glibc 2.36 crashes in malloc() itself; allocations fail in trials of their own
};

/// The instructions that let a supervisor decide on the watched calls.
std::vector<sock_filter> filterOf()
{
    std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    constexpr auto count = static_cast<unsigned int>(std::size(watchedCalls));
    for (unsigned int i = 0; i < count; ++i)
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K,
                                  static_cast<unsigned int>(watchedCalls[i].number),
                                  static_cast<std::uint8_t>(count - i), 0));
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    return filter;
}

/// @returns a descriptor on which the calls of this process are told; -1 where that is not allowed
int startWatching()
{
    std::vector<sock_filter> filter = filterOf();
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return -1;
    return static_cast<int>(
        ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
}

/// A message of one byte that carries a descriptor.
struct DescriptorMessage
{
    DescriptorMessage()
    {
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        message.msg_control = control.data();
        message.msg_controllen = control.size();
    }

    char byte = 0;
    iovec part{&byte, 1};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
    msghdr message{};
};

void sendDescriptor(int socket, int descriptor)
{
    DescriptorMessage sent;
    cmsghdr* header = CMSG_FIRSTHDR(&sent.message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &descriptor, sizeof descriptor);
    ::sendmsg(socket, &sent.message, 0);
}

int receiveDescriptor(int socket)
{
    DescriptorMessage received;
    const cmsghdr* header =
        ::recvmsg(socket, &received.message, 0) == 1 ? CMSG_FIRSTHDR(&received.message) : nullptr;
    int descriptor = -1;
    if (header != nullptr)
        std::memcpy(&descriptor, CMSG_DATA(header), sizeof descriptor);
    return descriptor;
}

[[noreturn]] void runChild(const std::function<int()>& body, int socket)
{
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    const int listener = startWatching();
    if (listener >= 0)
        sendDescriptor(socket, listener); // none of its calls is watched
    ::syscall(SYS_close, listener);
    ::syscall(SYS_close, socket);
    constexpr int cannotWatch = 98, threw = 99;
    int exitCode = listener >= 0 ? threw : cannotWatch;
    if (listener >= 0) {
        try {
            exitCode = body();
        } catch (const std::exception& ex) {
            std::fprintf(stderr, "thrown: %s\n", ex.what());
        }
    }
    ::_exit(exitCode);
}

/// Answers the calls of a process until it ends.
class CSupervisor
{
public:
    CSupervisor(int listener, const FailingCall& failing) : m_listener(listener), m_failing(failing) {}

    void run()
    {
        for (;;) {
            pollfd waited{m_listener, POLLIN, 0};
            if (::poll(&waited, 1, -1) < 0 && errno == EINTR)
                continue;
            if ((waited.revents & POLLIN) == 0)
                return; // the process has ended
            seccomp_notif call{};
            if (::ioctl(m_listener, SECCOMP_IOCTL_NOTIF_RECV, &call) == 0)
                answer(call);
        }
    }

    WatchedEnd result;

private:
    void answer(const seccomp_notif& call)
    {
        const auto* watched = std::find_if(std::begin(watchedCalls), std::end(watchedCalls),
                                           [&](const Watched& one) { return one.number == call.data.nr; });
        seccomp_notif_resp response{};
        response.id = call.id;
        if (++result.calls == m_failing.number) {
            response.error = -watched->error;
            result.failedCall = watched->name;
            result.failedOnErrors = call.data.nr == SYS_write && call.data.args[0] == STDERR_FILENO;
        } else if (call.data.nr != SYS_fsync) {
            response.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
        }
        ::ioctl(m_listener, SECCOMP_IOCTL_NOTIF_SEND, &response);
    }

    int m_listener;
    FailingCall m_failing;
};

} // namespace

bool canWatch()
{
    return runWatched([] { return 0; }, {}).exitCode == 0;
}

WatchedEnd runWatched(const std::function<int()>& body, const FailingCall& failing)
{
    std::array<int, 2> sockets{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()) != 0)
        throw std::runtime_error("cannot make a socket");
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0) {
        ::close(sockets[0]);
        runChild(body, sockets[1]);
    }
    ::close(sockets[1]);
    const int listener = receiveDescriptor(sockets[0]);
    ::close(sockets[0]);
    CSupervisor supervisor(listener, failing);
    if (listener >= 0)
        supervisor.run();
    ::close(listener);
    int status = 0;
    ::waitpid(child, &status, 0);
    supervisor.result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    supervisor.result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return supervisor.result;
}

} // namespace failing_test
