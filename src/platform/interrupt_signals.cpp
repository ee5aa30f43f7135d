#include "platform/interrupt_signals.hpp"

#include <csignal>
#include <ctime>

namespace filo::platform {

struct InterruptSignals::Saved {
    sigset_t watched;
    sigset_t previous;
};

InterruptSignals::InterruptSignals() : saved_(new Saved) {
    sigemptyset(&saved_->watched);
    sigaddset(&saved_->watched, SIGINT);
    sigaddset(&saved_->watched, SIGTERM);
    sigprocmask(SIG_BLOCK, &saved_->watched, &saved_->previous);
}

InterruptSignals::~InterruptSignals() {
    sigprocmask(SIG_SETMASK, &saved_->previous, nullptr);
    delete saved_;
}

bool InterruptSignals::arrived() {
    const timespec none{0, 0};
    return sigtimedwait(&saved_->watched, nullptr, &none) > 0;
}

}  // namespace filo::platform
