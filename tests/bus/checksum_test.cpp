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

TEST(Checksum, LeavesOutTheStartMarkAndCoversTheEndMark) {
    EXPECT_EQ(with_checksum("[600000055]"), "[1E600000055]");
    EXPECT_TRUE(checksum_ok("[1E600000055]"));
    // "]" is in the sum: another last character gives another checksum.
    EXPECT_EQ(with_checksum("(600000055)"), "(EA600000055)");
    EXPECT_FALSE(checksum_ok("(1E600000055)"));
}

TEST(Checksum, AnythingThatDoesNotCarryItIsWrong) {
    const std::string bad[] = {
        "",
        "(",
        "(1",
        "(1E",
        "(1F600000055]",
        "(1e600000055]",
        "(XY600000055]",
        "(1E600000056]",
        "(1E600000055",  // the end mark is part of the sum
    };
    for (const auto& frame : bad) EXPECT_FALSE(checksum_ok(frame)) << frame;
    EXPECT_TRUE(checksum_ok("(01"));  // nothing behind: 1
    EXPECT_EQ(with_checksum(""), "");
    EXPECT_EQ(with_checksum("("), "(01");
}

TEST(Checksum, OfATextFrameRunsToItsNul) {
    const std::string without = "\x16"s + "1001203Ciao\xE8]\x17" + '\0';
    const std::string frame = with_checksum(without);
    EXPECT_EQ(frame, "\x16"s + "301001203Ciao\xE8]\x17" + '\0');
    EXPECT_TRUE(checksum_ok(frame));
    EXPECT_FALSE(checksum_ok(frame.substr(0, frame.size() - 1) + '\x01'));
}

}  // namespace
}  // namespace filo::bus
