#include "app/qt_port_host.hpp"

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
#include <cmath>

#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"

namespace filo::app {
namespace {

int milliseconds_to(const platform::Clock& clock, double deadline) {
    return std::max(0, static_cast<int>(std::ceil((deadline - clock.now()) * 1000.0)));
}

}  // namespace

QtPortHost::QtPortHost(bus::ReceiveAssembler& receiver, const platform::Clock& clock)
    : receiver_(receiver), clock_(clock) {}

QtPortHost::~QtPortHost() {
    close();
}

void QtPortHost::open(const std::string& path) {
    close();
    port_ = platform::open_serial_port(path);
    notifier_ = new QSocketNotifier(port_->descriptor(), QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, &QtPortHost::read_available);
}

void QtPortHost::close() {
    if (notifier_) {
        notifier_->setEnabled(false);
        // It may be closing from inside its own signal.
        notifier_->deleteLater();
        notifier_ = nullptr;
    }
    port_.reset();
}

void QtPortHost::write(std::string_view bytes) {
    if (!port_) throw platform::PortError("", "no port in use");
    port_->write(bytes);
}

void QtPortHost::read_available() {
    if (!port_) return;
    std::string bytes;
    try {
        port_->read(bytes, 0);
    } catch (const platform::PortError& e) {
        close();
        emit lost(QString::fromStdString(e.what()));
        return;
    }
    receiver_.feed(bytes);
    emit received();
}

bool QtPortHost::serve_until(double deadline, const std::function<bool()>& done) {
    if (done()) return true;
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    connect(this, &QtPortHost::received, &loop, [&] {
        if (done()) loop.quit();
    });
    timer.start(milliseconds_to(clock_, deadline));
    loop.exec();
    return done();
}

void QtPortHost::idle_until(double deadline) {
    // Nothing is read and no click is taken meanwhile; the window still paints.
    if (notifier_) notifier_->setEnabled(false);
    QEventLoop loop;
    QTimer::singleShot(milliseconds_to(clock_, deadline), &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (notifier_) notifier_->setEnabled(true);
}

}  // namespace filo::app
