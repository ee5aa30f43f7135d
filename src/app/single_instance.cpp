#include "app/single_instance.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace filo::app {

SingleInstance::SingleInstance(const std::filesystem::path& data_directory) {
    const std::filesystem::path lock = data_directory / "filo.lock";
    fd_ = ::open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    // A directory we can't write in can't hold a lock: no copy could, so
    // this one runs.
    acquired_ = fd_ < 0 || ::flock(fd_, LOCK_EX | LOCK_NB) == 0;
}

SingleInstance::~SingleInstance() {
    if (fd_ >= 0) ::close(fd_);
}

}  // namespace filo::app
