// clone and export: a sample project cloned into a project, and the files
// a project is exported to.
#include <map>
#include <ostream>
#include <span>

#include "bus/module_code.hpp"
#include "cli/commands.hpp"
#include "cli/row_output.hpp"
#include "exchange/clone_job.hpp"
#include "exchange/clone_sample.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/schema.hpp"

namespace filo::cli {
namespace {

using texts::Text;

std::string message_fields(const Context& c, const exchange::CloneMessage& m) {
    const std::string title = m.title ? c.texts.text(*m.title) : std::string();
    return "title=" + escaped_field(title) +
           "\tmessage=" + escaped_field(c.texts.text(m.message) + m.after);
}

void print_pairs(std::ostream& out, std::span<const std::string_view> names,
                 const std::vector<const std::string*>& values) {
    // Column 0 is ID, which an appended row gets only when written.
    for (std::size_t i = 1; i < names.size(); ++i)
        out << (i > 1 ? "\t" : "") << names[i] << '=' << escaped_field(*values[i - 1]);
    out << '\n';
}

void print_plan(std::ostream& out, const exchange::ClonePlan& plan) {
    for (const store::ModuleRecord& m : plan.modules)
        for (const store::NickRow& r : m.rows)
            print_pairs(out, store::kNickColumns,
                        {&r.codice, &r.campo, &r.numero_filo, &r.nick, &r.note, &m.M_NICK_NUMERICO,
                         &r.modo, &r.tipologia, &r.connesso, &r.riserva, &r.riserva2, &r.riserva3,
                         &r.riserva4, &r.dati_aggiuntivi1});
    for (const store::LinkRow& l : plan.links) print_link_row(out, l);
}

}  // namespace

int clone_sample(Context& context, const CloneRequest& request) {
    exchange::CloneSample sample;
    if (auto m = sample.open(request.sample)) {
        context.err << message_fields(context, *m) << '\n';
        return kExitUserError;
    }
    if (request.list) {
        int row = 0;
        for (const exchange::SampleModule& s : sample.rows)
            context.out << "row=" << ++row << "\tcode=" << escaped_field(s.codice)
                        << "\ttype=" << escaped_field(s.type_label)
                        << "\titem=" << escaped_field(s.item) << '\n';
        return kExitOk;
    }

    if (request.group.empty()) {
        context.err << "clone: --group is required (or --list)\n";
        return kExitUsage;
    }
    // The new codes by the sample's code, in the order of the list.
    std::map<std::string, std::string> typed;
    for (const std::string& pair : request.codes) {
        const std::size_t equals = pair.find('=');
        const std::string old = pair.substr(0, equals);
        const auto code = bus::filtered_code(old);
        bool listed = false;
        for (const exchange::SampleModule& s : sample.rows) listed |= code && s.codice == *code;
        if (!listed) {
            context.err << message_fields(
                               context, {Text::TITLE_WARNING, Text::CLONE_CODE_NOT_IN_SAMPLE, old})
                        << '\n';
            return kExitUserError;
        }
        typed[*code] = pair.substr(equals + 1);
    }
    exchange::CloneRequest clone{.group = request.group,
                                 .number = request.number,
                                 .codes = {},
                                 .check_digits = !request.no_check_digits};
    for (const exchange::SampleModule& s : sample.rows) clone.codes.push_back(typed[s.codice]);

    store::Project project;
    if (request.dry_run)
        project.open(request.target, store::Access::ReadOnly);
    else
        project.open(request.target);
    store::ModuleTable table(project);
    exchange::CloneJob job(sample, table);
    const exchange::CloneOutcome outcome = job.prepare(clone);
    for (const exchange::CodeRefusal& r : outcome.refused_codes)
        context.err << "row=" << r.row << "\tcode=" << escaped_field(r.code) << '\t'
                    << message_fields(context, r.message) << '\n';
    if (outcome.refusal) context.err << message_fields(context, *outcome.refusal) << '\n';
    if (outcome.refused()) return kExitUserError;

    if (!request.dry_run) job.write(outcome.plan);
    print_plan(context.out, outcome.plan);
    return kExitOk;
}

}  // namespace filo::cli
