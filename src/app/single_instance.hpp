#pragma once
#include <filesystem>

namespace filo::app {

// One running copy of the program per data directory. The lock is an
// flock() on a file there rather than a file that merely exists: the kernel
// drops it when the process ends in any way, so a crash never leaves a stale
// lock that would refuse every later start.
class SingleInstance {
  public:
    explicit SingleInstance(const std::filesystem::path& data_directory);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // False when another copy holds the lock.
    bool acquired() const { return acquired_; }

  private:
    int fd_ = -1;
    bool acquired_ = false;
};

}  // namespace filo::app
