#pragma once
// Steps that several commands take on the way to the programmer.
#include <memory>
#include <string>
#include <string_view>

#include "cli/cli_context.hpp"

namespace filo::platform {
class SerialPort;
}

namespace filo::cli {

// A "(" or "[" frame: one of those marks first and "]" last.
bool is_bracketed_frame(std::string_view frame);

// The port at path, opened; a port that can't be opened is the user's
// mistake (a wrong path, a port taken by another program).
std::unique_ptr<platform::SerialPort> open_port(const Context& context, const std::string& path);

}  // namespace filo::cli
