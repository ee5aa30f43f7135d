#pragma once
#include <filesystem>
#include <string>

namespace filo::testing {

// A fresh directory under the system's temporary directory, removed with
// everything in it when the object goes.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

std::string read_file(const std::filesystem::path& file);
void write_file(const std::filesystem::path& file, const std::string& contents);

}  // namespace filo::testing
