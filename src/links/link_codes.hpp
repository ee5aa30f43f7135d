#pragma once
// The coded columns of a link: the mode byte (modo_), the flags of
// settimana, the thresholds of thermostats and power limits, and the 96
// message bits of a link to a message module.
#include <bitset>
#include <string>

namespace filo::store {
struct LinkRow;
}

namespace filo::links {

// modo_ of a main row: characters 1 to 8 are one byte on the bus (first
// character highest), character 9 the digit of the mode chosen in the editor.
struct ModeFlags {
    bool condition_when_active = false;  // 1: the and-condition asks for active outputs
    bool compared_value = false;         // 2: "USA VALORE COMPARATO"
    bool analog_source = false;          // 3: source of kind A, V or K
    bool generates_event = false;        // 4 and 5: "EVENTO SI"
    bool inverted = false;               // 6: "CONSIDERA INGRESSO INVERTITO"
    bool retriggerable = false;          // 7: "TEMPO RETRIG."
    bool step_by_step = false;           // 8: "PASSO PASSO"
    int mode_digit = 0;                  // 9: 1 to 9; 0 writes no ninth character
    bool operator==(const ModeFlags&) const = default;
};
std::string encode_modo(const ModeFlags& flags);
ModeFlags decode_modo(const std::string& modo);

// settimana of a main row.
struct WeekFlags {
    bool flashing = false;  // 1: "Lampeggio ON"
    // 2 and 3 of an emergency link: "11" allows commands, "10" refuses them.
    enum class Emergency { None, AllowsCommands, RefusesCommands } emergency = Emergency::None;
    bool tempo_on_in_tenths = false;   // 3, on any other link
    bool tempo_off_in_tenths = false;  // 4
    bool dato13_in_tenths = false;     // 5
    bool operator==(const WeekFlags&) const = default;
};
std::string encode_settimana(const WeekFlags& flags);
WeekFlags decode_settimana(const std::string& settimana);

// Bus values of the thermostat and power modes, held to the scale 9..251.
// Thermostats: T / step + 49, step 0.25 (kind J), 0.5 (W) or 1 (X and others).
// Power limits: W / step + 9.
int thermostat_value(double celsius, char kind);
double thermostat_celsius(int value, char kind);
int power_value(double watts, double step);
double power_watts(int value, double step);

// A link to a message module carries, in place of times and thresholds, one
// bit for each message n (1 to 96): position 97 - n of a 96-character string,
// cut into twelve groups of eight written into twelve columns.
using MessageBits = std::bitset<96>;  // bit n - 1 for message n
void store_message_bits(const MessageBits& bits, store::LinkRow& row);
MessageBits read_message_bits(const store::LinkRow& row);

}  // namespace filo::links
