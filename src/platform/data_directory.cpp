#include "platform/data_directory.hpp"

#include <cstdlib>

namespace filo::platform {
namespace {

std::filesystem::path from_environment() {
    if (const char* home = std::getenv("FILO_HOME"); home && *home) return home;
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
        return std::filesystem::path(xdg) / "filo";
    if (const char* home = std::getenv("HOME"); home && *home)
        return std::filesystem::path(home) / ".local" / "share" / "filo";
    return std::filesystem::current_path() / "filo-data";
}

}  // namespace

std::filesystem::path data_directory() {
    std::filesystem::path dir = from_environment();
    std::filesystem::create_directories(dir);
    return dir;
}

}  // namespace filo::platform
