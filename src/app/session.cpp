#include "app/session.hpp"

#include "bus/line_io.hpp"
#include "bus/receive_assembler.hpp"
#include "platform/serial_port.hpp"
#include "platform/speech_engine.hpp"

namespace filo::app {

using texts::Text;

Session::Session(std::filesystem::path data_directory, PortHost& port,
                 bus::ReceiveAssembler& receiver_, Messages& messages)
    : files(std::move(data_directory)),
      receiver(receiver_),
      line(port.io(), receiver_),
      port_(port),
      messages_(messages) {
    texts.ITALIANO();
    STATO_LINEA = texts.text(Text::LINE_OFFLINE);
}

Session::~Session() = default;

void Session::message(Text text, Text title, std::string_view before, std::string_view after) {
    std::string composed(before);
    composed += texts[text];
    composed += after;
    messages_.show(composed, texts.text(title));
}

void Session::message_text(const std::string& text, const std::string& title) {
    messages_.show(text, title);
}

bool Session::ask(Text text, Text title) {
    return messages_.ask(texts.text(text), texts.text(title));
}

bool Session::ask_text(const std::string& text, const std::string& title) {
    return messages_.ask(text, title);
}

bool Session::use_port(const std::string& path) {
    close_port();
    port_busy = false;
    try {
        port_.open(path);
    } catch (const platform::PortBusy&) {
        port_busy = true;
        return false;
    } catch (const platform::PortError&) {
        return false;
    }
    PORTA_COM = path;
    STATO_LINEA = texts.text(Text::LINE_ONLINE) + path;
    return true;
}

void Session::close_port() {
    port_.close();
    PORTA_COM.clear();
    STATO_LINEA = texts.text(Text::LINE_OFFLINE);
}

}  // namespace filo::app
