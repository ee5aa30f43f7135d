#pragma once
// filo-sim started as a child process, for tests that talk to it over its
// pseudo-terminal as filo-cli does.
#include <sys/types.h>

#include <string>
#include <vector>

namespace filo::testing {

class SimProcess {
  public:
    // Starts filo-sim (from FILO_BIN_DIR) with the arguments and reads the
    // path of its pseudo-terminal from the first line of its output; with
    // "--baud 0" unless the arguments give a line speed. Throws
    // std::runtime_error when it does not come within a few seconds.
    explicit SimProcess(const std::vector<std::string>& arguments);
    ~SimProcess();
    SimProcess(const SimProcess&) = delete;
    SimProcess& operator=(const SimProcess&) = delete;

    const std::string& port() const { return port_; }
    // Writes a control line to its standard input.
    void control(const std::string& line);
    // SIGTERM, then waits: the exit code (128 + signal when killed).
    int stop();
    // What it wrote on standard error; complete after stop().
    const std::string& errors() const { return errors_; }

  private:
    void drain_errors(int timeout_ms);

    pid_t pid_ = -1;
    int stdin_ = -1;
    int stdout_ = -1;
    int stderr_ = -1;
    std::string port_;
    std::string errors_;
};

}  // namespace filo::testing
