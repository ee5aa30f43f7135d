#include "links/link_codes.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "bus/conversions.hpp"
#include "common/basic_functions.hpp"
#include "store/link_row.hpp"

namespace filo::links {
namespace {

char bit(bool b) {
    return b ? '1' : '0';
}
bool is_set(const std::string& s, std::size_t position) {
    return basic::mid(s, position, 1) == "1";
}

double thermostat_step(char kind) {
    switch (kind) {
        case 'J':
            return 0.25;
        case 'W':
            return 0.5;
        default:
            return 1.0;
    }
}

int on_scale(double value) {
    return static_cast<int>(std::clamp(std::floor(value + 1e-9), 9.0, 251.0));
}

// The columns that hold the twelve groups of message bits, in order. Two keep
// the eight characters; the others hold the group's decimal value.
struct Group {
    std::string store::LinkRow::*column;
    bool kept_as_bits;
};
constexpr std::array<Group, 12> kGroups = {{
    {&store::LinkRow::numero_uscita, false},
    {&store::LinkRow::tempo_on1, false},
    {&store::LinkRow::tempo_on2, false},
    {&store::LinkRow::tempo_off1, false},
    {&store::LinkRow::tempo_off2, false},
    {&store::LinkRow::and_, true},
    {&store::LinkRow::on_, false},
    {&store::LinkRow::off_, false},
    {&store::LinkRow::minuto, false},
    {&store::LinkRow::ora, false},
    {&store::LinkRow::giorno, false},
    {&store::LinkRow::settimana, true},
}};

}  // namespace

std::string encode_modo(const ModeFlags& f) {
    std::string s = {bit(f.condition_when_active), bit(f.compared_value),  bit(f.analog_source),
                     bit(f.generates_event),       bit(f.generates_event), bit(f.inverted),
                     bit(f.retriggerable),         bit(f.step_by_step)};
    if (f.mode_digit > 0) s += static_cast<char>('0' + f.mode_digit % 10);
    return s;
}

ModeFlags decode_modo(const std::string& modo) {
    ModeFlags f;
    f.condition_when_active = is_set(modo, 1);
    f.compared_value = is_set(modo, 2);
    f.analog_source = is_set(modo, 3);
    f.generates_event = is_set(modo, 4) && is_set(modo, 5);
    f.inverted = is_set(modo, 6);
    f.retriggerable = is_set(modo, 7);
    f.step_by_step = is_set(modo, 8);
    f.mode_digit = static_cast<int>(basic::val(basic::mid(modo, 9, 1)));
    return f;
}

std::string encode_settimana(const WeekFlags& f) {
    std::string s(8, '0');
    s[0] = bit(f.flashing);
    if (f.emergency != WeekFlags::Emergency::None) {
        s[1] = '1';
        s[2] = bit(f.emergency == WeekFlags::Emergency::AllowsCommands);
    } else {
        s[2] = bit(f.tempo_on_in_tenths);
    }
    s[3] = bit(f.tempo_off_in_tenths);
    s[4] = bit(f.dato13_in_tenths);
    return s;
}

WeekFlags decode_settimana(const std::string& s) {
    WeekFlags f;
    f.flashing = is_set(s, 1);
    if (is_set(s, 2))
        f.emergency = is_set(s, 3) ? WeekFlags::Emergency::AllowsCommands
                                   : WeekFlags::Emergency::RefusesCommands;
    else
        f.tempo_on_in_tenths = is_set(s, 3);
    f.tempo_off_in_tenths = is_set(s, 4);
    f.dato13_in_tenths = is_set(s, 5);
    return f;
}

int thermostat_value(double celsius, char kind) {
    return on_scale(celsius / thermostat_step(kind) + 49);
}
double thermostat_celsius(int value, char kind) {
    return (value - 49) * thermostat_step(kind);
}
int power_value(double watts, double step) {
    return on_scale(watts / step + 9);
}
double power_watts(int value, double step) {
    return (value - 9) * step;
}

void store_message_bits(const MessageBits& bits, store::LinkRow& row) {
    // Character k (1-based) of the 96 is the bit of message 97 - k.
    for (std::size_t g = 0; g < kGroups.size(); ++g) {
        std::string group(8, '0');
        for (std::size_t i = 0; i < 8; ++i)
            if (bits[96 - (g * 8 + i) - 1]) group[i] = '1';
        row.*kGroups[g].column = kGroups[g].kept_as_bits ? group : bus::BIN_A_DEC(group);
    }
}

MessageBits read_message_bits(const store::LinkRow& row) {
    MessageBits bits;
    for (std::size_t g = 0; g < kGroups.size(); ++g) {
        const std::string& column = row.*kGroups[g].column;
        const int value = kGroups[g].kept_as_bits && column.size() == 8
                              ? bus::bits_byte(column)
                              : static_cast<int>(basic::val(column));
        for (std::size_t i = 0; i < 8; ++i)
            if (value & (128 >> i)) bits[96 - (g * 8 + i) - 1] = true;
    }
    return bits;
}

}  // namespace filo::links
