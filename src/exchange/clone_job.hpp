#pragma once
// A clone of a sample project into the open project (MACRO's work without
// its window): the checks of every box, the rows and links it appends, and
// the append itself as one transaction.
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/clone_sample.hpp"
#include "store/link_row.hpp"
#include "store/nick_row.hpp"

namespace filo::store {
class ModuleTable;
}

namespace filo::exchange {

// What the installer typed: the group (Text2), the number (Text3) and a new
// code for each row of the list (Text1), "" where none was typed.
struct CloneRequest {
    std::string group;
    std::string number;
    std::vector<std::string> codes;
    // CONTROLLO_CODICE other than "NO": typed codes carry check digits.
    bool check_digits = true;
};

// A refused code: the row of the list (from 1), the code as typed after the
// hexadecimal filter, and why.
struct CodeRefusal {
    int row = 0;
    std::string code;
    CloneMessage message;
};

// What a clone appends: the modules in the order of the list, each with
// its nick_numerico in M_NICK_NUMERICO, then the links in the sample's order.
struct ClonePlan {
    std::vector<store::ModuleRecord> modules;
    std::vector<store::LinkRow> links;
};

struct CloneOutcome {
    std::vector<CodeRefusal> refused_codes;  // every refused row, in list order
    std::optional<CloneMessage> refusal;     // a refusal of the whole clone
    ClonePlan plan;                          // empty when refused
    bool refused() const { return refusal || !refused_codes.empty(); }
};

// The first character of a group name that Text2 doesn't take ("" if none):
// letters, digits, "°", ".", ",", "-", "_", "/" and the blank pass.
std::string refused_group_character(std::string_view group);

class CloneJob {
  public:
    CloneJob(CloneSample& sample, store::ModuleTable& target);

    std::string CODICE_CLONE;
    std::string SUFFISSO_NOME;
    std::string PREFISSO_NOTE;
    int NUMERO_CLONE = 0;
    bool CLONE_RIFIUTATO = false;

    // The target's module list (Form3.Combo1) and last number, read again.
    void CERCA_MODULI();
    const std::vector<std::string>& combo1() const { return combo1_; }

    // Text1_Change on a code of row `row` (from 1): the code as the box's
    // filter leaves it, and the message that empties the box, if any.
    std::optional<CloneMessage> check_code(int row, std::string_view typed, bool check_digits,
                                           std::string* filtered = nullptr) const;
    // CONTROLLA_NUMERO_CLONE on Text3; sets NUMERO_CLONE and CLONE_RIFIUTATO.
    std::optional<CloneMessage> CONTROLLA_NUMERO_CLONE(const std::string& number);

    // Every check, then the rows and links the clone appends; nothing is
    // written. Throws on a database fault.
    CloneOutcome prepare(const CloneRequest& request);
    // ESEGUI_CLONE: appends the plan as one transaction (all or nothing),
    // telling each module's new code as it goes. The caller refreshes its
    // module lists (CERCA_MODULI) after.
    void write(const ClonePlan& plan,
               const std::function<void(const std::string& codice)>& progress = {});

  private:
    store::ModuleRecord COPIA_MODULO_CAMPIONE(const std::string& old_code,
                                              const std::string& number);
    std::vector<store::LinkRow> COPIA_LINK_CAMPIONE(const std::vector<std::string>& new_codes);

    CloneSample& sample_;
    store::ModuleTable& target_;
    std::vector<std::string> combo1_;
    int n_progressivo_ = 0;
};

}  // namespace filo::exchange
