// The option pages of the module window on the shared record: the module's
// page, an input's page, an output's page (AND, RECIPROCO, event values,
// emergency), and the reader's cards and a remote element's receiver.
#include <algorithm>
#include <cctype>

#include "common/basic_functions.hpp"
#include "modules/descriptions.hpp"
#include "modules/module_editor.hpp"
#include "modules/parameter_fields.hpp"
#include "store/module_table.hpp"

namespace filo::modules {
namespace {

using R = EditRefusal;

bool one_of(std::string_view type, std::initializer_list<std::string_view> types) {
    return std::find(types.begin(), types.end(), type) != types.end();
}
// Output pages: the functions (AND, RECIPROCO), the event values, the
// emergency value of the channels that have one.
bool has_functions(std::string_view type) {
    return one_of(type, {"11", "12", "15", "25", "48", "49"});
}
bool has_event_values(std::string_view type) {
    return one_of(type, {"11", "12", "15", "25"});
}
bool has_emergency(std::string_view type, const store::NickRow& out, int j) {
    if (!((type == "25" && j <= 4) || (type == "26" && j <= 3))) return false;
    return out.connesso.size() >= 2 && (out.connesso[1] == 'E' || out.connesso[1] == 'e');
}
char contact_of(const store::NickRow& out) {
    return out.modo.size() >= 2 ? out.modo[1] : kContactOpen;
}
bool is_hex_code(std::string_view code) {
    return code.size() == 6 && std::all_of(code.begin(), code.end(), [](char c) {
               return std::isdigit(static_cast<unsigned char>(c)) || (c >= 'A' && c <= 'F');
           });
}

}  // namespace

bool parse_field_value(std::string_view typed, int max, int& value) {
    if (typed.empty()) {
        value = 0;  // an empty box is stored as "000"
        return true;
    }
    if (typed.size() > 6 || !std::all_of(typed.begin(), typed.end(), [](char c) {
            return std::isdigit(static_cast<unsigned char>(c));
        }))
        return false;
    value = std::stoi(std::string(typed));
    return value <= max;
}

EditRefusal ModuleEditor::output_page(int row) const {
    const int j = row - 8;
    if (!is_output(row) || j > 8) return R::ParameterNotOffered;
    if (!shows_row(row)) return R::NotAPoint;
    const store::NickRow& out = table_.RIGHE_MODULO.riga(row);
    if (out.nick.empty()) return R::NameRequired;
    // A normally closed output has no page.
    if (contact_of(out) == kContactClosed) return R::ParameterNotOffered;
    return R::None;
}

EditRefusal ModuleEditor::set_parameter(int row, std::string_view field, std::string_view value) {
    if (!has_row(row)) return R::NotAPoint;
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    const std::string name(field);
    found_.clear();
    int number = 0;
    if (name.size() == 2 && name[0] == 'P' && name[1] >= '1' && name[1] <= '6') {
        const int n = name[1] - '0';
        const std::uint8_t shown = shown_fields(*type_, m);
        if (!((shown >> (n - 1)) & 1)) {
            for (int k = 1; k <= 6; ++k)
                if ((shown >> (k - 1)) & 1)
                    found_ += (found_.empty() ? "P" : " P") + std::to_string(k);
            if (found_.empty()) found_ = "-";
            return found_for_ = R::ParameterNotOffered;
        }
        if (!parse_field_value(value, 255, number)) return R::ValueRefused;
        std::string parameters = module_parameters(m.riga(1).riserva3);
        set_parameter_field(parameters, n, basic::zero_padded(number, 3));
        set_module_parameters(m.riga(1).riserva3, parameters);
        return R::None;
    }
    if (name.size() == 2 && name[0] == 'V' && name[1] >= '1' && name[1] <= '3') {
        if (!is_input(row) || !shows_row(row)) return R::ParameterNotOffered;
        const char kind = m.riga(row).modo.empty() ? 'P' : m.riga(row).modo[0];
        const int n = name[1] - '0';
        const auto offered = input_parameters(kind);
        if (std::none_of(offered.begin(), offered.end(),
                         [n](const InputParameter& p) { return p.field == n; }))
            return R::ParameterNotOffered;
        // With the module's timed acquisition (P2) the page shows no threshold.
        if (is_analog_kind(kind) &&
            basic::val(parameter_field(module_parameters(m.riga(1).riserva3), 2)) != 0)
            return R::ThresholdWithTimedReading;
        if (!parse_field_value(value, 255, number)) return R::ValueRefused;
        set_point_field(m.riga(row).riserva2, n, basic::zero_padded(number, 3));
        return R::None;
    }
    if (name == "ON" || name == "OFF" || name == "EMERGENCY") {
        if (const R page = output_page(row); page != R::None) return page;
        const int j = row - 8;
        store::NickRow& out = m.riga(row);
        OutputValues v = read_output_values(out.riserva2);
        if (name == "EMERGENCY") {
            if (!has_emergency(type_->code, out, j)) return R::ParameterNotOffered;
            if (!parse_field_value(value, 100, number)) return R::ValueRefused;
            // A relay has no middle: the slider jumps to its ends.
            if (type_->code == "25") number = number < 51 ? 0 : 100;
            v.emergency = emergency_value_of_percent(number);
        } else {
            // The variator's parameters live on its input, not here.
            if (!has_event_values(type_->code) || contact_of(out) == kContactVariator)
                return R::ParameterNotOffered;
            if (!parse_field_value(value, 251, number)) return R::ValueRefused;
            (name == "ON" ? v.on : v.off) = number;
        }
        write_output_values(out.riserva2, v);
        return R::None;
    }
    return R::ParameterNotOffered;
}

EditRefusal ModuleEditor::set_functions(int row, std::string_view and_bits,
                                        std::string_view reciprocal_bits) {
    if (const R page = output_page(row); page != R::None) return page;
    if (!has_functions(type_->code)) return R::ParameterNotOffered;
    const auto is_bits = [](std::string_view b) {
        return b.size() == 8 && b.find_first_not_of("01") == std::string_view::npos;
    };
    if (!is_bits(and_bits) || !is_bits(reciprocal_bits)) return R::ValueRefused;
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    const int j = row - 8;
    std::string and_(and_bits), reciprocal(reciprocal_bits);
    and_[j - 1] = reciprocal[j - 1] = '0';  // no function with itself
    for (int k = 1; k <= 8; ++k) {
        if (and_[k - 1] == '0' && reciprocal[k - 1] == '0') continue;
        const store::NickRow& relay = m.riga(k + 8);
        if (relay.nick.empty() || relay.tipologia != "RELE") {
            found_ = std::to_string(k);
            return found_for_ = R::RelayWithoutName;
        }
        if (and_[k - 1] == '1' && reciprocal[k - 1] == '1') return R::AndWithReciprocal;
        if (reciprocal[k - 1] == '1' && contact_of(relay) == kContactClosed)
            return R::ReciprocalWithClosed;
    }
    store::NickRow& out = m.riga(row);
    if (out.modo.size() < 24) out.modo.resize(24, '0');
    out.modo.replace(8, 16, and_ + reciprocal);
    return R::None;
}

EditRefusal ModuleEditor::check_functions() const {
    if (!has_functions(type_->code)) return R::None;
    const store::ModuleRecord& m = table_.RIGHE_MODULO;
    for (int r = 9; r <= 16 && r <= m.N_RIGHE_MODULO(); ++r) {
        const std::string& modo = m.riga(r).modo;
        if (modo.size() < 24) continue;
        for (int k = 1; k <= 8 && k + 8 <= m.N_RIGHE_MODULO(); ++k) {
            const bool on_and = modo[7 + k] != '0', on_reciprocal = modo[15 + k] != '0';
            if (on_and && on_reciprocal) return R::AndWithReciprocal;
            if (on_reciprocal && (contact_of(m.riga(k + 8)) == kContactClosed ||
                                  contact_of(m.riga(r)) == kContactClosed))
                return R::ReciprocalWithClosed;
        }
    }
    return R::None;
}

EditRefusal ModuleEditor::set_commands_in_emergency(int row, bool allowed) {
    if (const R page = output_page(row); page != R::None) return page;
    store::NickRow& out = table_.RIGHE_MODULO.riga(row);
    if (!has_emergency(type_->code, out, row - 8)) return R::ParameterNotOffered;
    out.connesso[1] = allowed ? 'e' : 'E';
    return R::None;
}

EditRefusal ModuleEditor::set_rgb_channel(bool rgb) {
    if (model_of(type_->description).options != SpecialOptions::Channels)
        return R::ParameterNotOffered;
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    for (int r = 9; r <= 11 && r <= m.N_RIGHE_MODULO(); ++r)
        m.riga(r).tipologia = rgb ? "RGB" : "DIMMER";
    return R::None;
}

EditRefusal ModuleEditor::set_reader(char model) {
    if (model_of(type_->description).options != SpecialOptions::Reader)
        return R::ParameterNotOffered;
    if (model != 'E' && model != 'I' && model != 'G') return R::ValueRefused;
    std::string& connesso = table_.RIGHE_MODULO.riga(1).connesso;
    if (connesso.size() < 2) connesso.resize(8, '.');
    connesso[1] = model;
    return R::None;
}

EditRefusal ModuleEditor::set_rolling_code(bool rolling) {
    if (model_of(type_->description).options != SpecialOptions::CodeFlag)
        return R::ParameterNotOffered;
    std::string& riserva3 = table_.RIGHE_MODULO.riga(1).riserva3;
    std::string parameters = module_parameters(riserva3);
    modules::set_rolling_code(parameters, rolling);
    set_module_parameters(riserva3, parameters);
    return R::None;
}

EditRefusal ModuleEditor::enter_card(int input, std::string_view card, bool* added) {
    if (model_of(type_->description).kinds != KindList::Cards) return R::ParameterNotOffered;
    if (!is_input(input) || !shows_row(input)) return R::NotAPoint;
    std::string code(card);
    std::transform(code.begin(), code.end(), code.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    if (!is_hex_code(code)) return R::CardCode;
    std::string& stored = table_.RIGHE_MODULO.riga(input).dati_aggiuntivi1;
    std::vector<std::string> cards = cards_of(stored);
    const auto it = std::find(cards.begin(), cards.end(), code);
    // Entering a card a second time takes it away.
    const bool adding = it == cards.end();
    if (adding)
        cards.push_back(code);
    else
        cards.erase(it);
    stored = cards_text(cards);
    if (added) *added = adding;
    return R::None;
}

EditRefusal ModuleEditor::set_receiver(std::string_view code) {
    if (!one_of(type_->code, {"33", "34", "35"})) return R::ParameterNotOffered;
    table_.ELENCO_MODULI();
    const auto& live = table_.ELENCO_CODICI;
    const bool receiver = code.size() == 6 && (code.ends_with("4A") || code.ends_with("12"));
    if (!receiver || std::find(live.begin(), live.end(), code) == live.end())
        return R::ReceiverNotInProject;
    set_receiver_code(table_.RIGHE_MODULO.riga(1).riserva4, code);
    return R::None;
}

}  // namespace filo::modules
