#include "texts/voice.hpp"

#include "platform/speech_engine.hpp"

namespace filo::texts {

void Voice::PARLA() {
    if (!engine_ || TESTO_PARLATO.empty()) return;
    if (engine_->is_speaking()) return;
    engine_->speak(TESTO_PARLATO);
}

void Voice::use_language(Language language) {
    // Without the language's voice the default one speaks: better than mute.
    if (engine_ && !engine_->set_language(speech_language(language))) engine_->set_language("");
}

}  // namespace filo::texts
