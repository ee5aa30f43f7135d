#include "links/command_point.hpp"

#include <gtest/gtest.h>

namespace filo::links {
namespace {

TEST(CommandItem, BlocksOfHundredThousandsNameTheEvent) {
    struct Case {
        std::int64_t item;
        std::int64_t id;
        const char* event;
    } cases[] = {
        {5, 5, ""},
        {100005, 5, "ON"},
        {200005, 5, "OFF"},
        {300005, 5, "TENUTO"},
        {400005, 5, "ALMENO1"},
        {500005, 5, "TUTTI"},
        {600005, 5, "PRESENZA"},
        {700005, 5, "ALMENO1a"},
        {800005, 5, "TUTTIa"},
        {900005, 5, "ALMENO1b"},
        {1000005, 5, "TUTTIb"},
        {1100005, 5, "ALMENO1c"},
        {1200005, 5, "TUTTIc"},
        {1300005, 5, "ON"},
        {1400005, 5, "TAG"},
        {1500005, 5, "ANALOGICO"},
        {199999, 99999, "ON"},
        {100001, 1, "ON"},
    };
    for (const Case& c : cases) {
        auto e = decode_command_item(c.item);
        ASSERT_TRUE(e) << c.item;
        EXPECT_EQ(e->id, c.id) << c.item;
        EXPECT_EQ(e->EVENTO_COMANDO, c.event) << c.item;
    }
    EXPECT_TRUE(decode_command_item(1300005)->rgb_master);
    EXPECT_FALSE(decode_command_item(100005)->rgb_master);
    // Headings, block boundaries that leave no row, and message codes.
    for (std::int64_t item : {kHeadingItemData, std::int64_t{100000}, std::int64_t{1600000},
                              std::int64_t{0x100121E}, std::int64_t{-1}})
        EXPECT_FALSE(decode_command_item(item)) << item;
}

TEST(CommandPoint, NumberNameKindAndClassFollowTheEvent) {
    const PointRow pushbutton{"001A11", "2", "Pulsante porta ", "P00000", "INPUT"};
    const PointRow held{"001A11", "3", "Tenuto scala ", "T00000", "INPUT"};
    const PointRow relay{"002B15", "4", "Luce sala ", "I00000", "RELE"};
    const PointRow analog{"00051F", "6", "Sonda ", "A00000", "INPUT"};
    struct Case {
        std::int64_t item;
        const PointRow* row;
        const char* tx;
        const char* number;
        const char* name;
        const char* kind;
        const char* klass;
    } cases[] = {
        {7, &pushbutton, "001A11/2", "2", "Pulsante porta ", "P", "INPUT"},
        {300007, &held, "001A11/11", "11", "Tenuto scala ", "T", "INPUT"},
        {7, &held, "001A11/3", "3", "Tenuto scala ", "t", "INPUT"},
        {1400007, &pushbutton, "001A11/2", "2", "Pulsante porta ", "card", "INPUT"},
        {100007, &relay, "002B15/20", "20", "Luce sala ", "E", "EVENTO"},
        {200007, &relay, "002B15/20", "20", "Luce sala ", "E", "EVENTO"},
        {1300007, &relay, "002B15/20", "20", "Luce sala ", "E", "EVENTO"},
        {400007, &relay, "002B15/26", "26", "ALMENO1", "ES", "EVENTO"},
        {1200007, &relay, "002B15/31", "31", "TUTTIc", "ES", "EVENTO"},
        {600007, &relay, "002B15/252", "252", "PRESENZA", "EP", "PRESENZA"},
        {1500007, &analog, "00051F/6", "6", "Sonda ", "EA", "EVENTO"},
        {7, &analog, "00051F/6", "6", "Sonda ", "A", "INPUT"},
    };
    for (const Case& c : cases) {
        CommandPoint p = compose_command(*decode_command_item(c.item), *c.row);
        EXPECT_EQ(p.identificativoTX, c.tx) << c.item;
        EXPECT_EQ(p.numero_ingresso, c.number) << c.item;
        EXPECT_EQ(p.nick_trasmittente, c.name) << c.item;
        EXPECT_EQ(p.TIPO_COMANDO, c.kind) << c.item;
        EXPECT_EQ(p.CLASSE_COMANDO, c.klass) << c.item;
    }
    EXPECT_EQ(compose_command(*decode_command_item(1300007), relay).COMANDO_DI_RGB, "DI_RGB");
}

}  // namespace
}  // namespace filo::links
