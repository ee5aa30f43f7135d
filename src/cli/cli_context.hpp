#pragma once
#include <iosfwd>
#include <stdexcept>
#include <string>

#include "texts/language_tables.hpp"

namespace filo::cli {

// Exit codes of filo-cli.
inline constexpr int kExitOk = 0;
inline constexpr int kExitUserError = 1;
inline constexpr int kExitUsage = 2;
// Frames that went unanswered on the line.
inline constexpr int kExitNotAnswered = 3;

// A mistake of the user's (a wrong name, a missing project): its message goes
// to stderr and the command exits 1. Nothing has been changed.
class UserError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// What every command gets: the texts in the chosen language and the streams.
struct Context {
    texts::LanguageTables& texts;
    std::ostream& out;
    std::ostream& err;
};

}  // namespace filo::cli
