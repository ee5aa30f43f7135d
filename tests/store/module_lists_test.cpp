#include <gtest/gtest.h>

#include "store/module_table.hpp"
#include "store/store_fixture.hpp"

namespace filo::store {
namespace {

using testing::add_module;
using ModuleListsTest = testing::StoreTest;

std::vector<std::string> texts_of(const std::vector<ListEntry>& entries) {
    std::vector<std::string> t;
    for (const auto& e : entries) t.push_back(e.text);
    return t;
}

TEST_F(ModuleListsTest, LiveModulesInCodeOrderAndNamedPointsByFamily) {
    add_module(table, "00211F", 9, "Quadro sala", "RELE");
    add_module(table, "000A0B", 9, "Cucina", "DIMMER");
    add_module(table, "00051F", 9, "Cantina", "RELE");
    sql("UPDATE nick SET nick = 'luce scale ' WHERE codice = '00211F' AND campo = '9'");
    sql("UPDATE nick SET nick = 'Dimmer tavolo ' WHERE codice = '000A0B' AND campo = '9'");
    sql("UPDATE nick SET nick = 'Luce cantina ' WHERE codice = '00051F' AND campo = '9'");
    sql("UPDATE nick SET nick = 'Pulsante porta ' WHERE codice = '00051F' AND campo = '2'");

    ModuleLists lists = table.ELENCO_MODULI();
    EXPECT_EQ(lists.by_code, (std::vector<std::string>{"00051F  Cantina", "000A0B  Cucina",
                                                       "00211F  Quadro sala"}));
    EXPECT_EQ(table.ELENCO_CODICI, (std::vector<std::string>{"00051F", "000A0B", "00211F"}));
    EXPECT_EQ(table.N_MODULI, 3);
    EXPECT_EQ(table.PROGETTO_VUOTO, "NO");
    EXPECT_EQ(table.N_PROGRESSIVO, 3);

    const std::string blanks42(42, ' '), blanks45(45, ' ');
    EXPECT_EQ(texts_of(lists.by_name),
              (std::vector<std::string>{
                  "--------DIMMER" + blanks42 + "---------",
                  "000A0B/1   Dimmer tavolo ",
                  "--------INPUT" + blanks45 + "---------",
                  "00051F/2   Pulsante porta ",
                  "--------RELE" + blanks45 + "---------",
                  "00051F/1   Luce cantina ",  // names sort without regard to case
                  "00211F/1   luce scale ",
              }));
    EXPECT_EQ(lists.by_name[0].item_data, 0);
    EXPECT_EQ(lists.by_name[1].item_data, 0x1000A0B);  // the leading "1" keeps the zeros
    EXPECT_EQ(lists.by_name[6].item_data, 0x100211F);
}

TEST_F(ModuleListsTest, DeletedModulesAreLeftOut) {
    add_module(table, "00011F", 9, "Vecchio");
    sql("UPDATE nick SET nick = 'Luce ' WHERE campo = '9'");
    table.LEGGI_MODULO("00011F");
    table.CODICE_MODULO = "00011F";
    table.CANCELLA_MODULO();
    ModuleLists lists = table.ELENCO_MODULI();
    EXPECT_TRUE(lists.by_code.empty());
    EXPECT_EQ(table.PROGETTO_VUOTO, "SI");
    EXPECT_EQ(table.N_MODULI, 0);
    // The deleted name is not listed; only the group line of the first row stays.
    ASSERT_EQ(lists.by_name.size(), 1u);
    EXPECT_EQ(lists.by_name[0].item_data, 0);
}

TEST_F(ModuleListsTest, ANameIsADuplicateOnlyAgainstALivePointOfTheSameSide) {
    add_module(table, "00011F", 16, "a");
    add_module(table, "00021F", 16, "b");
    sql("UPDATE nick SET nick = 'Luce dell''atrio ' WHERE codice = '00011F' AND campo = '9'");
    sql("UPDATE nick SET nick = 'Pulsante ' WHERE codice = '00011F' AND campo = '1'");
    sql("UPDATE nick SET nick = 'Nascosto ', riserva = 'K' WHERE codice = '00021F' AND campo = "
        "'2'");

    struct Case {
        const char* name;
        const char* code;
        PointSide side;
        const char* filo;
        const char* expected;
    } cases[] = {
        {"Luce dell'atrio ", "00021F", PointSide::Output, "1", "SI"},  // another module's output
        {"LUCE DELL'ATRIO ", "00021F", PointSide::Output, "2", "SI"},  // case does not matter
        {"Luce dell'atrio ", "00011F", PointSide::Output, "1", ""},    // the point itself
        {"Luce dell'atrio ", "00011F", PointSide::Output, "2", "SI"},  // same module, other output
        {"Luce dell'atrio ", "00021F", PointSide::Input, "1", ""},     // an input may share it
        {"Pulsante ", "00021F", PointSide::Input, "4", "SI"},
        {"Pulsante ", "00021F", PointSide::Output, "4", ""},
        {"Nascosto ", "00011F", PointSide::Input, "2", ""},         // hidden rows don't count
        {"Luce dell'atrio", "00021F", PointSide::Output, "1", ""},  // the blank is part of it
    };
    for (const Case& c : cases) {
        table.CERCA_UGUALE(c.name, c.code, c.side, c.filo);
        EXPECT_EQ(table.NOME_DOPPIO, c.expected) << c.name << " " << c.code << "/" << c.filo;
    }
}

}  // namespace
}  // namespace filo::store
