#include <ostream>

#include "cli/commands.hpp"
#include "links/link_record.hpp"
#include "store/link_table.hpp"
#include "store/project.hpp"

namespace filo::cli {

int list_links(Context& context, const std::string& project_path) {
    store::Project project;
    project.open(project_path, store::Access::ReadOnly);
    store::LinkTable links(project);
    links.LEGGI_LINK();
    // One line per row of the table in memory: its ID, then the frame that
    // programs it, as the programming run sends it.
    for (int n = 1; n <= links.N_LINK(); ++n) {
        links::LinkImage image;
        context.out << links.link(n).ID;
        if (links::LEGGIprossimoLINK(links, n, image) && !image.RECORD_LINK.empty())
            context.out << ' ' << links::link_frame(image.RECORD_LINK);
        context.out << '\n';
    }
    return kExitOk;
}

}  // namespace filo::cli
