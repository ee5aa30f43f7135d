#include "modules/panel_messages.hpp"

#include <algorithm>

#include "common/basic_functions.hpp"

namespace filo::modules {
int mode_index(char letter) {
    for (std::size_t i = 0; i < MODI_MESSAGGIO.size(); ++i)
        if (MODI_MESSAGGIO[i].letter == letter) return static_cast<int>(i);
    return -1;
}

int colour_code_at(std::string_view text, std::size_t pos) {
    if (pos + 2 > text.size()) return -1;
    const std::string_view pair = text.substr(pos, 2);
    for (int k = 0; k < kSoundCode; ++k)
        if (COLORI_MESSAGGIO[static_cast<std::size_t>(k)].code == pair) return k;
    return -1;
}

std::string RECORD_MESSAGGIO(const MessageRecord& message) {
    if (basic::character_count(message.text) < kShortestText) return {};
    std::string persistence = typed_persistence(message.persistence);
    persistence.insert(0, 2 - std::min<std::size_t>(2, persistence.size()), '0');
    return std::string(
        basic::first_characters(persistence + message.mode + message.text, kRecordLength));
}

RecordHalves split_record(std::string_view record) {
    return {std::string(basic::first_characters(record, kHalfLength)),
            std::string(basic::first_characters(basic::characters_after(record, kHalfLength),
                                                kHalfLength))};
}

MessageRecord read_record(std::string_view riserva2, std::string_view riserva3) {
    const std::string record = std::string(riserva2) + std::string(riserva3);
    MessageRecord m;
    m.persistence = basic::first_characters(record, 2);
    const std::string_view letter = basic::first_characters(basic::characters_after(record, 2), 1);
    if (letter.size() == 1) m.mode = letter[0];
    m.text = basic::characters_after(record, 3);
    return m;
}

std::string persistence_for_length(std::size_t length, std::string_view current) {
    // The tests run in turn and the last that holds wins; 13 keeps the value.
    std::string value(current);
    if (length <= 12) value = "02";
    if (length > 13) value = "04";
    if (length > 20) value = "05";
    if (length > 30) value = "07";
    if (length > 40) value = "11";
    if (length > 50) value = "15";
    return value;
}

std::string typed_persistence(std::string_view typed) {
    std::string digits;
    for (char c : typed)
        if (c >= '0' && c <= '9') digits += c;
    if (digits.empty()) return digits;
    const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size() - 1);
    if (digits.size() - first > 2 || std::stoi(digits.substr(first)) > kMaxPersistence)
        return std::to_string(kMaxPersistence);
    return digits;
}

ColourInsertion insert_colour_code(std::string_view text, std::size_t selection_start,
                                   std::size_t selection_length, int k) {
    const std::size_t count = basic::character_count(text);
    // A colour chosen right behind a code takes that code's place.
    if (count > 1 && basic::characters_after(text, count - 2).front() == '\\') {
        selection_start = count - 2;
        selection_length = 2;
    }
    selection_start = std::min(selection_start, count);
    selection_length = std::min(selection_length, count - selection_start);
    const std::string_view code = COLORI_MESSAGGIO[static_cast<std::size_t>(k)].code;
    ColourInsertion result;
    result.text = std::string(basic::first_characters(text, selection_start)) + std::string(code) +
                  std::string(basic::characters_after(text, selection_start + selection_length));
    result.caret = selection_start + code.size();
    return result;
}

std::vector<ColouredRun> coloured_runs(std::string_view text) {
    std::vector<ColouredRun> runs;
    const auto add = [&runs](std::string_view piece, Rgb colour, bool code) {
        if (!runs.empty() && runs.back().colour == colour && runs.back().code == code)
            runs.back().text += piece;
        else
            runs.push_back({std::string(piece), colour, code});
    };
    Rgb colour = kStartColour;
    for (std::size_t p = 0; p < text.size();) {
        const int k = colour_code_at(text, p);
        if (k >= 0) {
            add(text.substr(p, 2), kCodeColour, true);
            colour = *COLORI_MESSAGGIO[static_cast<std::size_t>(k)].preview;
            p += 2;
            continue;
        }
        std::size_t end = p + 1;
        while (end < text.size() && basic::is_continuation_byte(text[end])) ++end;
        add(text.substr(p, end - p), colour, false);
        p = end;
    }
    return runs;
}

PanelPreview panel_preview(const MessageRecord& message) {
    PanelPreview preview;
    preview.mode = message.mode;
    const std::string_view sound = COLORI_MESSAGGIO[kSoundCode].code;
    for (ColouredRun& run : coloured_runs(message.text)) {
        if (run.code) continue;
        for (std::size_t at; (at = run.text.find(sound)) != std::string::npos;) {
            run.text.erase(at, sound.size());
            preview.sounds = true;
        }
        if (run.text.empty()) continue;
        if (!preview.runs.empty() && preview.runs.back().colour == run.colour)
            preview.runs.back().text += run.text;
        else
            preview.runs.push_back(std::move(run));
    }
    return preview;
}

}  // namespace filo::modules
