#include "store/link_row.hpp"

#include <algorithm>
#include <cmath>

#include "common/basic_functions.hpp"

namespace filo::store {
namespace {

// nnn per cent of the scale; exact for whole percentages (100 % of 2.42 is
// 242, which floating-point multiplication alone would round down).
long long percent_of(const std::string& stored, double hundredfold_scale) {
    double percent = basic::val(basic::mid(stored, 2, 3));
    return static_cast<long long>(std::floor(percent * hundredfold_scale / 100.0 + 1e-9));
}

}  // namespace

bool is_continuation(const LinkRow& row) {
    return row.identificativoRX.empty() || row.note == kSecondaPagina ||
           row.nick_trasmittente == kNetGate || row.nick_trasmittente == kSecondaRiga;
}

LinkRow second_page(const LinkRow& main) {
    LinkRow r;
    r.note = std::string(kSecondaPagina);
    r.dato13 = main.dato13;
    return r;
}

std::string on_off_bus_value(const std::string& stored) {
    if (!stored.starts_with('/')) return stored;
    return std::to_string(percent_of(stored, 242) + 9);
}

std::string minuto_bus_value(const std::string& stored) {
    if (!stored.starts_with('/')) return stored;
    return std::to_string(std::min(percent_of(stored, 255), 240LL));
}

long long time_value(const std::string& high, const std::string& low) {
    return static_cast<long long>(basic::val(high)) * 256 + static_cast<long long>(basic::val(low));
}

long long dato13_value(const std::string& dato13) {
    return time_value(std::string(basic::mid(dato13, 1, 3)), std::string(basic::mid(dato13, 4, 3)));
}

}  // namespace filo::store
