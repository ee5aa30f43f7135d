#pragma once
// Form1, the main menu: level and language, the help panel, opening a
// project, the way to the new-project window and to the line.
#include <filesystem>
#include <string>

namespace filo::app {

class Session;

class MainMenu {
  public:
    explicit MainMenu(Session& session) : session_(session) {}

    // The entries of Image4, by index.
    enum Entry { OpenProject = 0, NewProject = 1, Connect = 2, Exit = 3 };

    // Form_Load: language, level, help panel, the marker of a failed port
    // search. Runs each time the menu is shown again.
    void load();

    // What the view shows.
    std::string Label10;  // the help panel's text
    std::string Label8;   // the language's note, cleared by a choice of language
    std::string caption(Entry entry) const;
    std::string connect_caption() const;

    // Label6(index): the level.
    void choose_level(int index);
    // Image3(index): 0 Italian, 1 Spanish, 2 French, 3 German, 4 Italian.
    void choose_language(int index);
    // Label5: help panel on or off.
    void toggle_help();
    // Mouse over an entry or a level: its help, while the panel is on.
    void hover_entry(Entry entry);
    void hover_level(int index);

    // Any click on the commands leaves the gesture's state behind.
    void command_clicked();
    // Image4(0) once a file was chosen: false (with the message) when it
    // doesn't exist; the project window opens the database.
    bool open_project(const std::filesystem::path& file);
    // Image4(2): true when the connection window is to be shown; false when
    // the port in use was closed.
    bool connect_clicked();

  private:
    Session& session_;
};

}  // namespace filo::app
