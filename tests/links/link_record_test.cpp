#include "links/link_record.hpp"

#include <gtest/gtest.h>

#include "bus/checksum.hpp"
#include "bus/link_record.hpp"
#include "store/link_table.hpp"
#include "store/store_fixture.hpp"

namespace filo::links {
namespace {

// The worked link: input 2 of 001A11, a pushbutton, drives output 3 of
// 002B15 step by step, retriggerable, no option set.
store::LinkRow worked_link() {
    return testing::switching_link("002B15/3", "001A11/2", "Luce sala ", "Pulsante ");
}

bus::LinkRecord fields(const std::string& record) {
    auto parsed = bus::parse_link_record(record);
    EXPECT_TRUE(parsed) << record;
    return parsed.value_or(bus::LinkRecord{});
}

TEST(LinkImage, TheWorkedLinkGoesOutFieldByField) {
    LinkImage image = link_image(worked_link());
    EXPECT_EQ(image.RECORD_LINK,
              "002B023001A0000000003"
              "00FB0800000000");
    EXPECT_EQ(image.INGRESSO_HEX, "02");
    EXPECT_EQ(image.CODICE_MODULO, "002B15");
    EXPECT_FALSE(image.regulator_source);
    const std::string frame = link_frame(image.RECORD_LINK);
    EXPECT_TRUE(bus::checksum_ok(frame)) << frame;
    EXPECT_EQ(frame.substr(3, 1), "1");
}

TEST(LinkImage, StoredFormsBecomeBusBytes) {
    struct Case {
        const char* what;
        void (*edit)(store::LinkRow&);
        void (*check)(const bus::LinkRecord&);
    } cases[] = {
        {"percentages",
         [](store::LinkRow& r) {
             r.on_ = "/100";
             r.off_ = "/0";
             r.minuto = "/100";
         },
         [](const bus::LinkRecord& f) {
             EXPECT_EQ(f.on_, 0xFB);
             EXPECT_EQ(f.off_, 0x09);
             EXPECT_EQ(f.minuto, 240);
         }},
        {"tenths mark",
         [](store::LinkRow& r) {
             r.tempo_on1 = "1";
             r.tempo_on2 = "123D";
         },
         [](const bus::LinkRecord& f) {
             EXPECT_EQ(f.tempo_on1, 1);
             EXPECT_EQ(f.tempo_on2, 0x7B);
         }},
        {"delay before switching off",
         [](store::LinkRow& r) {
             r.dato13 = "001044";
             r.minuto = "7";
         },
         [](const bus::LinkRecord& f) {
             EXPECT_EQ(f.minuto, 44);
             EXPECT_EQ(f.ora, 1);
             EXPECT_EQ(f.giorno, 0x80);
         }},
        {"second row keeps its ramp start",
         [](store::LinkRow& r) {
             r.nick_trasmittente = "SECONDA RIGA";
             r.dato13 = "001044";
             r.minuto = "30";
             r.numero_ingresso = "130";
             r.numero_uscita = "11";
         },
         [](const bus::LinkRecord& f) {
             EXPECT_EQ(f.minuto, 30);
             EXPECT_EQ(f.giorno, 0);
             EXPECT_EQ(f.numero_ingresso, 130);
             EXPECT_EQ(f.numero_uscita, 11);
         }},
        {"condition, first character lowest",
         [](store::LinkRow& r) {
             r.and_ = "10000001";
             r.settimana = "10000000";
         },
         [](const bus::LinkRecord& f) {
             EXPECT_EQ(f.and_, 0x81);
             EXPECT_EQ(f.settimana, 0x80);
         }},
        {"condition", [](store::LinkRow& r) { r.and_ = "11000000"; },
         [](const bus::LinkRecord& f) { EXPECT_EQ(f.and_, 0x03); }},
        {"message bits first-highest",
         [](store::LinkRow& r) {
             r.identificativoRX = "00031E/1";
             r.and_ = "11000000";
         },
         [](const bus::LinkRecord& f) { EXPECT_EQ(f.and_, 0xC0); }},
        {"video door page", [](store::LinkRow& r) { r.identificativoRX = "FFF223/4"; },
         [](const bus::LinkRecord& f) { EXPECT_EQ(f.receiver, 0xFFF0); }},
        {"gateway channel without a point", [](store::LinkRow& r) { r.identificativoTX = ""; },
         [](const bus::LinkRecord& f) { EXPECT_EQ(f.transmitter, 0); }},
        {"a value out of a byte",
         [](store::LinkRow& r) {
             r.on_ = "256";
             r.numero_uscita = "35";
         },
         [](const bus::LinkRecord& f) {
             EXPECT_EQ(f.on_, 0);
             EXPECT_EQ(f.numero_uscita, 0);
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        store::LinkRow row = worked_link();
        c.edit(row);
        LinkImage image = link_image(row);
        ASSERT_EQ(image.RECORD_LINK.size(), 35u);
        c.check(fields(image.RECORD_LINK));
    }
}

using LinkImageTableTest = testing::StoreTest;

}  // namespace
}  // namespace filo::links
