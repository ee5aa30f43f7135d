#include "texts/voice.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/speech_engine.hpp"

namespace filo::texts {
namespace {

// A voice that is busy for as long as the test says.
class FakeEngine : public platform::SpeechEngine {
  public:
    bool busy = false;
    std::vector<std::string> said;
    std::string language;
    std::vector<std::string> voices = {"it", "es", "fr", "de"};  // "" is always there
    bool is_speaking() const override { return busy; }
    void speak(std::string_view text) override {
        said.emplace_back(text);
        busy = true;
    }
    bool set_language(std::string_view l) override {
        if (!l.empty() && std::find(voices.begin(), voices.end(), l) == voices.end()) return false;
        language = l;
        return true;
    }
};

TEST(Voice, SaysATextOnlyWhenIdleAndDropsWhatComesMeanwhile) {
    FakeEngine engine;
    Voice voice(&engine);
    voice.PARLA();  // nothing to say yet
    EXPECT_TRUE(engine.said.empty());

    voice.TESTO_PARLATO = "Luce cucina accesa";
    voice.PARLA();
    voice.TESTO_PARLATO = "Luce sala accesa";
    voice.PARLA();  // still speaking: lost, not delayed
    engine.busy = false;
    voice.TESTO_PARLATO = "Luce bagno spenta";
    voice.PARLA();
    EXPECT_EQ(engine.said, (std::vector<std::string>{"Luce cucina accesa", "Luce bagno spenta"}));
}

TEST(Voice, WithoutAnEngineIsSilentAndNoFault) {
    Voice voice(nullptr);
    voice.TESTO_PARLATO = "niente";
    voice.PARLA();
    voice.use_language(Language::German);
    EXPECT_FALSE(voice.available());
}

TEST(Voice, SpeaksTheChosenLanguage) {
    FakeEngine engine;
    Voice voice(&engine);
    voice.use_language(Language::French);
    EXPECT_EQ(engine.language, "fr");
    voice.use_language(Language::German);
    EXPECT_EQ(engine.language, "de");
    // A system without the German voice speaks in the default one.
    engine.voices = {"it"};
    voice.use_language(Language::German);
    EXPECT_EQ(engine.language, "");
}

}  // namespace
}  // namespace filo::texts
