/// @file
/// Steps in a process of their own, which may be killed, be short of room, or have its system calls fail; and one that
/// holds a lock. None of it needs rights.
#pragma once

#include "support/ErrorOf.h"

#include <QFile>
#include <QString>

#include <csignal>
#include <cstdlib>
#include <initializer_list>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

/// How a child process has ended.
struct ChildEnd {
    int Error = -1; ///< number of the RuntimeError that its step threw, 0 when it threw none; -1 when a signal ended it
    int Signal = 0; ///< the signal, 0 when none did
};

/// Runs a step in a child process. The step must not print.
template <typename Step>
ChildEnd RunInChild(const Step &step)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(ErrorOf(step));
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        qFatal("no child process");
    if (WIFSIGNALED(status))
        return {-1, WTERMSIG(status)};
    return {WEXITSTATUS(status), 0};
}

/// From here on the system calls of these numbers are not made; they end with an error of errno at once. For good: call
/// it in a child.
inline void FailSystemCalls(std::initializer_list<unsigned> calls, unsigned error)
{
    for (const unsigned call : calls) {
        sock_filter code[] = {
            BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1),
            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error),
            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        };
        const sock_fprog program{4, code};
        if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
            std::abort();
    }
}

/// Every call that renames.
inline constexpr std::initializer_list<unsigned> RenameCalls{
#ifdef SYS_rename
    SYS_rename,
#endif
    SYS_renameat, SYS_renameat2};

/// As long as this lives, no file of the process grows above a number of bytes: a write that would pass it is cut off
/// there, and the next one fails. With a deadly limit, the system kills the process instead.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes, bool deadly = false)
        : m_handler(std::signal(SIGXFSZ, deadly ? SIG_DFL : SIG_IGN))
    {
        if (deadly)
            prctl(PR_SET_DUMPABLE, 0); // no core
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
            std::abort();
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before{};
};

/// Another process that holds a lock on a file as long as this lives.
class LockHolder {
public:
    /// @param lock LOCK_SH or LOCK_EX
    LockHolder(const QString &path, int lock)
    {
        int ready[2];
        if (pipe(ready) != 0)
            qFatal("no pipe");
        m_child = fork();
        if (m_child == 0) {
            const int file = open(QFile::encodeName(path).constData(), O_RDONLY);
            const char answer = file >= 0 && flock(file, lock | LOCK_NB) == 0 ? 'y' : 'n';
            if (write(ready[1], &answer, 1) == 1)
                pause();
            _exit(0);
        }
        char answer = 'n';
        m_holds = m_child > 0 && read(ready[0], &answer, 1) == 1 && answer == 'y';
        close(ready[0]);
        close(ready[1]);
    }
    ~LockHolder()
    {
        if (m_child > 0) {
            kill(m_child, SIGKILL);
            waitpid(m_child, nullptr, 0);
        }
    }
    LockHolder(const LockHolder &) = delete;
    LockHolder &operator=(const LockHolder &) = delete;

    /// Whether it has got the lock; to be verified by each test.
    bool Holds() const { return m_holds; }

private:
    pid_t m_child = -1;
    bool m_holds = false;
};
