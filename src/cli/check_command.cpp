// The integrity report of a project that others have edited.
#include <ostream>

#include "cli/commands.hpp"
#include "store/integrity.hpp"
#include "store/project.hpp"

namespace filo::cli {

int check_project(Context& context, const std::string& project_path) {
    store::Project project;
    project.open(project_path, store::Access::Inspect);
    std::vector<store::IntegrityFinding> findings;
    // Triggers and views keep the project from opening anywhere else.
    for (const std::string& code : project.foreign_code())
        findings.push_back({store::Finding::ForeignCode, 0, code});
    for (store::IntegrityFinding& f : store::check_integrity(project))
        findings.push_back(std::move(f));
    if (findings.empty()) {
        context.out << context.texts[texts::Text::CHECK_CLEAN] << '\n';
        return kExitOk;
    }
    for (const store::IntegrityFinding& f : findings)
        context.out << store::describe(f, context.texts) << '\n';
    return kExitUserError;
}

}  // namespace filo::cli
