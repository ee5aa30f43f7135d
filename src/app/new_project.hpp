#pragma once
// Form2: a new project, named by the installer and copied from the empty one.
#include <string>

namespace filo::app {

class Session;

class NewProject {
  public:
    explicit NewProject(Session& session) : session_(session) {}

    // Form_Load: the empty project is restored when it is missing.
    void load();
    // Image4(0), "CREA ": true when the project was made and opened; the
    // project window follows. Otherwise the message was shown and the
    // window stays.
    bool create(const std::string& name);

  private:
    Session& session_;
};

}  // namespace filo::app
