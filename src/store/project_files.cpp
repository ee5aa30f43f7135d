#include "store/project_files.hpp"

#include <unistd.h>

#include "platform/files.hpp"
#include "store/project.hpp"
#include "store/schema.hpp"
#include "store/sqlite.hpp"

namespace filo::store {
namespace fs = std::filesystem;

ProjectFiles::ProjectFiles(fs::path directory) : directory_(std::move(directory)) {}

void write_empty_project(const fs::path& target) {
    // Built beside the target and renamed into place, so that a template is
    // never seen half-made.
    fs::path temporary = target;
    temporary += ".new" + std::to_string(::getpid());
    fs::remove(temporary);
    try {
        sqlite::Connection c(temporary, sqlite::OpenMode::ReadWriteCreate);
        use_project_settings(c);
        create_project_schema(c);
        c.close();
        fs::rename(temporary, target);
    } catch (...) {
        std::error_code ec;
        fs::remove(temporary, ec);
        throw;
    }
}

void ProjectFiles::ensure_empty_project() const {
    if (fs::exists(empty_project())) return;
    // The templates are the program's own files: a failure here is the data
    // directory's, never the project's.
    if (::access(directory_.c_str(), W_OK) != 0)
        throw ProjectError(ProjectProblem::DataDirectoryNotWritable, directory_.string());
    try {
        if (!fs::exists(master_copy())) write_empty_project(master_copy());
        platform::copy_file_safely(master_copy(), empty_project(), false);
    } catch (const sqlite::SqlError& e) {
        throw ProjectError(ProjectProblem::DataDirectoryNotWritable,
                           directory_.string() + ": " + e.what());
    } catch (const fs::filesystem_error& e) {
        throw ProjectError(ProjectProblem::DataDirectoryNotWritable,
                           directory_.string() + ": " + e.what());
    }
}

ProjectFiles::Creation ProjectFiles::create_project(const fs::path& target) const {
    if (fs::exists(target)) return Creation::Exists;
    ensure_empty_project();
    return platform::copy_file_safely(empty_project(), target, false) ? Creation::Created
                                                                      : Creation::Exists;
}

bool is_valid_project_name(const std::string& name) {
    return !name.empty() && name[0] != ' ';
}

}  // namespace filo::store
