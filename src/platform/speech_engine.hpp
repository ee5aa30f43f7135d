#pragma once
#include <memory>
#include <string>
#include <string_view>

namespace filo::platform {

// A text-to-speech voice. speak() returns at once; the text is said meanwhile.
class SpeechEngine {
  public:
    virtual ~SpeechEngine() = default;
    virtual bool is_speaking() const = 0;
    virtual void speak(std::string_view utf8_text) = 0;
    // An ISO 639-1 language name: "it", "es", "fr", "de"; "" for the engine's
    // default voice. False, with the voice unchanged, when there is no such voice.
    virtual bool set_language(std::string_view language) = 0;
};

// The system's voice through espeak-ng, playing on the default audio device,
// in the given language or else in espeak-ng's default voice. Returns null,
// with the reason in error, when neither can be had.
std::unique_ptr<SpeechEngine> make_system_voice(std::string_view language, std::string& error);

}  // namespace filo::platform
