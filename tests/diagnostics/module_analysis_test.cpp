// The analysis of one module: what each tick asks, and what each answer lights.
#include <gtest/gtest.h>

#include "bus/frame_builder.hpp"
#include "diagnostics/module_analysis.hpp"

namespace filo::diagnostics {
namespace {

std::vector<std::string> run_ticks(ModuleAnalysis& a, const std::string& type) {
    std::vector<std::string> sent;
    while (!a.finished()) {
        if (auto frame = a.tick()) sent.push_back(*frame);
        if (a.ANALISI_PASSO == 0) a.collect("(0080012FF" + type + "]", "");
    }
    return sent;
}

TEST(ModuleAnalysis, StepsAskForTheGroupsOnlyOfTypesThatHaveThem) {
    const std::vector<std::string> plain = {"(A00120000]", "(400126500]", "(B001200]",
                                            "(400126100]", "(400126200]", "(400126300]",
                                            "(400126400]"};
    struct Case {
        const char* type;
        std::size_t frames;
    } cases[] = {{"1F", 7}, {"11", 15}, {"12", 15}, {"15", 15}, {"25", 15}};
    for (const Case& c : cases) {
        ModuleAnalysis a;
        a.start("0012");
        const auto sent = run_ticks(a, c.type);
        EXPECT_EQ(sent.size(), c.frames) << c.type;
        EXPECT_EQ(a.ANALISI_TIPO, c.type);
        EXPECT_FALSE(a.ANALISI_ATTIVA);
        if (c.frames == 7) {
            EXPECT_EQ(sent, plain);
        }
        if (c.frames == 15) {
            EXPECT_EQ(sent[2], "(40012A100]");
        }
    }
}

TEST(ModuleAnalysis, AnswersLightTheShapesOfTheirStep) {
    ModuleAnalysis a;
    a.start("0012");
    auto at_step = [&a](int step, const std::string& answer) {
        a.ANALISI_PASSO = step;
        a.collect(answer, answer);
    };
    a.ANALISI_TIPO = "11";
    at_step(1, "(0080012FE81]");   // bits 128 and 1: relays 8 and 1
    at_step(1, "(0080013FEFF]");   // another module's answer changes nothing
    at_step(2, "(0080012FE02]");   // flag 2
    at_step(3, "(0080012FE80]");   // flag 16
    at_step(5, "(0080012FE01]");   // lamp 8 ...
    at_step(10, "(0080012FE04]");  // ... and 6, then drawn on relays 1 and 3
    at_step(11, "(0080012FE01]");
    at_step(13, "(0080012FE03]");
    at_step(4, "(00C00120A10>]");  // two values, then the end of the list
    std::array<bool, 9> relays{false, true, false, false, false, false, false, false, true};
    EXPECT_EQ(a.relays, relays);
    EXPECT_TRUE(a.flags[2]);
    EXPECT_TRUE(a.flags[16]);
    EXPECT_EQ(std::count(a.flags.begin(), a.flags.end(), true), 2);
    std::array<bool, 9> red{false, true, false, true, false, false, false, false, false};
    EXPECT_EQ(a.relay_red, red);
    EXPECT_EQ(a.inputs[1], 3);  // the later group's colour
    EXPECT_EQ(a.inputs[2], 3);
    EXPECT_EQ(a.inputs[3], 0);
    EXPECT_EQ(a.bar_height[1], 10 * 13);
    EXPECT_EQ(a.bar_top[2], kAnalogBarBase - 16 * 13);
    EXPECT_EQ(a.bar_height[3], kAnalogBarReset);
}

}  // namespace
}  // namespace filo::diagnostics
