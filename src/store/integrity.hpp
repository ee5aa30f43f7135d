#pragma once
// The integrity of a project that other tools or people have edited: links
// whose copies of names and codes no longer match table nick, rows that
// continue a link that is gone, names repeated on one side, gateway
// channels taken twice, power-line modules never completed.
#include <cstdint>
#include <string>
#include <vector>

namespace filo::texts {
class LanguageTables;
}

namespace filo::store {

class Project;

enum class Finding {
    ReceiverModuleMissing,  // identificativoRX names a module that is not in nick
    CommandModuleMissing,   // identificativoTX likewise
    ReceiverPointMissing,   // the module has no such output
    CommandPointMissing,    // the module has no such input (or output, for an event)
    ReceiverNameDiffers,    // nick_ricevente is not the output's name
    CommandNameDiffers,     // nick_trasmittente is not the point's name
    OrphanRow,              // a continuation row without a row before it
    InputNameRepeated,      // two live inputs share a name
    OutputNameRepeated,     // two live outputs share a name
    ChannelRepeated,        // two gateway links on one channel
    PowerlineIncomplete,    // a type 1F module without its command name or link
    ForeignCode,            // a trigger or view in the file, which keeps it from opening
};

struct IntegrityFinding {
    Finding kind;
    std::int64_t link_id = 0;  // the row of associazioni, for findings on links
    std::string detail;        // what the finding is about, as the line shows it
    bool operator==(const IntegrityFinding&) const = default;
};

// Every finding, links first in ID order, then names, channels and
// power-line modules. Reads only.
std::vector<IntegrityFinding> check_integrity(Project& project);

// One line of the report, in the language of the tables.
std::string describe(const IntegrityFinding& finding, const texts::LanguageTables& texts);

}  // namespace filo::store
