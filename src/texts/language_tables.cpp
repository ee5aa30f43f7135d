#include "texts/language_tables.hpp"

namespace filo::texts {
namespace {

struct Entry {
    const char* key;
    std::array<const char*, 4> text;  // by Language; null where the language has none
};

#define NONE nullptr
#define FILO_TEXT(key, ita, spa, fra, ted) {#key, {ita, spa, fra, ted}},
constexpr Entry kEntries[] = {
#include "texts.def"
#include "texts_filo.def"
#include "texts_captions.def"
};
#undef FILO_TEXT
#undef NONE

static_assert(std::size(kEntries) == kTextCount);
static_assert(
    [] {
        for (const Entry& e : kEntries)
            if (e.text[0] == nullptr) return false;
        return true;
    }(),
    "every entry has an Italian text: it is the base that other languages fall back on");

constexpr std::size_t index_of(Language l) {
    return static_cast<std::size_t>(l);
}

constexpr std::array<std::string_view, 4> kCodes = {"ITA", "SPA", "FRA", "TED"};
constexpr std::array<std::string_view, 4> kVoices = {"it", "es", "fr", "de"};

}  // namespace

std::string_view language_code(Language language) {
    return kCodes[index_of(language)];
}
std::string_view speech_language(Language language) {
    return kVoices[index_of(language)];
}

bool language_from_code(std::string_view code, Language& language) {
    for (Language l : kLanguages) {
        std::string_view c = language_code(l);
        if (code.size() != c.size()) continue;
        bool same = true;
        for (std::size_t i = 0; i < c.size(); ++i)
            same = same && (code[i] == c[i] || code[i] == c[i] - 'A' + 'a');
        if (same) {
            language = l;
            return true;
        }
    }
    return false;
}

LanguageTables::LanguageTables() {
    for (std::size_t i = 0; i < kTextCount; ++i) current_[i] = kEntries[i].text[0];
}

void LanguageTables::choose(Language language) {
    for (std::size_t i = 0; i < kTextCount; ++i)
        if (const char* t = kEntries[i].text[index_of(language)]) current_[i] = t;
    language_ = language;
    SIGLA_LINGUA = std::string(language_code(language));
}

std::string_view key_name(Text key) {
    return kEntries[static_cast<std::size_t>(key)].key;
}

bool has_text(Language language, Text key) {
    return kEntries[static_cast<std::size_t>(key)].text[index_of(language)] != nullptr;
}

std::size_t entries_of(Language language) {
    std::size_t n = 0;
    for (std::size_t i = 0; i < kClassicTextCount; ++i)
        n += kEntries[i].text[index_of(language)] != nullptr;
    return n;
}

}  // namespace filo::texts
