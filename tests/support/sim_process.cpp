#include "support/sim_process.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "support/run_program.hpp"

namespace filo::testing {

SimProcess::SimProcess(const std::vector<std::string>& arguments) {
    const std::string path = program_path("filo-sim").string();
    int in[2], out[2], err[2];
    if (::pipe2(in, O_CLOEXEC) || ::pipe2(out, O_CLOEXEC) || ::pipe2(err, O_CLOEXEC))
        throw std::runtime_error("pipe failed");
    pid_ = ::fork();
    if (pid_ < 0) throw std::runtime_error("fork failed");
    if (pid_ == 0) {
        ::dup2(in[0], 0);
        ::dup2(out[1], 1);
        ::dup2(err[1], 2);
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
    stdin_ = in[1];
    stdout_ = out[0];
    stderr_ = err[0];

    std::string line;
    char c;
    pollfd p{stdout_, POLLIN, 0};
    while (line.empty() || line.back() != '\n') {
        if (::poll(&p, 1, 5000) <= 0 || ::read(stdout_, &c, 1) != 1) {
            stop();
            throw std::runtime_error("filo-sim gave no port: " + errors_);
        }
        line += c;
    }
    line.pop_back();
    port_ = line;
}

SimProcess::~SimProcess() {
    if (pid_ > 0) stop();
    for (int fd : {stdin_, stdout_, stderr_})
        if (fd >= 0) ::close(fd);
}

void SimProcess::control(const std::string& line) {
    const std::string text = line + "\n";
    if (::write(stdin_, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        throw std::runtime_error("filo-sim's input is closed");
}

void SimProcess::drain_errors(int timeout_ms) {
    char buffer[1024];
    pollfd p{stderr_, POLLIN, 0};
    while (::poll(&p, 1, timeout_ms) > 0) {
        const ssize_t n = ::read(stderr_, buffer, sizeof buffer);
        if (n <= 0) break;
        errors_.append(buffer, static_cast<std::size_t>(n));
    }
}

int SimProcess::stop() {
    if (pid_ <= 0) return -1;
    ::kill(pid_, SIGTERM);
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
    drain_errors(0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace filo::testing
