#include <espeak-ng/speak_lib.h>

#include <string>

#include "platform/speech_engine.hpp"

namespace filo::platform {
namespace {

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

    void set_language(std::string_view language) override {
        std::string name(language);
        espeak_SetVoiceByName(name.c_str());
    }
};

}  // namespace

std::unique_ptr<SpeechEngine> make_system_voice(std::string& error) {
    if (espeak_Initialize(AUDIO_OUTPUT_PLAYBACK, 0, nullptr, espeakINITIALIZE_DONT_EXIT) < 0) {
        error = "espeak-ng";
        return nullptr;
    }
    if (espeak_SetVoiceByName("it") != EE_OK) {
        espeak_Terminate();
        error = "espeak-ng: it";
        return nullptr;
    }
    return std::make_unique<EspeakEngine>();
}

}  // namespace filo::platform
