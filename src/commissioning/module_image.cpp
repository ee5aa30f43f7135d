#include "commissioning/module_image.hpp"

namespace filo::commissioning {

std::string byte_hex(long long value) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    if (value < 0 || value > 255) return "00";
    return {kDigits[value / 16], kDigits[value % 16]};
}

namespace {

using NamedValues = std::vector<std::pair<std::string, std::string>>;

template <typename T, std::size_t N>
void add_array(NamedValues& out, const std::string& name, const OneBasedArray<T, N>& values) {
    for (int i = 1; i <= values.size(); ++i)
        out.emplace_back(name + "(" + std::to_string(i) + ")", values(i));
}

}  // namespace

std::vector<std::pair<std::string, std::string>> named_values(const ModuleImage& m) {
    NamedValues out;
    out.emplace_back("MASCHERA_INGRESSI", std::to_string(m.MASCHERA_INGRESSI));
    out.emplace_back("MASCHERA_V", std::to_string(m.MASCHERA_V));
    out.emplace_back("MASCHERA_A", std::to_string(m.MASCHERA_A));
    out.emplace_back("MASCHERA_F", std::to_string(m.MASCHERA_F));
    out.emplace_back("MASCHERA_T", std::to_string(m.MASCHERA_T));
    out.emplace_back("MASCHERA_N", std::to_string(m.MASCHERA_N));
    out.emplace_back("MASCHERA_SICUREZZE", std::to_string(m.MASCHERA_SICUREZZE));
    out.emplace_back("MASCHERA_INVERTITI", std::to_string(m.MASCHERA_INVERTITI));
    out.emplace_back("TIPOLOGIE", m.TIPOLOGIE);
    out.emplace_back("HEX_INVERTITI", m.HEX_INVERTITI);
    out.emplace_back("HEX_SICUREZZE", m.HEX_SICUREZZE);
    add_array(out, "AND_USCITA", m.AND_USCITA);
    add_array(out, "RECIPROCI_USCITA", m.RECIPROCI_USCITA);
    add_array(out, "CIABATTA", m.CIABATTA);
    add_array(out, "PARAMETRO_1", m.PARAMETRO_1);
    add_array(out, "PARAMETRO_2", m.PARAMETRO_2);
    add_array(out, "PARAMETRO_3", m.PARAMETRO_3);
    add_array(out, "EVENTO_1", m.EVENTO_1);
    add_array(out, "EVENTO_2", m.EVENTO_2);
    out.emplace_back("PERSONALIZZATO_1", m.PERSONALIZZATO_1);
    out.emplace_back("PERSONALIZZATO_2", m.PERSONALIZZATO_2);
    out.emplace_back("PERSONALIZZATO_3", m.PERSONALIZZATO_3);
    out.emplace_back("PERSONALIZZATO_4", m.PERSONALIZZATO_4);
    out.emplace_back("PERSONALIZZATO_5", m.PERSONALIZZATO_5);
    out.emplace_back("PERSONALIZZATO_6", m.PERSONALIZZATO_6);
    out.emplace_back("PERSONALIZZATO_7", m.PERSONALIZZATO_7);
    out.emplace_back("PERSONALIZZATO_8", m.PERSONALIZZATO_8);
    out.emplace_back("MASCHERA_GRUPPI", m.MASCHERA_GRUPPI);
    add_array(out, "GRUPPO", m.GRUPPO);
    out.emplace_back("RIGHE_GRUPPO", m.RIGHE_GRUPPO);
    out.emplace_back("MESSAGGI_ATTIVI", m.MESSAGGI_ATTIVI);
    out.emplace_back("NUMERO_TX_RF", m.NUMERO_TX_RF);
    return out;
}

}  // namespace filo::commissioning
