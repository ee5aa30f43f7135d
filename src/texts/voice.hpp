#pragma once
#include <string>

#include "texts/language_tables.hpp"

namespace filo::platform {
class SpeechEngine;
}

namespace filo::texts {

// The spoken announcements of the line monitor. Without an engine it is mute.
class Voice {
  public:
    explicit Voice(platform::SpeechEngine* engine) : engine_(engine) {}

    // The text to say next.
    std::string TESTO_PARLATO;

    // Says TESTO_PARLATO and returns at once. A text that arrives while the
    // voice is still speaking is dropped, never queued: announcements that
    // come late would describe traffic that is long gone.
    void PARLA();

    void use_language(Language language);
    bool available() const { return engine_ != nullptr; }

  private:
    platform::SpeechEngine* engine_;
};

}  // namespace filo::texts
