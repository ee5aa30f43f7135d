// Arbitrary bytes into the frame and record parsers. Whatever parses must
// rebuild into a frame that parses to the same fields, and into the very same
// bytes when its checksum was right; nothing may read out of bounds.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "bus/card_record.hpp"
#include "bus/checksum.hpp"
#include "bus/conversions.hpp"
#include "bus/frame_builder.hpp"
#include "bus/frame_fields.hpp"
#include "bus/frame_parser.hpp"
#include "bus/link_record.hpp"
#include "bus/module_code.hpp"

namespace {

using namespace filo::bus;

void require(bool condition) {
    if (!condition) std::abort();
}

void check_frame(std::string_view text) {
    const Frame f = parse_frame(text);
    const std::string rebuilt = build_frame(f);
    if (f.kind == FrameKind::NotAFrame || f.kind == FrameKind::Unknown) {
        require(rebuilt.empty());
        return;
    }
    const Frame again = parse_frame(rebuilt);
    require(again.checksum_ok);
    require(testing::same_fields(f, again));
    // Only an analog list may be written otherwise: its end mark, and what
    // follows it, are not kept.
    if (f.checksum_ok && f.kind != FrameKind::AnalogAnswer) require(rebuilt == text);
}

void check_records(std::string_view text) {
    if (auto link = parse_link_record(text)) require(link_record_text(*link) == text);
    if (auto card = parse_card_record(text)) require(card_record_text(*card) == text);
}

void check_conversions(std::string_view text) {
    require(DEC_A_HEX(text).size() == 2);
    require(DEC_A_BIN(text).size() == 8);
    require(NUM_A_CIFRA(text).size() == 1);
    require(BIN_A_HEX(text) == hex_byte(bits_byte(text)));
    require(BIN_A_HEX_INV(text).size() == 2);
    require(!BIN_A_DEC(text).empty());
    require(SOMMA_HEX(static_cast<long long>(text.size()), text).size() >= 2);
    require(CODICE_CONTROLLO(text).size() == 2);
    if (!text.empty()) require(checksum_ok(with_checksum(text)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    check_frame(text);
    check_records(text);
    check_conversions(text);
    return 0;
}
