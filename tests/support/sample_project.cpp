#include "support/sample_project.hpp"

#include <cstdio>

#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/project_files.hpp"
#include "store/sqlite.hpp"

namespace filo::testing {

store::ModuleRecord new_module_rows(const std::string& codice, int rows, const std::string& note,
                                    const std::string& output_tipologia) {
    store::ModuleRecord record;
    for (int i = 1; i <= rows; ++i) {
        store::NickRow r;
        r.codice = codice;
        r.campo = std::to_string(i);
        r.numero_filo = std::to_string(i <= 8 ? i : i - 8);
        r.note = note;
        r.modo = i <= 8 ? "P" + std::string(23, '0') : "I00000000000000000000000";
        r.tipologia = i <= 8 ? "INPUT" : output_tipologia;
        r.connesso = "........";
        r.riserva2 = std::string(50, '0');
        r.riserva3 = std::string(i == 1 ? 26 : 50, '0');
        r.riserva4 = std::string(50, '0');
        record.rows.push_back(r);
    }
    return record;
}

void add_module(store::ModuleTable& table, const std::string& codice, int rows,
                const std::string& note, const std::string& output_tipologia) {
    table.LEGGI_N_PROGRESSIVO();
    table.RIGHE_MODULO = new_module_rows(codice, rows, note, output_tipologia);
    table.RIGHE_MODULO.M_NICK_NUMERICO = std::to_string(table.N_PROGRESSIVO + 1);
    table.CODICE_MODULO = codice;
    table.AGGIUNGI_MODULO();
}

void add_generated_modules(store::ModuleTable& table, int modules) {
    static const char* kTypes[] = {"1F", "11", "0B", "4A", "19", "25"};
    static const char* kOutputs[] = {"RELE", "DIMMER", "SPIA", "RGB", "REGOLATORE", "MODULATORE"};
    for (int m = 1; m <= modules; ++m) {
        char number[16];
        std::snprintf(number, sizeof number, "%04X", m & 0xFFFF);
        const std::string code = number + std::string(kTypes[m % 6]);
        const int rows = 16 + (m * 7) % 17;  // 16 to 32
        store::ModuleRecord record =
            new_module_rows(code, rows, "Quadro " + std::to_string(m), kOutputs[m % 6]);
        for (store::NickRow& r : record.rows)
            r.nick = (std::stoi(r.campo) <= 8 ? "Pulsante " : "Luce ") + std::to_string(m) + "." +
                     r.campo + " ";
        record.M_NICK_NUMERICO = std::to_string(m);
        table.RIGHE_MODULO = std::move(record);
        table.CODICE_MODULO = code;
        table.AGGIUNGI_MODULO();
    }
}

store::LinkRow switching_link(const std::string& identificativoRX,
                              const std::string& identificativoTX,
                              const std::string& nick_ricevente,
                              const std::string& nick_trasmittente) {
    store::LinkRow r;
    r.identificativoRX = identificativoRX;
    r.numero_uscita = identificativoRX.substr(identificativoRX.find('/') + 1);
    r.nick_ricevente = nick_ricevente;
    r.identificativoTX = identificativoTX;
    r.numero_ingresso = identificativoTX.substr(identificativoTX.find('/') + 1);
    r.nick_trasmittente = nick_trasmittente;
    r.opzione = "P";
    r.tempo_on1 = r.tempo_on2 = r.tempo_off1 = r.tempo_off2 = "0";
    r.modo_ = "000000112";
    r.on_ = "251";
    r.off_ = "8";
    r.and_ = "00000000";
    r.minuto = r.ora = r.giorno = "00";
    r.settimana = "00000000";
    r.dato13 = "000000";
    return r;
}

void add_generated_links(store::Project& project, const std::vector<std::string>& codes,
                         int count) {
    if (codes.empty()) return;
    const auto n = codes.size();
    store::LinkTable links(project);
    sqlite::Transaction transaction(project.database());
    for (int i = 0; i < count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const std::string& rx = codes[k % n];
        const std::string& tx = codes[(k * 7 + 3) % n];
        const std::string output = std::to_string(i % 8 + 1);
        const std::string input = std::to_string((i / 8) % 8 + 1);
        links.LINK_CORRENTE =
            switching_link(rx + "/" + output, tx + "/" + input, "Luce " + rx + "." + output + " ",
                           "Pulsante " + tx + "." + input + " ");
        links.AGGIUNGI_LINK();
    }
    transaction.commit();
}

void set_column(store::Project& project, const std::string& codice, int campo,
                const std::string& column, const std::string& value) {
    auto q = project.database().prepare("UPDATE nick SET " + column +
                                        " = ?1 WHERE codice = ?2 AND campo = ?3");
    q.bind(1, value).bind(2, codice).bind(3, std::to_string(campo));
    q.run();
}

std::filesystem::path make_empty_project(const std::filesystem::path& directory,
                                         const std::string& name) {
    std::filesystem::path file = directory / (name + ".TRN");
    store::write_empty_project(file);
    return file;
}

}  // namespace filo::testing
