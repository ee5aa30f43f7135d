#include <ostream>

#include "cli/commands.hpp"
#include "exchange/export_nick.hpp"
#include "exchange/export_project.hpp"
#include "platform/data_directory.hpp"
#include "store/project.hpp"

namespace filo::cli {

using texts::Text;

int export_project(Context& context, const ExportRequest& request) {
    store::Project project;
    project.open(request.project, store::Access::ReadOnly);
    exchange::ProjectExport files(project, platform::data_directory());
    if (!request.nick.empty()) files.nick_copy = request.nick;
    if (!request.cards.empty()) {
        files.cards = request.cards;
        files.cards_csv = files.cards.parent_path() / "dati_transponder.csv";
    }
    const texts::LanguageTables& t = context.texts;
    try {
        if (!request.cards_only) {
            files.convert();
            context.out << t[Text::EXPORT_WRITTEN] << files.nick_copy.string() << '\n';
        }
        files.export_cards();
    } catch (const exchange::ExportError& e) {
        context.err << exchange::describe(e, t) << '\n';
        return kExitUserError;
    }
    context.out << t[Text::EXPORT_WRITTEN] << files.cards.string() << '\n'
                << t[Text::EXPORT_WRITTEN] << files.cards_csv.string() << '\n';
    return kExitOk;
}

}  // namespace filo::cli
