#include "diagnostics/monitor_format.hpp"

#include <cstdio>
#include <istream>

namespace filo::diagnostics {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

void append_escaped(std::string& out, unsigned char c) {
    out += "\\x";
    out += kHexDigits[c >> 4];
    out += kHexDigits[c & 0x0F];
}

// A field of the TAB-separated line: no TAB or line break may stay in it.
std::string field_text(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        const auto u = static_cast<unsigned char>(c);
        if (u < 0x20 || u == 0x7F)
            append_escaped(out, u);
        else
            out += c;
    }
    return out;
}

std::string csv_field(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
    std::string out = "\"";
    for (char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + '"';
}

}  // namespace

std::string time_of_day_text(int ms) {
    char text[48];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d", ms / 3600000 % 24, ms / 60000 % 60,
                  ms / 1000 % 60, ms % 1000);
    return text;
}

std::optional<int> parse_time_of_day(std::string_view t) {
    if (t.size() != 12 || t[2] != ':' || t[5] != ':' || t[8] != '.') return std::nullopt;
    auto number = [&t](std::size_t at, std::size_t digits) -> int {
        int v = 0;
        for (std::size_t i = at; i < at + digits; ++i) {
            if (t[i] < '0' || t[i] > '9') return -1;
            v = v * 10 + (t[i] - '0');
        }
        return v;
    };
    const int h = number(0, 2), m = number(3, 2), s = number(6, 2), ms = number(9, 3);
    if (h < 0 || h > 23 || m < 0 || m > 59 || s < 0 || s > 59 || ms < 0) return std::nullopt;
    return ((h * 60 + m) * 60 + s) * 1000 + ms;
}

std::string escape_bytes(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (char c : bytes) {
        const auto u = static_cast<unsigned char>(c);
        if (u >= 0x20 && u <= 0x7E && c != '\\')
            out += c;
        else
            append_escaped(out, u);
    }
    return out;
}

std::optional<std::string> unescape_bytes(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto u = static_cast<unsigned char>(text[i]);
        if (u < 0x20 || u > 0x7E) return std::nullopt;
        if (text[i] != '\\') {
            out += text[i];
            continue;
        }
        if (i + 3 >= text.size()) return std::nullopt;
        if (text[i + 1] != 'x') return std::nullopt;
        const int hi = hex_digit(text[i + 2]), lo = hex_digit(text[i + 3]);
        if (hi < 0 || lo < 0) return std::nullopt;
        out += static_cast<char>(hi * 16 + lo);
        i += 3;
    }
    return out;
}

std::string recording_line(const RecordedFrame& frame) {
    return time_of_day_text(frame.time_ms) + '\t' + escape_bytes(frame.bytes);
}

std::optional<RecordedFrame> parse_recording_line(std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return std::nullopt;
    const std::optional<int> time = parse_time_of_day(line.substr(0, tab));
    std::optional<std::string> bytes = unescape_bytes(line.substr(tab + 1));
    if (!time || !bytes || bytes->empty()) return std::nullopt;
    return RecordedFrame{*time, std::move(*bytes)};
}

Recording read_recording(std::istream& in) {
    Recording recording;
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty()) continue;
        if (auto frame = parse_recording_line(line))
            recording.frames.push_back(std::move(*frame));
        else
            ++recording.skipped;
    }
    return recording;
}

std::string tsv_line(const MonitorFields& f) {
    std::string line;
    for (const std::string* field : {&f.time, &f.kind, &f.modulo, &f.ingresso, &f.valore, &f.nome,
                                     &f.descrizione, &f.parlato}) {
        if (field != &f.time) line += '\t';
        line += field_text(*field);
    }
    return line;
}

std::string csv_header() {
    return "time,kind,module,input,value,name,description,spoken";
}

std::string csv_line(const MonitorFields& f) {
    std::string line;
    for (const std::string* field : {&f.time, &f.kind, &f.modulo, &f.ingresso, &f.valore, &f.nome,
                                     &f.descrizione, &f.parlato}) {
        if (field != &f.time) line += ',';
        line += csv_field(*field);
    }
    return line;
}

}  // namespace filo::diagnostics
