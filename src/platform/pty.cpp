#include "platform/pty.hpp"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace filo::platform {

PseudoTerminal::PseudoTerminal() {
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master_ < 0) throw std::system_error(errno, std::generic_category(), "posix_openpt");
    if (::grantpt(master_) != 0 || ::unlockpt(master_) != 0) {
        const int e = errno;
        ::close(master_);
        throw std::system_error(e, std::generic_category(), "unlockpt");
    }
    char name[128];
    if (::ptsname_r(master_, name, sizeof name) != 0) {
        const int e = errno;
        ::close(master_);
        throw std::system_error(e, std::generic_category(), "ptsname");
    }
    slave_path_ = name;
    // Raw from the start, so that nothing is echoed or translated before a
    // client sets the port up.
    slave_keepalive_ = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave_keepalive_ >= 0) {
        termios t{};
        if (::tcgetattr(slave_keepalive_, &t) == 0) {
            ::cfmakeraw(&t);
            ::tcsetattr(slave_keepalive_, TCSANOW, &t);
        }
    }
    ::fcntl(master_, F_SETFL, ::fcntl(master_, F_GETFL) | O_NONBLOCK);
}

PseudoTerminal::~PseudoTerminal() {
    if (slave_keepalive_ >= 0) ::close(slave_keepalive_);
    if (master_ >= 0) ::close(master_);
}

}  // namespace filo::platform
