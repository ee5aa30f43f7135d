#include "links/link_record.hpp"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "bus/checksum.hpp"
#include "bus/link_record.hpp"
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
    using F = bus::LinkRecord;
    struct Case {
        const char* what;
        const char* stored;  // the columns changed
        std::vector<std::pair<std::uint8_t F::*, int>> sent;
    } cases[] = {
        {"percentages",
         "on_=/100|off_=/0|minuto=/100",
         {{&F::on_, 0xFB}, {&F::off_, 0x09}, {&F::minuto, 240}}},
        {"tenths mark", "tempo_on1=1|tempo_on2=123D", {{&F::tempo_on1, 1}, {&F::tempo_on2, 0x7B}}},
        {"delay before switching off",
         "dato13=001044|minuto=7",
         {{&F::minuto, 44}, {&F::ora, 1}, {&F::giorno, 0x80}}},
        {"second row keeps its ramp start",
         "nick_trasmittente=SECONDA RIGA|dato13=001044|minuto=30|numero_ingresso=130|"
         "numero_uscita=11",
         {{&F::minuto, 30}, {&F::giorno, 0}, {&F::numero_ingresso, 130}, {&F::numero_uscita, 11}}},
        {"condition, first character lowest",
         "and=10000001|settimana=10000000",
         {{&F::and_, 0x81}, {&F::settimana, 0x80}}},
        {"condition", "and=11000000", {{&F::and_, 0x03}}},
        {"message bits first-highest",
         "identificativoRX=00031E/1|and=11000000",
         {{&F::and_, 0xC0}}},
        {"a value out of a byte",
         "on_=256|numero_uscita=35",
         {{&F::on_, 0}, {&F::numero_uscita, 0}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        LinkImage image = link_image(testing::with_columns(worked_link(), c.stored));
        ASSERT_EQ(image.RECORD_LINK.size(), 35u);
        const bus::LinkRecord record = fields(image.RECORD_LINK);
        for (const auto& [field, value] : c.sent) EXPECT_EQ(record.*field, value);
    }
    // A page of the video door panel; a gateway channel without a point.
    const auto record = [](const char* changes) {
        return fields(link_image(testing::with_columns(worked_link(), changes)).RECORD_LINK);
    };
    EXPECT_EQ(record("identificativoRX=FFF223/4").receiver, 0xFFF0);
    EXPECT_EQ(record("identificativoTX=").transmitter, 0);
}

}  // namespace
}  // namespace filo::links
