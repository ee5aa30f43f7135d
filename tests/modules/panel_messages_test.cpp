#include "modules/panel_messages.hpp"
#include "common/basic_functions.hpp"

#include <gtest/gtest.h>

namespace filo::modules {
namespace {

TEST(PanelMessages, RecordLayoutAndItsHalves) {
    const std::string sixty(60, 'x');
    struct Case {
        MessageRecord message;
        std::string record;
    };
    const Case cases[] = {
        {{"5", 'K', "\\bCiao"}, "05K\\bCiao"},             // persistence padded to two digits
        {{"", 'B', "\\hVerde"}, "00B\\hVerde"},            // none typed
        {{"25", 'V', "\\bCiao"}, "20V\\bCiao"},            // above 20
        {{"04", 'B', "\\bCi"}, ""},                        // fewer than 5 characters: no message
        {{"02", 'B', "Città"}, "02BCittà"},                // characters, not bytes
        {{"15", 'L', sixty + "yz"}, "15L" + sixty + "y"},  // 61 characters of text at most
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message.text);
        EXPECT_EQ(RECORD_MESSAGGIO(c.message), c.record);
        const RecordHalves h = split_record(c.record);
        EXPECT_EQ(h.riserva2 + h.riserva3, c.record);
        if (c.record.empty()) continue;
        EXPECT_EQ(basic::character_count(h.riserva2),
                  std::min<std::size_t>(32, basic::character_count(c.record)));
        const MessageRecord back = read_record(h.riserva2, h.riserva3);
        EXPECT_EQ(back.mode, c.message.mode);
        EXPECT_EQ(back.text, basic::characters_after(c.record, 3));
    }
    // A half never cuts a character in two.
    const RecordHalves accented = split_record("02B" + std::string(28, 'a') + "èè" + "fine");
    EXPECT_EQ(accented.riserva2, "02B" + std::string(28, 'a') + "è");
    EXPECT_EQ(accented.riserva3, "èfine");
}

TEST(PanelMessages, PersistenceFollowsTheLengthAndTheTypedValue) {
    const std::pair<std::size_t, const char*> lengths[] = {
        {0, "02"},  {12, "02"}, {13, "09"}, {14, "04"}, {20, "04"}, {21, "05"},
        {30, "05"}, {31, "07"}, {41, "11"}, {50, "11"}, {51, "15"}, {64, "15"},
    };
    for (const auto& [length, expected] : lengths)
        EXPECT_EQ(persistence_for_length(length, "09"), expected) << length;
    const std::pair<const char*, const char*> typed[] = {
        {"25", "20"}, {"20", "20"}, {"7", "7"}, {"0", "0"}, {"a1b", "1"}, {"", ""}, {"120", "20"},
    };
    for (const auto& [text, expected] : typed) EXPECT_EQ(typed_persistence(text), expected) << text;
}

TEST(PanelMessages, AColourGoesInAtTheSelectionOrReplacesTheCodeThatEndsTheText) {
    struct Case {
        std::string text;
        std::size_t start, length;
        int colour;
        std::string result;
        std::size_t caret;
    };
    const Case cases[] = {
        {"\\bCiao", 6, 0, 2, "\\bCiao\\h", 8},
        {"\\bCiao", 2, 0, 4, "\\b\\dCiao", 4},     // at the caret, in the middle
        {"\\bCiao", 2, 4, 5, "\\b\\f", 4},         // over a selection
        {"\\bCiao\\h", 3, 0, 1, "\\bCiao\\a", 8},  // behind a code: it takes its place
        {"\\b", 2, 0, 6, "\\e", 2},
        {"Ciao^s", 6, 0, 7, "Ciao^s^s", 8},  // the sound is no colour to replace
        {"Città", 5, 0, 2, "Città\\h", 7},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const ColourInsertion done = insert_colour_code(c.text, c.start, c.length, c.colour);
        EXPECT_EQ(done.text, c.result);
        EXPECT_EQ(done.caret, c.caret);
    }
}

TEST(PanelMessages, TheEditorDrawsCodesWhiteAndThePanelShowsTheTextInItsColours) {
    const Rgb red{0xFF, 0, 0}, green{0, 0xFF, 0}, dim_orange{0xFF, 0xC0, 0x80},
        white{0xFF, 0xFF, 0xFF};
    EXPECT_EQ(coloured_runs("Su\\hPorta^s\\eè"), (std::vector<ColouredRun>{{"Su", red},
                                                                           {"\\h", white, true},
                                                                           {"Porta^s", green},
                                                                           {"\\e", white, true},
                                                                           {"è", dim_orange}}));
    // "\x" that is no code of the table is text.
    EXPECT_EQ(coloured_runs("a\\zb"), (std::vector<ColouredRun>{{"a\\zb", red}}));

    const PanelPreview p = panel_preview({"05", 'V', "\\bSu\\hPorta^s aperta\\h!"});
    EXPECT_EQ(p.runs, (std::vector<ColouredRun>{{"Su", red}, {"Porta aperta!", green}}));
    EXPECT_TRUE(p.sounds);
    EXPECT_EQ(p.mode, kBlinkingMode);
    EXPECT_FALSE(panel_preview({"05", 'B', "\\bSu"}).sounds);
}

}  // namespace
}  // namespace filo::modules
