#include <gtest/gtest.h>

#include <random>

#include "links/link_codes.hpp"
#include "links/link_rows.hpp"
#include "links/link_times.hpp"
#include "store/store_fixture.hpp"

namespace filo::links {
namespace {

TEST(LinkTimes, StoredAsTwoBytesWithTenthsOnlyWhereOffered) {
    struct Case {
        TimeEntry entry;
        const char* type;
        const char* high;
        const char* low;
    } cases[] = {
        {{0, 0, 0, 0}, "1F", "0", "0"},
        {{0, 4, 16, 0}, "1F", "1", "0"},       // 256 s
        {{17, 59, 59, 0}, "1F", "253", "31"},  // 64799 s, the largest
        {{0, 0, 37, 9}, "25", "1", "123D"},    // 379 tenths
        {{0, 0, 37, 9}, "26", "1", "123D"},
        {{0, 0, 37, 9}, "11", "0", "37"},     // no tenths box on other types
        {{0, 6, 48, 5}, "25", "15", "245D"},  // 408.5 s: still in tenths
        {{0, 6, 49, 5}, "25", "1", "153"},    // 409 s: never in tenths
    };
    for (const Case& c : cases) {
        StoredTime s = encode_time(c.entry, c.type);
        EXPECT_EQ(s.high, c.high) << c.high << "/" << c.low;
        EXPECT_EQ(s.low, c.low);
        TimeEntry back = decode_time(s);
        TimeEntry expected = c.entry;
        if (!s.in_tenths()) expected.tenths = 0;
        EXPECT_EQ(back, expected) << c.high << "/" << c.low;
    }
    EXPECT_EQ(decode_time({"x", ""}), TimeEntry{});
}

TEST(LinkTimes, TheThirdTimeTravelsInDato13) {
    EXPECT_EQ(dato13_text({"1", "44"}), "001044");
    EXPECT_EQ(dato13_text({"0", "123D"}), "000123D");
    EXPECT_EQ(dato13_text({"0", "0"}), "000000");
    EXPECT_EQ(split_dato13("001044"), (StoredTime{"001", "044"}));
    EXPECT_EQ(split_dato13("000123D"), (StoredTime{"000", "123D"}));
    EXPECT_EQ(split_dato13(""), (StoredTime{"0", "0"}));
    EXPECT_EQ(decode_time(split_dato13("000123D")), (TimeEntry{0, 0, 12, 3}));
}

TEST(LinkCodes, ModeByteOfAWorkedLink) {
    // "Pulsante passo-passo", mode 2, "Ricaricabile" ticked.
    ModeFlags f;
    f.retriggerable = true;
    f.step_by_step = true;
    f.mode_digit = 2;
    EXPECT_EQ(encode_modo(f), "000000112");
    EXPECT_EQ(decode_modo("000000112"), f);
    ModeFlags all{true, true, true, true, true, true, true, 9};
    EXPECT_EQ(encode_modo(all), "111111119");
    EXPECT_EQ(decode_modo(encode_modo(all)), all);
    EXPECT_EQ(encode_modo(ModeFlags{}), "00000000");
    EXPECT_FALSE(decode_modo("00010000").generates_event);  // both bits or none
}

TEST(LinkCodes, WeekFlagsKeepEmergencyApartFromTenths) {
    WeekFlags emergency;
    emergency.emergency = WeekFlags::Emergency::AllowsCommands;
    EXPECT_EQ(encode_settimana(emergency), "01100000");
    emergency.emergency = WeekFlags::Emergency::RefusesCommands;
    EXPECT_EQ(encode_settimana(emergency), "01000000");
    EXPECT_FALSE(decode_settimana("01100000").tempo_on_in_tenths);

    WeekFlags timed{true, WeekFlags::Emergency::None, true, true, true};
    EXPECT_EQ(encode_settimana(timed), "10111000");
    EXPECT_EQ(decode_settimana("10111000"), timed);
    EXPECT_EQ(decode_settimana(""), WeekFlags{});
}

TEST(LinkCodes, ThresholdsOnTheBusScale) {
    EXPECT_EQ(thermostat_value(20, 'J'), 129);
    EXPECT_EQ(thermostat_value(20, 'W'), 89);
    EXPECT_EQ(thermostat_value(20, 'X'), 69);
    EXPECT_EQ(thermostat_value(21.25, 'J'), 134);
    EXPECT_EQ(thermostat_value(60, 'J'), 251);  // held to the scale
    EXPECT_EQ(thermostat_value(-60, 'X'), 9);
    EXPECT_DOUBLE_EQ(thermostat_celsius(134, 'J'), 21.25);
    EXPECT_EQ(power_value(2000, 25), 89);
    EXPECT_DOUBLE_EQ(power_watts(89, 25), 2000);
    EXPECT_EQ(power_value(99999, 25), 251);
}

TEST(LinkCodes, MessageBitsFillTwelveColumns) {
    MessageBits bits;
    bits[0] = true;   // message 1: the last character of the 96
    bits[95] = true;  // message 96: the first
    bits[8] = true;   // message 9: last character of the eleventh group
    store::LinkRow row;
    store_message_bits(bits, row);
    EXPECT_EQ(row.numero_uscita, "128");
    EXPECT_EQ(row.tempo_on1, "00");  // an empty group reads "00"
    EXPECT_EQ(row.and_, "00000000");
    EXPECT_EQ(row.giorno, "1");
    EXPECT_EQ(row.settimana, "00000001");
    EXPECT_EQ(read_message_bits(row), bits);

    std::mt19937 random(7);
    for (int round = 0; round < 50; ++round) {
        MessageBits b;
        for (int i = 0; i < 96; ++i) b[i] = random() % 3 == 0;
        store::LinkRow r;
        store_message_bits(b, r);
        EXPECT_EQ(read_message_bits(r), b);
    }
}

store::LinkRow main_row() {
    store::LinkRow m = testing::switching_link("002B25/3", "001A11/2", "Luce sala ", "Pulsante ");
    m.dato13 = "001044";
    m.tempo_on1 = "1";
    return m;
}

TEST(LinkRows, ContinuationRowsOfEachShape) {
    // No receiver: never programmed.
    EXPECT_EQ(testing::filled_columns(store::second_page(main_row())),
              "note=SECONDA PAGINA dato13=001044");

    ChannelValues ramp{"200", "20", "0", "5", "0", "10", "30", true, false, true};
    EXPECT_EQ(testing::filled_columns(channel_row(main_row(), ramp)),
              "identificativoRX=002B25/3 identificativoTX=001A11/130 numero_uscita=11 "
              "nick_ricevente=Luce sala  numero_ingresso=130 nick_trasmittente=SECONDA RIGA "
              "opzione=+ tempo_on1=0 tempo_on2=5 modo_=01000010 on_=200 off_=20 tempo_off1=0 "
              "tempo_off2=10 and=00000000 minuto=30 ora=00 giorno=00 settimana=00000000 "
              "dato13=001044");

    store::LinkRow main = main_row();
    make_reference_main(main);
    EXPECT_EQ(main.modo_, "010000112");
    EXPECT_EQ(main.on_, "3");
    EXPECT_EQ(main.off_, "0");
    EXPECT_EQ(testing::filled_columns(reference_row(main, "00051F/6", "Sonda ")),
              "identificativoRX=002B25/3 identificativoTX=00051F/6 numero_uscita=3 "
              "nick_ricevente=Luce sala  numero_ingresso=6 nick_trasmittente=Sonda  opzione=a "
              "modo_=010000002 on_=0 off_=3 note=IMPOSTA IL VALORE DI RIFERIMENTO dato13=001044");
}

TEST(LinkRows, ShapeByFunction) {
    EXPECT_EQ(shape_of_function(1), LinkShape::Plain);
    EXPECT_EQ(shape_of_function(22), LinkShape::Plain);
    EXPECT_EQ(shape_of_function(21), LinkShape::WithReference);
    EXPECT_EQ(shape_of_function(8), LinkShape::PlainUntimed);
    EXPECT_EQ(shape_of_function(6), LinkShape::Rgb);
    EXPECT_EQ(shape_of_function(7), LinkShape::Dimmer);
    EXPECT_EQ(shape_of_function(15), LinkShape::Nothing);
}

}  // namespace
}  // namespace filo::links
