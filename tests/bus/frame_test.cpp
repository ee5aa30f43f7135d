#include <gtest/gtest.h>

#include <string>

#include "bus/checksum.hpp"
#include "bus/frame_builder.hpp"
#include "bus/frame_parser.hpp"

namespace filo::bus {
namespace {

using namespace std::string_literals;

TEST(ShortFrames, AreBuiltToTheLetterAndParsedBack) {
    struct Case {
        std::string built;
        std::string expected;
        FrameKind kind;
        std::uint16_t address;
        std::uint8_t command;
        std::uint8_t value;
    } cases[] = {
        {parameter_frame(0x0012, 0x67, 0xFF), "(4D3001267FF]", FrameKind::Parameter, 0x12, 0x67,
         0xFF},
        {read_register_frame(0x0012, 0x65), "(20400126500]", FrameKind::ReadRegister, 0x12, 0x65,
         0},
        {input_event_frame(0x0012, 3, 251), "(448001203FB]", FrameKind::InputEvent, 0x12, 3, 251},
        {identification_answer_frame(0x001A, 0x1E), "(6A8001AFF1E]",
         FrameKind::IdentificationAnswer, 0x1A, 0xFF, 0x1E},
        {register_answer_frame(0x00FE, 0x5A), "(82800FEFE5A]", FrameKind::RegisterAnswer, 0xFE,
         0xFE, 0x5A},
        {identification_query_frame(0x0012), "(22A00120000]", FrameKind::IdentificationQuery, 0x12,
         0, 0},
        {identification_query_frame(0x0012, kSweepStartMark), "[22A00120000]",
         FrameKind::IdentificationQuery, 0x12, 0, 0},
        {analog_query_frame(0x0012), "(C3B001200]", FrameKind::AnalogQuery, 0x12, 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.built, c.expected);
        const Frame f = parse_frame(c.built);
        EXPECT_EQ(f.kind, c.kind) << c.built;
        EXPECT_TRUE(f.checksum_ok) << c.built;
        EXPECT_EQ(f.start, c.built[0]);
        EXPECT_EQ(f.kind_char, c.built[3]);
        EXPECT_EQ(f.address, c.address) << c.built;
        EXPECT_EQ(f.command, c.command) << c.built;
        EXPECT_EQ(f.value, c.value) << c.built;
        EXPECT_EQ(f.payload, c.built.substr(4, c.built.size() - 5));
        EXPECT_EQ(build_frame(f), c.built);
    }
}

TEST(MasksFrame, CarriesSixBytesInOrder) {
    const std::string frame = masks_frame(0x0012, {0x01, 0x02, 0x04, 0x08, 0x10, 0x20});
    EXPECT_EQ(frame, "(A520012010204081020]");
    const Frame f = parse_frame(frame);
    EXPECT_EQ(f.kind, FrameKind::Masks);
    EXPECT_TRUE(f.checksum_ok);
    EXPECT_EQ(f.address, 0x12);
    EXPECT_EQ(f.masks, (std::array<std::uint8_t, 6>{0x01, 0x02, 0x04, 0x08, 0x10, 0x20}));
}

TEST(AnalogAnswer, ListEndsAtTheMarkTheEndOrTheEighthValue) {
    struct Case {
        std::string frame;  // without checksum
        FrameKind kind;
        std::size_t count;
    } cases[] = {
        {"(C00120A14FF>]", FrameKind::AnalogAnswer, 3},
        {"(C00120A14FF>>>>>>>>>>]", FrameKind::AnalogAnswer, 3},
        {"(C00120A>9ZZ]", FrameKind::AnalogAnswer, 1},  // behind the mark nothing is read
        {"(C00120A14FF]", FrameKind::AnalogAnswer, 3},
        {"(C0012>]", FrameKind::AnalogAnswer, 0},
        {"(C0012]", FrameKind::AnalogAnswer, 0},
        {"(C00120102030405060708]", FrameKind::AnalogAnswer, 8},
        {"(C00120102030405060708>]", FrameKind::AnalogAnswer, 8},
        {"(C0012010203040506070809]", FrameKind::Unknown, 0},
        {"(C00120A1]", FrameKind::Unknown, 0},
        {"(C00120a]", FrameKind::Unknown, 0},
        {"(C001]", FrameKind::Unknown, 0},
    };
    for (const auto& c : cases) {
        const std::string frame = with_checksum(c.frame);
        const Frame f = parse_frame(frame);
        EXPECT_EQ(f.kind, c.kind) << c.frame;
        EXPECT_TRUE(f.checksum_ok) << c.frame;
        if (c.kind == FrameKind::AnalogAnswer) {
            EXPECT_EQ(f.analog.count, c.count) << c.frame;
            EXPECT_EQ(f.address, 0x12);
        }
    }
    const Frame three = parse_frame(with_checksum("(C00120A14FF>]"));
    EXPECT_EQ(three.analog.values, (std::array<std::uint8_t, 8>{0x0A, 0x14, 0xFF}));

    AnalogValues values;
    values.values = {0x0A, 0x14, 0xFF};
    values.count = 3;
    EXPECT_EQ(analog_answer_frame(0x0012, values), "(04C00120A14FF>]");
    values.values = {1, 2, 3, 4, 5, 6, 7, 8};
    values.count = 8;
    EXPECT_EQ(analog_answer_frame(0x0012, values), with_checksum("(C00120102030405060708]"));
}

TEST(TextFrame, CarriesRawCharactersAndItsOwnNul) {
    const std::string text = "Ciao\xE8]";  // 8-bit and a mark inside the text
    const std::string frame = text_frame(0x0012, 3, text);
    EXPECT_EQ(frame, "\x16"s + "301001203Ciao\xE8]\x17" + '\0');
    const Frame f = parse_frame(frame);
    EXPECT_EQ(f.kind, FrameKind::Text);
    EXPECT_TRUE(f.checksum_ok);
    EXPECT_EQ(f.address, 0x12);
    EXPECT_EQ(f.command, 3);
    EXPECT_EQ(f.text, text);
    EXPECT_EQ(build_frame(f), frame);

    const Frame empty = parse_frame(text_frame(0xFFF0, 0xFF, ""));
    EXPECT_EQ(empty.kind, FrameKind::Text);
    EXPECT_EQ(empty.text, "");
    EXPECT_EQ(parse_frame(frame.substr(0, frame.size() - 1)).kind, FrameKind::NotAFrame);
    EXPECT_EQ(parse_frame("\x16\x17"s + '\0').kind, FrameKind::Unknown);
    EXPECT_EQ(parse_frame("\x16"
                          "002001203\x17"s +
                          '\0')
                  .kind,
              FrameKind::Unknown);
}

TEST(Parsing, ReportsWhatItFindsInMalformedInput) {
    struct Case {
        std::string text;
        FrameKind kind;
        bool checksum_ok;
        char kind_char;
    } cases[] = {
        {"", FrameKind::NotAFrame, false, 0},
        {"(", FrameKind::NotAFrame, false, 0},
        {"]", FrameKind::NotAFrame, false, 0},
        {"(1E600000055", FrameKind::NotAFrame, false, 0},
        {"1E600000055]", FrameKind::NotAFrame, false, 0},
        {"OK", FrameKind::NotAFrame, false, 0},
        {"(]", FrameKind::Unknown, false, 0},
        {"(5E]", FrameKind::Unknown, true, 0},
        {"[5E]", FrameKind::Unknown, true, 0},
        {"(1F600000055]", FrameKind::BusControl, false, '6'},
        {"(1E60000005G]", FrameKind::Unknown, false, '6'},
        {"(4D3001267ff]", FrameKind::Unknown, false, '3'},
        {"(4D3001267FF0]", FrameKind::Unknown, false, '3'},
        {"(4D3001267F]", FrameKind::Unknown, false, '3'},
        {"(4D5001267FF]", FrameKind::Unknown, false, '5'},
        {"(C3B00120]", FrameKind::Unknown, false, 'B'},
        {"(00C00120A14G]", FrameKind::Unknown, false, 'C'},
        {"(\0\0"
         "3\0\0\0\0\0\0\0\0]"s,
         FrameKind::Unknown, false, '3'},
        {"(001" + std::string(34, '0') + "]", FrameKind::Unknown, false, '1'},
        {"(007" + std::string(33, 'F') + "]", FrameKind::Unknown, false, '7'},
    };
    for (const auto& c : cases) {
        const Frame f = parse_frame(c.text);
        EXPECT_EQ(f.kind, c.kind) << c.text;
        EXPECT_EQ(f.checksum_ok, c.checksum_ok) << c.text;
        EXPECT_EQ(f.kind_char, c.kind_char) << c.text;
        if (c.kind != FrameKind::NotAFrame && c.kind != FrameKind::Unknown) continue;
        EXPECT_EQ(build_frame(f), "");
        EXPECT_EQ(f.address, 0) << c.text;  // nothing half-read is left
        EXPECT_EQ(f.analog.count, 0u) << c.text;
    }
}

}  // namespace
}  // namespace filo::bus
