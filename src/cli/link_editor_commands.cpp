// modes, add-link, delete-link: the link editor without its window. The same
// selection, checks, modes and rows as the editor, through links::LinkEditor.
#include <charconv>
#include <ostream>

#include "cli/commands.hpp"
#include "cli/row_output.hpp"
#include "links/link_editor.hpp"
#include "store/link_queries.hpp"
#include "store/link_table.hpp"
#include "store/point_lists.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::cli {
namespace {

using texts::Text;

// The project, its tables and the link being made, with both points chosen
// by their item data as `points` prints them.
struct EditorSession {
    EditorSession(Context& context, const std::string& path,
                  store::Access access = store::Access::ReadWrite)
        : texts(context.texts) {
        project.open(path, access);
    }

    void select(std::int64_t command_item, std::int64_t output_item) {
        store::PointLists lists(project, texts);
        lists.CARICA_COMBO(3);
        auto text_of = [this](const std::vector<store::ListEntry>& list, std::int64_t item) {
            for (const store::ListEntry& e : list)
                if (e.item_data == item && item != store::kGroupHeaderItemData) return e.text;
            throw UserError(texts.text(Text::LINK_ITEM_UNKNOWN) + std::to_string(item));
        };
        const std::string command_text = text_of(lists.Combo_COMANDI, command_item);
        const std::string output_text = text_of(lists.Combo_UTILIZZATORI, output_item);
        if (!editor.select_command(command_item, command_text))
            throw UserError(texts.text(Text::LINK_ITEM_UNKNOWN) + std::to_string(command_item));
        if (!editor.select_user(output_item, output_text))
            throw UserError(texts.text(Text::LINK_ITEM_UNKNOWN) + std::to_string(output_item));
        if (editor.check() == links::LinkEditor::Check::Refused)
            throw UserError(texts.text(Text::OPERATION_NOT_ALLOWED));
    }

    const texts::LanguageTables& texts;
    store::Project project;
    store::ModuleTable modules{project};
    store::LinkTable links{project};
    store::LinkQueries queries{project, links, texts};
    links::LinkEditor editor{modules, links, queries, texts};
};

bool parse_int(std::string_view text, int& value) {
    if (text.empty()) return false;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size() && value >= 0;
}

}  // namespace

bool parse_link_time(const std::string& text, links::TimeEntry& time) {
    time = {};
    std::string_view whole = text;
    const std::size_t dot = whole.find('.');
    if (dot != std::string_view::npos) {
        const std::string_view tenths = whole.substr(dot + 1);
        if (tenths.size() != 1 || !parse_int(tenths, time.tenths)) return false;
        whole = whole.substr(0, dot);
    }
    int h = 0, m = 0, s = 0;
    if (whole.find(':') == std::string_view::npos) {
        if (!parse_int(whole, s) || s > 64799) return false;
        h = s / 3600;
        m = s % 3600 / 60;
        s %= 60;
    } else {
        const std::size_t a = whole.find(':'), b = whole.find(':', a + 1);
        if (b == std::string_view::npos || b - a != 3 || whole.size() - b != 3) return false;
        if (!parse_int(whole.substr(0, a), h) || !parse_int(whole.substr(a + 1, 2), m) ||
            !parse_int(whole.substr(b + 1), s))
            return false;
        if (h > 17 || m > 59 || s > 59) return false;
    }
    time.hours = h;
    time.minutes = m;
    time.seconds = s;
    return true;
}

int list_modes(Context& context, const ModesRequest& request) {
    EditorSession s(context, request.project, store::Access::ReadOnly);
    s.select(request.command, request.output);
    if (s.editor.check() != links::LinkEditor::Check::Modes) return kExitOk;
    for (int i = 1; i <= links::kModeCount; ++i)
        if (s.editor.offer.offers(i))
            context.out << i << '\t' << s.editor.offer.caption[static_cast<std::size_t>(i)] << '\n';
    return kExitOk;
}

int add_link(Context& context, const AddLinkRequest& request) {
    EditorSession s(context, request.project);
    const texts::LanguageTables& t = context.texts;
    s.select(request.command, request.output);
    links::LinkEditor& e = s.editor;
    if (!e.select_mode(request.mode))
        throw UserError(t.text(Text::LINK_MODE_NOT_OFFERED) + std::to_string(request.mode));
    if (e.needs_advanced_options()) throw UserError(t.text(Text::LINK_NEEDS_ADVANCED));

    const links::TimeBoxes boxes = e.boxes();
    auto not_offered = [&t](const char* option) {
        return UserError(t.text(Text::LINK_SETTING_NOT_OFFERED) + option);
    };
    auto take_time = [&](const std::optional<std::string>& text, bool shown, const char* option,
                         links::TimeEntry& time) {
        if (!text) return;
        links::TimeEntry typed;
        if (!parse_link_time(*text, typed))
            throw UserError(t.text(Text::LINK_TIME_INVALID) + escaped_field(*text));
        if (typed == links::TimeEntry{}) return;  // 0: not typed
        if (!shown) throw not_offered(option);
        const std::string type = e.user.identificativoRX.substr(4, 2);
        if (typed.tenths != 0 && (!boxes.tenths || !links::tenths_offered(type, typed)))
            throw not_offered(option);
        time = typed;
    };
    // On an indicator the lamp takes the activation and delay columns.
    take_time(request.time_on, boxes.time_on && !boxes.lamp, "--time-on", e.time_on);
    take_time(request.delay_on, boxes.delay_on && !boxes.lamp, "--delay-on", e.delay_on);
    take_time(request.delay_off, boxes.delay_off, "--delay-off", e.delay_off);
    if (request.no_retrigger) {
        if (!boxes.time_on || !boxes.ricaricabile) throw not_offered("--no-retrigger");
        e.ricaricabile = false;
    }
    if (request.steady || !request.blink.empty() || request.blink_pattern) {
        if (!boxes.lamp) throw not_offered("--steady/--blink/--blink-pattern");
        if (request.steady) e.lamp.kind = links::LampSettings::Kind::Steady;
        if (!request.blink.empty()) {
            e.lamp.kind = links::LampSettings::Kind::Simple;
            e.lamp.t_on = request.blink.at(0);
            e.lamp.t_off = request.blink.at(1);
        }
        if (request.blink_pattern) {
            e.lamp.kind = links::LampSettings::Kind::Composite;
            e.lamp.pattern = *request.blink_pattern;
        }
    }
    if (!request.messages.empty()) {
        if (e.UTILIZZATORE != "MESSAGGI") throw not_offered("--messages");
        e.messages.reset();
        for (int n : request.messages) e.messages.set(static_cast<std::size_t>(n - 1));
    }

    sqlite::Transaction dry(s.project.database());
    std::vector<std::int64_t> ids;
    switch (e.COLLEGA(request.replace, &ids)) {
        case links::LinkEditor::Save::Saved:
            break;
        case links::LinkEditor::Save::Exists:
            throw UserError(t.text(Text::LINK_EXISTS_ID) + std::to_string(e.existing_id));
        case links::LinkEditor::Save::SetsValue:
            throw UserError(t.text(Text::COMMAND_ALREADY_SETS_VALUE));
        case links::LinkEditor::Save::NoMessages:
            throw UserError(t.text(Text::LINK_NO_MESSAGE_SELECTED));
        case links::LinkEditor::Save::NeedsAdvanced:
            throw UserError(t.text(Text::LINK_NEEDS_ADVANCED));
        case links::LinkEditor::Save::NotReady:
            throw UserError(t.text(Text::LINK_MODE_NOT_OFFERED) + std::to_string(request.mode));
    }
    for (std::int64_t id : ids) {
        store::LinkRow row;
        s.links.read_row(id, row);
        print_link_row(context.out, row);
    }
    if (request.dry_run) return kExitOk;  // the transaction rolls back
    dry.commit();
    for (std::int64_t id : ids) context.err << id << '\n';
    return kExitOk;
}

int delete_link(Context& context, const std::string& project_path, std::int64_t id) {
    EditorSession s(context, project_path);
    store::LinkRow row;
    if (!s.links.read_row(id, row) || store::is_continuation(row))
        throw UserError(context.texts.text(Text::LINK_ID_NOT_FOUND) + std::to_string(id));
    s.editor.CANCELLA(id);
    return kExitOk;
}

}  // namespace filo::cli
