#pragma once
// What the windows ask of the world for messages and for the line.
#include <string>

namespace filo::bus {
class LineIo;
}

namespace filo::app {

// The message boxes: a text and a title; ask() is the Yes/No box.
class Messages {
  public:
    virtual ~Messages() = default;
    virtual void show(const std::string& text, const std::string& title) = 0;
    virtual bool ask(const std::string& text, const std::string& title) = 0;
};

// The serial port in use and the line over it.
class PortHost {
  public:
    virtual ~PortHost() = default;
    // Closes any port in use, then opens this one; throws platform::PortError.
    virtual void open(const std::string& path) = 0;
    virtual void close() = 0;
    virtual bus::LineIo& io() = 0;
};

}  // namespace filo::app
