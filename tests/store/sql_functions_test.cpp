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
    testing::add_module(table, "00011F", 12, "");  // LIKE: "_" one character, any case
    EXPECT_EQ(one(db, "SELECT COUNT(*) FROM nick WHERE codice LIKE '____1f'"), "12");
}

}  // namespace
}  // namespace filo::store
