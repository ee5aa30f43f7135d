#include <filesystem>
#include <ostream>

#include "cli/commands.hpp"
#include "common/basic_functions.hpp"
#include "platform/data_directory.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/project_files.hpp"
#include "store/text_match.hpp"

namespace filo::cli {
namespace fs = std::filesystem;
using texts::Text;

int new_project(Context& context, const std::string& path) {
    const texts::LanguageTables& t = context.texts;
    // A project is <name>.TRN: any other ending is part of the name.
    fs::path target = path;
    const std::string file = target.filename().string();
    const bool has_trn = store::equal_ignoring_ascii_case(basic::right(file, 4), ".TRN");
    if (!has_trn) target += ".TRN";
    const std::string name = store::project_name_of(target);
    if (!store::is_valid_project_name(name)) throw UserError(t.text(Text::INVALID_PROJECT_NAME));
    try {
        store::ProjectFiles files(platform::data_directory());
        if (files.create_project(target) == store::ProjectFiles::Creation::Exists)
            throw UserError(name + " " + t.text(Text::PROJECT_EXISTS));
    } catch (const fs::filesystem_error& e) {
        throw UserError(t.text(Text::FILE_ERROR) + e.what());
    }
    context.out << t[Text::PROJECT_WORD] << ' ' << name << ' ' << t[Text::CREATED_WORD] << '\n';
    return kExitOk;
}

int list_modules(Context& context, const std::string& project_path) {
    store::Project project;
    project.open(project_path, store::Access::ReadOnly);
    store::ModuleTable table(project);
    store::ModuleLists lists = table.ELENCO_MODULI();
    for (const std::string& line : lists.by_code) context.out << line << '\n';
    for (const store::ListEntry& entry : lists.by_name) context.out << entry.text << '\n';
    return kExitOk;
}

}  // namespace filo::cli
