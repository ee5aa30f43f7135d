#include <gtest/gtest.h>

#include <string>

#include "bus/card_record.hpp"
#include "bus/frame_builder.hpp"
#include "bus/frame_parser.hpp"
#include "bus/link_record.hpp"

namespace filo::bus {
namespace {

LinkRecord sample_link() {
    LinkRecord r;
    r.receiver = 0x0012;
    r.numero_ingresso = 5;
    r.numero_uscita = 34;
    r.transmitter = 0x00AB;
    r.tempo_on1 = 1;
    r.tempo_on2 = 2;
    r.tempo_off1 = 3;
    r.tempo_off2 = 4;
    r.modo_ = 5;
    r.and_ = 0xA5;
    r.on_ = 251;
    r.off_ = 9;
    r.minuto = 0x1E;
    r.ora = 12;
    r.giorno = 0x80;
    r.settimana = 0x7F;
    return r;
}

TEST(LinkRecord, FieldsGoInWireOrder) {
    const std::string text = link_record_text(sample_link());
    // receiver, input, output, transmitter, times, modo, and, on, off, minuto, ora, giorno,
    // settimana
    EXPECT_EQ(text, "001205Y00AB0102030405A5FB091E0C807F");
    EXPECT_EQ(text.size(), kLinkRecordLength);
    EXPECT_EQ(parse_link_record(text), sample_link());

    const std::string frame = link_frame(sample_link());
    EXPECT_EQ(frame, "(171001205Y00AB0102030405A5FB091E0C807F]");
    const Frame f = parse_frame(frame);
    ASSERT_EQ(f.kind, FrameKind::Link);
    EXPECT_TRUE(f.checksum_ok);
    EXPECT_EQ(f.address, 0x0012);
    EXPECT_EQ(f.link, sample_link());
}

TEST(LinkRecord, AnOutputPastYIsWrittenAsZero) {
    LinkRecord r = sample_link();
    r.numero_uscita = 35;
    EXPECT_EQ(link_record_text(r)[6], '0');
}

TEST(LinkRecord, OnlyTheExactLayoutParses) {
    const std::string good = link_record_text(sample_link());
    std::string bad[] = {good.substr(1), good + "0", good, good, good, good};
    bad[2][6] = 'Z';   // no output has this digit
    bad[3][0] = 'f';   // lower case
    bad[4][34] = ']';  // settimana
    bad[5][10] = 'G';  // transmitter
    for (const auto& text : bad) EXPECT_FALSE(parse_link_record(text)) << text;
}

TEST(CardRecord, SplitsTheEntryAroundAZero) {
    const CardRecord card{0x001A, "123456", 3};
    const std::string text = card_record_text(card);
    // address, the entry's last two characters, 0, its first four, list, padding
    EXPECT_EQ(text, "001A56012340300000000000000000000");
    EXPECT_EQ(text.size(), kCardRecordLength);
    EXPECT_EQ(parse_card_record(text), card);

    const Frame f = parse_frame(card_frame(card));
    EXPECT_EQ(card_frame(card), "(EF7001A56012340300000000000000000000]");
    ASSERT_EQ(f.kind, FrameKind::Card);
    EXPECT_EQ(f.address, 0x001A);
    EXPECT_EQ(f.card, card);

    // A short entry is written as it stands.
    EXPECT_EQ(card_record_text({0x001A, "1234", 8}), "001A012340800000000000000000000");
}

TEST(CardRecord, FixedCharactersMustBeInPlace) {
    const std::string good = card_record_text({0x001A, "ABCDEF", 8});
    std::string bad[] = {good.substr(0, 32), good + "0", good, good, good};
    bad[2][6] = '1';
    bad[3][32] = '1';
    bad[4][8] = 'b';
    for (const auto& text : bad) EXPECT_FALSE(parse_card_record(text)) << text;
}

}  // namespace
}  // namespace filo::bus
