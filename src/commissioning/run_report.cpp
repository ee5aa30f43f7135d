#include "commissioning/run_report.hpp"

#include <ctime>

#include "platform/files.hpp"

namespace filo::commissioning {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

}  // namespace

std::string report_line(const std::string& codice, const std::string& fase, bool answered,
                        int attempt) {
    std::string line = "Modulo n° " + codice + fase + (answered ? "OK" : "NO");
    if (!answered && attempt == 2) line += " / /";
    return line;
}

void RunReport::start() {
    TEXT1.clear();
    TEXT2.clear();
    N_ERRORI = 0;
    SOSPENDI_PROGRAMMAZIONE.clear();
    INTERRUZIONE.clear();
}

void RunReport::interrupted(const std::vector<std::string>& lines) {
    INTERRUZIONE.clear();
    for (const std::string& line : lines) {
        INTERRUZIONE += kLineBreak;
        INTERRUZIONE += line;
    }
}

void RunReport::attempt(const std::string& codice, const std::string& fase, int attempt,
                        bool answered) {
    const std::string line = report_line(codice, fase, answered, attempt);
    TEXT1 += kLineBreak;
    TEXT1 += line;
    if (on_line) on_line(line);
    if (!answered && attempt == 2) {
        TEXT2 += kLineBreak;
        TEXT2 += report_line(codice, fase, false, 1);
        ++N_ERRORI;
    }
    // The question comes at the first failed attempt after ten failed frames;
    // answering no moves the count past ten so that it comes once.
    if (!answered && attempt == 1 && N_ERRORI == 10 && SOSPENDI_PROGRAMMAZIONE.empty() &&
        ask_to_stop) {
        if (ask_to_stop())
            SOSPENDI_PROGRAMMAZIONE = "SI";
        else
            N_ERRORI = 11;
    }
}

std::filesystem::path RunReport::file_name(const std::filesystem::path& directory,
                                           const std::string& project,
                                           std::chrono::system_clock::time_point when) {
    const std::time_t t = std::chrono::system_clock::to_time_t(when);
    std::tm local{};
    localtime_r(&t, &local);
    char stamp[32];
    // Date and time with "-" where "/" and ":" would stand.
    std::strftime(stamp, sizeof stamp, "%d-%m-%Y-%H-%M-%S", &local);
    return directory / (project + " " + stamp + " REPORT.txt");
}

std::string RunReport::file_text() const {
    return "                                REPORT DELLA PROGRAMMAZIONE IMPIANTO" + TEXT1 +
           "\r\n\r\n" + "                          LISTA DEI MODULI CHE NON HANNO RISPOSTO" +
           TEXT2 + (INTERRUZIONE.empty() ? "" : "\r\n" + INTERRUZIONE);
}

std::filesystem::path RunReport::save(const std::filesystem::path& directory,
                                      const std::string& project,
                                      std::chrono::system_clock::time_point when) const {
    const std::filesystem::path file = file_name(directory, project, when);
    platform::write_file_safely(file, file_text());
    return file;
}

}  // namespace filo::commissioning
