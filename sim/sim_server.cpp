#include "sim/sim_server.hpp"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <system_error>

#include "platform/clock.hpp"
#include "platform/pty.hpp"
#include "sim/simulator.hpp"

namespace filo::sim {
namespace {

// Output that nobody reads is dropped past this much, as a line with no
// listener loses it.
constexpr std::size_t kMaxPending = 1 << 20;

}  // namespace

SimServer::SimServer(Simulator& simulator) : simulator_(simulator) {}

SimServer::~SimServer() {
    stop();
}

void SimServer::start() {
    if (thread_.joinable()) return;
    pty_ = std::make_unique<platform::PseudoTerminal>();
    path_ = pty_->slave_path();
    wake_fd_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wake_fd_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
    stopping_ = false;
    thread_ = std::thread([this] { serve(); });
}

void SimServer::stop() {
    if (!thread_.joinable()) return;
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake();
    thread_.join();
    ::close(wake_fd_);
    wake_fd_ = -1;
    pty_.reset();
}

void SimServer::wake() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t n = ::write(wake_fd_, &one, sizeof one);
}

std::string SimServer::control(const std::string& line) {
    platform::SteadyClock clock;
    std::string result;
    {
        std::lock_guard lock(mutex_);
        result = simulator_.control(line, clock.now());
    }
    if (wake_fd_ >= 0) wake();  // what it made may be due now
    return result;
}

void SimServer::inspect(const std::function<void(const Simulator&)>& f) {
    std::lock_guard lock(mutex_);
    f(simulator_);
}

void SimServer::write_pending() {
    while (!pending_.empty()) {
        const ssize_t n = ::write(pty_->master(), pending_.data(), pending_.size());
        if (n > 0) {
            pending_.erase(0, static_cast<std::size_t>(n));
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        break;  // full: poll says when it can take more
    }
    if (pending_.size() > kMaxPending) pending_.clear();
}

void SimServer::serve() {
    platform::SteadyClock clock;
    char buffer[4096];
    for (;;) {
        // To the microsecond: a line at 19200 bit/s carries a character in
        // half a millisecond, and a wait rounded up to whole milliseconds
        // would slow every answer by that much.
        timespec timeout{};
        bool forever = true;
        {
            std::lock_guard lock(mutex_);
            if (stopping_) return;
            pending_ += simulator_.take_output(clock.now());
            if (const auto next = simulator_.next_output()) {
                const double left = std::max(0.0, *next - clock.now());
                const auto us = static_cast<long long>(std::ceil(left * 1e6));
                timeout.tv_sec = static_cast<time_t>(us / 1000000);
                timeout.tv_nsec = static_cast<long>(us % 1000000) * 1000;
                forever = false;
            }
        }
        write_pending();
        pollfd fds[2] = {
            {pty_->master(), static_cast<short>(POLLIN | (pending_.empty() ? 0 : POLLOUT)), 0},
            {wake_fd_, POLLIN, 0}};
        const int r = ::ppoll(fds, 2, forever ? nullptr : &timeout, nullptr);
        if (r < 0 && errno != EINTR) return;
        if (r <= 0) continue;
        if (fds[1].revents & POLLIN) {
            std::uint64_t count = 0;
            [[maybe_unused]] const ssize_t n = ::read(wake_fd_, &count, sizeof count);
        }
        if ((fds[0].revents & (POLLHUP | POLLERR)) && !(fds[0].revents & POLLIN)) {
            // No slave side open: nothing to read until a client comes back.
            pollfd wake_only{wake_fd_, POLLIN, 0};
            ::poll(&wake_only, 1, 100);
            continue;
        }
        if (fds[0].revents & POLLIN) {
            const ssize_t n = ::read(pty_->master(), buffer, sizeof buffer);
            if (n > 0) {
                std::lock_guard lock(mutex_);
                simulator_.receive(std::string_view(buffer, static_cast<std::size_t>(n)),
                                   clock.now());
            }
        }
    }
}

}  // namespace filo::sim
