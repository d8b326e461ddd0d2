#pragma once

// Runs a piece of work in a child process under a limit on the size of the
// files it may write, and hands back the bytes the work returned. The limit
// binds the child alone, so a write that fails midway costs the test nothing
// but that child; its signal is ignored, so that the write fails with an
// error the library sees rather than ending the process.

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <exception>
#include <functional>
#include <string>

namespace Faults {

struct ChildResult {
    // Empty when the child ended as it should; else what went wrong.
    std::string failure;
    std::string report;
};

namespace ChildPipe {

inline bool WriteAll(int fd, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    return true;
}

inline std::string ReadAll(int fd) {
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return bytes;
        }
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
}

}  // namespace ChildPipe

// The child leaves with _exit: neither the test framework's handlers nor the
// leak check at exit run in it.
inline ChildResult RunWithFileSizeLimit(rlim_t limit, const std::function<std::string()>& work) {
    int fds[2];
    if (::pipe(fds) != 0) {
        return {"no pipe", {}};
    }
    const pid_t child = ::fork();
    if (child < 0) {
        ::close(fds[0]);
        ::close(fds[1]);
        return {"no child process", {}};
    }
    if (child == 0) {
        ::close(fds[0]);
        const rlimit bound{limit, limit};
        if (::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || ::setrlimit(RLIMIT_FSIZE, &bound) != 0) {
            ::_exit(3);
        }
        int code = 0;
        try {
            code = ChildPipe::WriteAll(fds[1], work()) ? 0 : 4;
        } catch (...) {
            code = 5;
        }
        ::close(fds[1]);
        ::_exit(code);
    }
    ::close(fds[1]);
    ChildResult result{{}, ChildPipe::ReadAll(fds[0])};
    ::close(fds[0]);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status)) {
        result.failure = "child ended by signal " + std::to_string(WIFSIGNALED(status) ? WTERMSIG(status) : 0);
    } else if (WEXITSTATUS(status) != 0) {
        // 3: the limit could not be set; 4: the report could not be sent; 5: the work threw.
        result.failure = "child exited with " + std::to_string(WEXITSTATUS(status));
    }
    return result;
}

}  // namespace Faults
