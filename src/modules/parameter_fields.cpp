#include "modules/parameter_fields.hpp"

#include <algorithm>
#include <cctype>

#include "common/basic_functions.hpp"

namespace filo::modules {
namespace {

using basic::mid;

// Makes room for a fixed-width field and writes it.
void put(std::string& text, std::size_t start, std::size_t width, std::string_view value) {
    if (text.size() < start - 1 + width) text.resize(start - 1 + width, '0');
    std::string field(value.substr(0, width));
    if (field.size() < width) field.insert(0, width - field.size(), '0');
    text.replace(start - 1, width, field);
}

}  // namespace

std::string TOGLI_ZERI(std::string_view stored) {
    if (stored.starts_with("00")) return std::string(stored.substr(2));
    if (stored.starts_with("0")) return std::string(stored.substr(1));
    return std::string(stored);
}

std::string TRE_CIFRE(std::string_view shown) {
    std::string s(shown);
    if (s.size() < 3) s.insert(0, 3 - s.size(), '0');
    return s;
}

std::string held_to_byte(std::string_view typed) {
    std::string digits;
    for (char c : typed)
        if (std::isdigit(static_cast<unsigned char>(c))) digits += c;
    if (digits.empty()) return "";
    return basic::val(digits) > 255 ? "255" : std::to_string(static_cast<int>(basic::val(digits)));
}

std::string module_parameters(const std::string& riserva3_row1) {
    if (riserva3_row1.size() < 26) return std::string(18, '0');
    return std::string(mid(riserva3_row1, 9, 18));
}

void set_module_parameters(std::string& riserva3_row1, std::string_view parameters) {
    put(riserva3_row1, 9, 18, parameters);
}

std::string parameter_field(const std::string& parameters, int n) {
    return std::string(mid(parameters, static_cast<std::size_t>(3 * (n - 1) + 1), 3));
}

void set_parameter_field(std::string& parameters, int n, std::string_view value) {
    put(parameters, static_cast<std::size_t>(3 * (n - 1) + 1), 3, value);
}

bool uses_rolling_code(const std::string& parameters) {
    return mid(parameters, 10, 1) == "1";
}

void set_rolling_code(std::string& parameters, bool rolling) {
    put(parameters, 10, 1, rolling ? "1" : "0");
}

std::string point_field(const std::string& riserva2, int n) {
    return std::string(mid(riserva2, static_cast<std::size_t>(3 * (n - 1) + 1), 3));
}

void set_point_field(std::string& riserva2, int n, std::string_view value) {
    put(riserva2, static_cast<std::size_t>(3 * (n - 1) + 1), 3, value);
}

OutputValues read_output_values(const std::string& riserva2) {
    OutputValues v;
    const int on = static_cast<int>(basic::val(point_field(riserva2, 1)));
    const int off = static_cast<int>(basic::val(point_field(riserva2, 2)));
    v.on = on == 0 ? 251 : on;
    v.off = off == 0 ? 9 : off;
    v.emergency = static_cast<int>(basic::val(point_field(riserva2, 3)));
    return v;
}

void write_output_values(std::string& riserva2, const OutputValues& v) {
    set_point_field(riserva2, 1, v.on == 251 ? "000" : basic::zero_padded(v.on, 3));
    set_point_field(riserva2, 2, v.off == 9 ? "000" : basic::zero_padded(v.off, 3));
    set_point_field(riserva2, 3, basic::zero_padded(v.emergency, 3));
}

int emergency_value_of_percent(int percent) {
    // Whole number of percent × 2.55, exact for whole percentages.
    return std::clamp(percent, 0, 100) * 255 / 100;
}

std::string receiver_code(const std::string& riserva4_row1) {
    std::string code(mid(riserva4_row1, 1, 6));
    return code.size() == 6 ? code : "000000";
}

void set_receiver_code(std::string& riserva4_row1, std::string_view code) {
    put(riserva4_row1, 1, 6, code);
}

std::vector<std::string> cards_of(const std::string& dati_aggiuntivi1) {
    std::vector<std::string> cards;
    for (std::size_t k = 1; k <= 240; k += 6) {
        std::string card(mid(dati_aggiuntivi1, k, 6));
        if (!card.empty()) cards.push_back(card);
    }
    return cards;
}

std::string cards_text(const std::vector<std::string>& entries) {
    std::string text;
    for (const std::string& e : entries)
        if (e.size() == 6) text += e;
    return text;
}

}  // namespace filo::modules
