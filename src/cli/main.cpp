// filo-cli: the commissioning core without windows.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

#include "cli/commands.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace {

using filo::cli::Context;

int run(int argc, char** argv) {
    CLI::App app{"Filo: commissioning of home-automation installations on a serial field bus",
                 "filo-cli"};
    app.require_subcommand(1);
    app.fallthrough();
    std::string language = "ITA";
    app.add_option("--lang", language, "Language of the texts: ITA, SPA, FRA or TED")
        ->check([](const std::string& v) {
            filo::texts::Language l;
            return filo::texts::language_from_code(v, l) ? std::string() : "unknown language: " + v;
        });

    std::string path;
    auto* cmd_new = app.add_subcommand("new", "Create a project: <path>/<name>.TRN");
    cmd_new->add_option("project", path, "The new project file")->required();
    auto* cmd_modules = app.add_subcommand("modules", "List the modules and the named points");
    cmd_modules->add_option("project", path, "The project file")->required();
    auto* cmd_texts = app.add_subcommand("texts", "Print the text table");
    std::string image_code;
    auto* cmd_image = app.add_subcommand("image", "The masks and parameters programming sends");
    cmd_image->add_option("project", path, "The project file")->required();
    cmd_image->add_option("code", image_code, "The module's 6-character code")->required();
    std::string code;
    auto* cmd_code = app.add_subcommand("code", "The code printed on a module, or check one");
    cmd_code->add_option("code", code, "6 hex digits, or the 8 characters printed")->required();
    std::string frame;
    auto* cmd_frame = app.add_subcommand("frame", "Put the checksum into a frame without it");
    cmd_frame->add_option("frame", frame, "The frame, e.g. (600000055]")->required();

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        app.exit(e);
        return filo::cli::kExitUsage;
    }

    filo::texts::LanguageTables texts;
    texts.ITALIANO();
    filo::texts::Language chosen = filo::texts::Language::Italian;
    filo::texts::language_from_code(language, chosen);
    texts.choose(chosen);
    Context context{texts, std::cout, std::cerr};

    try {
        if (*cmd_new) return filo::cli::new_project(context, path);
        if (*cmd_modules) return filo::cli::list_modules(context, path);
        if (*cmd_texts) return filo::cli::print_texts(context);
        if (*cmd_image) return filo::cli::print_module_image(context, path, image_code);
        if (*cmd_code) return filo::cli::module_code(context, code);
        if (*cmd_frame) return filo::cli::frame_with_checksum(context, frame);
    } catch (const filo::cli::UserError& e) {
        std::cerr << e.what() << '\n';
        return filo::cli::kExitUserError;
    } catch (const filo::store::ProjectError& e) {
        std::cerr << filo::cli::describe(e, texts) << '\n';
        return filo::cli::kExitUserError;
    } catch (const filo::sqlite::SqlError& e) {
        std::cerr << texts[filo::texts::Text::PROJECT_UNREADABLE] << e.what() << '\n'
                  << texts[filo::texts::Text::PROJECT_UNCHANGED] << '\n';
        return filo::cli::kExitUserError;
    } catch (const std::filesystem::filesystem_error& e) {
        std::cerr << texts[filo::texts::Text::FILE_ERROR] << e.what() << '\n';
        return filo::cli::kExitUserError;
    }
    return filo::cli::kExitUsage;
}

}  // namespace

int main(int argc, char** argv) {
    return run(argc, argv);
}
