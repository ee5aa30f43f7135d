#include "modules/module_replacement.hpp"

#include <gtest/gtest.h>

#include "bus/module_code.hpp"
#include "store/link_table.hpp"
#include "store/store_fixture.hpp"

namespace filo::modules {
namespace {

using R = ReplacementRefusal;
using Rows = std::vector<std::vector<std::string>>;

// A relay module linked both ways, a receiver with a remote element paired
// to it, and an input module of type 47.
class ModuleReplacementTest : public testing::StoreTest {
  protected:
    ModuleReplacementTest() {
        for (const char* code : {"000215", "000315", "00104A", "002034", "003047"})
            testing::add_module(table, code, code[5] == '5' ? 32 : 8, "Quadro");
        testing::set_column(project, "002034", 1, "riserva4", "00104A" + std::string(44, '0'));
        testing::set_column(project, "000215", 2, "riserva", "EVENTO SALA");  // an aggregate
        for (const char* code : {"000215", "000315", "003047"}) {
            testing::set_column(project, code, 1, "nick", std::string("Tasto ") + code);
            testing::set_column(project, code, 9, "nick", std::string("Luce ") + code);
        }
        for (const char* link : {"000215/1 000215/1", "000315/1 000215/1", "000215/1 000315/1",
                                 "000315/1 003047/1", "000215/1 000215/17"}) {
            const std::string rx(link, 8), tx(link + 9);
            const char* event = tx.ends_with("/17") ? "Luce " : "Tasto ";  // of output 1
            links.LINK_CORRENTE =
                testing::switching_link(rx, tx, "Luce " + rx.substr(0, 6), event + tx.substr(0, 6));
            links.AGGIUNGI_LINK();
        }
    }
    Rows dump(const std::string& sql) {
        sqlite::Statement q = project.database().prepare(sql);
        Rows rows;
        while (q.step()) {
            rows.emplace_back();
            for (int c = 0; c < q.column_count(); ++c) rows.back().push_back(q.text(c));
        }
        return rows;
    }
    const char* kNick = "SELECT * FROM nick ORDER BY ID";
    const char* kLinks = "SELECT * FROM associazioni ORDER BY ID";
    R replace(const std::string& old_code, const std::string& typed, bool check_digits = true) {
        table.LEGGI_MODULO(old_code);
        table.set_codice_modulo(old_code);
        return replace_module(table, links, typed, check_digits);
    }
    std::string file_bytes() {
        project.close();  // the log goes back into the file
        std::string bytes = testing::read_file(file);
        project.open(file);
        return bytes;
    }

    store::LinkTable links{project};
};

TEST_F(ModuleReplacementTest, RowsLinksAndPairedRemotesFollowTheNewCode) {
    const std::pair<std::string, std::string> cases[] = {
        {"000215", "00AB15"},  // links in both directions, an aggregate name kept
        {"00104A", "00114A"},  // the remote element paired with it follows
        {"003047", "003114"},  // 47 takes a 14: links follow with the type
    };
    for (const auto& [old_code, new_code] : cases) {
        SCOPED_TRACE(old_code);
        // What must come out: the old code changed where a value begins
        // with it (codice, identifiers, a receiver in riserva4), nothing
        // else (ID, names, kinds, options, nick_numerico).
        Rows want_nick = dump(kNick), want_links = dump(kLinks);
        for (Rows* rows : {&want_nick, &want_links})
            for (auto& row : *rows)
                for (std::string& value : row)
                    if (value.starts_with(old_code)) value.replace(0, 6, new_code);
        ASSERT_EQ(replace(old_code, bus::printed_code(new_code)), R::None);
        EXPECT_EQ(table.CODICE_MODULO, new_code);
        EXPECT_EQ(dump(kNick), want_nick);
        EXPECT_EQ(dump(kLinks), want_links);
    }
    EXPECT_EQ(count("SELECT COUNT(*) FROM associazioni WHERE identificativoRX LIKE '00AB15/%' "
                    "OR identificativoTX LIKE '00AB15/%' OR identificativoTX LIKE '003114/%'"),
              5);
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE riserva4 LIKE '00114A%'"), 1);
}

TEST_F(ModuleReplacementTest, RefusalsChangeNothing) {
    testing::add_module(table, "004014", 8, "Ingressi");
    const struct Case {
        std::string old_code, typed;
        bool check_digits;
        R refusal;
    } cases[] = {
        {"000215", bus::printed_code("00AB1F"), true, R::TypeNotCompatible},
        {"004014", bus::printed_code("004147"), true, R::TypeNotCompatible},  // not back
        {"000215", "00AB1500", true, R::CodeNotCorrect},
        {"000215", bus::printed_code("000315"), true, R::ModuleExists},
        {"000215", bus::printed_code("000215"), true, R::ModuleExists},  // itself
        {"000215", "00AB1F00", false, R::TypeNotCompatible},             // the type still counts
    };
    const std::string before = file_bytes();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        EXPECT_EQ(replace(c.old_code, c.typed, c.check_digits), c.refusal);
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
