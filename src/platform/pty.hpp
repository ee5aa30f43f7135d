#pragma once
// A pseudo-terminal pair: the simulator holds the master side, and clients
// open the slave by its path as they open any serial port.
#include <string>

namespace filo::platform {

class PseudoTerminal {
  public:
    // Throws std::system_error.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    int master() const { return master_; }
    const std::string& slave_path() const { return slave_path_; }

  private:
    int master_ = -1;
    int slave_keepalive_ = -1;  // keeps the slave side from hanging up between clients
    std::string slave_path_;
};

}  // namespace filo::platform
