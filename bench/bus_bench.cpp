// Frames built and taken apart: the work behind every frame of a programming
// run and every frame the line monitor decodes.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bus/checksum.hpp"
#include "bus/conversions.hpp"
#include "bus/frame_builder.hpp"
#include "bus/frame_parser.hpp"

namespace {

using namespace filo::bus;

LinkRecord link_number(unsigned i) {
    LinkRecord r;
    r.receiver = static_cast<std::uint16_t>(i & 0xFF);
    r.numero_ingresso = static_cast<std::uint8_t>(i % 16);
    r.numero_uscita = static_cast<std::uint8_t>(i % 35);
    r.transmitter = static_cast<std::uint16_t>((i * 7) & 0xFF);
    r.tempo_on2 = static_cast<std::uint8_t>(i);
    r.on_ = 251;
    r.off_ = 9;
    r.settimana = 0x7F;
    return r;
}

void BM_BuildShortFrame(benchmark::State& state) {
    unsigned i = 0;
    for (auto _ : state) {
        std::string frame = parameter_frame(static_cast<std::uint16_t>(i & 0xFF),
                                            static_cast<std::uint8_t>(0x70 + (i & 7)),
                                            static_cast<std::uint8_t>(i));
        benchmark::DoNotOptimize(frame);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_BuildShortFrame);

// Parses 256 frames in turn, round and round.
void parse_in_turn(benchmark::State& state, const std::vector<std::string>& frames) {
    std::size_t n = 0;
    for (auto _ : state) {
        Frame f = parse_frame(frames[n++ & 0xFF]);
        benchmark::DoNotOptimize(f);
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_ParseShortFrame(benchmark::State& state) {
    std::vector<std::string> frames;
    for (unsigned i = 0; i < 256; ++i)
        frames.push_back(input_event_frame(static_cast<std::uint16_t>(i), i % 24, 251));
    parse_in_turn(state, frames);
}
BENCHMARK(BM_ParseShortFrame);

void BM_BuildLinkFrame(benchmark::State& state) {
    std::vector<LinkRecord> links;
    for (unsigned i = 0; i < 256; ++i) links.push_back(link_number(i));
    std::size_t n = 0;
    for (auto _ : state) {
        std::string frame = link_frame(links[n++ & 0xFF]);
        benchmark::DoNotOptimize(frame);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_BuildLinkFrame);

void BM_ParseLinkFrame(benchmark::State& state) {
    std::vector<std::string> frames;
    for (unsigned i = 0; i < 256; ++i) frames.push_back(link_frame(link_number(i)));
    parse_in_turn(state, frames);
}
BENCHMARK(BM_ParseLinkFrame);

// The way the programming run writes a frame: fields from stored decimal
// texts, then the checksum inserted.
void BM_ShortFrameFromStoredTexts(benchmark::State& state) {
    const std::string values[] = {"0", "9", "128", "251", "255", "000"};
    std::size_t n = 0;
    for (auto _ : state) {
        std::string text = "(30012";
        text += DEC_A_HEX("112");
        text += DEC_A_HEX(values[n++ % 6]);
        text += ']';
        std::string frame = with_checksum(text);
        benchmark::DoNotOptimize(frame);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ShortFrameFromStoredTexts);

}  // namespace

BENCHMARK_MAIN();
