#include <gtest/gtest.h>

#include "store/store_fixture.hpp"

namespace filo::store {
namespace {

using SqlFunctionsTest = testing::StoreTest;

std::string one(sqlite::Connection& db, const std::string& query) {
    auto q = db.prepare(query);
    EXPECT_TRUE(q.step()) << query;
    return q.text(0);
}

TEST_F(SqlFunctionsTest, ClassicFunctionsAreAvailableToQueries) {
    auto& db = project.database();
    EXPECT_EQ(one(db, "SELECT \"LEFT\"('00121F', 4)"), "0012");
    EXPECT_EQ(one(db, "SELECT \"RIGHT\"('00121F', 2)"), "1F");
    EXPECT_EQ(one(db, "SELECT \"RIGHT\"('ab', 5)"), "ab");
    EXPECT_EQ(one(db, "SELECT \"LEFT\"('Umidità', 6)"), "Umidit");
    EXPECT_EQ(one(db, "SELECT \"RIGHT\"('Umidità', 2)"), "tà");
    EXPECT_EQ(one(db, "SELECT VAL(' 12abc')"), "12.0");
    EXPECT_EQ(one(db, "SELECT CINT('2.5')"), "2");
    EXPECT_EQ(one(db, "SELECT \"LEFT\"(NULL, 2) IS NULL"), "1");
}

TEST_F(SqlFunctionsTest, RowsSortByTheirNumberOnlyThroughValOrCint) {
    testing::add_module(table, "00011F", 12, "");
    auto& db = project.database();
    auto q = db.prepare("SELECT campo FROM nick ORDER BY campo");
    std::vector<std::string> as_text, as_number;
    while (q.step()) as_text.push_back(q.text(0));
    auto v = db.prepare("SELECT campo FROM nick ORDER BY VAL(campo) DESC");
    while (v.step()) as_number.push_back(v.text(0));
    EXPECT_EQ(as_text[1], "10");
    EXPECT_EQ(as_number.front(), "12");
    EXPECT_EQ(one(db, "SELECT COUNT(*) FROM nick WHERE codice LIKE '____1f'"), "12");
}

}  // namespace
}  // namespace filo::store
