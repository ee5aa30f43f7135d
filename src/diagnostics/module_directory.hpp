#pragma once
// The rows of table nick that the line monitor reads for every frame, by bus
// address, read once: a busy line must not cost a query a frame.
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace filo::store {
class Project;
}

namespace filo::diagnostics {

// What the decoder reads of one row of nick.
struct MonitorRow {
    int campo = 0;
    std::string nick;
    std::string note;
    std::string modo;
    std::string riserva;
};

class ModuleDirectory {
  public:
    // Every row of the project, grouped by the first four characters of
    // codice (either case), each group in ID order. Deleted modules stay:
    // the decoder looks a module up by its number alone.
    static ModuleDirectory load(store::Project& project);

    void add(std::string_view codice, MonitorRow row);
    // The rows of the module at a 4-character address, or null.
    const std::vector<MonitorRow>* rows_of(std::string_view address) const;
    std::size_t modules() const { return by_address_.size(); }

  private:
    std::unordered_map<std::string, std::vector<MonitorRow>> by_address_;
};

}  // namespace filo::diagnostics
