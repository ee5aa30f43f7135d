#include "bus/module_code.hpp"

#include "bus/conversions.hpp"

namespace filo::bus {

std::string CODICE_CONTROLLO(std::string_view code) {
    unsigned sum = 0;
    for (std::size_t i = 0; i < 6 && i < code.size(); ++i)
        sum += static_cast<unsigned char>(code[i]) << (i + 1);
    return hex_byte(static_cast<std::uint8_t>(sum & 0xFF));
}

std::string printed_code(std::string_view code) {
    std::string printed(code.substr(0, 6));
    printed += CODICE_CONTROLLO(code);
    return printed;
}

bool check_digits_match(std::string_view typed) {
    return typed.size() == 8 && typed.substr(6) == CODICE_CONTROLLO(typed);
}

std::optional<std::string> filtered_code(std::string_view typed) {
    std::string code;
    for (char c : typed) {
        if (c >= 'a' && c <= 'f') c = static_cast<char>(c - 'a' + 'A');
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'))) return std::nullopt;
        code += c;
    }
    return code;
}

}  // namespace filo::bus
