#include "support/sim_process.hpp"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <stdexcept>

#include "support/run_program.hpp"

namespace filo::testing {

namespace {

// Tests answer at once unless they ask for a line speed: the pace of a real
// line would only make them slow.
std::vector<std::string> with_fast_line(std::vector<std::string> arguments) {
    for (const std::string& a : arguments)
        if (a == "--baud" || a.rfind("--baud=", 0) == 0) return arguments;
    arguments.insert(arguments.begin(), {"--baud", "0"});
    return arguments;
}

}  // namespace

SimProcess::SimProcess(const std::vector<std::string>& arguments) {
    const ChildProcess child = start_program("filo-sim", with_fast_line(arguments));
    pid_ = child.pid;
    stdin_ = child.in;
    stdout_ = child.out;
    stderr_ = child.err;

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
    const int exit_code = wait_for_exit(pid_);
    pid_ = -1;
    drain_errors(0);
    return exit_code;
}

}  // namespace filo::testing
