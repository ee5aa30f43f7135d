// aggregate: the sets of the events TUTTI and ALMENO1 of an output module,
// changed as ASSOCIA changes them and saved as the module window saves.
#include <charconv>

#include "cli/commands.hpp"
#include "common/basic_functions.hpp"
#include "modules/aggregate_editor.hpp"
#include "modules/module_editor.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"

namespace filo::cli {
namespace {

using modules::EditRefusal;

// "1,9,24" as numbers from 1 to `last`; anything else is refused.
std::vector<int> numbers(const Context& c, const std::string& list, std::string_view option,
                         int last) {
    std::vector<int> out;
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t comma = std::min(list.find(',', start), list.size());
        int n = 0;
        const auto r = std::from_chars(list.data() + start, list.data() + comma, n);
        if (r.ec != std::errc() || r.ptr != list.data() + comma || n < 1 || n > last)
            throw UserError(modules::refusal_text(EditRefusal::ValueRefused, c.texts,
                                                  std::string(option) + "=" + list));
        out.push_back(n);
        start = comma + 1;
    }
    return out;
}

// The ticked boxes from..to as numbers from 1, "-" for none.
template <typename Boxes>
std::string listed(const Boxes& boxes, int from, int to) {
    std::string out;
    for (int n = from; n <= to; ++n)
        if (boxes[static_cast<std::size_t>(n)].ticked)
            out += (out.empty() ? "" : ",") + std::to_string(n - from + 1);
    return out.empty() ? "-" : out;
}

}  // namespace

int aggregate(Context& context, const AggregateRequest& request) {
    const texts::LanguageTables& t = context.texts;
    store::Project project;
    project.open(request.project);
    store::ModuleTable table(project);
    store::LinkTable links(project);
    modules::ModuleEditor editor(table, links);
    if (!editor.open(request.code))
        throw UserError(t.text(texts::Text::MODULE_NOT_IN_PROJECT) + request.code);
    if (!(editor.type().buttons & modules::kAggregateButton))
        throw UserError(t.text(texts::Text::AGGREGATE_NOT_OFFERED) + request.code);
    modules::AggregateEditor sets(table, t);
    // A script can't be asked: taking the name from linked events is refused.
    sets.confirm_name_removal = [&t](int n) -> bool {
        throw UserError(std::to_string(n) + t.text(texts::Text::AGGREGATE_LINKS_LOST));
    };
    // A point without a name can't take part nor react; a relay that takes
    // part can't react.
    const auto refused = [&](std::string_view option, int k) {
        const std::string detail = std::string(option) + "=" + std::to_string(k);
        const store::ModuleRecord& m = table.RIGHE_MODULO;
        if (k + 8 > m.N_RIGHE_MODULO() || basic::trim(m.riga(k + 8).nick).empty())
            throw UserError(t.text(texts::Text::ASSIGN_NAME_FIRST) + ": " + detail);
        throw UserError(modules::refusal_text(EditRefusal::ValueRefused, t, detail));
    };
    const auto save = [&] {
        if (const EditRefusal r = editor.save(); r != EditRefusal::None)
            throw UserError(editor.message(r, t, request.code));
    };
    if (!sets.full) {
        if (request.relays) {
            for (int k = 1; k <= 8; ++k) sets.Check1_Click(k, false);
            for (int k : numbers(context, *request.relays, "--relays", 8))
                if (!sets.Check1_Click(k, true)) refused("--relays", k);
        }
        sets.Label37_Click();
        save();
        context.out << request.code << "  " << listed(sets.Check1, 1, 8) << '\n';
        return kExitOk;
    }
    const int set = request.set.empty() ? 1 : request.set[0] - 'a' + 1;
    if (request.set.size() > 1 || set < 1 || set > 3)
        throw UserError(
            modules::refusal_text(EditRefusal::ValueRefused, t, "--set=" + request.set));
    sets.Option5_Click(set);
    if (request.on || request.off) {
        // The participants as listed; unticking the last one takes the name.
        for (int n = 1; n <= 48; ++n)
            if (sets.Check2[static_cast<std::size_t>(n)].ticked) sets.Check2_Click(n, false);
        for (int k : numbers(context, request.on.value_or(""), "--on", 24))
            if (!sets.Check2_Click(k, true)) refused("--on", k);
        for (int k : numbers(context, request.off.value_or(""), "--off", 24))
            if (!sets.Check2_Click(k + 24, true)) refused("--off", k);
    }
    if (request.switch_on || request.switch_off) {
        for (int n = 1; n <= 16; ++n) sets.Check3_Click(n, false);
        for (int k : numbers(context, request.switch_on.value_or(""), "--switch-on", 8))
            if (!sets.Check3_Click(k, true)) refused("--switch-on", k);
        for (int k : numbers(context, request.switch_off.value_or(""), "--switch-off", 8))
            if (!sets.Check3_Click(k + 8, true)) refused("--switch-off", k);
    }
    if (request.logic == "or" || request.logic == "and")
        sets.Option3_Click(request.logic == "or" ? 0 : 1);
    else if (!request.logic.empty())
        throw UserError(
            modules::refusal_text(EditRefusal::ValueRefused, t, "--logic=" + request.logic));
    if (request.name) sets.Text5_Change(*request.name);
    sets.Label35_Click();
    save();
    // The set as stored: name, logic, participants on and off, reactions.
    const auto& reactions = sets.Check3;
    context.out << request.code << ' ' << static_cast<char>('a' + set - 1) << "  "
                << (sets.Text5.empty() ? "-" : sets.Text5) << "  " << (sets.or_logic ? "OR" : "AND")
                << "  on " << listed(sets.Check2, 1, 24) << "  off " << listed(sets.Check2, 25, 48)
                << "  switch-on " << listed(reactions, 1, 8) << "  switch-off "
                << listed(reactions, 9, 16) << '\n';
    return kExitOk;
}

}  // namespace filo::cli
