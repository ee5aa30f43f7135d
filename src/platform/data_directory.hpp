#pragma once
#include <filesystem>

namespace filo::platform {

// The directory that holds the templates, the markers and the reports of a
// run: $FILO_HOME, else $XDG_DATA_HOME/filo, else ~/.local/share/filo.
// Made when missing; throws std::filesystem::filesystem_error when it can't be.
std::filesystem::path data_directory();

}  // namespace filo::platform
