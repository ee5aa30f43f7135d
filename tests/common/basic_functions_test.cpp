#include "common/basic_functions.hpp"

#include <gtest/gtest.h>

namespace filo::basic {
namespace {

TEST(Val, ReadsTheLeadingNumberAsTheClassicFunctionDoes) {
    struct Case {
        const char* text;
        double value;
    } cases[] = {
        {"", 0},       {"0", 0},     {"042", 42},    {" 12", 12},    {"1 2 3", 123},
        {"12abc", 12}, {"abc", 0},   {"-3.5", -3.5}, {"1.2.3", 1.2}, {"2e3", 2000},
        {"2e", 2},     {"&H1F", 31}, {"&h10", 16},   {"&HFFFF", -1}, {"&H1001234", 0x1001234},
        {"&O17", 15},  {"&X1", 0},   {"+7", 7},      {".5", 0.5},    {"\t9\n", 9},
        {"000", 0},    {"251", 251},
    };
    for (const Case& c : cases) EXPECT_DOUBLE_EQ(val(c.text), c.value) << '"' << c.text << '"';
}

TEST(Cint, RoundsHalfToEven) {
    EXPECT_EQ(cint("2.5"), 2);
    EXPECT_EQ(cint("3.5"), 4);
    EXPECT_EQ(cint("-2.5"), -2);
    EXPECT_EQ(cint("2.6"), 3);
    EXPECT_EQ(cint("10"), 10);
    EXPECT_EQ(cint("x"), 0);
}

TEST(Substrings, ArePositionedFromOneAndClippedToTheText) {
    EXPECT_EQ(mid("00121F", 5, 2), "1F");
    EXPECT_EQ(mid("00121F", 1, 4), "0012");
    EXPECT_EQ(mid("abc", 3, 10), "c");
    EXPECT_EQ(mid("abc", 4, 1), "");
    EXPECT_EQ(mid("abc", 9), "");
    EXPECT_EQ(mid("abcdef", 3), "cdef");
    EXPECT_EQ(left("abc", 5), "abc");
    EXPECT_EQ(left("abc", 0), "");
    EXPECT_EQ(right("abc", 2), "bc");
    EXPECT_EQ(right("abc", 7), "abc");
}

TEST(SetMid, ReplacesInPlaceWithoutChangingTheLength) {
    std::string code = "00121F";
    set_mid(code, 5, "FF");
    EXPECT_EQ(code, "0012FF");
    std::string s = "abc";
    set_mid(s, 3, "XYZ");
    EXPECT_EQ(s, "abX");
    set_mid(s, 4, "Q");
    EXPECT_EQ(s, "abX");
}

TEST(ZeroPadded, KeepsFixedWidthFields) {
    EXPECT_EQ(zero_padded(7, 3), "007");
    EXPECT_EQ(zero_padded(255, 3), "255");
    EXPECT_EQ(zero_padded(1234, 3), "1234");
}

}  // namespace
}  // namespace filo::basic
