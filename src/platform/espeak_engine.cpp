#include <espeak-ng/espeak_ng.h>
#include <espeak-ng/speak_lib.h>

#include <string>

#include "platform/speech_engine.hpp"

namespace filo::platform {
namespace {

bool use_voice(std::string_view language) {
    const std::string name = language.empty() ? ESPEAKNG_DEFAULT_VOICE : std::string(language);
    return espeak_SetVoiceByName(name.c_str()) == EE_OK;
}

// espeak-ng keeps its state in the library, so exactly one engine owns it:
// the one object that make_system_voice hands out.
class EspeakEngine final : public SpeechEngine {
  public:
    ~EspeakEngine() override { espeak_Terminate(); }

    bool is_speaking() const override { return espeak_IsPlaying() != 0; }

    void speak(std::string_view utf8_text) override {
        std::string text(utf8_text);
        espeak_Synth(text.c_str(), text.size() + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8, nullptr,
                     nullptr);
    }

    bool set_language(std::string_view language) override { return use_voice(language); }
};

}  // namespace

std::unique_ptr<SpeechEngine> make_system_voice(std::string_view language, std::string& error) {
    if (espeak_Initialize(AUDIO_OUTPUT_PLAYBACK, 0, nullptr, espeakINITIALIZE_DONT_EXIT) < 0) {
        error = "espeak-ng";
        return nullptr;
    }
    // A system without the language's voice still speaks, in the default one.
    if (!use_voice(language) && !use_voice("")) {
        espeak_Terminate();
        error = "espeak-ng: " + std::string(language) + ", " + ESPEAKNG_DEFAULT_VOICE;
        return nullptr;
    }
    return std::make_unique<EspeakEngine>();
}

}  // namespace filo::platform
