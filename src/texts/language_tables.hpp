#pragma once
#include <array>
#include <string>
#include <string_view>

#include "texts/text_key.hpp"

namespace filo::texts {

enum class Language { Italian, Spanish, French, German };
inline constexpr std::array<Language, 4> kLanguages = {Language::Italian, Language::Spanish,
                                                       Language::French, Language::German};

// "ITA", "SPA", "FRA", "TED"; the language's voice name for speech.
std::string_view language_code(Language language);
std::string_view speech_language(Language language);
// The language of a code ("ita" is accepted too); false when there is none.
bool language_from_code(std::string_view code, Language& language);

// The texts in use. Choosing a language overwrites the entries that the
// language has; an entry it lacks keeps the text of the language chosen
// before. A new table holds the Italian texts, with no language chosen yet.
class LanguageTables {
  public:
    LanguageTables();

    void ITALIANO() { choose(Language::Italian); }
    void SPAGNOLO() { choose(Language::Spanish); }
    void FRANCESE() { choose(Language::French); }
    void TEDESCO() { choose(Language::German); }
    void choose(Language language);

    std::string_view operator[](Text key) const { return current_[static_cast<std::size_t>(key)]; }
    // The same, as a std::string, for composing messages.
    std::string text(Text key) const { return std::string((*this)[key]); }

    // "" until a language is chosen, then its code.
    std::string SIGLA_LINGUA;
    Language language() const { return language_; }

  private:
    std::array<std::string_view, kTextCount> current_{};
    Language language_ = Language::Italian;
};

// The key's name as written in the data file ("MENU_OPEN_PROJECT").
std::string_view key_name(Text key);
// How many entries a language has text for, in the classic table.
std::size_t entries_of(Language language);
// Whether the language has its own text for the entry.
bool has_text(Language language, Text key);

}  // namespace filo::texts
