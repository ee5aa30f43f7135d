// The recording and output formats that scripts read.
#include <gtest/gtest.h>

#include <sstream>

#include "diagnostics/monitor_format.hpp"

namespace filo::diagnostics {
namespace {

TEST(MonitorFormat, FramesSurviveTheRecordingByteForByte) {
    std::string every_byte;
    for (int c = 0; c < 256; ++c) every_byte += static_cast<char>(c);
    const RecordedFrame frame{45296789, every_byte};
    const std::string line = recording_line(frame);
    EXPECT_TRUE(line.starts_with("12:34:56.789\t\\x00\\x01"));
    EXPECT_NE(line.find(" !\"#"), std::string::npos);
    EXPECT_NE(line.find("[\\x5C]"), std::string::npos);  // the backslash is escaped
    EXPECT_EQ(line.find('\n'), std::string::npos);
    EXPECT_EQ(parse_recording_line(line), frame);
    EXPECT_EQ(parse_recording_line(line + "\r"), frame);
}

TEST(MonitorFormat, BrokenLinesAreSkippedAndCounted) {
    std::istringstream in(
        "00:00:01.000\t(008001201FB]\n"
        "garbage\n"
        "24:00:00.000\t(008001201FB]\n"
        "00:00:02.5\t(008001201FB]\n"
        "00:00:03.000\t(0080012\\x4]\n"
        "00:00:04.000\t(0080012\\q41]\n"
        "00:00:05.000\t\n"
        "\n"
        "23:59:59.999\t(008001201FB\\x5D\n");
    const Recording r = read_recording(in);
    ASSERT_EQ(r.frames.size(), 2U);
    EXPECT_EQ(r.frames[0], (RecordedFrame{1000, "(008001201FB]"}));
    EXPECT_EQ(r.frames[1], (RecordedFrame{86399999, "(008001201FB]"}));
    EXPECT_EQ(r.skipped, 6);
}

TEST(MonitorFormat, FieldsKeepTheirSeparatorsOut) {
    const MonitorFields f{"00:00:00.000", "8", "0012", "1", "251", "Sala, \"nord\"", "a\tb\nc", ""};
    EXPECT_EQ(tsv_line(f), "00:00:00.000\t8\t0012\t1\t251\tSala, \"nord\"\ta\\x09b\\x0Ac\t");
    EXPECT_EQ(csv_line(f), "00:00:00.000,8,0012,1,251,\"Sala, \"\"nord\"\"\",\"a\tb\nc\",");
}

}  // namespace
}  // namespace filo::diagnostics
