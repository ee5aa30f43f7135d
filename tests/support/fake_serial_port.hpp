#pragma once
// A serial port with a device behind it that the port search can meet: the
// programmer, which echoes the search digits; a modem, which echoes all and
// answers "OK"; a silent device. A read that finds nothing lets `idle` pass
// the time it waited (a virtual clock's, in tests of the search).
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/serial_port.hpp"

namespace filo::testing {

// Busy: a port that another program holds; the opener refuses it.
enum class Device { Programmer, Silent, Missing, Modem, Busy };

class FakeSerialPort final : public platform::SerialPort {
  public:
    FakeSerialPort(std::string name, Device device, std::function<void(double)> idle = {})
        : name_(std::move(name)), device_(device), idle_(std::move(idle)) {}
    const std::string& name() const override { return name_; }
    int descriptor() const override { return -1; }
    void write(std::string_view bytes) override {
        if (device_ == Device::Programmer) pending_ += bytes;
        if (device_ == Device::Modem) pending_ += std::string(bytes) + "OK\r";
    }
    bool read(std::string& into, double timeout) override {
        if (pending_.empty()) {
            if (idle_) idle_(timeout);
            return false;
        }
        into += pending_;
        pending_.clear();
        return true;
    }

  private:
    std::string name_;
    Device device_;
    std::function<void(double)> idle_;
    std::string pending_;
};

}  // namespace filo::testing
