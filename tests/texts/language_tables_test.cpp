#include "texts/language_tables.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <tuple>

namespace filo::texts {
namespace {

std::string name_of(Language l, Text key) {
    return std::string(language_code(l)) + " " + std::string(key_name(key));
}

TEST(LanguageTables, TellingRowsInEveryLanguage) {
    struct Row {
        Text key;
        const char* text[4];
    } rows[] = {
        {Text::TITLE_WARNING, {"ATTENZIONE", "ATENCION", "ATTENTION", "ACHTUNG"}},
        {Text::MENU_OPEN_PROJECT,
         {"Apri progetto ", "Abre proyecto ", "Ouvrir un projet ", "Öffnen "}},
        {Text::OPERATION_NOT_ALLOWED,
         {"OPERAZIONE NON CONSENTITA", "OPERACIÓN NO PERMITIDA", "Opération non autorisée",
          "VORGANG IST NICHT ERLAUBT"}},
    };
    EXPECT_EQ(LanguageTables{}.SIGLA_LINGUA, "");  // Italian before any language is chosen
    for (Language l : kLanguages) {
        LanguageTables t;
        t.SPAGNOLO();
        t.choose(l);
        EXPECT_EQ(t.SIGLA_LINGUA, language_code(l));
        for (const Row& r : rows)
            EXPECT_EQ(t[r.key], r.text[static_cast<int>(l)]) << name_of(l, r.key);
    }
}

TEST(LanguageTables, AMissingEntryKeepsTheTextOfTheLanguageChosenBefore) {
    for (Language before : kLanguages) {
        LanguageTables first;
        first.choose(before);
        for (Language now : kLanguages) {
            LanguageTables direct, t;
            direct.choose(now);
            t.choose(before);
            t.choose(now);
            for (std::size_t i = 0; i < kTextCount; ++i) {
                const auto key = static_cast<Text>(i);
                EXPECT_EQ(t[key], has_text(now, key) ? direct[key] : first[key])
                    << name_of(before, key) << " then " << language_code(now);
            }
        }
    }
    // As the installer sees it: French lacks the unit, German had it.
    LanguageTables t;
    t.TEDESCO();
    t.FRANCESE();
    EXPECT_EQ(t[Text::UNIT_DEGREES_ROOM], "Grad °C");
}

TEST(LanguageTables, EachLanguageLacksExactlyItsOwnEntries) {
    // Spanish and German have no card reader: its reading modes and its name.
    // French has the modes but not the name, nor anything from the newer
    // module types to the end of the classic table.
    const std::set<std::string> card_reader = {"READER_ACTIVE_WHILE_READING",
                                               "READER_TOGGLE",
                                               "READER_ON_WHEN_READING",
                                               "READER_OFF_WHEN_READING",
                                               "READER_INACTIVE_WHILE_READING",
                                               "READER_ON_WHEN_NO_LONGER_READING",
                                               "READER_OFF_WHEN_NO_LONGER_READING",
                                               "MODULE_NAME_CARD_READER"};
    std::set<std::string> french = {"MODULE_NAME_CARD_READER"};
    for (auto i = static_cast<std::size_t>(Text::MODULE_NAME_2_TRIACS_3_INPUTS);
         i < kClassicTextCount; ++i)
        french.insert(std::string(key_name(static_cast<Text>(i))));
    EXPECT_EQ(french.size(), 55u);
    const std::pair<Language, std::set<std::string>> rows[] = {
        {Language::Italian, {}},
        {Language::Spanish, card_reader},
        {Language::French, french},
        {Language::German, card_reader},
    };
    for (const auto& [language, lacks] : rows) {
        std::set<std::string> lacking;
        for (std::size_t i = 0; i < kClassicTextCount; ++i)
            if (!has_text(language, static_cast<Text>(i)))
                lacking.insert(std::string(key_name(static_cast<Text>(i))));
        EXPECT_EQ(lacking, lacks) << language_code(language);
        EXPECT_EQ(entries_of(language), kClassicTextCount - lacks.size())
            << language_code(language);
    }
}

TEST(LanguageTables, FixedCaptionsStayItalianAndTheProgramsOwnMessagesAreTranslated) {
    // The fixed captions and messages that the classic table never held.
    const std::set<std::string> fixed = {
        "SPEECH_UNAVAILABLE", "TITLE_FILO", "RUN_ERRORS_TITLE", "RUN_ERRORS_QUESTION",
        "SCAN_SUSPEND", "RUN_MODULES_SILENT", "RUN_SAVE_REPORT", "RUN_DISABLE_SHORT_MESSAGE",
        "RUN_CONSTANT_LIGHT", "ALL_CHANNELS_USED", "BOX_INPUT", "BOX_VIRTUAL_RELAY",
        "PARAM_DEBOUNCE", "PARAM_TWILIGHT_LUX", "SERIAL_TITLE", "SCAN_OFFER", "TITLE_SPEECH",
        "SECOND_COPY_REFUSED", "OPEN_DIALOG_TITLE",
        // The clone and export windows' own texts.
        "CLONE_TITLE_ABORTED", "CLONE_SAMPLE_TOO_LARGE", "CLONE_RUN", "CLONE_LAST",
        "EXPORT_CAPTION", "EXPORT_DONE", "EXPORT_SQL_COMMAND", "EXPORT_IN_NICK"};
    for (Language l : kLanguages) {
        std::set<std::string> italian_only, translated;
        for (std::size_t i = kClassicTextCount; i < kTextCount; ++i)
            (has_text(l, static_cast<Text>(i)) ? translated : italian_only)
                .insert(std::string(key_name(static_cast<Text>(i))));
        if (l == Language::Italian) {
            EXPECT_TRUE(italian_only.empty());
            continue;
        }
        for (const std::string& key : fixed) EXPECT_TRUE(italian_only.contains(key)) << key;
        for (const char* key : {"PROJECT_UNREADABLE", "FRAME_NOT_VALID", "MODULE_ADDED"})
            EXPECT_TRUE(translated.contains(key)) << key;
    }
}

std::size_t blanks(std::string_view s, bool leading) {
    std::size_t n = 0;
    while (n < s.size() && s[leading ? n : s.size() - 1 - n] == ' ') ++n;
    return n;
}

// Whether s is well-formed UTF-8: the texts are converted to the panel's
// 8-bit set from UTF-8, so a stray byte of another encoding is a fault.
bool is_utf8(std::string_view s) {
    for (std::size_t i = 0; i < s.size();) {
        const auto lead = static_cast<unsigned char>(s[i]);
        const std::size_t follow = lead < 0x80             ? 0
                                   : (lead & 0xE0) == 0xC0 ? 1
                                   : (lead & 0xF0) == 0xE0 ? 2
                                   : (lead & 0xF8) == 0xF0 ? 3
                                                           : s.size();
        if (s.size() - i <= follow) return false;
        for (std::size_t k = 1; k <= follow; ++k)
            if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return false;
        i += follow + 1;
    }
    return true;
}

TEST(LanguageTables, EveryEntryIsReadableAndKeepsTheLayoutOfTheItalian) {
    // Captions are laid out with their line breaks and outer blanks, so a
    // translation keeps them all; every key has a name of its own.
    LanguageTables italian;
    std::set<std::string> keys;
    for (std::size_t i = 0; i < kTextCount; ++i)
        EXPECT_TRUE(keys.insert(std::string(key_name(static_cast<Text>(i)))).second) << i;
    for (Language l : kLanguages) {
        LanguageTables t;
        t.choose(l);
        for (std::size_t i = 0; i < kTextCount; ++i) {
            const auto key = static_cast<Text>(i);
            const std::string_view ita = italian[key], own = t[key];
            SCOPED_TRACE(name_of(l, key));
            EXPECT_FALSE(own.empty());
            EXPECT_TRUE(is_utf8(own));
            EXPECT_EQ(std::count(own.begin(), own.end(), '\n'),
                      std::count(ita.begin(), ita.end(), '\n'));
            EXPECT_EQ(blanks(own, true), blanks(ita, true));
            EXPECT_EQ(blanks(own, false), blanks(ita, false));
        }
    }
    EXPECT_FALSE(is_utf8("Umidit\xe0"));  // the Latin-1 spelling the check is there to catch
}

TEST(LanguageCodes, AreReadWithoutRegardToCaseAndNameTheVoice) {
    const std::tuple<const char*, bool, Language, const char*> cases[] = {
        {"ted", true, Language::German, "de"},  {"FRA", true, Language::French, "fr"},
        {"Spa", true, Language::Spanish, "es"}, {"ita", true, Language::Italian, "it"},
        {"ENG", false, Language::Italian, ""},  {"IT", false, Language::Italian, ""},
    };
    for (const auto& [code, known, language, voice] : cases) {
        Language l = Language::Italian;
        EXPECT_EQ(language_from_code(code, l), known) << code;
        EXPECT_EQ(l, language) << code;
        if (known) {
            EXPECT_EQ(speech_language(l), voice) << code;
        }
    }
}

}  // namespace
}  // namespace filo::texts
