#include "platform/serial_port.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace filo::platform {
namespace {

std::string error_text() {
    return std::strerror(errno);
}

class PosixSerialPort final : public SerialPort {
  public:
    PosixSerialPort(std::string path, int fd) : path_(std::move(path)), fd_(fd) {}
    ~PosixSerialPort() override {
        // A pseudo-terminal outlives us in the simulator: leave it open to all.
        ::ioctl(fd_, TIOCNXCL);
        ::close(fd_);
    }

    const std::string& name() const override { return path_; }
    int descriptor() const override { return fd_; }

    void write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t n = ::write(fd_, bytes.data(), bytes.size());
            if (n < 0) {
                if (errno == EINTR) continue;
                if (errno == EAGAIN) {
                    wait(POLLOUT, 1.0);
                    continue;
                }
                throw PortError(path_, error_text());
            }
            bytes.remove_prefix(static_cast<std::size_t>(n));
        }
    }

    bool read(std::string& into, double timeout) override {
        if (!wait(POLLIN, timeout)) return false;
        char buffer[512];
        for (;;) {
            const ssize_t n = ::read(fd_, buffer, sizeof buffer);
            if (n > 0) {
                into.append(buffer, static_cast<std::size_t>(n));
                if (static_cast<std::size_t>(n) < sizeof buffer) return true;
                continue;
            }
            if (n < 0 && errno == EINTR) continue;
            if (n < 0 && errno == EAGAIN) return true;
            // End of file or an error: the device is no longer there.
            throw PortError(path_, n == 0 ? "the port was closed" : error_text());
        }
    }

  private:
    // True when the descriptor is ready within the timeout.
    bool wait(short events, double timeout) {
        pollfd p{fd_, events, 0};
        const int ms = timeout <= 0 ? 0 : static_cast<int>(std::ceil(timeout * 1000));
        for (;;) {
            const int r = ::poll(&p, 1, ms);
            if (r < 0 && errno == EINTR) continue;
            if (r < 0) throw PortError(path_, error_text());
            if (r == 0) return false;
            if (p.revents & POLLNVAL) throw PortError(path_, "the port was closed");
            // POLLHUP and POLLERR come with the read that reports them.
            return true;
        }
    }

    std::string path_;
    int fd_;
};

}  // namespace

std::unique_ptr<SerialPort> open_serial_port(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0 && errno == EBUSY) throw PortBusy(path);  // held with TIOCEXCL
    if (fd < 0) throw PortError(path, error_text());
    // Bytes read by two programs are lost to both: the lock first, so that a
    // port held by another copy is left as it is.
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const bool busy = errno == EWOULDBLOCK;
        const std::string why = error_text();
        ::close(fd);
        if (busy) throw PortBusy(path);
        throw PortError(path, why);
    }
    termios t{};
    if (::tcgetattr(fd, &t) != 0) {
        const std::string why = error_text();
        ::close(fd);
        throw PortError(path, why);
    }
    ::cfmakeraw(&t);
    t.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | PARENB | CRTSCTS);
    t.c_cflag |= CLOCAL | CREAD | CS8;
    t.c_cc[VMIN] = 0;
    t.c_cc[VTIME] = 0;
    ::cfsetispeed(&t, B19200);
    ::cfsetospeed(&t, B19200);
    if (::tcsetattr(fd, TCSANOW, &t) != 0) {
        const std::string why = error_text();
        ::close(fd);
        throw PortError(path, why);
    }
    ::tcflush(fd, TCIOFLUSH);
    ::ioctl(fd, TIOCEXCL);
    return std::make_unique<PosixSerialPort>(path, fd);
}

std::vector<PortInfo> list_serial_ports() {
    // A tty with a device behind it in sysfs is a real port; the sixteen-odd
    // legacy ttyS entries without hardware have a platform device of type 0.
    namespace fs = std::filesystem;
    std::vector<PortInfo> ports;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator("/sys/class/tty", ec)) {
        const fs::path device = entry.path() / "device";
        if (!fs::exists(device, ec)) continue;
        const std::string name = entry.path().filename().string();
        const std::string driver = fs::read_symlink(device / "driver", ec).filename().string();
        if (name.starts_with("ttyS")) {
            std::ifstream type(entry.path() / "type");
            int t = 0;
            if (!(type >> t) || t == 0) continue;
        }
        std::string caption = name;
        std::ifstream product(device / ".." / "product");
        std::string text;
        if (std::getline(product, text) && !text.empty())
            caption = text + " (" + name + ")";
        else if (!driver.empty())
            caption = driver + " (" + name + ")";
        ports.push_back({"/dev/" + name, caption});
    }
    std::sort(ports.begin(), ports.end(),
              [](const PortInfo& a, const PortInfo& b) { return a.path < b.path; });
    return ports;
}

}  // namespace filo::platform
