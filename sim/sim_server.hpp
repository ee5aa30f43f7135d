#pragma once
// The simulator served on a pseudo-terminal, in a thread of its own: any
// program opens path() as it opens a serial port. It sleeps in poll() until
// the PC writes, an answer falls due or a control line comes, so an idle
// simulator costs no processor time.
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace filo::platform {
class PseudoTerminal;
}

namespace filo::sim {

class Simulator;

class SimServer {
  public:
    // The simulator is used only under the server's lock once started.
    explicit SimServer(Simulator& simulator);
    ~SimServer();
    SimServer(const SimServer&) = delete;
    SimServer& operator=(const SimServer&) = delete;

    // Makes the pseudo-terminal and starts serving; throws std::system_error.
    void start();
    // Stops serving and joins the thread; the pseudo-terminal goes. Safe to
    // call twice.
    void stop();
    // The slave side's path, "" before start().
    const std::string& path() const { return path_; }

    // From any thread: a control line, run at once. "" when done, else why not.
    std::string control(const std::string& line);
    // From any thread: f sees the simulator while nothing else touches it.
    void inspect(const std::function<void(const Simulator&)>& f);

  private:
    void serve();
    void wake();
    void write_pending();

    Simulator& simulator_;
    std::mutex mutex_;
    std::unique_ptr<platform::PseudoTerminal> pty_;
    std::string path_;
    int wake_fd_ = -1;
    bool stopping_ = false;  // under mutex_
    std::string pending_;    // taken from the simulator, not yet written
    std::thread thread_;
};

}  // namespace filo::sim
