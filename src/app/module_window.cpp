#include "app/module_window.hpp"

#include <algorithm>
#include <cmath>

#include "app/session.hpp"
#include "bus/module_code.hpp"
#include "common/basic_functions.hpp"
#include "modules/parameter_fields.hpp"

namespace filo::app {

using modules::EditRefusal;
using texts::Text;

namespace {

// Only the digits pass, held to `max` as the boxes hold them.
std::string held(const std::string& text, int max) {
    std::string digits;
    for (char c : text)
        if (c >= '0' && c <= '9') digits += c;
    if (digits.empty()) return "";
    return basic::val(digits) > max ? std::to_string(max)
                                    : std::to_string(static_cast<int>(basic::val(digits)));
}

bool is_receiver(const std::string& code) {
    return code.size() == 6 && (code.ends_with("4A") || code.ends_with("12"));
}

}  // namespace

ModuleWindow::ModuleWindow(Session& session) : replacement(session), session_(session) {}
ModuleWindow::~ModuleWindow() = default;

bool ModuleWindow::load(int PUNTO_EVIDENZIATO, ModuleOpener by) {
    store::ModuleTable& table = session_.modules;
    opener = by;
    closed_ = false;
    const std::string code = table.CODICE_MODULO;
    editor_ = std::make_unique<modules::ModuleEditor>(table, session_.links);
    new_module = table.STATO_MODULO != store::kModuloEsistente;
    table.CANCELLA_IN_SALVATAGGIO.clear();
    const bool ready = new_module ? editor_->create(code) : editor_->open(code);
    if (!ready) {
        // TIPO_NON_GESTITO: the window closes by itself.
        session_.message(Text::MODULE_TYPE_UNSUPPORTED, Text::TITLE_WARNING);
        closed_ = true;
        return false;
    }
    Label7 = code + bus::CODICE_CONTROLLO(code);
    label22 = session_.on_line() ? session_.texts.text(Text::LINE_ONLINE) + session_.PORTA_COM
                                 : session_.texts.text(Text::LINE_OFFLINE);
    Text24 = table.RIGHE_MODULO.riga(1).note;
    fill();

    // The receivers of a remote element: all of them, however many.
    Option3.clear();
    receiver = 0;
    const std::string_view type = editor_->type().code;
    if (type == "33" || type == "34" || type == "35") {
        table.ELENCO_MODULI();
        for (const std::string& c : table.ELENCO_CODICI)
            if (is_receiver(c)) Option3.push_back(c);
        const std::string stored = modules::receiver_code(table.RIGHE_MODULO.riga(1).riserva4);
        const auto it = std::find(Option3.begin(), Option3.end(), stored);
        if (it != Option3.end()) receiver = static_cast<int>(it - Option3.begin());
    }
    receiver_choice = Option3.size() > 1;

    highlighted = 0;
    if (PUNTO_EVIDENZIATO >= 1 && PUNTO_EVIDENZIATO <= 8 && inputs[PUNTO_EVIDENZIATO].visible)
        highlighted = PUNTO_EVIDENZIATO;
    if (PUNTO_EVIDENZIATO >= 9 && PUNTO_EVIDENZIATO <= 16 && outputs[PUNTO_EVIDENZIATO - 8].visible)
        highlighted = PUNTO_EVIDENZIATO;
    page = Page::None;
    return true;
}

void ModuleWindow::fill() {
    const store::ModuleRecord& m = session_.modules.RIGHE_MODULO;
    const modules::ModuleType& type = editor_->type();
    const std::string& code = session_.modules.CODICE_MODULO;
    const modules::WindowLayout layout = modules::window_layout(type, code, session_.texts);
    const modules::DescriptionModel& model = modules::model_of(type.description);
    Label8 = layout.name;
    buttons = layout.buttons;
    cards = model.kinds == modules::KindList::Cards;
    for (int i = 1; i <= 8; ++i) {
        InputBox& box = inputs[i];
        box = InputBox{};
        box.visible = !layout.input_captions[i].empty() && i <= m.N_RIGHE_MODULO();
        if (!box.visible) continue;
        const store::NickRow& r = m.riga(i);
        box.caption = layout.input_captions[i];
        box.Text2 = r.nick;
        box.Combo1 = modules::kind_options(type, i, m, session_.texts);
        box.kind = r.modo.empty() ? 'P' : r.modo[0];
        box.option_button = model.kinds != modules::KindList::RemoteButton;
        session_.links.CERCA_IN_SE_COLLEGATO(r.nick);
        box.linked = session_.links.COLLEGATO == "SI";
        box.marked = basic::val(basic::left(r.riserva2, 9)) != 0;
    }
    for (int j = 1; j <= 24; ++j) {
        OutputBox& box = outputs[j];
        box = OutputBox{};
        box.visible = modules::shows_output(type, code, j) && j + 8 <= m.N_RIGHE_MODULO();
        if (!box.visible) continue;
        const modules::OutputBox shown = modules::output_box(type, j, m);
        box.caption = j <= 8 ? layout.output_captions[j]
                             : session_.texts.text(Text::FLAG_CAPTION) + std::to_string(j - 8);
        box.Text1 = shown.name;
        box.contacts = shown.contacts;
        box.contact = shown.contact;
        box.marked = shown.options_marked;
        box.option_button = j <= 8 && !shown.option_button_hidden &&
                            model.names != modules::NamesShown::LinkTestOnly &&
                            model.contacts != modules::ContactList::None;
        if (!box.Text1.empty()) {
            session_.links.CERCA_OUT_SE_COLLEGATO(box.Text1);
            box.linked = session_.links.COLLEGATO == "SI";
        }
    }
}

void ModuleWindow::refuse(EditRefusal refusal, std::string_view detail, Text title) {
    session_.message_text(editor_->message(refusal, session_.texts, detail),
                          session_.texts.text(title));
}

bool ModuleWindow::Text2_Change(int i, const std::string& text) {
    InputBox& box = inputs.at(static_cast<std::size_t>(i));
    // Leading blanks go; the box keeps what is typed behind, the record the
    // name as stored.
    const std::string name = text.substr(std::min(text.find_first_not_of(' '), text.size()));
    box.red = false;
    const EditRefusal r = editor_->rename(i, name, modules::ModuleEditor::NameCheck::AtSave);
    if (r != EditRefusal::None) {
        refuse(r, modules::refused_name_character(name), Text::TITLE_WARNING_LOWER);
        box.Text2 = session_.modules.RIGHE_MODULO.riga(i).nick;  // NOME_PRECEDENTE
        return false;
    }
    box.Text2 = name;
    return true;
}

bool ModuleWindow::Text1_Change(int j, const std::string& text) {
    OutputBox& box = outputs.at(static_cast<std::size_t>(j));
    // Leading blanks go; the box keeps what is typed behind, the record the
    // name as stored.
    const std::string name = text.substr(std::min(text.find_first_not_of(' '), text.size()));
    box.red = false;
    const EditRefusal r = editor_->rename(j + 8, name, modules::ModuleEditor::NameCheck::AtSave);
    if (r != EditRefusal::None) {
        refuse(r, modules::refused_name_character(name), Text::TITLE_WARNING_LOWER);
        box.Text1 = session_.modules.RIGHE_MODULO.riga(j + 8).nick;
        return false;
    }
    box.Text1 = name;
    if (j <= 8)
        box.marked =
            modules::output_box(editor_->type(), j, session_.modules.RIGHE_MODULO).options_marked;
    return true;
}

void ModuleWindow::Text24_Change(const std::string& text) {
    if (editor_->type().code == "23") return;  // locked on the video door pages
    Text24 = text.substr(0, 100);
}

bool ModuleWindow::Combo1_Click(int i, char letter) {
    const EditRefusal r = editor_->set_kind(i, letter);
    if (r != EditRefusal::None) {
        refuse(r, std::string(1, letter), Text::TITLE_WARNING);
        return false;
    }
    inputs[i].kind = letter;
    inputs[i].marked = false;  // options of another kind don't carry over
    return true;
}

bool ModuleWindow::Combo2_Click(int j, char contact) {
    const EditRefusal r = editor_->set_contact(j + 8, contact);
    if (r != EditRefusal::None) {
        refuse(r, std::string(1, contact),
               r == EditRefusal::ClosedWithReciprocal ? Text::INCONSISTENCY_TITLE
                                                      : Text::TITLE_WARNING);
        return false;
    }
    fill();  // the paired input follows a variator
    return true;
}

void ModuleWindow::Option3_Click(int n) {
    if (n >= 0 && n < static_cast<int>(Option3.size())) receiver = n;
}

void ModuleWindow::Image1_Click(int n) {
    if (page != Page::None) return;
    switch (n) {
        case 1:
            if (save()) close();
            return;
        case 2:
            if (new_module) return;  // nero: a module not in the table
            if (delete_module()) close();
            return;
        case 3:
            // nero on a module not yet in the table
            if (new_module || !(buttons & modules::kReplaceButton)) return;
            replacement.open();  // APRI_SOSTITUZIONE
            page = Page::Replace;
            return;
        case 4:
            module_page = modules::read_parameters(editor_->type(), session_.modules.RIGHE_MODULO,
                                                   session_.texts);
            Label11.clear();
            page = Page::Module;
            return;
        case 5:
            if (buttons & modules::kAggregateButton) page = Page::Aggregates;
            return;
        case 7:
            if (buttons & modules::kFlagPageButton) page = Page::Flags;
            return;
        case 8:
            if (session_.ask(Text::EXIT_WITHOUT_SAVING, Text::MODULE_WINDOW_TITLE)) close();
            return;
        default:
            return;
    }
}

void ModuleWindow::ASSOCIA_closed() {
    if (page == Page::Aggregates) page = Page::None;
}

bool ModuleWindow::save() {
    store::ModuleTable& table = session_.modules;
    store::ModuleRecord& m = table.RIGHE_MODULO;
    if (editor_->type().code != "23")
        for (int i = 1; i <= 8 && i <= m.N_RIGHE_MODULO(); ++i) m.riga(i).note = Text24;
    if (!Option3.empty()) {
        const EditRefusal r = editor_->set_receiver(Option3[static_cast<std::size_t>(receiver)]);
        if (r != EditRefusal::None) {
            refuse(r, Option3[static_cast<std::size_t>(receiver)], Text::TITLE_WARNING);
            return false;
        }
    }
    const EditRefusal r = editor_->save();
    if (r == EditRefusal::NameInUse) {
        for (int row : editor_->red_rows()) {
            if (row <= 8)
                inputs[row].red = true;
            else if (row - 8 <= 24)
                outputs[row - 8].red = true;
        }
        session_.message(Text::NAMES_ALREADY_IN_USE, Text::TITLE_WARNING_LOWER);
        return false;
    }
    if (r != EditRefusal::None) {
        refuse(r, table.CODICE_MODULO,
               r == EditRefusal::SafetyInputsNeedInterval ? Text::TITLE_WARNING_SPACED
                                                          : Text::INCONSISTENCY_TITLE);
        return false;
    }
    new_module = false;
    return true;
}

bool ModuleWindow::delete_module() {
    const bool video_door = editor_->type().code == "23";
    if (!session_.ask(Text::DELETE_MODULE_CONFIRM,
                      video_door ? Text::DELETE_VIDEO_DOOR : Text::DELETE_MODULE))
        return false;
    editor_->delete_module();
    return true;
}

void ModuleWindow::close() {
    // The output test ends with the window: mask 0, no message.
    if (test_mask() != 0 && session_.on_line())
        session_.line.PROVA_USCITE(session_.modules.CODICE_MODULO, 0);
    for (OutputBox& box : outputs) box.under_test = false;
    closed_ = true;
}

int ModuleWindow::test_mask() const {
    int mask = 0;
    for (int k = 1; k <= 8; ++k)
        if (outputs[k].under_test) mask |= 1 << (k - 1);
    return mask;
}

void ModuleWindow::Image5_Click(int i) {
    if (page != Page::None || i < 1 || i > 8 || !inputs[i].visible) return;
    const store::ModuleRecord& m = session_.modules.RIGHE_MODULO;
    const store::NickRow& r = m.riga(i);
    const char kind = r.modo.empty() ? 'P' : r.modo[0];
    page = Page::Input;
    input_page = InputPage{};
    input_page.input = i;
    Label11 = session_.modules.CODICE_MODULO + "/" + std::to_string(i) +
              session_.texts.text(Text::PAGE_INPUT_VALUES);
    const auto offered = modules::input_parameters(kind);
    if (offered.empty()) {
        Label11 = session_.texts.text(Text::PARAM_NONE_FOR_INPUT);
        return;
    }
    const std::string parameters = modules::module_parameters(m.riga(1).riserva3);
    if (modules::is_analog_kind(kind) && basic::val(modules::parameter_field(parameters, 2)) != 0) {
        // The data are read by time: a threshold makes no sense.
        Label11 = session_.texts.text(Text::PAGE_TIMED_READING_SET);
        session_.message(Text::THRESHOLD_NEEDS_NO_TIMED_READING, Text::INCONSISTENCY_TITLE);
        return;
    }
    for (const modules::InputParameter& p : offered) {
        modules::ParameterPage::Box box;
        box.field = p.field;
        box.caption = session_.texts.text(p.caption);
        box.value = modules::TOGLI_ZERI(modules::point_field(r.riserva2, p.field));
        if (basic::val(box.value) == 0 && !p.default_value.empty())
            box.value = modules::TOGLI_ZERI(p.default_value);
        input_page.boxes.push_back(std::move(box));
    }
}

void ModuleWindow::Text4_Change(int n, const std::string& text) {
    auto& boxes = page == Page::Module ? module_page.boxes : input_page.boxes;
    if (n >= 0 && n < static_cast<int>(boxes.size()))
        boxes[static_cast<std::size_t>(n)].value = held(text, 255);
}

void ModuleWindow::Label9_Click() {
    if (page == Page::Module) {
        modules::write_parameters(editor_->type(), module_page, session_.modules.RIGHE_MODULO);
    } else if (page == Page::Input) {
        for (const auto& box : input_page.boxes)
            editor_->set_parameter(input_page.input, "V" + std::to_string(box.field), box.value);
        inputs[input_page.input].marked =
            basic::val(
                basic::left(session_.modules.RIGHE_MODULO.riga(input_page.input).riserva2, 9)) != 0;
    } else {
        return;
    }
    page = Page::None;
}

void ModuleWindow::Image8_Click(int j) {
    if (page != Page::None || j < 1 || j > 8 || !outputs[j].option_button) return;
    store::ModuleRecord& m = session_.modules.RIGHE_MODULO;
    const store::NickRow& out = m.riga(j + 8);
    // A normally closed output has no page, nor has an unnamed one.
    if (outputs[j].contact == modules::kContactClosed || out.nick.empty()) return;
    const std::string_view type = editor_->type().code;
    const auto one_of = [type](std::initializer_list<std::string_view> types) {
        return std::find(types.begin(), types.end(), type) != types.end();
    };
    output_page = OutputPage{};
    output_page.output = j;
    page = Page::Output;
    if (one_of({"11", "12", "15", "25", "48", "49"})) {
        output_page.functions = true;
        const std::string modo = out.modo + std::string(24, '0');
        for (int k = 1; k <= 8; ++k) {
            const std::string& name = m.riga(k + 8).nick;
            const bool relay = m.riga(k + 8).tipologia == "RELE" && !name.empty();
            output_page.Check4_caption[k] = output_page.Check4_caption[k + 8] =
                relay ? session_.texts.text(Text::PAGE_RELAY) + std::to_string(k) + " " + name
                      : session_.texts.text(Text::PAGE_UNNAMED_RELAY);
            output_page.Check4[k] = modo[7 + k] == '1';
            output_page.Check4[k + 8] = modo[15 + k] == '1';
        }
    }
    const bool variator = outputs[j].contact == modules::kContactVariator;
    if (one_of({"11", "12", "15", "25"}) && !variator) {
        const modules::OutputValues v = modules::read_output_values(out.riserva2);
        output_page.values = true;
        output_page.Text6 = std::to_string(v.on);
        output_page.Text7 = std::to_string(v.off);
    }
    output_page.variator = one_of({"11", "12", "15", "25", "26"}) && variator;
    const bool emergency_channel = (type == "25" && j <= 4) || (type == "26" && j <= 3);
    if (emergency_channel && out.connesso.size() >= 2 &&
        (out.connesso[1] == 'E' || out.connesso[1] == 'e')) {
        output_page.emergency = true;
        output_page.Slider1 =
            static_cast<int>(std::floor(basic::val(modules::point_field(out.riserva2, 3)) / 2.55));
        output_page.Check1 = out.connesso[1] == 'e';
    }
}

void ModuleWindow::Image50_Click() {
    if (page != Page::Output || !output_page.variator) return;
    page = Page::None;
    Image5_Click(output_page.output);
}

void ModuleWindow::Check4_Click(int n, bool ticked) {
    if (page != Page::Output || n < 1 || n > 16) return;
    const int j = output_page.output;
    const int k = n <= 8 ? n : n - 8;
    bool& box = output_page.Check4[n];
    box = ticked;
    if (!ticked) return;
    // An unnamed relay can't be chosen, nor the output itself.
    if (output_page.Check4_caption[n] == session_.texts.text(Text::PAGE_UNNAMED_RELAY) || k == j) {
        box = false;
        return;
    }
    if (output_page.Check4[k] && output_page.Check4[k + 8]) {
        session_.message(Text::AND_RECIPROCAL_EXCLUSIVE, Text::INCONSISTENCY_TITLE);
        box = false;
        return;
    }
    if (n > 8 && outputs[k].contact == modules::kContactClosed) {
        session_.message(Text::RECIPROCAL_WITH_NC, Text::INCONSISTENCY_TITLE);
        box = false;
    }
}

void ModuleWindow::Text6_Change(const std::string& text) {
    output_page.Text6 = held(text, 251);
}

void ModuleWindow::Text7_Change(const std::string& text) {
    output_page.Text7 = held(text, 251);
}

void ModuleWindow::Slider1_Change(int value) {
    value = std::clamp(value, 0, 100);
    // A relay has no middle.
    if (editor_->type().code == "25") value = value < 51 ? 0 : 100;
    output_page.Slider1 = value;
}

void ModuleWindow::Label36_Click() {
    if (page != Page::Output) return;
    const int row = output_page.output + 8;
    EditRefusal r = EditRefusal::None;
    if (output_page.functions) {
        std::string and_bits(8, '0'), reciprocal(8, '0');
        for (int k = 1; k <= 8; ++k) {
            if (output_page.Check4[k]) and_bits[k - 1] = '1';
            if (output_page.Check4[k + 8]) reciprocal[k - 1] = '1';
        }
        r = editor_->set_functions(row, and_bits, reciprocal);
    }
    if (r == EditRefusal::None && output_page.values) {
        r = editor_->set_parameter(row, "ON", output_page.Text6);
        if (r == EditRefusal::None) r = editor_->set_parameter(row, "OFF", output_page.Text7);
    }
    if (r == EditRefusal::None && output_page.emergency) {
        r = editor_->set_parameter(row, "EMERGENCY", std::to_string(output_page.Slider1));
        if (r == EditRefusal::None) r = editor_->set_commands_in_emergency(row, output_page.Check1);
    }
    if (r != EditRefusal::None) {
        refuse(r, session_.modules.CODICE_MODULO, Text::INCONSISTENCY_TITLE);
        return;
    }
    outputs[output_page.output].marked =
        modules::output_box(editor_->type(), output_page.output, session_.modules.RIGHE_MODULO)
            .options_marked;
    page = Page::None;
}

void ModuleWindow::Label34_Click() {
    if (page == Page::Flags) page = Page::None;
}

void ModuleWindow::Text3_Change(const std::string& text) {
    if (page != Page::Replace) return;
    if (!replacement.Text3_Change(text)) return;
    page = Page::None;
    close();
}

void ModuleWindow::Label15_Click() {
    if (page == Page::Replace) page = Page::None;
}

void ModuleWindow::Text1_DblClick(int j) {
    if (j < 1 || j > 8 || !outputs[j].visible) return;
    if (!session_.on_line()) {
        session_.message(Text::TEST_NEEDS_ONLINE, Text::TITLE_FILO);
        return;
    }
    outputs[j].under_test = !outputs[j].under_test;
    session_.line.PROVA_USCITE(session_.modules.CODICE_MODULO, test_mask());
}

void ModuleWindow::Text2_DblClick(int i) {
    if (i < 1 || i > 8 || !inputs[i].visible) return;
    if (inputs[i].kind != 'P' && inputs[i].kind != 'I') {
        session_.message(Text::TEST_ONLY_SIMPLE_INPUTS, Text::TITLE_FILO);
        return;
    }
    if (!session_.on_line()) {
        session_.message(Text::TEST_NEEDS_ONLINE, Text::TITLE_FILO);
        return;
    }
    inputs[i].under_test = !inputs[i].under_test;
    session_.line.PROVA_INGRESSO(session_.modules.CODICE_MODULO, i, inputs[i].under_test ? 251 : 9);
}

bool ModuleWindow::Text9_Change(int i, const std::string& text) {
    if (!cards || text.size() != 6) return false;
    bool added = false;
    const EditRefusal r = editor_->enter_card(i, text, &added);
    if (r != EditRefusal::None) {
        refuse(r, text, Text::TITLE_WARNING);
        return false;
    }
    inputs[i].Combo1 =
        modules::kind_options(editor_->type(), i, session_.modules.RIGHE_MODULO, session_.texts);
    return added;
}

}  // namespace filo::app
