#pragma once
// What the monitor writes for scripts: the time of reception, a frame as
// received written out safely, the recording's lines, and the eight fields of
// a decoded frame as TAB-separated or CSV lines.
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace filo::diagnostics {

inline constexpr int kMillisecondsPerDay = 24 * 60 * 60 * 1000;

// "HH:MM:SS.mmm" of milliseconds since midnight.
std::string time_of_day_text(int milliseconds);
std::optional<int> parse_time_of_day(std::string_view text);

// Bytes 0x20-0x7E other than the backslash as they are, every other byte as
// "\xNN" (two upper-case hex digits).
std::string escape_bytes(std::string_view bytes);
// The reverse; nothing when a backslash is not followed by "x" and two hex digits.
std::optional<std::string> unescape_bytes(std::string_view text);

// One line of a recording: the time, a TAB, the frame as received.
struct RecordedFrame {
    int time_ms = 0;
    std::string bytes;
    bool operator==(const RecordedFrame&) const = default;
};
std::string recording_line(const RecordedFrame& frame);
std::optional<RecordedFrame> parse_recording_line(std::string_view line);

// A recording read back: the good lines, and how many were not.
struct Recording {
    std::vector<RecordedFrame> frames;
    int skipped = 0;
};
Recording read_recording(std::istream& in);

// The eight fields of one frame on the monitor's output.
struct MonitorFields {
    std::string time;
    std::string kind;
    std::string modulo;
    std::string ingresso;
    std::string valore;
    std::string nome;
    std::string descrizione;
    std::string parlato;
};
// TAB-separated, control characters inside a field written as "\xNN".
std::string tsv_line(const MonitorFields& fields);
// CSV (RFC 4180): fields with a comma, a quote or a line break are quoted.
std::string csv_header();
std::string csv_line(const MonitorFields& fields);

}  // namespace filo::diagnostics
