#pragma once

namespace filo::platform {

// A monotonic clock in seconds: never the time of day, so midnight and
// changes of the system's time are no events.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual double now() const = 0;
};

class SteadyClock final : public Clock {
  public:
    double now() const override;
};

}  // namespace filo::platform
