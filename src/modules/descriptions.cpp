#include "modules/descriptions.hpp"

#include "common/basic_functions.hpp"
#include "modules/parameter_fields.hpp"
#include "store/nick_row.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

using texts::Text;
using P = PREDEFINITI_MODULO;

constexpr std::uint8_t fields(int first, int last) {
    std::uint8_t bits = 0;
    for (int n = first; n <= last; ++n) bits |= static_cast<std::uint8_t>(1 << (n - 1));
    return bits;
}
constexpr std::uint8_t kAllOutputs = 0xFF;

// The boxes of the relay module, which the other descriptions start from.
constexpr ParameterBox kP1{1, Text::PARAM_PRESENCE_INTERVAL_SHORT, ""};
constexpr ParameterBox kP2{2, Text::PARAM_ANALOG_SAFETY_INTERVAL, ""};
constexpr ParameterBox kP2Wide{2, Text::PARAM_ANALOG_SAFETY_INTERVAL_WIDE, ""};
constexpr ParameterBox kP3{3, Text::PARAM_DEBOUNCE, P::P3_ANTIRIMBALZO};
constexpr ParameterBox kP4Blink{4, Text::PARAM_RELAY_BLINK_ON, P::P4_LAMPEGGIO_ON};
constexpr ParameterBox kP5Blink{5, Text::PARAM_RELAY_BLINK_OFF, P::P5_LAMPEGGIO_OFF};

using D = Description;
using K = KindList;
using C = ContactList;
using N = NamesShown;
using O = SpecialOptions;

constexpr std::array<DescriptionModel, 19> kModels = {{
    {D::DIMMER,
     K::Standard,
     C::ListsA,
     N::Outputs,
     fields(1, 5),
     {kP1, kP2, kP3},
     0x01,
     0x01,
     true,
     O::None},
    {D::LED,
     K::Standard,
     C::ListsA,
     N::Outputs,
     fields(1, 5),
     {kP1, kP2, kP3, {4, Text::PARAM_STEP_LIGHT_BRIGHTNESS, ""}, {5, Text::PARAM_BRIGHTNESS, ""}},
     kAllOutputs,
     kAllOutputs,
     true,
     O::None},
    {D::LUCE, K::Standard, C::ListsA, N::Outputs, fields(1, 5), {kP1}, 0x01, 0x01, true, O::None},
    {D::RELE2,
     K::Standard,
     C::ListsTwoRelays,
     N::OutputsAndFlags,
     fields(1, 5),
     {kP1, kP2, kP3, kP4Blink, kP5Blink},
     0,
     0,
     true,
     O::None},
    {D::INGRESSI,
     K::Standard,
     C::None,
     N::None,
     fields(1, 3),
     {kP1, kP2Wide, kP3},
     0,
     0,
     false,
     O::None},
    {D::RELE4,
     K::Standard,
     C::ListsA,
     N::OutputsAndFlags,
     fields(1, 5),
     {kP1, kP2Wide, kP3, kP4Blink, kP5Blink},
     0,
     0,
     true,
     O::None},
    {D::PILOTA_LED,
     K::Standard,
     C::ListsA,
     N::Outputs,
     fields(1, 5),
     {kP1, kP2, kP3},
     kAllOutputs,
     kAllOutputs,
     true,
     O::Channels},
    {D::FOTOSENSORE,
     K::Photosensor,
     C::None,
     N::None,
     fields(1, 6),
     {kP1,
      {2, Text::PARAM_CONTROL_TOLERANCE, P::P2_FOTOSENSORE},
      {3, Text::PARAM_LAMPS_MINIMUM, P::P3_FOTOSENSORE},
      {4, Text::PARAM_WANTED_BRIGHTNESS, P::P4_FOTOSENSORE},
      {5, Text::PARAM_LAMPS_INITIAL, P::P5_FOTOSENSORE},
      {6, Text::PARAM_REGULATION_TYPE, P::P6_FOTOSENSORE}},
     0,
     0,
     false,
     O::None},
    // The reader writes P1 alone: the page's other fields are only read.
    {D::BADGE, K::Cards, C::None, N::LinkTestOnly, fields(1, 1), {kP1}, 0, 0, false, O::Reader},
    {D::MODULATORE,
     K::Standard,
     C::ListsA,
     N::Outputs,
     fields(1, 5),
     {kP1, kP2, kP3},
     0x01,
     0x01,
     true,
     O::None},
    {D::VIDEOCITOFONO, K::VideoDoor, C::None, N::LinkTestOnly, 0, {}, 0, 0, false, O::None},
    {D::LAMPADA,
     K::Standard,
     C::ListsA,
     N::Outputs,
     fields(1, 5),
     {{{1, Text::PARAM_EMERGENCY_LUX, ""},
       {2, Text::PARAM_EMERGENCY_POWER, ""},
       {3, Text::PARAM_TWILIGHT_LUX, ""},
       {4, Text::PARAM_TWILIGHT_POWER, ""},
       {5, Text::PARAM_TWILIGHT_DELAY, ""}}},
     kAllOutputs,
     0,
     true,
     O::None},
    // The virtual outputs 5 to 8 keep their lists.
    {D::PILOTA_EMERGENZA,
     K::Standard,
     C::ListsA,
     N::Outputs,
     fields(1, 5),
     {kP1, kP2, kP3},
     0x07,
     0,
     true,
     O::Channels},
    {D::TELECOMANDO, K::RemoteButton, C::None, N::None, 0, {}, 0, 0, false, O::CodeFlag},
    {D::CODICE_RADIO, K::None, C::None, N::None, 0, {}, 0, 0, false, O::CodeFlag},
    {D::RELE4_SEMPLICE,
     K::Standard,
     C::OpenOrClosed,
     N::Outputs,
     fields(1, 3),
     {kP1, kP2, kP3},
     0,
     0,
     true,
     O::None},
    {D::RELE2_SEMPLICE,
     K::Standard,
     C::OpenOnly,
     N::Outputs,
     fields(1, 3),
     {kP1, kP2, kP3},
     0,
     0,
     true,
     O::None},
    {D::RADIO,
     K::Standard,
     C::OpenOnly,
     N::Outputs,
     fields(1, 3) | fields(6, 6),
     {kP1, kP2, kP3, {6, Text::PARAM_ROLLING_CODE, P::P6_ROLLING_CODE}},
     kAllOutputs,
     kAllOutputs,
     false,
     O::None},
    {D::SONDA,
     K::Probe,
     C::None,
     N::None,
     fields(2, 2),
     {{{2, Text::PARAM_TEMPERATURE_READ_INTERVAL, P::P2_SONDA}}},
     0,
     0,
     false,
     O::None},
}};

constexpr bool in_description_order() {
    for (std::size_t i = 0; i < kModels.size(); ++i)
        if (static_cast<std::size_t>(kModels[i].id) != i) return false;
    return true;
}
static_assert(in_description_order());

std::vector<char> contacts_offered(ContactList list, int j) {
    switch (list) {
        case ContactList::ListsA:
            if (j <= 4) return {kContactOpen, kContactClosed};
            return {kContactOpen, kContactVariator};
        case ContactList::ListsTwoRelays:
            if (j <= 2) return {kContactOpen, kContactClosed};
            if (j <= 4) return {kContactOpen};
            return {kContactOpen, kContactVariator};
        case ContactList::OpenOrClosed:
            return {kContactOpen, kContactClosed};
        case ContactList::OpenOnly:
            return {kContactOpen};
        case ContactList::None:
            break;
    }
    return {};
}

bool bit(std::uint8_t bits, int j) {
    return (bits >> (j - 1)) & 1;
}

// The video door pages number their boxes by page (FFF0 to FFF3).
std::string video_input_caption(char page, int i, const texts::LanguageTables& t) {
    switch (page) {
        case '0':
            return t.text(Text::VIDEO_ICON) + std::to_string(i);
        case '1':
            return t.text(Text::VIDEO_ICON) + std::to_string(i + 8);
        case '2':
            return t.text(Text::VIDEO_ICON) + std::to_string(i + 16);
        default:
            return i <= 5 ? t.text(Text::VIDEO_THERMOSTAT) + std::to_string(i + 200)
                          : t.text(Text::VIDEO_TIMER) + std::to_string(i + 45);
    }
}

std::string video_output_caption(char page, int j, const texts::LanguageTables& t) {
    const std::string on_panel = t.text(Text::VIDEO_ON_PANEL);
    switch (page) {
        case '0':
            return t.text(Text::VIDEO_EVENT) + std::to_string(j + 100) + on_panel;
        case '1':
            return t.text(Text::VIDEO_EVENT) + std::to_string(j + 108) + on_panel;
        case '2':
            return j <= 3 ? t.text(Text::VIDEO_EVENT) + std::to_string(j + 116) + on_panel
                          : t.text(Text::VIDEO_PRIORITY_EVENT) + std::to_string(j + 246) + on_panel;
        default:
            return j <= 2 ? t.text(Text::VIDEO_ANALOG) + std::to_string(j + 150) + on_panel : "";
    }
}

char kind_of_row1(const store::ModuleRecord& record) {
    return record.rows.empty() || record.rows[0].modo.empty() ? 'P' : record.rows[0].modo[0];
}

}  // namespace

const DescriptionModel& model_of(Description d) {
    return kModels[static_cast<std::size_t>(d)];
}

std::vector<char> offered_kinds(const ModuleType& type) {
    switch (model_of(type.description).kinds) {
        case KindList::Standard: {
            std::vector<char> letters;
            for (const InputKind& k : standard_input_kinds(type.code)) letters.push_back(k.letter);
            return letters;
        }
        case KindList::Photosensor:
            return {'L', 'M', 'K'};
        case KindList::Probe:
            return {'J', 'W', 'X'};
        case KindList::RemoteButton:
            return {'R'};
        case KindList::VideoDoor:
            return {'v', 'z'};
        case KindList::Cards:
        case KindList::None:
            break;
    }
    return {};
}

std::vector<ListOption> kind_options(const ModuleType& type, int input,
                                     const store::ModuleRecord& record,
                                     const texts::LanguageTables& texts) {
    std::vector<ListOption> options;
    if (model_of(type.description).kinds == KindList::Cards) {
        options.push_back({texts.text(Text::CARDS_LIST_HEADING), 0});
        if (input >= 1 && input <= record.N_RIGHE_MODULO())
            for (std::string& card : cards_of(record.riga(input).dati_aggiuntivi1))
                options.push_back({std::move(card), 0});
        return options;
    }
    for (char letter : offered_kinds(type)) {
        Text text;
        if (kind_text(letter, text)) options.push_back({std::string(texts[text]), letter});
    }
    return options;
}

OutputBox output_box(const ModuleType& type, int j, const store::ModuleRecord& record) {
    const DescriptionModel& m = model_of(type.description);
    OutputBox box;
    const int row = j + 8;
    if (row > record.N_RIGHE_MODULO()) return box;
    const store::NickRow& r = record.riga(row);
    box.name = r.nick;
    if (j > 8 || m.names == NamesShown::LinkTestOnly) return box;  // flags, and names alone
    if (!bit(m.hidden_contacts, j)) box.contacts = contacts_offered(m.contacts, j);
    box.contact = r.modo.size() >= 2 ? r.modo[1] : kContactOpen;
    box.option_button_hidden = bit(m.hidden_marks, j);
    // Settings from character 3 on: the AND and RECIPROCO bits, a per-type value.
    box.options_marked = m.mark_test && basic::val(basic::mid(r.modo, 3)) != 0;
    return box;
}

WindowLayout window_layout(const ModuleType& type, const std::string& module_code,
                           const texts::LanguageTables& texts) {
    WindowLayout layout;
    layout.name = type.has_name ? texts.text(type.name) : std::string(type.fixed_name);
    layout.buttons = type.buttons;
    if (type.description == Description::VIDEOCITOFONO) {
        const char page = module_code.size() >= 4 ? module_code[3] : '0';
        for (int k = 1; k <= 8; ++k) {
            layout.input_captions[k] = video_input_caption(page, k, texts);
            layout.output_captions[k] = video_output_caption(page, k, texts);
        }
        return layout;
    }
    auto fill = [&texts](std::array<std::string, 9>& captions, const BoxGroup* groups, int count) {
        for (int g = 0; g < count; ++g)
            for (int box = groups[g].first; box <= groups[g].last; ++box)
                captions[box] =
                    texts.text(groups[g].stem) +
                    (groups[g].first_number
                         ? std::to_string(box - groups[g].first + groups[g].first_number)
                         : "");
    };
    fill(layout.input_captions, type.inputs.data(), type.input_groups);
    fill(layout.output_captions, type.outputs.data(), type.output_groups);
    return layout;
}

ParameterPage read_parameters(const ModuleType& type, const store::ModuleRecord& record,
                              const texts::LanguageTables& texts) {
    const DescriptionModel& m = model_of(type.description);
    ParameterPage page;
    page.options = m.options;
    const std::string parameters =
        record.rows.empty() ? std::string(18, '0') : module_parameters(record.rows[0].riserva3);
    const char kind = kind_of_row1(record);
    for (const ParameterBox& box : m.boxes) {
        if (box.field == 0) break;
        ParameterPage::Box shown;
        shown.field = box.field;
        shown.caption = texts.text(box.caption);
        shown.value = TOGLI_ZERI(parameter_field(parameters, box.field));
        if (basic::val(shown.value) == 0 && !box.default_value.empty())
            shown.value = box.default_value;
        shown.visible = bit(shown_fields(type, record), box.field);
        if (type.description == Description::FOTOSENSORE && kind == 'L' && box.field == 2)
            shown.caption = texts.text(Text::PARAM_READ_INTERVAL);
        page.boxes.push_back(std::move(shown));
    }
    switch (m.options) {
        case SpecialOptions::Channels:
            page.rgb_channels = record.N_RIGHE_MODULO() >= 9 && record.riga(9).tipologia == "RGB";
            break;
        case SpecialOptions::Reader: {
            const std::string& connesso =
                record.rows.empty() ? std::string() : record.rows[0].connesso;
            const char c = connesso.size() >= 2 ? connesso[1] : 'G';
            page.reader = (c == 'E' || c == 'I') ? c : 'G';
            for (int i = 1; i <= 8 && i <= record.N_RIGHE_MODULO(); ++i)
                page.cards[i] = cards_of(record.riga(i).dati_aggiuntivi1);
            break;
        }
        case SpecialOptions::CodeFlag:
            page.rolling_code = uses_rolling_code(parameters);
            break;
        case SpecialOptions::None:
            break;
    }
    return page;
}

void write_parameters(const ModuleType& type, const ParameterPage& page,
                      store::ModuleRecord& record) {
    if (record.rows.empty()) return;
    const DescriptionModel& m = model_of(type.description);
    store::NickRow& head = record.rows[0];
    std::string parameters = module_parameters(head.riserva3);
    for (const ParameterPage::Box& box : page.boxes) {
        if (!bit(m.fields_written, box.field)) continue;
        set_parameter_field(parameters, box.field, TRE_CIFRE(held_to_byte(box.value)));
    }
    switch (m.options) {
        case SpecialOptions::Channels:
            for (int r = 9; r <= 11 && r <= record.N_RIGHE_MODULO(); ++r)
                record.riga(r).tipologia = page.rgb_channels ? "RGB" : "DIMMER";
            break;
        case SpecialOptions::Reader:
            if (head.connesso.size() < 2) head.connesso.resize(8, '.');
            head.connesso[1] = page.reader;
            for (int i = 1; i <= 8 && i <= record.N_RIGHE_MODULO(); ++i)
                record.riga(i).dati_aggiuntivi1 = cards_text(page.cards[i]);
            break;
        case SpecialOptions::CodeFlag:
            set_rolling_code(parameters, page.rolling_code);
            break;
        case SpecialOptions::None:
            break;
    }
    set_module_parameters(head.riserva3, parameters);
}

bool is_analog_kind(char kind) {
    return std::string_view("AbBDGUSJWX").find(kind) != std::string_view::npos;
}

std::uint8_t shown_fields(const ModuleType& type, const store::ModuleRecord& record) {
    std::uint8_t bits = 0;
    for (const ParameterBox& box : model_of(type.description).boxes) {
        if (box.field == 0) break;
        bits |= static_cast<std::uint8_t>(1 << (box.field - 1));
    }
    const char kind = kind_of_row1(record);
    // Timed or on-change sensing leaves no regulation to set.
    if (type.description == Description::FOTOSENSORE && (kind == 'M' || kind == 'L'))
        bits &= fields(1, 2);
    return bits;
}

bool shows_input(const ModuleType& type, int i) {
    if (i < 1 || i > 8) return false;
    if (type.description == Description::VIDEOCITOFONO) return true;
    for (int g = 0; g < type.input_groups; ++g)
        if (i >= type.inputs[g].first && i <= type.inputs[g].last) return true;
    return false;
}

bool shows_output(const ModuleType& type, const std::string& module_code, int j) {
    if (j > 8) return j <= 24 && model_of(type.description).names == NamesShown::OutputsAndFlags;
    if (j < 1) return false;
    if (type.description == Description::VIDEOCITOFONO)
        return !(module_code.size() >= 4 && module_code[3] == '3' && j > 2);
    for (int g = 0; g < type.output_groups; ++g)
        if (j >= type.outputs[g].first && j <= type.outputs[g].last) return true;
    return false;
}

std::vector<InputParameter> input_parameters(char kind) {
    switch (kind) {
        case 'V':
            return {{1, Text::PARAM_STEP_VALUE, "010"},
                    {2, Text::PARAM_VALUE_SEND_INTERVAL, "002"},
                    {3, Text::PARAM_DIMMER_MINIMUM, "060"}};
        case 'T':
            return {{2, Text::PARAM_HOLD_TIME, "010"}};
        case 'N':
            return {{1, Text::PARAM_PULSE_COUNT, "004"},
                    {2, Text::PARAM_PULSE_COUNT_WINDOW, "030"}};
        case 'L':
            return {{2, Text::PARAM_VALUE_SEND_INTERVAL, "100"}};
        case 'A':
            return {{1, Text::PARAM_ANALOG_MIN_CHANGE, "005"}};
        case 'J':
        case 'W':
        case 'X':
            return {{1, Text::PARAM_ANALOG_MIN_CHANGE, "040"}};
        case 'b':
        case 'B':
        case 'D':
        case 'G':
        case 'U':
        case 'S':
            return {{1, Text::PARAM_ANALOG_MIN_CHANGE, ""}};
        default:
            return {};
    }
}

}  // namespace filo::modules
