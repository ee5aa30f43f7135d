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
// IMMAGINE_MODULO of one module, one NAME=value a line.
int print_module_image(Context& context, const std::string& project_path, const std::string& code);
// A 6-digit module code with its check digits, or an 8-character one checked.
int module_code(Context& context, const std::string& code);
// A frame written without its checksum, with the checksum in place.
int frame_with_checksum(Context& context, const std::string& frame);

}  // namespace filo::cli
