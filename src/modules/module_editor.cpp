#include "modules/module_editor.hpp"

#include <algorithm>

#include "common/basic_functions.hpp"
#include "modules/descriptions.hpp"
#include "modules/module_rows.hpp"
#include "modules/parameter_fields.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/powerline.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

// Decodes one UTF-8 character at i, advancing i; U+FFFD for a broken one.
char32_t next_character(std::string_view s, std::size_t& i) {
    const auto byte = [&s](std::size_t k) { return static_cast<unsigned char>(s[k]); };
    const unsigned char c = byte(i++);
    if (c < 0x80) return c;
    int extra = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : -1;
    if (extra < 0 || i + static_cast<std::size_t>(extra) > s.size()) return 0xFFFD;
    char32_t value = c & (0x3F >> extra);
    for (int k = 0; k < extra; ++k) {
        if ((byte(i) & 0xC0) != 0x80) return 0xFFFD;
        value = value << 6 | (byte(i++) & 0x3F);
    }
    return value;
}

}  // namespace

bool is_name_character(char32_t c) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return true;
    return c == ' ' || c == '.' || c == ',' || c == '-' || c == '_' || c == '/' || c == U'°';
}

std::string refused_name_character(std::string_view name) {
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t start = i;
        if (!is_name_character(next_character(name, i)))
            return std::string(name.substr(start, i - start));
    }
    return {};
}

std::string refusal_text(EditRefusal refusal, const texts::LanguageTables& t,
                         std::string_view detail, std::string_view linked_receiver) {
    using texts::Text;
    const std::string d(detail);
    switch (refusal) {
        case EditRefusal::None:
            return {};
        case EditRefusal::NotAPoint:
            return t.text(Text::POINT_NOT_IN_MODULE) + d;
        case EditRefusal::NameCharacters:
            return t.text(Text::NAME_CHARACTERS_REFUSED) + basic::escaped_controls(d);
        case EditRefusal::NameInUse:
            return t.text(Text::NAMES_ALREADY_IN_USE);
        case EditRefusal::NameLinked:
            return t.text(Text::NAME_REQUIRED_LINKED_2);
        case EditRefusal::NameRequired:
            return t.text(Text::ASSIGN_NAME_FIRST);
        case EditRefusal::InputLinked:
            return t.text(Text::INPUT_ALREADY_LINKED) + std::string(linked_receiver) + "\n" +
                   t.text(Text::DELETE_LINK_FIRST);
        case EditRefusal::KindNotOffered:
            return t.text(Text::KIND_NOT_OFFERED) + d;
        case EditRefusal::ContactNotOffered:
            return t.text(Text::CONTACT_NOT_OFFERED) + d;
        case EditRefusal::ClosedWithReciprocal:
            return t.text(Text::NC_WITH_RECIPROCAL);
        case EditRefusal::ParameterNotOffered:
            return t.text(Text::PARAMETER_NOT_OFFERED) + d;
        case EditRefusal::SafetyInputsNeedInterval:
            return t.text(Text::SAFETY_INPUTS_NEED_INTERVAL);
    }
    return {};
}

ModuleEditor::ModuleEditor(store::ModuleTable& table, store::LinkTable& links)
    : table_(table), links_(links) {}

bool ModuleEditor::open(const std::string& codice) {
    type_ = find_type(codice);
    if (!type_) return false;
    table_.LEGGI_MODULO(codice);
    if (table_.STATO_MODULO != store::kModuloEsistente) return false;
    table_.set_codice_modulo(codice);
    return true;
}

bool ModuleEditor::create(const std::string& codice) {
    type_ = find_type(codice);
    if (!type_) return false;
    table_.set_codice_modulo(codice);
    table_.STATO_MODULO = store::kNuovoModulo;
    return prepare_new_module(table_);
}

bool ModuleEditor::has_row(int row) const {
    return row >= 1 && row <= table_.RIGHE_MODULO.N_RIGHE_MODULO();
}

bool ModuleEditor::is_output(int row) const {
    return row >= 9 && has_row(row);
}

EditRefusal ModuleEditor::rename(int row, std::string_view name) {
    if (!has_row(row)) return EditRefusal::NotAPoint;
    if (!refused_name_character(name).empty()) return EditRefusal::NameCharacters;
    store::NickRow& r = table_.RIGHE_MODULO.riga(row);
    const bool input = is_input(row);
    const std::string clean = std::string(basic::trim(name));
    const std::string stored = input || clean.empty() ? clean : clean + " ";
    if (stored == r.nick) return EditRefusal::None;
    if (stored.empty()) {
        if (input)
            links_.CERCA_IN_SE_COLLEGATO(r.nick);
        else
            links_.CERCA_OUT_SE_COLLEGATO(r.nick);
        if (links_.COLLEGATO == "SI") return EditRefusal::NameLinked;
    } else {
        // Against the other points of this module as edited, then the project.
        for (int other = 1; other <= table_.RIGHE_MODULO.N_RIGHE_MODULO(); ++other)
            if (other != row && is_input(other) == input &&
                table_.RIGHE_MODULO.riga(other).nick == stored)
                return EditRefusal::NameInUse;
        table_.CERCA_UGUALE(stored, table_.CODICE_MODULO,
                            input ? store::PointSide::Input : store::PointSide::Output,
                            r.numero_filo);
        if (table_.NOME_DOPPIO == "SI") return EditRefusal::NameInUse;
    }
    r.nick = stored;
    return EditRefusal::None;
}

EditRefusal ModuleEditor::set_kind(int row, char letter) {
    if (!is_input(row) || !has_row(row)) return EditRefusal::NotAPoint;
    store::NickRow& r = table_.RIGHE_MODULO.riga(row);
    if (!r.modo.empty() && r.modo[0] == letter) return EditRefusal::None;
    const std::vector<char> offered = offered_kinds(*type_);
    if (std::find(offered.begin(), offered.end(), letter) == offered.end())
        return EditRefusal::KindNotOffered;
    links_.CERCA_IN_SE_COLLEGATO(r.nick);
    if (links_.COLLEGATO == "SI") {
        linked_receiver_ = links_.RICEVENTE_COLLEGATO;
        return EditRefusal::InputLinked;
    }
    if (r.modo.empty()) r.modo = std::string(24, '0');
    r.modo[0] = letter;
    return EditRefusal::None;
}

EditRefusal ModuleEditor::set_contact(int row, char contact) {
    const int j = row - 8;
    if (!is_output(row) || j > 8) return EditRefusal::NotAPoint;
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    const OutputBox box = output_box(*type_, j, m);
    if (std::find(box.contacts.begin(), box.contacts.end(), contact) == box.contacts.end())
        return EditRefusal::ContactNotOffered;
    store::NickRow& out = m.riga(row);
    if (out.nick.empty()) return EditRefusal::NameRequired;
    if (out.modo.size() < 24) out.modo.resize(24, '0');
    if (contact == kContactClosed) {
        // A normally closed contact can't take part in a RECIPROCO pair.
        bool reciprocal = out.modo.substr(16, 8) != "00000000";
        for (int r = 9; r <= 16 && r <= m.N_RIGHE_MODULO(); ++r)
            reciprocal = reciprocal || (m.riga(r).modo.size() >= static_cast<std::size_t>(j + 16) &&
                                        m.riga(r).modo[j + 15] != '0');
        if (reciprocal) return EditRefusal::ClosedWithReciprocal;
    }
    // The input of the same index carries the pairing with a variator.
    store::NickRow& input = m.riga(j);
    if (input.modo.size() < 2) input.modo.resize(24, '0');
    if (contact == kContactVariator && out.modo[1] != kContactVariator) {
        const std::string name = "Variatore_" + std::string(basic::trim(out.nick));
        table_.CERCA_UGUALE(name, table_.CODICE_MODULO, store::PointSide::Input, input.numero_filo);
        if (table_.NOME_DOPPIO == "SI") return EditRefusal::NameInUse;
        input.nick = name;
        input.modo[0] = 'V';
        input.modo[1] = 'V';
    } else if (contact != kContactVariator && input.modo[1] == 'V') {
        links_.CERCA_IN_SE_COLLEGATO(input.nick);
        if (links_.COLLEGATO == "SI") {
            linked_receiver_ = links_.RICEVENTE_COLLEGATO;
            return EditRefusal::InputLinked;
        }
        input.nick.clear();
        input.modo[0] = 'P';
        input.modo[1] = '0';
        if (input.riserva2.size() < 9) input.riserva2.resize(50, '0');
        input.riserva2.replace(0, 9, "000000000");
    }
    out.modo[1] = contact;
    return EditRefusal::None;
}

EditRefusal ModuleEditor::set_parameter(int row, std::string_view field, std::string_view value) {
    if (!has_row(row)) return EditRefusal::NotAPoint;
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    const std::string held = TRE_CIFRE(held_to_byte(value));
    const std::string name(field);
    if (name.size() == 2 && name[0] == 'P' && name[1] >= '1' && name[1] <= '6') {
        const int n = name[1] - '0';
        if (!((model_of(type_->description).fields_written >> (n - 1)) & 1))
            return EditRefusal::ParameterNotOffered;
        std::string parameters = module_parameters(m.riga(1).riserva3);
        set_parameter_field(parameters, n, held);
        set_module_parameters(m.riga(1).riserva3, parameters);
        return EditRefusal::None;
    }
    if (name.size() == 2 && name[0] == 'V' && name[1] >= '1' && name[1] <= '3') {
        if (!is_input(row)) return EditRefusal::ParameterNotOffered;
        const char kind = m.riga(row).modo.empty() ? 'P' : m.riga(row).modo[0];
        const int n = name[1] - '0';
        const auto offered = input_parameters(kind);
        if (std::none_of(offered.begin(), offered.end(),
                         [n](const InputParameter& p) { return p.field == n; }))
            return EditRefusal::ParameterNotOffered;
        set_point_field(m.riga(row).riserva2, n, held);
        return EditRefusal::None;
    }
    if (name == "ON" || name == "OFF" || name == "EMERGENCY") {
        if (!is_output(row) || row > 16) return EditRefusal::ParameterNotOffered;
        // The values of a relay's event are kept by the modules with flags.
        if (name != "EMERGENCY" && !has_flags(*type_)) return EditRefusal::ParameterNotOffered;
        OutputValues v = read_output_values(m.riga(row).riserva2);
        const int number = static_cast<int>(basic::val(held));
        if (name == "ON")
            v.on = number;
        else if (name == "OFF")
            v.off = number;
        else
            v.emergency = emergency_value_of_percent(number);
        write_output_values(m.riga(row).riserva2, v);
        return EditRefusal::None;
    }
    return EditRefusal::ParameterNotOffered;
}

EditRefusal ModuleEditor::save() {
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    const std::string_view type = type_->code;
    if (m.rows.empty()) return EditRefusal::NotAPoint;
    // Safety inputs are analysed at the interval of P2, which must be set.
    for (int i = 1; i <= 8 && i <= m.N_RIGHE_MODULO(); ++i) {
        const char kind = m.riga(i).modo.empty() ? 'P' : m.riga(i).modo[0];
        if ((kind == 'p' || kind == 'i') && basic::mid(m.riga(1).riserva3, 12, 3) == "000")
            return EditRefusal::SafetyInputsNeedInterval;
    }
    if (type == "19" && m.N_RIGHE_MODULO() >= 9) {
        // The regulator's output exists only while its sensor regulates.
        const char kind = m.riga(1).modo.empty() ? 'K' : m.riga(1).modo[0];
        if (kind == 'K') {
            m.riga(9).nick = "ATTIVAZIONE " + std::string(basic::trim(m.riga(1).nick));
            m.riga(9).tipologia = "REGOLATORE";
        } else if (kind == 'L') {
            m.riga(9).nick.clear();
            m.riga(9).tipologia.clear();
        }
    }
    if (type == "1F" && m.N_RIGHE_MODULO() >= 9 && !m.riga(9).nick.empty())
        m.riga(8).nick = "(COMANDO) " + m.riga(9).nick;
    if (type == "1A")
        for (int i = 1; i <= 8 && i <= m.N_RIGHE_MODULO(); ++i) m.riga(i).modo = "P";

    sqlite::Transaction transaction(table_.project().database());
    table_.CANCELLA_IN_SALVATAGGIO.clear();
    if (table_.STATO_MODULO == store::kModuloEsistente) {
        table_.MODIFICA_MODULO();
    } else {
        table_.AGGIUNGI_MODULO();
        table_.STATO_MODULO = store::kModuloEsistente;
    }
    links_.AGGIORNA_NICK_NEI_LINK_DA_FORM5(table_.CODICE_MODULO, m);
    // The modulator's output is driven from its hidden input 8 by a link of
    // the system's own, made once the output has a name.
    if (type == "1F" && m.N_RIGHE_MODULO() >= 9 && !m.riga(9).nick.empty())
        store::Powerline(table_.project(), links_)
            .GENERA_ASSOCIAZIONE_PWLINE(table_.CODICE_MODULO, m.M_NICK_NUMERICO, m.riga(9).nick);
    transaction.commit();
    return EditRefusal::None;
}

}  // namespace filo::modules
