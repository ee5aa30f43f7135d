#include "modules/module_editor.hpp"

#include <algorithm>

#include "common/basic_functions.hpp"
#include "modules/descriptions.hpp"
#include "modules/module_rows.hpp"
#include "modules/parameter_fields.hpp"
#include "store/link_queries.hpp"
#include "store/link_repairs.hpp"
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

std::string refused_name_character(std::string_view name, std::string_view kept) {
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t start = i;
        if (is_name_character(next_character(name, i))) continue;
        const std::string_view c = name.substr(start, i - start);
        if (kept.find(c) == std::string_view::npos) return std::string(c);
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
        case EditRefusal::ValueRefused:
            return t.text(Text::VALUE_REFUSED) + d;
        case EditRefusal::NameIsAndCondition:
            return d + t.text(Text::ACTIVE_ONLY_IF_THIS_OUTPUT) + "\n" +
                   t.text(Text::REMOVE_AND_FIRST) + d;
        case EditRefusal::NameIsLinkCondition:
            return d;
        case EditRefusal::AndWithReciprocal:
            return t.text(Text::AND_RECIPROCAL_EXCLUSIVE);
        case EditRefusal::ReciprocalWithClosed:
            return t.text(Text::RECIPROCAL_WITH_NC);
        case EditRefusal::RelayWithoutName:
            return t.text(Text::RELAY_WITHOUT_NAME) + d;
        case EditRefusal::ThresholdWithTimedReading:
            return t.text(Text::THRESHOLD_NEEDS_NO_TIMED_READING);
        case EditRefusal::ReceiverNotInProject:
            return t.text(Text::RECEIVER_NOT_IN_PROJECT) + d;
        case EditRefusal::CardCode:
            return t.text(Text::CARD_CODE_REFUSED) + d;
    }
    return {};
}

std::string ModuleEditor::message(EditRefusal refusal, const texts::LanguageTables& t,
                                  std::string_view detail) const {
    if (refusal != found_for_) return refusal_text(refusal, t, detail, linked_receiver_);
    switch (refusal) {
        case EditRefusal::NameIsAndCondition:
        case EditRefusal::RelayWithoutName:
            return refusal_text(refusal, t, found_);
        case EditRefusal::NameIsLinkCondition:
            return store::and_condition_message({0, found_, found_receiver_}, t);
        case EditRefusal::ParameterNotOffered:
            // Says which fields the type has, when the refusal found them.
            return refusal_text(refusal, t, detail) +
                   (found_.empty() ? std::string() : t.text(texts::Text::FIELDS_OF_TYPE) + found_);
        default:
            return refusal_text(refusal, t, detail, linked_receiver_);
    }
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

bool ModuleEditor::shows_row(int row) const {
    if (!has_row(row)) return false;
    return is_input(row) ? shows_input(*type_, row)
                         : shows_output(*type_, table_.CODICE_MODULO, row - 8);
}

EditRefusal ModuleEditor::check_output_name_removal(int row) {
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    const int j = row - 8;
    if (j > 8) return EditRefusal::None;
    // Another output of the module acts only while this one is on.
    for (int r = 9; r <= 16 && r <= m.N_RIGHE_MODULO(); ++r) {
        const std::string& modo = m.riga(r).modo;
        if (modo.size() >= static_cast<std::size_t>(j + 8) && modo[j + 7] != '0') {
            found_ = m.riga(r).nick;
            return found_for_ = EditRefusal::NameIsAndCondition;
        }
    }
    const std::vector<store::AndCondition> conditions =
        store::and_conditions_on(table_.project(), table_.CODICE_MODULO, j);
    if (!conditions.empty()) {
        found_ = conditions.front().nick_trasmittente;
        found_receiver_ = conditions.front().nick_ricevente;
        return found_for_ = EditRefusal::NameIsLinkCondition;
    }
    return EditRefusal::None;
}

EditRefusal ModuleEditor::rename(int row, std::string_view name, NameCheck check) {
    if (!shows_row(row)) return EditRefusal::NotAPoint;
    // A name from another tool keeps its characters; only new ones are checked.
    if (!refused_name_character(name, table_.RIGHE_MODULO.riga(row).nick).empty())
        return EditRefusal::NameCharacters;
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
        if (!input) {
            const EditRefusal refusal = check_output_name_removal(row);
            if (refusal != EditRefusal::None) return refusal;
            // An unnamed output has no AND of its own.
            if (row <= 16 && r.modo.size() >= 16) r.modo.replace(8, 8, "00000000");
        }
    } else if (check == NameCheck::Now) {
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
    if (!is_input(row) || !shows_row(row)) return EditRefusal::NotAPoint;
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
    // Options of another kind don't carry over.
    if (r.riserva2.size() < 9) r.riserva2.resize(9, '0');
    r.riserva2.replace(0, 9, "000000000");
    return EditRefusal::None;
}

EditRefusal ModuleEditor::set_contact(int row, char contact) {
    const int j = row - 8;
    if (!is_output(row) || j > 8 || !shows_row(row)) return EditRefusal::NotAPoint;
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
    if (names_in_use()) return EditRefusal::NameInUse;
    if (const EditRefusal r = check_functions(); r != EditRefusal::None) return r;
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

bool ModuleEditor::names_in_use() {
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    red_rows_.clear();
    std::vector<std::string> outputs, inputs;
    for (int r = 1; r <= m.N_RIGHE_MODULO(); ++r)
        (is_input(r) ? inputs : outputs).push_back(std::string(basic::trim(m.riga(r).nick)));
    const store::RepeatedNames twice = store::CERCA_DOPPI(outputs, inputs);
    for (int i : twice.red_inputs) red_rows_.push_back(i);
    for (int j : twice.red_outputs) red_rows_.push_back(j + 8);
    for (int r = 1; r <= m.N_RIGHE_MODULO(); ++r) {
        const store::NickRow& row = m.riga(r);
        if (row.nick.empty() || std::find(red_rows_.begin(), red_rows_.end(), r) != red_rows_.end())
            continue;
        table_.CERCA_UGUALE(row.nick, table_.CODICE_MODULO,
                            is_input(r) ? store::PointSide::Input : store::PointSide::Output,
                            row.numero_filo);
        if (!table_.NOME_DOPPIO.empty() && table_.NOME_DOPPIO != "NO") red_rows_.push_back(r);
    }
    std::sort(red_rows_.begin(), red_rows_.end());
    return !red_rows_.empty();
}

void ModuleEditor::delete_module() {
    if (table_.STATO_MODULO != store::kModuloEsistente) return;  // never saved: nothing to delete
    store::LinkRepairs repairs(table_.project(), links_);
    store::delete_module_and_links(table_, repairs);
    table_.STATO_MODULO = store::kNuovoModulo;
}

}  // namespace filo::modules
