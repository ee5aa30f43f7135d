#pragma once
#include <filesystem>
#include <string>

namespace filo::store {

// The files a run keeps in its data directory: the empty project that every
// new project is copied from, and its master copy.
class ProjectFiles {
  public:
    explicit ProjectFiles(std::filesystem::path directory);

    const std::filesystem::path& directory() const { return directory_; }
    std::filesystem::path empty_project() const { return directory_ / "DATIBASE.BAW"; }
    std::filesystem::path master_copy() const { return directory_ / "domotica_base.MDB"; }
    std::filesystem::path project_path(const std::string& name) const {
        return directory_ / (name + ".TRN");
    }

    // Restores the empty project from its master copy when missing, and the
    // master copy from the built-in schema when that is missing too.
    void ensure_empty_project() const;

    enum class Creation { Created, Exists };
    // Copies the empty project to the target unless a file is there already.
    // Throws std::filesystem::filesystem_error when the copy fails.
    Creation create_project(const std::filesystem::path& target) const;

  private:
    std::filesystem::path directory_;
};

// Writes an empty project database made from the built-in schema.
void write_empty_project(const std::filesystem::path& target);

// The name as the new-project window takes it: not empty and not
// beginning with a blank.
bool is_valid_project_name(const std::string& name);

}  // namespace filo::store
