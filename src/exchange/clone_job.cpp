#include "exchange/clone_job.hpp"

#include <algorithm>
#include <cmath>

#include "bus/module_code.hpp"
#include "common/basic_functions.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::exchange {
namespace {

using basic::mid;
using basic::val;
using texts::Text;

CloneMessage warning(Text message, std::string after = {}) {
    return CloneMessage{Text::TITLE_WARNING, message, std::move(after)};
}

// numero_filo as AGGIUNGI_MODULO stores it: the number Val gives.
std::string stored_number(std::string_view text) {
    const double v = val(text);
    if (v == std::floor(v) && std::fabs(v) < 1e15) return std::to_string(static_cast<long long>(v));
    return std::to_string(v);
}

// Markers that stand where a link keeps a name: they tell the row's role
// and are no name to mark.
bool is_marker(const std::string& name) {
    return name == store::kNetGate || name == store::kSecondaRiga;
}

}  // namespace

std::string refused_group_character(std::string_view group) {
    constexpr std::string_view kDegree = "\xC2\xB0";
    constexpr std::string_view kSigns = ".,-_/ ";
    for (std::size_t i = 0; i < group.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(group[i]);
        if (group.substr(i, 2) == kDegree) {
            ++i;
            continue;
        }
        if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
            kSigns.find(static_cast<char>(c)) != std::string_view::npos)
            continue;
        // The whole UTF-8 sequence of a refused character.
        std::size_t n = 1;
        while (i + n < group.size() && (static_cast<unsigned char>(group[i + n]) & 0xC0) == 0x80)
            ++n;
        return std::string(group.substr(i, n));
    }
    return {};
}

CloneJob::CloneJob(CloneSample& sample, store::ModuleTable& target)
    : sample_(sample), target_(target) {}

void CloneJob::CERCA_MODULI() {
    combo1_ = target_.ELENCO_MODULI().by_code;
    n_progressivo_ = target_.N_PROGRESSIVO;
}

std::optional<CloneMessage> CloneJob::check_code(int row, std::string_view typed, bool check_digits,
                                                 std::string* filtered) const {
    if (filtered) *filtered = std::string(typed);
    if (typed.empty()) return warning(Text::CLONE_ENTER_CODE);
    const std::optional<std::string> code = bus::filtered_code(typed);
    if (!code || code->size() != 8) return warning(Text::CODE_NOT_CORRECT);
    if (filtered) *filtered = *code;
    const std::string codice = code->substr(0, 6);
    if (check_digits && bus::CODICE_CONTROLLO(codice) != code->substr(6, 2))
        return warning(Text::CODE_NOT_CORRECT);
    const SampleModule& module = sample_.rows.at(static_cast<std::size_t>(row - 1));
    if (mid(codice, 5, 2) != mid(module.type_label, 4, 2))
        return warning(Text::MODULE_TYPE_NOT_COMPATIBLE);
    for (const std::string& item : combo1_)
        if (mid(item, 1, 6) == codice) return warning(Text::MODULE_ALREADY_EXISTS);
    return std::nullopt;
}

std::optional<CloneMessage> CloneJob::CONTROLLA_NUMERO_CLONE(const std::string& number) {
    CLONE_RIFIUTATO = false;
    NUMERO_CLONE = static_cast<int>(std::clamp(val(number), -32768.0, 32767.0));
    if (NUMERO_CLONE == 0 || number.empty()) {
        CLONE_RIFIUTATO = true;
        return warning(Text::ENTER_CLONE_NUMBER);
    }
    // The number of a clone is kept only in the notes: "<n>".
    for (const std::string& item : combo1_) {
        const std::size_t open = item.find('<');
        if (open == std::string::npos) continue;
        const std::size_t close = item.find('>', open + 1);
        if (close == std::string::npos) continue;
        if (val(std::string_view(item).substr(open + 1, close - open - 1)) == NUMERO_CLONE) {
            CLONE_RIFIUTATO = true;
            return warning(Text::CLONE_NUMBER_EXISTS);
        }
    }
    return std::nullopt;
}

CloneOutcome CloneJob::prepare(const CloneRequest& request) {
    CloneOutcome outcome;
    CERCA_MODULI();
    if (sample_.rows.empty()) {
        outcome.refusal = warning(Text::CLONE_SAMPLE_EMPTY);
        return outcome;
    }
    const std::string refused = refused_group_character(request.group);
    if (request.group.empty() || !refused.empty()) {
        outcome.refusal = warning(Text::NAME_CHARACTERS_REFUSED, refused);
        return outcome;
    }
    std::vector<std::string> codes;
    for (int row = 1; row <= sample_.N_RIGHE_CLONE(); ++row) {
        const auto i = static_cast<std::size_t>(row - 1);
        std::string typed = i < request.codes.size() ? request.codes[i] : std::string();
        std::string filtered;
        if (auto m = check_code(row, typed, request.check_digits, &filtered))
            outcome.refused_codes.push_back({row, filtered, *m});
        codes.push_back(filtered.substr(0, 6));
    }
    if (!outcome.refused_codes.empty()) return outcome;
    if (auto m = CONTROLLA_NUMERO_CLONE(request.number)) {
        outcome.refusal = *m;
        return outcome;
    }

    SUFFISSO_NOME = ">" + request.group + " " + request.number;
    PREFISSO_NOTE = "Clone_" + request.group + " <" + request.number + "> ";
    for (std::size_t i = 0; i < sample_.rows.size(); ++i) {
        CODICE_CLONE = codes[i];
        store::ModuleRecord m = COPIA_MODULO_CAMPIONE(sample_.rows[i].codice, request.number);
        // LEGGI_N_PROGRESSIVO after each module appended: one more each time.
        m.M_NICK_NUMERICO = std::to_string(n_progressivo_ + 1 + static_cast<int>(i));
        outcome.plan.modules.push_back(std::move(m));
    }
    outcome.plan.links = COPIA_LINK_CAMPIONE(codes);
    return outcome;
}

store::ModuleRecord CloneJob::COPIA_MODULO_CAMPIONE(const std::string& old_code,
                                                    const std::string& number) {
    store::ModuleRecord m;
    const bool card_reader = mid(old_code, 5, 2) == "1A";
    for (store::NickRow r : sample_.module_rows(old_code)) {
        r.ID = 0;  // given when appended
        r.codice = CODICE_CLONE;
        r.numero_filo = stored_number(r.numero_filo);
        if (!r.nick.empty()) r.nick += SUFFISSO_NOME;
        r.note = PREFISSO_NOTE + r.note;
        // A reader's group is its clone.
        if (card_reader) r.riserva = std::to_string(static_cast<int>(val(number)));
        m.rows.push_back(std::move(r));
    }
    return m;
}

std::vector<store::LinkRow> CloneJob::COPIA_LINK_CAMPIONE(
    const std::vector<std::string>& new_codes) {
    std::vector<store::LinkRow> links = sample_.links();
    // The code of a point outside the list (a gateway's) stays as it is.
    auto rewrite = [&](std::string& id) {
        for (std::size_t r = 0; r < sample_.rows.size(); ++r)
            if (mid(sample_.rows[r].item, 1, 6) == mid(id, 1, 6) && id.size() >= 6)
                id.replace(0, 6, new_codes[r]);
    };
    for (store::LinkRow& l : links) {
        l.ID = 0;
        l.dato14.clear();  // AGGIUNGI_LINK doesn't carry it
        // Second pages have no codes and pass as they are.
        if (mid(l.identificativoRX, 1, 6).empty()) continue;
        rewrite(l.identificativoRX);
        l.nick_ricevente += SUFFISSO_NOME;
        rewrite(l.identificativoTX);
        if (!is_marker(l.nick_trasmittente)) l.nick_trasmittente += SUFFISSO_NOME;
    }
    return links;
}

void CloneJob::write(const ClonePlan& plan,
                     const std::function<void(const std::string& codice)>& progress) {
    store::Project& project = target_.project();
    sqlite::Transaction t(project.database());
    store::LinkTable links(project);
    for (const store::ModuleRecord& m : plan.modules) {
        if (m.rows.empty()) continue;
        if (progress) progress(m.rows.front().codice);
        target_.RIGHE_MODULO = m;
        target_.CODICE_MODULO = m.rows.front().codice;
        target_.AGGIUNGI_MODULO();
    }
    for (const store::LinkRow& l : plan.links) {
        links.LINK_CORRENTE = l;
        links.AGGIUNGI_LINK();
    }
    t.commit();
}

}  // namespace filo::exchange
