#include "modules/module_replacement.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "bus/module_code.hpp"
#include "common/basic_functions.hpp"
#include "store/link_table.hpp"
#include "store/store_fixture.hpp"

namespace filo::modules {
namespace {

using R = ReplacementRefusal;
using Table = std::vector<std::vector<std::string>>;

// A relay module linked both ways with its neighbours, a receiver with a
// remote element paired to it, and an input module of the old type 47.
class ModuleReplacementTest : public testing::StoreTest {
  protected:
    ModuleReplacementTest() {
        testing::add_module(table, "000215", 32, "Quadro sala");
        testing::add_module(table, "000315", 32, "Quadro cucina");
        testing::add_module(table, "00104A", 8, "Radio", "RELE_RADIO");
        testing::add_module(table, "002034", 8, "Telecomando", "");
        testing::add_module(table, "003047", 8, "Ingressi", "");
        testing::set_column(project, "002034", 1, "riserva4", "00104A" + std::string(44, '0'));
        testing::set_column(project, "000215", 2, "riserva", "EVENTO SALA");  // an aggregate
        name("000215", 1, "Pulsante sala");
        name("000215", 9, "Luce sala ");
        name("000315", 1, "Pulsante cucina");
        name("000315", 9, "Luce cucina ");
        name("003047", 1, "Sensore porta");
        link("000215/1", "000215/1", "Luce sala ", "Pulsante sala");    // within the module
        link("000315/1", "000215/1", "Luce cucina ", "Pulsante sala");  // as command
        link("000215/1", "000315/1", "Luce sala ", "Pulsante cucina");  // as receiver
        link("000315/1", "003047/1", "Luce cucina ", "Sensore porta");
        links.LINK_CORRENTE = store::LinkRow{};  // its second page
        links.LINK_CORRENTE.note = "SECONDA PAGINA";
        links.AGGIUNGI_LINK();
        link("000215/1", "000215/17", "Luce sala ", "Luce sala ");  // an output's event
    }
    void name(const std::string& code, int row, const std::string& nick) {
        testing::set_column(project, code, row, "nick", nick);
    }
    void link(const std::string& rx, const std::string& tx, const std::string& rx_name,
              const std::string& tx_name) {
        links.LINK_CORRENTE = testing::switching_link(rx, tx, rx_name, tx_name);
        links.AGGIUNGI_LINK();
    }
    Table dump(const std::string& table_name) {
        sqlite::Statement q =
            project.database().prepare("SELECT * FROM " + table_name + " ORDER BY ID");
        Table rows;
        while (q.step()) {
            rows.emplace_back();
            for (int c = 0; c < q.column_count(); ++c) rows.back().push_back(q.text(c));
        }
        return rows;
    }
    int column(const std::string& table_name, const std::string& name) {
        sqlite::Statement q = project.database().prepare("SELECT * FROM " + table_name);
        for (int c = 0; c < q.column_count(); ++c)
            if (q.column_name(c) == name) return c;
        return -1;
    }
    R replace(const std::string& old_code, const std::string& typed, bool check_digits = true) {
        table.LEGGI_MODULO(old_code);
        table.set_codice_modulo(old_code);
        return replace_module(table, links, typed, check_digits);
    }
    std::string file_bytes() {
        project.close();  // the journal goes back into the file
        std::ifstream in(file, std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(in), {}};
        project.open(file);
        return bytes;
    }

    store::LinkTable links{project};
};

TEST_F(ModuleReplacementTest, RowsLinksAndPairedRemotesFollowTheNewCode) {
    const struct Case {
        std::string old_code, new_code;
    } cases[] = {
        {"000215", "00AB15"},  // links in both directions, an aggregate name kept
        {"00104A", "00114A"},  // the remote element paired with it follows
        {"003047", "003114"},  // 47 takes a 14: links follow with the type
    };
    const int codice = column("nick", "codice"), riserva4 = column("nick", "riserva4");
    const int rx = column("associazioni", "identificativoRX");
    const int tx = column("associazioni", "identificativoTX");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.old_code);
        Table nick = dump("nick"), associazioni = dump("associazioni");
        ASSERT_EQ(replace(c.old_code, bus::printed_code(c.new_code)), R::None);
        EXPECT_EQ(table.CODICE_MODULO, c.new_code);
        // Only the code changes: ID, names, kinds, options, nick_numerico stay.
        for (auto& row : nick) {
            if (row[codice] == c.old_code) row[codice] = c.new_code;
            if (basic::left(row[riserva4], 6) == c.old_code)
                row[riserva4] = c.new_code + row[riserva4].substr(6);
        }
        for (auto& row : associazioni)
            for (int k : {rx, tx})
                if (basic::left(row[k], 6) == c.old_code) row[k] = c.new_code + row[k].substr(6);
        EXPECT_EQ(dump("nick"), nick);
        EXPECT_EQ(dump("associazioni"), associazioni);
    }
    EXPECT_EQ(count("SELECT COUNT(*) FROM associazioni WHERE identificativoRX LIKE '00AB15/%' "
                    "OR identificativoTX LIKE '00AB15/%'"),
              4);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE riserva4 LIKE '00114A%'"), 1);
}

TEST_F(ModuleReplacementTest, RefusalsChangeNothing) {
    const struct Case {
        std::string old_code, typed;
        bool check_digits;
        R refusal;
    } cases[] = {
        {"000215", bus::printed_code("00AB1F"), true, R::TypeNotCompatible},
        {"003047", bus::printed_code("00AB15"), true, R::TypeNotCompatible},
        {"000215", "00AB1500", true, R::CodeNotCorrect},
        {"000215", bus::printed_code("000315"), true, R::ModuleExists},
        {"000215", bus::printed_code("000215"), true, R::ModuleExists},  // itself
        {"000215", "00031500", false, R::ModuleExists},
        {"000215", "00AB1F00", false, R::TypeNotCompatible},  // the type still counts
    };
    // A 14 doesn't take a 47.
    {
        testing::add_module(table, "004014", 8, "Ingressi nuovi", "");
        ASSERT_EQ(replace("004014", bus::printed_code("004147")), R::TypeNotCompatible);
    }
    const std::string before = file_bytes();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        EXPECT_EQ(replace(c.old_code, c.typed, c.check_digits), c.refusal);
        EXPECT_EQ(table.CODICE_MODULO, c.old_code);
        EXPECT_EQ(table.RIGHE_MODULO.riga(1).codice, c.old_code);
    }
    EXPECT_EQ(file_bytes(), before);
    // Without check digits any two characters do; a deleted module's number
    // is free for the same type.
    table.LEGGI_MODULO("000315");
    table.set_codice_modulo("000315");
    table.CANCELLA_MODULO();
    EXPECT_EQ(replace("000215", "000315ZZ", false), R::None);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE codice = '000315'"), 32);
}

}  // namespace
}  // namespace filo::modules
