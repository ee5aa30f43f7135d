#include "commissioning/module_image_reader.hpp"

#include <algorithm>
#include <optional>

#include "common/basic_functions.hpp"
#include "store/module_table.hpp"

namespace filo::commissioning {
namespace {

using basic::mid;
using store::NickRow;

std::string three_digits(long long value) {
    return basic::zero_padded(value, 3);
}

// A whole number from a stored text; anything absurd counts as 0, which no
// wire or row carries.
int whole(std::string_view text) {
    const double v = basic::val(text);
    return v > -100000 && v < 100000 ? static_cast<int>(v) : 0;
}

// Masks hold 16 bits: a wire outside 1 to 16 has no bit to set.
void add_wire(int& mask, int wire) {
    if (wire >= 1 && wire <= 16) mask += 1 << (wire - 1);
}

// Masks in decimal text ("000" when empty), as the group frames take them.
void add_bit(std::string& field, int bit) {
    field = three_digits(static_cast<long long>(basic::val(field)) + (1LL << bit));
}

void drop_default(std::string& value, std::string_view default_value) {
    if (!default_value.empty() && value == default_value) value = kNotSent;
}

// A field that a short column doesn't reach keeps its start value.
void take_field(std::string& target, std::string_view column, std::size_t start,
                std::size_t length) {
    const std::string_view field = mid(column, start, length);
    if (!field.empty()) target = std::string(field);
}

// The mask each input kind letter counts in; i and p count also in
// MASCHERA_SICUREZZE. Letters not listed (L, M, K, Y, z, v, ...) set no bit.
int* mask_of_letter(ModuleImage& m, char letter) {
    switch (letter) {
        case 'I':
        case 'P':
        case 'i':
        case 'p':
        case 'J':
            return &m.MASCHERA_INGRESSI;
        case 'V':
        case 'X':
            return &m.MASCHERA_V;
        case 'A':
        case 'G':
        case 'U':
        case 'S':
        case 'B':
        case 'D':
        case 'b':
            return &m.MASCHERA_A;
        case 'F':
            return &m.MASCHERA_F;
        case 'T':
            return &m.MASCHERA_T;
        case 'N':
        case 'W':
            return &m.MASCHERA_N;
        default:
            return nullptr;
    }
}

// Values of an input's three fields that the module has anyway ("" none).
struct InputDefaults {
    std::string_view letters;
    std::string_view parametro_1, parametro_2, parametro_3;
};
constexpr InputDefaults kInputDefaults[] = {
    {"L", "", "100", ""},    {"V", "010", "002", "060"}, {"T", "", "010", ""},
    {"N", "004", "030", ""}, {"A", "005", "", ""},       {"JWX", "", "040", ""},
};

// Module defaults P2 to P6 (P1 has none).
struct ModuleDefaults {
    std::string_view p2, p3, p4, p5, p6;
};
constexpr ModuleDefaults kPhotosensorDefaults{"005", "040", "125", "200", "001"};
constexpr ModuleDefaults kModuleDefaults{"030", "020", "010", "010", "030"};

bool is_group_type(std::string_view type) {
    return type == "15" || type == "11" || type == "12" || type == "25";
}

class ImageBuilder {
  public:
    explicit ImageBuilder(std::string_view codice) : type_(mid(codice, 5, 2)) {}

    // Row r of the module, from 1.
    void add_row(int r, const NickRow& row) {
        if (row.tipologia == "INPUT") input_row(r, row);
        if (!row.note.empty() && row.note.front() == '*') m_.MESSAGGI_ATTIVI = "SI";
        if (is_group_type(type_) && r >= 2 && r <= 9) group_row(r, row);
        if (row.tipologia == "RELE" && r < 17) relay_row(r, row);
        if (row.tipologia.starts_with("RELE_RADIO")) {
            const int wire = whole(row.numero_filo);
            if (m_.CIABATTA.holds(wire)) take_field(m_.CIABATTA(wire), row.tipologia, 11, 4);
        }
        // Nothing of the image goes to these types. The panel's "*" mark stays:
        // it is this very type that shows the number of active messages.
        if (type_ == "18" || type_ == "1E") {
            std::string messaggi = std::move(m_.MESSAGGI_ATTIVI);
            m_ = ModuleImage{};
            m_.MESSAGGI_ATTIVI = std::move(messaggi);
        }
    }

    ModuleImage finish() {
        m_.HEX_INVERTITI = byte_hex(m_.MASCHERA_INVERTITI);
        m_.HEX_SICUREZZE = byte_hex(m_.MASCHERA_SICUREZZE);
        // A mask above 255 (the 500 of remote points, or 500 plus wires) is no
        // byte: it goes as "00", as every number out of range in a frame.
        std::string tipologie = byte_hex(m_.MASCHERA_INGRESSI) + byte_hex(m_.MASCHERA_V) +
                                byte_hex(m_.MASCHERA_A) + byte_hex(m_.MASCHERA_F) +
                                byte_hex(m_.MASCHERA_N) + byte_hex(m_.MASCHERA_T);
        if (tipologie == "000000000000") tipologie = kNoInputTypes;
        // A photosensor whose row 1 has no L, M or K keeps the bytes.
        if (type_ == "19" && photosensor_kinds_) tipologie = *photosensor_kinds_;
        m_.TIPOLOGIE = std::move(tipologie);
        return std::move(m_);
    }

  private:
    void input_row(int r, const NickRow& row) {
        m_.MESSAGGI_ATTIVI = "";
        if (r == 1) module_parameters(row);

        const char letter = row.modo.empty() ? '\0' : row.modo.front();
        const int wire = whole(row.numero_filo);
        if (letter == 'R') {
            // Overwrites what earlier wires set; later wires add to it.
            m_.MASCHERA_INGRESSI = kRemotePointsMask;
        } else if (int* mask = mask_of_letter(m_, letter)) {
            add_wire(*mask, wire);
            if (letter == 'i' || letter == 'p') add_wire(m_.MASCHERA_SICUREZZE, wire);
        }

        // The arrays hold the 16 rows a module can carry parameters on.
        if (!m_.PARAMETRO_1.holds(r)) return;
        const std::string riserva2 = row.riserva2.size() < 49 ? std::string(50, '0') : row.riserva2;
        m_.PARAMETRO_1(r) = std::string(mid(riserva2, 1, 3));
        m_.PARAMETRO_2(r) = std::string(mid(riserva2, 4, 3));
        m_.PARAMETRO_3(r) = std::string(mid(riserva2, 7, 3));
        for (const InputDefaults& d : kInputDefaults) {
            if (d.letters.find(letter) == std::string_view::npos) continue;
            drop_default(m_.PARAMETRO_1(r), d.parametro_1);
            drop_default(m_.PARAMETRO_2(r), d.parametro_2);
            drop_default(m_.PARAMETRO_3(r), d.parametro_3);
        }
    }

    // riserva3 of row 1: relays of the simple page in characters 1 to 8, then
    // P1 to P6 as three digits each from character 9.
    void module_parameters(const NickRow& row) {
        const std::string riserva3 = row.riserva3.size() < 26 ? std::string(26, '0') : row.riserva3;
        auto c = [&riserva3](std::size_t p) { return std::string(mid(riserva3, p, 3)); };

        m_.PERSONALIZZATO_1 = c(9);
        m_.PERSONALIZZATO_2 = c(12);
        m_.PERSONALIZZATO_3 = c(15);
        if (type_ != "50" && basic::val(m_.PERSONALIZZATO_2) != 0) {
            const long long raised = static_cast<long long>(basic::val(m_.PERSONALIZZATO_2)) + 128;
            m_.PERSONALIZZATO_2 = three_digits(std::min(raised, 255LL));
        }

        if (type_ == "15" || type_ == "11" || type_ == "12" || type_ == "25" || type_ == "24") {
            m_.PERSONALIZZATO_4 = c(18);
            m_.PERSONALIZZATO_5 = c(21);
        } else if (type_ == "0B") {
            m_.PERSONALIZZATO_7 = c(18);
            m_.PERSONALIZZATO_8 = c(21);
        } else if (type_ == "4A") {
            m_.PERSONALIZZATO_6 = c(24);
        } else if (type_ == "48") {
            for (int i = 1; i <= 8; ++i)
                if (riserva3[static_cast<std::size_t>(i - 1)] == '1')
                    add_bit(m_.MASCHERA_GRUPPI, i - 1);
        } else if (type_ == "19") {
            m_.PERSONALIZZATO_2 = c(12);
            m_.PERSONALIZZATO_4 = c(18);
            m_.PERSONALIZZATO_5 = c(21);
            m_.PERSONALIZZATO_6 = c(24);
            switch (row.modo.empty() ? '\0' : row.modo.front()) {
                case 'L':
                    photosensor_kinds_ = "000000000000";
                    break;
                case 'M':
                    photosensor_kinds_ = "000000000200";
                    break;
                case 'K':
                    photosensor_kinds_ = "000000000100";
                    break;
                default:
                    break;
            }
        }

        // The lamp module (24) takes every value as it is.
        if (type_ == "24") return;
        const ModuleDefaults& d = type_ == "19" ? kPhotosensorDefaults : kModuleDefaults;
        drop_default(m_.PERSONALIZZATO_2, d.p2);
        drop_default(m_.PERSONALIZZATO_3, d.p3);
        drop_default(m_.PERSONALIZZATO_4, d.p4);
        drop_default(m_.PERSONALIZZATO_5, d.p5);
        drop_default(m_.PERSONALIZZATO_6, d.p6);
    }

    // Output groups over rows 2 to 9: an even row gives six bytes and marks
    // its group by a name in riserva, an odd row gives two and marks it by
    // character 17. Byte a of a row has its character 1 as bit 0.
    void group_row(int r, const NickRow& row) {
        const bool even = r % 2 == 0;
        const int bytes = even ? 6 : 2;
        for (int a = 1; a <= bytes; ++a)
            for (int j = 1; j <= 8; ++j)
                if (mid(row.riserva3, static_cast<std::size_t>((a - 1) * 8 + j), 1) == "1")
                    add_bit(m_.GRUPPO(group_base_ + a), j - 1);
        group_base_ += bytes;
        ++group_rows_;
        const bool carries_group = even ? !row.riserva.empty() : mid(row.riserva3, 17, 1) == "1";
        if (carries_group) add_bit(m_.RIGHE_GRUPPO, group_rows_ - 1);
    }

    void relay_row(int r, const NickRow& row) {
        const int wire = whole(row.numero_filo);
        if (mid(row.modo, 2, 1) == "I") add_wire(m_.MASCHERA_INVERTITI, wire);
        if (m_.AND_USCITA.holds(wire)) {
            take_field(m_.AND_USCITA(wire), row.modo, 9, 8);
            take_field(m_.RECIPROCI_USCITA(wire), row.modo, 17, 8);
        }
        take_field(m_.EVENTO_1(r), row.riserva2, 1, 3);
        take_field(m_.EVENTO_2(r), row.riserva2, 4, 3);
    }

    std::string type_;
    ModuleImage m_;
    std::optional<std::string> photosensor_kinds_;  // TIPOLOGIE of type 19, by row 1
    int group_base_ = 0;                            // b: bytes of GRUPPO packed so far
    int group_rows_ = 0;                            // k: rows packed so far
};

}  // namespace

ModuleImage build_module_image(std::string_view CODICE_MODULO,
                               const std::vector<store::NickRow>& rows) {
    ImageBuilder builder(CODICE_MODULO);
    for (std::size_t i = 0; i < rows.size(); ++i) builder.add_row(static_cast<int>(i + 1), rows[i]);
    return builder.finish();
}

ModuleImageReading ModuleImageReader::LEGGI_INGRESSI_MODULO(std::string_view CODICE_MODULO) {
    ModuleImageReading result;
    const std::vector<store::NickRow> rows = table_.read_rows(CODICE_MODULO);
    if (rows.empty()) {
        result.STATO_MODULO = store::kNuovoModulo;
        return result;
    }
    result.STATO_MODULO = store::kModuloEsistente;
    result.N_RIGHE_MODULO = static_cast<int>(rows.size());
    result.IMMAGINE_MODULO = build_module_image(CODICE_MODULO, rows);
    return result;
}

}  // namespace filo::commissioning
