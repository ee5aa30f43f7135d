#pragma once

namespace filo::platform {

// SIGINT and SIGTERM held back for the lifetime of the object, so that a
// command that runs until interrupted can finish its work and say so. The
// caller asks between two reads; nothing is global.
class InterruptSignals {
  public:
    InterruptSignals();
    ~InterruptSignals();
    InterruptSignals(const InterruptSignals&) = delete;
    InterruptSignals& operator=(const InterruptSignals&) = delete;

    // Whether one of them has arrived (it is taken off the pending set).
    bool arrived();

  private:
    struct Saved;
    Saved* saved_;
};

}  // namespace filo::platform
