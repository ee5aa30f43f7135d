#include "links/link_times.hpp"

#include <cmath>

#include "common/basic_functions.hpp"

namespace filo::links {
namespace {

long long total_seconds(const TimeEntry& t) {
    return static_cast<long long>(t.hours) * 3600 + t.minutes * 60 + t.seconds;
}

std::string padded(const std::string& part) {
    return part.size() >= 3 ? part : std::string(3 - part.size(), '0') + part;
}

}  // namespace

bool tenths_offered(std::string_view user_module_type, const TimeEntry& time) {
    return (user_module_type == "25" || user_module_type == "26") && total_seconds(time) < 409;
}

StoredTime encode_time(const TimeEntry& time, std::string_view user_module_type) {
    const bool tenths = tenths_offered(user_module_type, time);
    const long long value = tenths ? total_seconds(time) * 10 + time.tenths : total_seconds(time);
    return {std::to_string(value / 256), std::to_string(value % 256) + (tenths ? "D" : "")};
}

TimeEntry decode_time(const StoredTime& stored) {
    double value = basic::val(stored.high) * 256 + basic::val(stored.low);
    if (stored.in_tenths()) value /= 10;
    TimeEntry t;
    long long whole = static_cast<long long>(value);
    t.hours = static_cast<int>(whole / 3600);
    whole %= 3600;
    t.minutes = static_cast<int>(whole / 60);
    t.seconds = static_cast<int>(whole % 60);
    t.tenths = static_cast<int>(std::lround((value - std::floor(value)) * 10));
    return t;
}

std::string dato13_text(const StoredTime& time) {
    // The "D", if any, rides behind the low part's three digits.
    std::string low = time.low;
    const bool tenths = time.in_tenths();
    if (tenths) low.pop_back();
    return padded(time.high) + padded(low) + (tenths ? "D" : "");
}

StoredTime split_dato13(const std::string& dato13) {
    StoredTime t{std::string(basic::mid(dato13, 1, 3)), std::string(basic::mid(dato13, 4))};
    if (t.high.empty()) t.high = "0";
    if (t.low.empty()) t.low = "0";
    return t;
}

}  // namespace filo::links
