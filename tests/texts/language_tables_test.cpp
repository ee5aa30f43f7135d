#include "texts/language_tables.hpp"

#include <gtest/gtest.h>

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
