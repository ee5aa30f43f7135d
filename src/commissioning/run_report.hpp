#pragma once
// The report of a programming run: a line for every attempt at every frame,
// the frames that failed both attempts, their count, and the question put to
// the installer when failures pile up.
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace filo::commissioning {

// "Modulo n° " + code + phase + "OK" or "NO" + " / /" on a second failed attempt.
std::string report_line(const std::string& codice, const std::string& fase, bool answered,
                        int attempt);

class RunReport {
  public:
    std::string TEXT1;  // every attempt, each line behind a CR LF
    std::string TEXT2;  // the frames that failed both attempts
    int N_ERRORI = 0;
    std::string SOSPENDI_PROGRAMMAZIONE;
    std::string INTERRUZIONE;  // the lines of interrupted(), each behind a CR LF

    // Asked once, on the first failed attempt after the tenth failed frame:
    // true to stop the run. Without it the run goes on.
    std::function<bool()> ask_to_stop;
    // Told of each line as it is added.
    std::function<void(const std::string& line)> on_line;

    void start();
    // Lines that say the run did not reach its end, kept at the report's end.
    void interrupted(const std::vector<std::string>& lines);
    void attempt(const std::string& codice, const std::string& fase, int attempt, bool answered);

    // The file a saved report goes to: the data directory, the project's
    // name, a blank, the date and time, " REPORT.txt" ("/" and ":" of the
    // stamp turned to "-"), and what it holds.
    static std::filesystem::path file_name(const std::filesystem::path& directory,
                                           const std::string& project,
                                           std::chrono::system_clock::time_point when);
    std::string file_text() const;
    // Writes the report whole; returns the file. Throws filesystem_error.
    std::filesystem::path save(const std::filesystem::path& directory, const std::string& project,
                               std::chrono::system_clock::time_point when) const;
};

}  // namespace filo::commissioning
