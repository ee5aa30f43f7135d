#include "texts/language_tables.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace filo::texts {
namespace {

TEST(LanguageTables, HoldsTheClassicItalianTableInItsOrder) {
    LanguageTables t;
    EXPECT_EQ(kClassicTextCount, 362u);
    EXPECT_EQ(entries_of(Language::Italian), kClassicTextCount);
    // Both ends and a few rows in between pin the order.
    EXPECT_EQ(t[Text::PORT_SEARCH_CONFLICT].substr(0, 17), "Altre periferiche");
    EXPECT_EQ(t[Text::MENU_OPEN_PROJECT], "Apri progetto ");
    EXPECT_EQ(t[Text::PROJECT_EXISTS], " Questo progetto esiste già");
    EXPECT_EQ(t[Text::PROJECT_MISSING], " Questo progetto non esiste");
    EXPECT_EQ(t[Text::SELECT_NUMBER], "Seleziona n°");
    EXPECT_EQ(t[Text::LINK_CONNECT], "COLLEGA");
    EXPECT_EQ(t[Text::HELP_MODULE_CONFIGURE_2], "Accedi alla configurazione del modulo");
    EXPECT_EQ(static_cast<std::size_t>(Text::HELP_MODULE_CONFIGURE_2), kClassicTextCount - 1);
    // Composed entries keep their line breaks and inner blanks.
    EXPECT_EQ(t[Text::HELP_LEVEL_SMART],
              "LIVELLO DI PROGRAMMAZIONE SMART\n"
              "Semplifica al massimo le operazioni, adatto per iniziare ");
    EXPECT_EQ(t[Text::NEW_PROJECT_CREATE], "CREA ");
    EXPECT_EQ(t[Text::UNIT_PERCENT], "% ");
}

TEST(LanguageTables, EveryEntryHasAKeyOfItsOwnAndItalianText) {
    std::set<std::string> keys;
    LanguageTables t;
    for (std::size_t i = 0; i < kTextCount; ++i) {
        auto key = static_cast<Text>(i);
        EXPECT_TRUE(keys.insert(std::string(key_name(key))).second) << key_name(key);
        EXPECT_FALSE(t[key].empty()) << key_name(key);
        EXPECT_TRUE(has_text(Language::Italian, key));
    }
}

TEST(LanguageTables, TellingRowsInEveryLanguage) {
    struct Row {
        Text key;
        const char* text[4];
    } rows[] = {
        {Text::TITLE_WARNING, {"ATTENZIONE", "ATENCION", "ATTENTION", "ACHTUNG"}},
        {Text::MENU_OPEN_PROJECT,
         {"Apri progetto ", "Abre proyecto ", "Ouvrir un projet ", "Öffnen "}},
        {Text::LINK_CONNECT, {"COLLEGA", "CONECTA", "Connecter", "VERKNÜPFE"}},
        {Text::OPERATION_NOT_ALLOWED,
         {"OPERAZIONE NON CONSENTITA", "OPERACIÓN NO PERMITIDA", "Opération non autorisée",
          "VORGANG IST NICHT ERLAUBT"}},
    };
    for (Language l : kLanguages) {
        LanguageTables t;
        t.choose(l);
        EXPECT_EQ(t.SIGLA_LINGUA, language_code(l));
        for (const Row& r : rows)
            EXPECT_EQ(t[r.key], r.text[static_cast<int>(l)])
                << key_name(r.key) << " " << t.SIGLA_LINGUA;
    }
}

TEST(LanguageTables, AMissingEntryKeepsTheTextOfTheLanguageChosenBefore) {
    for (Language before : kLanguages) {
        for (Language now : kLanguages) {
            LanguageTables expected_before;
            expected_before.choose(before);
            LanguageTables t;
            t.choose(before);
            t.choose(now);
            for (std::size_t i = 0; i < kTextCount; ++i) {
                auto key = static_cast<Text>(i);
                if (has_text(now, key)) {
                    LanguageTables direct;
                    direct.choose(now);
                    EXPECT_EQ(t[key], direct[key]);
                } else {
                    EXPECT_EQ(t[key], expected_before[key]) << key_name(key);
                }
            }
        }
    }
}

// The keys of the classic table that a language has no text for.
std::set<std::string> lacking(Language language) {
    std::set<std::string> keys;
    for (std::size_t i = 0; i < kClassicTextCount; ++i)
        if (!has_text(language, static_cast<Text>(i)))
            keys.insert(std::string(key_name(static_cast<Text>(i))));
    return keys;
}

TEST(LanguageTables, EachLanguageLacksExactlyItsOwnEntries) {
    // Spanish and German have no card reader: its reading modes and its name.
    const std::set<std::string> card_reader = {"READER_ACTIVE_WHILE_READING",
                                               "READER_TOGGLE",
                                               "READER_ON_WHEN_READING",
                                               "READER_OFF_WHEN_READING",
                                               "READER_INACTIVE_WHILE_READING",
                                               "READER_ON_WHEN_NO_LONGER_READING",
                                               "READER_OFF_WHEN_NO_LONGER_READING",
                                               "MODULE_NAME_CARD_READER"};
    // French has the reading modes but not the reader's name, nor anything
    // from the newer module types to the end of the table.
    std::set<std::string> french = {"MODULE_NAME_CARD_READER"};
    for (auto i = static_cast<std::size_t>(Text::MODULE_NAME_2_TRIACS_3_INPUTS);
         i < kClassicTextCount; ++i)
        french.insert(std::string(key_name(static_cast<Text>(i))));

    struct Row {
        Language language;
        std::size_t entries;
        std::set<std::string> lacks;
    } rows[] = {
        {Language::Italian, kClassicTextCount, {}},
        {Language::Spanish, kClassicTextCount - 8, card_reader},
        {Language::French, kClassicTextCount - 55, french},
        {Language::German, kClassicTextCount - 8, card_reader},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(entries_of(r.language), r.entries) << language_code(r.language);
        EXPECT_EQ(lacking(r.language), r.lacks) << language_code(r.language);
    }
    EXPECT_EQ(french.size(), 55u);
}

TEST(LanguageTables, FixedCaptionsStayItalianAndTheProgramsOwnMessagesAreTranslated) {
    // The fixed captions and messages that the classic table never held.
    const std::set<std::string> fixed = {
        "SPEECH_UNAVAILABLE", "TITLE_FILO",         "RUN_ERRORS_TITLE", "RUN_ERRORS_QUESTION",
        "SCAN_SUSPEND",       "RUN_MODULES_SILENT", "RUN_SAVE_REPORT",  "RUN_DISABLE_SHORT_MESSAGE",
        "RUN_CONSTANT_LIGHT", "ALL_CHANNELS_USED",  "BOX_INPUT",        "BOX_VIRTUAL_RELAY",
        "PARAM_DEBOUNCE",     "PARAM_TWILIGHT_LUX", "SERIAL_TITLE",     "SCAN_OFFER",
        "TITLE_SPEECH", "SECOND_COPY_REFUSED", "OPEN_DIALOG_TITLE",
        // The clone and export windows' own texts.
        "CLONE_TITLE_ABORTED", "CLONE_READER_PLACE_UNDEFINED", "CLONE_SAMPLE_TOO_LARGE",
        "CLONE_ENTER_CODE", "CLONE_IMPORT", "CLONE_RUN", "CLONE_SET_NAME", "CLONE_EXIT",
        "CLONE_EXIT_BLANK", "CLONE_ACCEPT", "CLONE_GROUP_FRAME", "CLONE_ADD", "CLONE_NUMBER_LABEL",
        "CLONE_ROW_NUMBER", "CLONE_LAST", "CLONE_SOURCE_SELECTED", "EXPORT_CAPTION", "EXPORT_START",
        "EXPORT_EXIT", "EXPORT_CARDS_ONLY", "EXPORT_DEBUG_FRAME", "EXPORT_CREATING_NICK",
        "EXPORT_DONE", "EXPORT_OPEN_ERROR", "EXPORT_OPEN_ERROR_END", "EXPORT_CREATE_ERROR",
        "EXPORT_ERROR_MESSAGE", "EXPORT_SQL_COMMAND", "EXPORT_INSERTING", "EXPORT_OF",
        "EXPORT_IN_NICK"};
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

TEST(LanguageTables, FrenchShowsWhatTheInstallerSawBeforeWhereItHasNoText) {
    struct Case {
        Language before;
        Language now;
        Text key;
        std::string_view shown;
    } cases[] = {
        {Language::Italian, Language::French, Text::UNIT_AMPERE, "Ampere "},
        {Language::Italian, Language::French, Text::UNIT_DEGREES_ROOM, "gradi C°"},
        {Language::Italian, Language::French, Text::MODULE_NAME_LED_DRIVER, "MODULO PILOTA LED"},
        {Language::Spanish, Language::French, Text::UNIT_AMPERE, "Amperios "},
        {Language::Spanish, Language::French, Text::UNIT_DEGREES_ROOM, "grados °C"},
        {Language::German, Language::French, Text::UNIT_DEGREES_ROOM, "Grad °C"},
        {Language::Spanish, Language::French, Text::MODULE_NAME_CARD_READER,
         "MODULO LETTORE DI BADGE"},
        // The card reader's modes go the other way: French has them, Spanish not.
        {Language::French, Language::Spanish, Text::READER_TOGGLE,
         "La lecture agit en télérupteur"},
        {Language::Italian, Language::German, Text::READER_TOGGLE, "Lettura fa passo passo"},
    };
    for (const Case& c : cases) {
        LanguageTables t;
        t.choose(c.before);
        t.choose(c.now);
        EXPECT_EQ(t[c.key], c.shown) << language_code(c.before) << " then " << language_code(c.now)
                                     << " " << key_name(c.key);
    }
    // The entries French has are French whatever came before.
    LanguageTables t;
    t.SPAGNOLO();
    t.FRANCESE();
    EXPECT_EQ(t[Text::MENU_OPEN_PROJECT], "Ouvrir un projet ");
    EXPECT_EQ(t[Text::CONTACT_NC], "N.F.");
}

std::size_t leading_blanks(std::string_view s) {
    std::size_t n = 0;
    while (n < s.size() && s[n] == ' ') ++n;
    return n;
}
std::size_t trailing_blanks(std::string_view s) {
    std::size_t n = 0;
    while (n < s.size() && s[s.size() - 1 - n] == ' ') ++n;
    return n;
}

// Whether s is well-formed UTF-8 (the texts are converted to the panel's
// 8-bit set from UTF-8, so a stray byte of another encoding is a fault).
bool is_utf8(std::string_view s) {
    for (std::size_t i = 0; i < s.size();) {
        const auto lead = static_cast<unsigned char>(s[i]);
        std::size_t follow = 0;
        if (lead >= 0x80) {
            if ((lead & 0xE0) == 0xC0)
                follow = 1;
            else if ((lead & 0xF0) == 0xE0)
                follow = 2;
            else if ((lead & 0xF8) == 0xF0)
                follow = 3;
            else
                return false;
        }
        if (s.size() - i <= follow) return false;
        for (std::size_t k = 1; k <= follow; ++k)
            if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return false;
        i += follow + 1;
    }
    return true;
}

TEST(LanguageTables, EveryTranslationKeepsTheLayoutOfTheItalian) {
    // Captions are laid out with their line breaks and outer blanks, so a
    // translation keeps them all; an entry of blanks only stays blanks only.
    LanguageTables italian;
    for (Language l : kLanguages) {
        LanguageTables t;
        t.choose(l);
        for (std::size_t i = 0; i < kTextCount; ++i) {
            const auto key = static_cast<Text>(i);
            if (!has_text(l, key)) continue;
            const std::string_view ita = italian[key];
            const std::string_view own = t[key];
            SCOPED_TRACE(std::string(language_code(l)) + " " + std::string(key_name(key)));
            EXPECT_EQ(std::count(own.begin(), own.end(), '\n'),
                      std::count(ita.begin(), ita.end(), '\n'));
            EXPECT_EQ(leading_blanks(own), leading_blanks(ita));
            EXPECT_EQ(trailing_blanks(own), trailing_blanks(ita));
        }
    }
}

TEST(LanguageTables, EveryEntryIsReachableAndReadableInEveryLanguage) {
    // What the windows read: the table after a language is chosen, key by key.
    for (Language l : kLanguages) {
        LanguageTables t;
        t.choose(l);
        for (std::size_t i = 0; i < kTextCount; ++i) {
            const auto key = static_cast<Text>(i);
            EXPECT_FALSE(t[key].empty()) << language_code(l) << " " << key_name(key);
            EXPECT_TRUE(is_utf8(t[key])) << language_code(l) << " " << key_name(key);
        }
    }
    EXPECT_FALSE(is_utf8("Umidit\xe0"));  // the Latin-1 spelling the check is there to catch
}

TEST(LanguageTables, StartsInItalianWithNoLanguageChosen) {
    LanguageTables t;
    EXPECT_EQ(t.SIGLA_LINGUA, "");
    EXPECT_EQ(t[Text::TITLE_WARNING], "ATTENZIONE");
    t.SPAGNOLO();
    t.ITALIANO();
    EXPECT_EQ(t.SIGLA_LINGUA, "ITA");
    EXPECT_EQ(t[Text::TITLE_WARNING], "ATTENZIONE");
}

TEST(LanguageCodes, AreReadWithoutRegardToCase) {
    Language l = Language::Italian;
    EXPECT_TRUE(language_from_code("ted", l));
    EXPECT_EQ(l, Language::German);
    EXPECT_TRUE(language_from_code("FRA", l));
    EXPECT_EQ(l, Language::French);
    EXPECT_FALSE(language_from_code("ENG", l));
    EXPECT_FALSE(language_from_code("IT", l));
}

}  // namespace
}  // namespace filo::texts
