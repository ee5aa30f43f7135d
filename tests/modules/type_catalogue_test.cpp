#include "modules/type_catalogue.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "modules/descriptions.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

TEST(TypeCatalogue, EveryTypeWithADescription) {
    struct Row {
        const char* code;
        const char* description;
        const char* name;
        const char* tipologia;
        int rows;
        char kind;
        std::uint8_t buttons;
    } rows[] = {
        {"05", "DESCRIZIONE_DIMMER", "DIMMER ", "DIMMER", 16, 'P', 0x07},
        {"11", "DESCRIZIONE_RELE2", "MODULO 2 USCITE A RELE E 3 INGRESSI UNIVERSALI ", "RELE", 32,
         'P', 0x1F},
        {"15", "DESCRIZIONE_RELE4", "MODULO 4 USCITE A RELE  E 4 INGRESSI UNIVERSALI ", "RELE", 32,
         'P', 0x1F},
        {"19", "DESCRIZIONE_FOTOSENSORE", "MODULO FOTOSENSORE", "REGOLATORE", 16, 'K', 0x07},
        {"1A", "DESCRIZIONE_BADGE", "MODULO LETTORE DI BADGE", "RELE", 16, 'P', 0x07},
        {"23", "DESCRIZIONE_VIDEOCITOFONO", "MODULO INTERFACCIA VIDEOCITOFONO", "VCITOF", 16, 'v',
         0x01},
        {"34", "DESCRIZIONE_TELECOMANDO", "COMANDO VIA RADIO", "", 8, 'R', 0x07},
        {"35", "DESCRIZIONE_CODICE_RADIO", "", "", 8, 'R', 0x00},
        {"48", "DESCRIZIONE_RELE4_SEMPLICE", "MODULO 4 USCITE A RELE  E 4 INGRESSI UNIVERSALI ",
         "RELE", 16, 'P', 0x0F},
        {"4A", "DESCRIZIONE_RADIO", "RADIO RX  TX", "RELE_RADIO", 16, 'P', 0x07},
        {"50", "DESCRIZIONE_SONDA", "MODULO SONDA TERMICA", "", 8, 'J', 0x07},
    };
    texts::LanguageTables italian;
    for (const Row& r : rows) {
        const ModuleType* t = find_type(r.code);
        ASSERT_NE(t, nullptr) << r.code;
        EXPECT_EQ(description_name(t->description), r.description) << r.code;
        EXPECT_EQ(window_layout(*t, std::string("0001") + r.code, italian).name, r.name) << r.code;
        EXPECT_EQ(t->output_tipologia, r.tipologia) << r.code;
        EXPECT_EQ(t->rows, r.rows) << r.code;
        EXPECT_EQ(t->first_kind, r.kind) << r.code;
        EXPECT_EQ(t->buttons, r.buttons) << r.code;
        EXPECT_EQ(find_type(std::string("00A1") + r.code), t) << "by whole module code";
    }
    EXPECT_EQ(all_types().size(), 25u);
    for (const char* none : {"02", "0A", "13", "18", "1E", "33", "36", "56", "FF", "", "1", "ZZ"})
        EXPECT_EQ(find_type(none), nullptr) << none;
}

TEST(TypeCatalogue, WhereAModuleOpens) {
    const std::vector<std::string> wired = {"00011F", "000515"};
    const std::vector<std::string> with_receiver = {"00011F", "00024A"};
    const std::vector<std::string> with_relay12 = {"000312"};
    struct Case {
        const char* type;
        const std::vector<std::string>* project;
        Opening opening;
    } cases[] = {
        {"1F", &wired, Opening::ModuleWindow},
        {"23", &wired, Opening::VideoDoorPages},
        {"1E", &wired, Opening::PanelInterface},
        {"34", &wired, Opening::RadioModuleRequired},
        {"35", &wired, Opening::RadioModuleRequired},
        {"33", &wired, Opening::RadioModuleRequired},
        {"34", &with_receiver, Opening::ModuleWindow},
        {"35", &with_relay12, Opening::ModuleWindow},
        {"33", &with_receiver, Opening::Unsupported},  // passes the radio test, then has no
                                                       // description
        {"18", &wired, Opening::Unsupported},
        {"0A", &wired, Opening::Unsupported},
    };
    for (const Case& c : cases) EXPECT_EQ(opening_of(c.type, *c.project), c.opening) << c.type;
}

}  // namespace
}  // namespace filo::modules
