#include "modules/aggregate_editor.hpp"

#include "common/basic_functions.hpp"
#include "modules/module_editor.hpp"
#include "store/link_queries.hpp"
#include "store/module_table.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

using texts::Text;

constexpr std::size_t kSetRowLength = 50;  // a new module's riserva3
constexpr std::size_t kParametersLength = 26;

void pad(std::string& s, std::size_t length) {
    if (s.size() < length) s.resize(length, '0');
}

bool bit(const std::string& s, int n) {
    return n >= 1 && static_cast<std::size_t>(n) <= s.size() &&
           s[static_cast<std::size_t>(n - 1)] == '1';
}

}  // namespace

bool has_three_aggregates(std::string_view type) {
    return type == "11" || type == "12" || type == "15" || type == "25";
}

AggregateEditor::AggregateEditor(store::ModuleTable& table, const texts::LanguageTables& texts)
    : full(has_three_aggregates(basic::right(table.CODICE_MODULO, 2))),
      table_(table),
      texts_(texts) {
    if (full)
        fill_full();
    else
        fill_simple();
}

std::string AggregateEditor::name_of_output(int k) const {
    const store::ModuleRecord& m = table_.RIGHE_MODULO;
    if (k + 8 > m.N_RIGHE_MODULO()) return {};
    return std::string(basic::trim(m.riga(k + 8).nick));
}

void AggregateEditor::fill_full() {
    const std::string_view type = basic::right(table_.CODICE_MODULO, 2);
    const int relays = type == "15" || type == "25" ? 4 : 2;
    for (int k = 1; k <= 24; ++k) {
        const std::string name = name_of_output(k);
        const std::string n = std::to_string(k) + " ";
        std::string caption, reaction;
        if (k <= relays) {
            caption = reaction = texts_.text(Text::BOX_RELAY) + n;
        } else if (k <= 8) {
            caption = texts_.text(Text::AGGREGATE_VIRTUAL_RELAY) + n;
            reaction = texts_.text(Text::BOX_VIRTUAL) + n;
        } else {
            caption = texts_.text(Text::FLAG_CAPTION) + n;
        }
        // A point without a name can't take part, nor react.
        Check2[k] = Box{.caption = "", .enabled = !name.empty()};
        Check2[k + 24] = Box{.caption = caption + name, .enabled = !name.empty()};
        if (k > 8) continue;
        Check3[k] = Box{.caption = "", .enabled = !name.empty()};
        Check3[k + 8] = Box{.caption = reaction + name, .enabled = !name.empty()};
    }
    Option5_Click(1);
}

void AggregateEditor::fill_simple() {
    const store::ModuleRecord& m = table_.RIGHE_MODULO;
    const std::string mask = m.rows.empty() ? std::string() : m.riga(1).riserva3;
    for (int k = 1; k <= 8; ++k) {
        Box& box = Check1[k];
        box = Box{};
        box.shown = k + 8 <= m.N_RIGHE_MODULO() && m.riga(k + 8).tipologia == "RELE";
        if (!box.shown) continue;
        const std::string name = name_of_output(k);
        box.caption = name.empty() ? texts_.text(Text::PAGE_UNNAMED_RELAY)
                                   : texts_.text(Text::AGGREGATE_SIMPLE_RELAY) + name;
        box.enabled = !name.empty();
        box.ticked = box.enabled && bit(mask, k);
    }
}

bool AggregateEditor::any_participant() const {
    for (int n = 1; n <= 48; ++n)
        if (Check2[n].ticked) return true;
    return false;
}

bool AggregateEditor::agree_removal(char set) {
    if (removal_agreed_ || !confirm_name_removal) return true;
    const int n = store::links_from_aggregate(table_.project(), table_.CODICE_MODULO, set);
    if (n == 0) return true;
    removal_agreed_ = confirm_name_removal(n);
    return removal_agreed_;
}

std::string& AggregateEditor::stored_name() {
    return table_.RIGHE_MODULO.riga(2 * ASSOCIAZIONE_CORRENTE).riserva;
}

void AggregateEditor::set_check2(int index, bool ticked, bool by_installer) {
    if (by_installer && !ticked && Check2[index].ticked) {
        bool last = true;
        for (int n = 1; n <= 48; ++n) last = last && (n == index || !Check2[n].ticked);
        // The last participant takes the name with it.
        const bool named = !Text5.empty() || !stored_name().empty();
        if (last && named && !agree_removal(static_cast<char>('a' + ASSOCIAZIONE_CORRENTE - 1)))
            return;
    }
    Check2[index].ticked = ticked;
    // A point is in one column at most.
    if (ticked) Check2[index > 24 ? index - 24 : index + 24].ticked = false;
    // An output can't react to an event it takes part in, and a relay without
    // a name isn't offered as a reaction.
    for (int k = 1; k <= 8; ++k) {
        const bool taking_part = Check2[k].ticked || Check2[k + 24].ticked;
        const bool offered = !taking_part && !name_of_output(k).empty();
        for (Box* b : {&Check3[k], &Check3[k + 8]}) {
            b->enabled = offered;
            if (taking_part) b->ticked = false;
        }
    }
    if (any_participant()) return;
    // An association without participants has neither reaction nor name.
    for (int n = 1; n <= 16; ++n) Check3[n].ticked = false;
    Text5.clear();
}

void AggregateEditor::store_current() {
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    const int first = 2 * ASSOCIAZIONE_CORRENTE;
    if (first + 1 > m.N_RIGHE_MODULO()) return;
    store::NickRow& points = m.riga(first);
    store::NickRow& reactions = m.riga(first + 1);
    pad(points.riserva3, kSetRowLength);
    pad(reactions.riserva3, kSetRowLength);
    for (int n = 1; n <= 48; ++n)
        points.riserva3[static_cast<std::size_t>(n - 1)] = Check2[n].ticked ? '1' : '0';
    for (int n = 1; n <= 16; ++n)
        reactions.riserva3[static_cast<std::size_t>(n - 1)] = Check3[n].ticked ? '1' : '0';
    reactions.riserva3[16] = or_logic ? '1' : '0';
    // riserva "K" marks a deleted row.
    if (Text5 == "K") Text5.clear();
    if (Text5.empty() && !points.riserva.empty() && any_participant() &&
        !agree_removal(static_cast<char>('a' + ASSOCIAZIONE_CORRENTE - 1)))
        Text5 = points.riserva;
    points.riserva = Text5;
}

void AggregateEditor::Option5_Click(int index) {
    if (!full || index < 1 || index > 3 || 2 * index + 1 > table_.RIGHE_MODULO.N_RIGHE_MODULO())
        return;
    if (ASSOCIAZIONE_CORRENTE >= 1 && ASSOCIAZIONE_CORRENTE <= 3) store_current();
    ASSOCIAZIONE_CORRENTE = index;
    removal_agreed_ = false;
    const store::ModuleRecord& m = table_.RIGHE_MODULO;
    const std::string points = m.riga(2 * index).riserva3;
    const std::string reactions = m.riga(2 * index + 1).riserva3;
    // Loading runs the rules of a click, as setting a box does.
    for (int n = 1; n <= 48; ++n) set_check2(n, bit(points, n), false);
    for (int n = 1; n <= 16; ++n)
        Check3[n].ticked = bit(reactions, n) && Check3[n].enabled && any_participant();
    or_logic = bit(reactions, 17);
    Text5 = m.riga(2 * index).riserva;
}

bool AggregateEditor::Check2_Click(int index, bool ticked) {
    if (!full || ASSOCIAZIONE_CORRENTE == 0 || index < 1 || index > 48 || !Check2[index].enabled)
        return false;
    set_check2(index, ticked, true);
    return Check2[index].ticked == ticked;
}

bool AggregateEditor::Check3_Click(int index, bool ticked) {
    if (!full || index < 1 || index > 16 || !Check3[index].enabled) return false;
    // A reaction needs an event.
    Check3[index].ticked = ticked && any_participant();
    return Check3[index].ticked == ticked;
}

void AggregateEditor::Option3_Click(int index) {
    or_logic = index == 0;
}

void AggregateEditor::Text5_Change(std::string_view text) {
    std::string name;
    int characters = 0;
    for (std::size_t i = 0; i < text.size() && characters < 8;) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) {
            if (is_name_character(c)) {
                name += static_cast<char>(c);
                ++characters;
            }
            ++i;
        } else if (text.substr(i, 2) == "°") {
            name += "°";
            ++characters;
            i += 2;
        } else {
            // Any other character is dropped whole.
            ++i;
            while (i < text.size() && basic::is_continuation_byte(text[i])) ++i;
        }
    }
    Text5 = name;
}

bool AggregateEditor::Check1_Click(int index, bool ticked) {
    if (full || index < 1 || index > 8 || !Check1[index].shown || !Check1[index].enabled)
        return false;
    Check1[index].ticked = ticked;
    return true;
}

bool AggregateEditor::Label35_Click() {
    if (ASSOCIAZIONE_CORRENTE != 0) Option5_Click(ASSOCIAZIONE_CORRENTE);
    return true;
}

bool AggregateEditor::Label37_Click() {
    store::ModuleRecord& m = table_.RIGHE_MODULO;
    if (m.rows.empty()) return true;
    std::string ticks;
    for (int k = 1; k <= 8; ++k) ticks += Check1[k].ticked ? '1' : '0';
    std::string& mask = m.riga(1).riserva3;
    pad(mask, kParametersLength);
    // Without a tick the two events of the module go.
    if (basic::val(mask.substr(0, 8)) > 0 && ticks == "00000000" && !agree_removal(' '))
        return false;
    mask.replace(0, 8, ticks);
    return true;
}

}  // namespace filo::modules
