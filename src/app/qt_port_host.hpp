#pragma once
// The line in the desktop: the port is read whenever Qt's event loop runs
// (idle time, and inside every wait that serves events), so received
// characters reach the assembler as the program's one thread allows.
#include <QObject>
#include <memory>

#include "app/port_host.hpp"
#include "bus/line_io.hpp"

class QSocketNotifier;

namespace filo::platform {
class SerialPort;
}
namespace filo::bus {
class ReceiveAssembler;
}

namespace filo::app {

class QtPortHost final : public QObject, public PortHost, public bus::LineIo {
    Q_OBJECT
  public:
    QtPortHost(bus::ReceiveAssembler& receiver, const platform::Clock& clock);
    ~QtPortHost() override;

    // PortHost
    void open(const std::string& path) override;
    void close() override;
    bus::LineIo& io() override { return *this; }

    // LineIo
    const platform::Clock& clock() const override { return clock_; }
    void write(std::string_view bytes) override;
    bool serve_until(double deadline, const std::function<bool()>& done) override;
    void idle_until(double deadline) override;

  signals:
    void received();
    // The port went away (an adapter pulled out); it is closed.
    void lost(const QString& what);

  private:
    void read_available();

    bus::ReceiveAssembler& receiver_;
    const platform::Clock& clock_;
    std::unique_ptr<platform::SerialPort> port_;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace filo::app
