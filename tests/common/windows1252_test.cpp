#include "common/windows1252.hpp"

#include <gtest/gtest.h>

namespace filo::basic {
namespace {

TEST(Windows1252, ConvertsWhatThePanelsCanShowAndMarksTheRest) {
    struct Case {
        std::string utf8;
        std::string bytes;
    };
    const Case cases[] = {
        {"Luce cucina", "Luce cucina"},
        {"Relè già", "Rel\xE8 gi\xE0"},
        {"€ 5", "\x80 5"},
        {"Œuvre – “ok”", "\x8Cuvre \x96 \x93ok\x94"},
        {"ÿ", "\xFF"},
        {"Ω", "?"},          // Greek: not in the set
        {"日本", "??"},      // three bytes each, one "?" each
        {"🙂!", "?!"},     // four bytes
        {"a\xC3", "a?"},     // cut short
        {"\xC0\xAF", "??"},  // overlong "/"
        {"\xE8x", "?x"},     // a Latin-1 byte that is not UTF-8
        {std::string("a\0b", 3), std::string("a\0b", 3)},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(utf8_to_windows1252(c.utf8), c.bytes) << c.utf8;
    }
}

TEST(Windows1252, EveryDefinedByteComesBackTheSame) {
    for (int b = 0; b < 256; ++b) {
        const std::string byte(1, static_cast<char>(b));
        const std::string utf8 = windows1252_to_utf8(byte);
        if (b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D) {
            EXPECT_EQ(utf8, "?") << b;
        } else {
            EXPECT_EQ(utf8_to_windows1252(utf8), byte) << b;
        }
    }
}

}  // namespace
}  // namespace filo::basic
