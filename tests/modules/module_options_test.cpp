// The checks of the option pages and of Salva, which filo-cli meets through
// the same editor: a value the window can't produce is refused, nothing kept.
#include <gtest/gtest.h>

#include "modules/module_editor_fixture.hpp"
#include "modules/parameter_fields.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

using R = EditRefusal;

class ModuleOptionsTest : public testing::ModuleEditorTest {
  protected:
    texts::LanguageTables texts;
};

TEST_F(ModuleOptionsTest, ValuesAndFieldsAreThoseThePagesOffer) {
    struct Case {
        const char* code;
        int row;
        const char* field;
        const char* value;
        R expected;
    } cases[] = {
        {"000211", 1, "P3", "abc", R::ValueRefused},
        {"000211", 1, "P3", "-5", R::ValueRefused},
        {"000211", 1, "P3", "256", R::ValueRefused},
        {"000211", 1, "P3", "255", R::None},
        {"000211", 1, "P6", "1", R::ParameterNotOffered},
        {"000211", 9, "ON", "252", R::ValueRefused},  // 252-255 do nothing on the module
        {"000211", 9, "ON", "251", R::None},
        {"000211", 11, "OFF", "20", R::NameRequired},  // unnamed output: no page
        {"000211", 9, "EMERGENCY", "50", R::ParameterNotOffered},
        {"000305", 1, "P4", "7", R::ParameterNotOffered},  // read and written, never shown
        {"000305", 9, "ON", "100", R::ParameterNotOffered},
        {"000625", 9, "EMERGENCY", "101", R::ValueRefused},
        {"000626", 13, "EMERGENCY", "40", R::ParameterNotOffered},  // channels 1 to 3 only
    };
    for (const Case& c : cases) {
        // Output 1 named everywhere, output 5 where the window shows it.
        if (std::string(c.code) == "000305")
            make(c.code, {{9, "Luce"}});
        else
            make(c.code, {{9, "Luce"}, {13, "Quinta"}});
        const std::string before = row(c.row).riserva2 + row(1).riserva3;
        EXPECT_EQ(editor.set_parameter(c.row, c.field, c.value), c.expected)
            << c.code << " " << c.field << "=" << c.value;
        if (c.expected != R::None) {
            EXPECT_EQ(row(c.row).riserva2 + row(1).riserva3, before);
        }
        table.RIGHE_MODULO.rows.clear();
        sql("DELETE FROM nick");
    }
    make("000305", {});
    const R r = editor.set_parameter(1, "P5", "1");
    EXPECT_NE(editor.message(r, texts, "P5").find("P1 P2 P3"), std::string::npos);
}

TEST_F(ModuleOptionsTest, EmergencySnapsOnRelaysAndAllowsCommandsThroughConnesso) {
    make("000625", {{9, "Luce scala"}});
    EXPECT_EQ(editor.set_parameter(9, "EMERGENCY", "50"), R::None);
    EXPECT_EQ(point_field(row(9).riserva2, 3), "000");  // a relay has no middle
    EXPECT_EQ(editor.set_parameter(9, "EMERGENCY", "51"), R::None);
    EXPECT_EQ(point_field(row(9).riserva2, 3), "255");
    EXPECT_EQ(editor.set_commands_in_emergency(9, true), R::None);
    EXPECT_EQ(row(9).connesso[1], 'e');
    make("000726", {{9, "Led 1"}});
    EXPECT_EQ(editor.set_parameter(9, "EMERGENCY", "33"), R::None);
    EXPECT_EQ(point_field(row(9).riserva2, 3), "084");
}

TEST_F(ModuleOptionsTest, PointsTheWindowDoesNotShowCannotBeNamed) {
    make("000305", {});
    EXPECT_EQ(editor.rename(5, "Quinto"), R::NotAPoint);  // a dimmer has four inputs
    EXPECT_EQ(editor.rename(10, "Seconda"), R::NotAPoint);
    EXPECT_EQ(editor.set_kind(5, 'T'), R::NotAPoint);
    make("000419", {});
    EXPECT_EQ(editor.rename(12, "Uscita"), R::NotAPoint);
    make("000511", {{9, "Rele uno"}, {11, "Virtuale"}});
    EXPECT_EQ(editor.set_contact(11, 'I'), R::ContactNotOffered);  // outputs 3 and 4: N.A. only
    EXPECT_EQ(editor.rename(17, "Flag uno"), R::None);             // the flags of a relay module
}

TEST_F(ModuleOptionsTest, AndReciprocalClosedContactsAndTheirNames) {
    make("000315", {{9, "Uno"}, {10, "Due"}, {11, "Tre"}});
    struct Case {
        const char* and_bits;
        const char* reciprocal;
        R expected;
    } cases[] = {
        {"01000000", "01000000", R::AndWithReciprocal},
        {"00010000", "00000000", R::RelayWithoutName},
        {"0100000x", "00000000", R::ValueRefused},
        {"11000000", "00100000", R::None},  // its own relay is dropped
    };
    for (const Case& c : cases)
        EXPECT_EQ(editor.set_functions(9, c.and_bits, c.reciprocal), c.expected) << c.and_bits;
    EXPECT_EQ(row(9).modo.substr(8, 16), "0100000000100000");
    EXPECT_EQ(editor.set_contact(11, 'I'), R::ClosedWithReciprocal);
    EXPECT_EQ(editor.set_functions(9, "01000000", "00000000"), R::None);
    EXPECT_EQ(editor.set_contact(11, 'I'), R::None);
    EXPECT_EQ(editor.set_functions(10, "00000000", "00100000"), R::ReciprocalWithClosed);

    // Output 2 is the AND of output 1: its name stays, and the message says who.
    EXPECT_EQ(editor.rename(10, ""), R::NameIsAndCondition);
    EXPECT_EQ(row(10).nick, "Due ");
    EXPECT_EQ(editor.message(R::NameIsAndCondition, texts, ""),
              "Uno   SI ATTIVA SOLO SE QUESTA USCITA è ATTIVA \n"
              "ELIMINARE PRIMA LA FUNZIONE  <AND>  IN   Uno ");
    // Output 3 is the condition of a link.
    sql("INSERT INTO associazioni (identificativoRX, \"and\", nick_trasmittente, nick_ricevente)"
        " VALUES ('000315/1', '00100000', 'Pulsante', 'Uno ')");
    EXPECT_EQ(editor.rename(11, ""), R::NameIsLinkCondition);
    ASSERT_EQ(editor.save(), R::None);

    // A stored AND with RECIPROCO on one relay (another tool's) stops Salva.
    row(10).modo.replace(8, 16, "1000000010000000");
    EXPECT_EQ(editor.save(), R::AndWithReciprocal);
}

TEST_F(ModuleOptionsTest, ANameFromAnotherToolKeepsItsCharactersOnlyTypingIsFiltered) {
    make("000215", {});
    row(9).nick = "Luce d'atrio ";  // as another tool stored it
    EXPECT_EQ(editor.rename(9, "Luce d'atrio 2"), R::None);
    EXPECT_EQ(editor.rename(9, "Luce d'atrio à"), R::NameCharacters);
    EXPECT_EQ(editor.rename(10, "Luce d'atrio"), R::NameCharacters);  // not another point's
    EXPECT_EQ(editor.save(), R::None);
}

TEST_F(ModuleOptionsTest, KindChangeClearsItsOptionsAndTimedReadingTakesThresholds) {
    make("000215", {});
    ASSERT_EQ(editor.set_kind(1, 'N'), R::None);
    ASSERT_EQ(editor.set_parameter(1, "V1", "5"), R::None);
    ASSERT_EQ(editor.set_kind(1, 'T'), R::None);
    EXPECT_EQ(row(1).riserva2.substr(0, 9), "000000000");
    ASSERT_EQ(editor.set_kind(2, 'A'), R::None);
    EXPECT_EQ(editor.set_parameter(2, "V1", "20"), R::None);
    ASSERT_EQ(editor.set_parameter(1, "P2", "10"), R::None);
    EXPECT_EQ(editor.set_parameter(2, "V1", "20"), R::ThresholdWithTimedReading);
}

TEST_F(ModuleOptionsTest, DuplicateNamesAcrossModulesTurnRedAtSave) {
    make("000215", {{9, "Luce sala"}, {1, "Porta"}});
    make("000315", {});
    row(10).nick = "LUCE SALA ";  // as another tool left it: case apart, the same name
    row(2).nick = "Porta";
    row(3).nick = "Porta";
    EXPECT_EQ(editor.save(), R::NameInUse);
    EXPECT_EQ(editor.red_rows(), (std::vector<int>{2, 3, 10}));
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE nick LIKE 'Porta%'"), 1);
}

TEST_F(ModuleOptionsTest, ReaderCardsAndRemoteElementOptions) {
    make("00041A", {});
    bool added = false;
    EXPECT_EQ(editor.enter_card(2, "00a1f3", &added), R::None);
    EXPECT_TRUE(added);
    EXPECT_EQ(editor.enter_card(2, "00A1F3", &added), R::None);  // entered twice: gone
    EXPECT_FALSE(added);
    EXPECT_EQ(editor.enter_card(2, "00A1G3"), R::CardCode);
    EXPECT_EQ(editor.set_reader('X'), R::ValueRefused);
    EXPECT_EQ(editor.set_reader('I'), R::None);
    EXPECT_EQ(editor.set_rgb_channel(true), R::ParameterNotOffered);

    make("00054A", {});
    make("000634", {});
    EXPECT_EQ(editor.set_receiver("000515"), R::ReceiverNotInProject);
    EXPECT_EQ(editor.set_receiver("00054A"), R::None);
    EXPECT_EQ(receiver_code(row(1).riserva4), "00054A");
    EXPECT_EQ(editor.set_rolling_code(true), R::None);
    EXPECT_TRUE(uses_rolling_code(module_parameters(row(1).riserva3)));
}

}  // namespace
}  // namespace filo::modules
