#pragma once
// Frame5 of MODULI without a screen: the serial of the hardware that
// replaces the module, typed in Text3. The eighth character starts the
// replacement, without a button.
#include <string>

namespace filo::app {

class Session;

class ReplacementPage {
  public:
    explicit ReplacementPage(Session& session) : session_(session) {}

    std::string Text3;

    // APRI_SOSTITUZIONE: the box empty.
    void open() { Text3.clear(); }
    // Text3_Change. With fewer than 8 characters nothing happens. A refusal
    // shows its message, empties the box or keeps it, and the table is as
    // it was; true when the module took the new code: the success message
    // was shown and the window closes.
    bool Text3_Change(const std::string& text);

  private:
    Session& session_;
};

}  // namespace filo::app
