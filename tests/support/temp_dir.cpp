#include "support/temp_dir.hpp"

#include <stdlib.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace filo::testing {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "filo-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::string read_file(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void write_file(const std::filesystem::path& file, const std::string& contents) {
    std::ofstream out(file, std::ios::binary);
    out << contents;
}

}  // namespace filo::testing
