#include "cli/cli_context.hpp"

#include "store/project.hpp"

namespace filo::cli {

std::string describe(const store::ProjectError& error, const texts::LanguageTables& texts) {
    using texts::Text;
    switch (error.problem()) {
        case store::ProjectProblem::Missing:
            return texts.text(Text::PROJECT_MISSING) + ": " + error.detail();
        case store::ProjectProblem::NotADatabase:
            return texts.text(Text::PROJECT_NOT_A_DATABASE) + error.detail();
        case store::ProjectProblem::MissingTables:
            return texts.text(Text::PROJECT_TABLES_MISSING) + error.detail();
        case store::ProjectProblem::MissingColumns:
            return texts.text(Text::PROJECT_COLUMNS_MISSING) + error.detail();
        case store::ProjectProblem::Unreadable:
            break;
    }
    return texts.text(Text::PROJECT_UNREADABLE) + error.detail();
}

}  // namespace filo::cli
