#include "store/sql_functions.hpp"

#include <sqlite3.h>

#include <string_view>

#include "common/basic_functions.hpp"
#include "store/sqlite.hpp"

namespace filo::store {
namespace {

std::string_view text_argument(sqlite3_value* v) {
    const unsigned char* t = sqlite3_value_text(v);
    if (!t) return {};
    return {reinterpret_cast<const char*>(t), static_cast<std::size_t>(sqlite3_value_bytes(v))};
}

std::string_view utf8_left(std::string_view s, long long n) {
    return n <= 0 ? std::string_view{} : basic::first_characters(s, static_cast<std::size_t>(n));
}

void sql_left(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
    std::string_view s = text_argument(argv[0]);
    std::string_view r = utf8_left(s, sqlite3_value_int64(argv[1]));
    sqlite3_result_text(ctx, r.data(), static_cast<int>(r.size()), SQLITE_TRANSIENT);
}

void sql_right(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
    std::string_view s = text_argument(argv[0]);
    long long n = sqlite3_value_int64(argv[1]);
    long long total = static_cast<long long>(basic::character_count(s));
    std::string_view r;
    if (n >= total)
        r = s;
    else if (n > 0)
        r = s.substr(utf8_left(s, total - n).size());
    sqlite3_result_text(ctx, r.data(), static_cast<int>(r.size()), SQLITE_TRANSIENT);
}

void sql_val(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
    sqlite3_result_double(ctx, basic::val(text_argument(argv[0])));
}

void sql_cint(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
    sqlite3_result_int64(ctx, basic::cint(text_argument(argv[0])));
}

}  // namespace

void register_sql_functions(sqlite::Connection& connection) {
    struct Function {
        const char* name;
        int arguments;
        void (*call)(sqlite3_context*, int, sqlite3_value**);
    };
    static constexpr Function kFunctions[] = {
        {"LEFT", 2, sql_left}, {"RIGHT", 2, sql_right}, {"VAL", 1, sql_val}, {"CINT", 1, sql_cint}};
    for (const Function& f : kFunctions) {
        int rc = sqlite3_create_function_v2(connection.handle(), f.name, f.arguments,
                                            SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, f.call,
                                            nullptr, nullptr, nullptr);
        if (rc != SQLITE_OK) throw sqlite::SqlError(rc, sqlite3_errstr(rc));
    }
}

}  // namespace filo::store
