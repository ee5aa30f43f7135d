#include "store/text_match.hpp"

#include <algorithm>

namespace filo::store {
namespace {

char ascii_lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string case_swapped(std::string_view text) {
    std::string s(text);
    for (char& c : s) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        else if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    }
    return s;
}

}  // namespace

std::string ascii_folded(std::string_view text) {
    std::string s(text);
    std::transform(s.begin(), s.end(), s.begin(), ascii_lower);
    return s;
}

bool equal_ignoring_ascii_case(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b,
                              [](char x, char y) { return ascii_lower(x) == ascii_lower(y); });
}

std::string case_folded(std::string_view text) {
    std::string s = ascii_folded(text);
    // U+00C0..U+00DE (but U+00D7, the multiplication sign) are C3 80..C3 9E;
    // their small letters are 0x20 further on.
    for (std::size_t i = 0; i + 1 < s.size(); ++i) {
        auto lead = static_cast<unsigned char>(s[i]);
        auto next = static_cast<unsigned char>(s[i + 1]);
        if (lead == 0xC3 && next >= 0x80 && next <= 0x9E && next != 0x97) {
            s[i + 1] = static_cast<char>(next + 0x20);
            ++i;
        }
    }
    return s;
}

bool passes_name_filter(std::string_view text, std::string_view filter) {
    if (filter.empty()) return true;
    if (case_folded(text).find(case_folded(filter)) != std::string::npos) return true;
    // The swapped search of the filter box; once case is ignored it finds
    // nothing more, but it is the rule the installer knows.
    return text.find(case_swapped(filter)) != std::string_view::npos;
}

}  // namespace filo::store
