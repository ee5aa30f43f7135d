// The lists of the link editor, as outside tools read them.
#include <ostream>

#include "cli/commands.hpp"
#include "store/channels.hpp"
#include "store/link_queries.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/point_lists.hpp"
#include "store/project.hpp"

namespace filo::cli {

int list_points(Context& context, const PointsRequest& request) {
    store::Project project;
    project.open(request.project, store::Access::ReadOnly);
    store::PointLists lists(project, context.texts);
    if (request.analogs) {
        store::ModuleTable table(project);
        store::GatewayChannels channels(table);
        store::LinkTable links(project);
        store::LinkQueries queries(project, links, context.texts);
        const std::vector<store::ListEntry> setters =
            lists.ELENCO_ANALOGICI(channels, queries, "NO", 0);
        if (lists.all_channels_used)
            throw UserError(context.texts.text(texts::Text::ALL_CHANNELS_USED));
        for (const store::ListEntry& e : setters)
            context.out << e.item_data << '\t' << e.text << '\n';
        return kExitOk;
    }
    lists.STATO_GRUPPO = request.group;
    if (request.commands) {
        lists.filters.codice_comandi = request.code;
        lists.filters.nome_comandi = request.name;
    } else {
        lists.filters.codice_utilizzatori = request.code;
        lists.filters.nome_utilizzatori = request.name;
    }
    lists.CARICA_COMBO(request.level);
    // One entry a line: the item data, a tab, the text exactly as shown.
    for (const store::ListEntry& e :
         request.commands ? lists.Combo_COMANDI : lists.Combo_UTILIZZATORI)
        context.out << e.item_data << '\t' << e.text << '\n';
    return kExitOk;
}

}  // namespace filo::cli
