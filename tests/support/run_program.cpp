#include "support/run_program.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

extern char** environ;

namespace filo::testing {

std::filesystem::path program_path(const std::string& program) {
    const char* dir = std::getenv("FILO_BIN_DIR");
    if (!dir) throw std::runtime_error("FILO_BIN_DIR is not set: run the tests through ctest");
    return std::filesystem::path(dir) / program;
}

ChildProcess start_program(const std::string& program, const std::vector<std::string>& arguments,
                           const std::map<std::string, std::string>& environment) {
    const std::string path = program_path(program).string();
    int in[2], out[2], err[2];
    if (::pipe2(in, O_CLOEXEC) || ::pipe2(out, O_CLOEXEC) || ::pipe2(err, O_CLOEXEC))
        throw std::runtime_error("pipe failed");
    const pid_t pid = ::fork();
    if (pid < 0) throw std::runtime_error("fork failed");
    if (pid == 0) {
        ::dup2(in[0], 0);
        ::dup2(out[1], 1);
        ::dup2(err[1], 2);
        for (const auto& [k, v] : environment) ::setenv(k.c_str(), v.c_str(), 1);
        std::vector<char*> argv;
        argv.push_back(const_cast<char*>(path.c_str()));
        for (const std::string& a : arguments) argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        ::execv(path.c_str(), argv.data());
        ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    ::close(err[1]);
    return {pid, in[1], out[0], err[0]};
}

int wait_for_exit(pid_t pid) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

ProgramResult run_program(const std::string& program, const std::vector<std::string>& arguments,
                          const std::map<std::string, std::string>& environment,
                          const std::string& input) {
    ChildProcess child = start_program(program, arguments, environment);
    std::size_t written = 0;
    if (input.empty()) {
        ::close(child.in);
        child.in = -1;
    }

    ProgramResult result;
    pollfd fds[3] = {{child.out, POLLIN, 0}, {child.err, POLLIN, 0}, {child.in, POLLOUT, 0}};
    int open_streams = 2;
    char buffer[4096];
    while (open_streams > 0) {
        if (::poll(fds, 3, 30000) <= 0) break;
        for (int i = 0; i < 2; ++i) {
            if (fds[i].fd < 0 || !(fds[i].revents & (POLLIN | POLLHUP))) continue;
            ssize_t n = ::read(fds[i].fd, buffer, sizeof buffer);
            if (n <= 0) {
                ::close(fds[i].fd);
                fds[i].fd = -1;
                --open_streams;
            } else {
                (i == 0 ? result.out : result.err).append(buffer, static_cast<std::size_t>(n));
            }
        }
        if (fds[2].fd >= 0 && (fds[2].revents & (POLLOUT | POLLERR))) {
            ssize_t n = ::write(fds[2].fd, input.data() + written, input.size() - written);
            if (n > 0) written += static_cast<std::size_t>(n);
            if (n < 0 || written == input.size()) {
                ::close(fds[2].fd);
                fds[2].fd = -1;
            }
        }
    }
    for (auto& f : fds)
        if (f.fd >= 0) ::close(f.fd);
    result.exit_code = wait_for_exit(child.pid);
    return result;
}

}  // namespace filo::testing
