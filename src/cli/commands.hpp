#pragma once
// The commands of filo-cli. Each returns the exit code, writes its result to
// Context::out and throws UserError for a mistake of the user's.
#include <string>

#include "cli/cli_context.hpp"

namespace filo::cli {

// Creates a project from the empty template.
int new_project(Context& context, const std::string& path);
// The two module lists of the project window.
int list_modules(Context& context, const std::string& project_path);
// The text table as it stands after choosing the language from Italian.
int print_texts(Context& context);

}  // namespace filo::cli
