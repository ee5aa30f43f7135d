#pragma once
// The three times of a link: activation, delay before activation, delay
// before switching off. Each is a 16-bit value kept as two decimal texts,
// high and low; a "D" after the low text says the unit is the tenth of a
// second instead of the second.
#include <string>
#include <string_view>

namespace filo::links {

struct TimeEntry {
    int hours = 0;    // up to 17
    int minutes = 0;  // up to 59
    int seconds = 0;  // up to 59
    int tenths = 0;   // 0 to 9, where tenths are offered
    bool operator==(const TimeEntry&) const = default;
};

struct StoredTime {
    std::string high;  // tempo_on1, tempo_off1, or the first half of dato13
    std::string low;   // with its "D" when in tenths
    bool in_tenths() const { return low.ends_with('D'); }
    bool operator==(const StoredTime&) const = default;
};

// Tenths of a second are offered on the outputs of dimmer-type modules
// (types 25 and 26) for times below 409 seconds, which keeps the value in
// tenths within 16 bits.
bool tenths_offered(std::string_view user_module_type, const TimeEntry& time);

StoredTime encode_time(const TimeEntry& time, std::string_view user_module_type);
// Reverses encode_time; a text that holds no number reads as 0.
TimeEntry decode_time(const StoredTime& stored);

// dato13: the high part and the low part, each padded to 3 digits ("001044",
// or "001044D" in tenths). Split again at character 4; an empty part reads 0.
std::string dato13_text(const StoredTime& time);
StoredTime split_dato13(const std::string& dato13);

}  // namespace filo::links
