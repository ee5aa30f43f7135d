#pragma once
#include <filesystem>
#include <string_view>

namespace filo::platform {

// Copies a file so that the target either doesn't exist or is complete: the
// data goes to a temporary file beside the target, is flushed to disk, and is
// then put in place. With overwrite false an existing target is never
// replaced and the call returns false. Throws std::filesystem::filesystem_error.
bool copy_file_safely(const std::filesystem::path& from, const std::filesystem::path& to,
                      bool overwrite);

// Writes a whole text file the same way (temporary file, flush, rename).
void write_file_safely(const std::filesystem::path& to, std::string_view contents);

}  // namespace filo::platform
