#include "platform/files.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <random>
#include <system_error>
#include <vector>

namespace filo::platform {
namespace fs = std::filesystem;
namespace {

[[noreturn]] void fail(const char* what, const fs::path& p, int err) {
    throw fs::filesystem_error(what, p, std::error_code(err, std::generic_category()));
}

class TempFile {
  public:
    explicit TempFile(const fs::path& target) {
        std::random_device rd;
        for (int attempt = 0; attempt < 100; ++attempt) {
            path_ = target;
            path_ += ".tmp" + std::to_string(rd() % 1000000);
            fd_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
            if (fd_ >= 0) return;
            if (errno != EEXIST) fail("cannot create file", path_, errno);
        }
        fail("cannot create file", path_, EEXIST);
    }
    ~TempFile() {
        if (fd_ >= 0) ::close(fd_);
        if (!kept_) ::unlink(path_.c_str());
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    void write(const char* data, std::size_t size) {
        while (size > 0) {
            ssize_t n = ::write(fd_, data, size);
            if (n < 0) {
                if (errno == EINTR) continue;
                fail("cannot write file", path_, errno);
            }
            data += n;
            size -= static_cast<std::size_t>(n);
        }
    }
    void finish() {
        if (::fsync(fd_) != 0) fail("cannot write file", path_, errno);
        if (::close(fd_) != 0) {
            fd_ = -1;
            fail("cannot write file", path_, errno);
        }
        fd_ = -1;
    }
    // Puts the file in place; false when overwrite is off and the target exists.
    bool install(const fs::path& target, bool overwrite) {
        if (overwrite) {
            if (::rename(path_.c_str(), target.c_str()) != 0) fail("cannot rename", target, errno);
        } else {
            // link() refuses an existing target, so a file that appeared meanwhile survives.
            if (::link(path_.c_str(), target.c_str()) != 0) {
                if (errno == EEXIST) return false;
                fail("cannot create file", target, errno);
            }
            ::unlink(path_.c_str());
        }
        kept_ = true;
        sync_directory(target.parent_path());
        return true;
    }

  private:
    static void sync_directory(const fs::path& dir) {
        int fd = ::open(dir.empty() ? "." : dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd >= 0) {
            ::fsync(fd);
            ::close(fd);
        }
    }
    fs::path path_;
    int fd_ = -1;
    bool kept_ = false;
};

}  // namespace

bool copy_file_safely(const fs::path& from, const fs::path& to, bool overwrite) {
    if (!overwrite && fs::exists(to)) return false;
    int in = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
    if (in < 0) fail("cannot open file", from, errno);
    TempFile out(to);
    std::vector<char> buffer(1 << 16);
    for (;;) {
        ssize_t n = ::read(in, buffer.data(), buffer.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            int err = errno;
            ::close(in);
            fail("cannot read file", from, err);
        }
        if (n == 0) break;
        out.write(buffer.data(), static_cast<std::size_t>(n));
    }
    ::close(in);
    out.finish();
    return out.install(to, overwrite);
}

void write_file_safely(const fs::path& to, std::string_view contents) {
    TempFile out(to);
    out.write(contents.data(), contents.size());
    out.finish();
    out.install(to, true);
}

}  // namespace filo::platform
