#include "bus/checksum.hpp"

#include <gtest/gtest.h>

#include <string>

#include "bus/frame.hpp"

namespace filo::bus {
namespace {

using namespace std::string_literals;

TEST(Checksum, StartsAtOneAndWrapsAt256) {
    EXPECT_EQ(checksum(""), 1);
    EXPECT_EQ(checksum("600000055]"), 0x1E);  // 541 + 1 - 512
    EXPECT_EQ(checksum("\xFF"), 0);
    EXPECT_EQ(checksum("\xFF\xFF"), 0xFF);  // characters count as unsigned bytes
}

// The start mark is left out; everything behind the two digits, the end mark
// and a text frame's NUL included, is in the sum.
TEST(Checksum, IsPutBehindTheStartMarkAndCheckedThere) {
    const std::string text = "\x16"s + "1001203Ciao\xE8]\x17" + '\0';
    const struct {
        std::string without;
        std::string with;
    } built[] = {
        {"[600000055]", "[1E600000055]"},
        {"(600000055)", "(EA600000055)"},
        {"(", "(01"},
        {"", ""},
        {text, "\x16"s + "301001203Ciao\xE8]\x17" + '\0'},
    };
    for (const auto& c : built) {
        EXPECT_EQ(with_checksum(c.without), c.with) << c.without;
        if (!c.with.empty()) EXPECT_TRUE(checksum_ok(c.with)) << c.with;
    }
    // clang-format off
    const char* bad[] = {"", "(", "(1", "(1E", "(1F600000055]", "(1e600000055]", "(XY600000055]",
                         "(1E600000056]", "(1E600000055", "(1E600000055)"};
    // clang-format on
    for (const char* frame : bad) EXPECT_FALSE(checksum_ok(frame)) << frame;
    EXPECT_FALSE(checksum_ok("\x16"s + "301001203Ciao\xE8]\x17" + '\x01'));
}

}  // namespace
}  // namespace filo::bus
