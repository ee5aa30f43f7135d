#include "modules/module_editor.hpp"

#include <gtest/gtest.h>

#include "modules/module_editor_fixture.hpp"
#include "modules/parameter_fields.hpp"

namespace filo::modules {
namespace {

using R = EditRefusal;

using ModuleEditorTest = testing::ModuleEditorTest;

TEST_F(ModuleEditorTest, NamesAreCheckedAndStoredAsTheWindowStoresThem) {
    make("000215");
    EXPECT_EQ(editor.rename(9, "  Luce sala  "), R::None);
    EXPECT_EQ(row(9).nick, "Luce sala ");  // outputs keep one blank behind
    EXPECT_EQ(editor.rename(1, " Pulsante porta "), R::None);
    EXPECT_EQ(row(1).nick, "Pulsante porta");                 // inputs none
    EXPECT_EQ(editor.rename(10, "Luce sala"), R::NameInUse);  // two outputs of one window
    EXPECT_EQ(editor.rename(2, "Luce sala"), R::None);        // an input may share it
    EXPECT_EQ(editor.rename(11, "Luce d'atrio"), R::NameCharacters);
    EXPECT_EQ(editor.rename(11, "Luce à"), R::NameCharacters);
    EXPECT_EQ(refused_name_character("Luce à"), "à");
    EXPECT_EQ(editor.rename(11, "Luce 2° piano, sx-1/b_"), R::None);
    EXPECT_EQ(editor.rename(99, "x"), R::NotAPoint);
    ASSERT_EQ(editor.save(), R::None);

    make("00031F");
    EXPECT_EQ(editor.rename(9, "luce SALA"),
              R::NameInUse);  // against the project, without regard to case
}

TEST_F(ModuleEditorTest, LinkedPointsKeepTheirNameAndKindAndRenamesReachTheLinks) {
    make("000215");
    editor.rename(9, "Luce sala");
    editor.rename(1, "Pulsante");
    editor.save();
    links.LINK_CORRENTE = testing::switching_link("000215/1", "000215/1", "Luce sala ", "Pulsante");
    links.AGGIUNGI_LINK();
    ASSERT_TRUE(editor.open("000215"));
    EXPECT_EQ(editor.rename(9, ""), R::NameLinked);
    EXPECT_EQ(editor.rename(1, ""), R::NameLinked);
    EXPECT_EQ(editor.set_kind(1, 'I'), R::InputLinked);
    EXPECT_EQ(editor.linked_receiver(), "Luce sala ");
    EXPECT_EQ(editor.rename(9, "Luce salotto"), R::None);
    ASSERT_EQ(editor.save(), R::None);
    store::LinkRow r;
    links.read_row(1, r);
    EXPECT_EQ(r.nick_ricevente, "Luce salotto ");
}

TEST_F(ModuleEditorTest, KindsAndContactsComeFromTheTypesLists) {
    make("000211");
    EXPECT_EQ(editor.set_kind(1, 'F'), R::None);  // limit switch: relay modules with flags
    EXPECT_EQ(editor.set_kind(1, 'K'), R::KindNotOffered);
    EXPECT_EQ(editor.set_kind(9, 'P'), R::NotAPoint);
    EXPECT_EQ(editor.set_contact(9, 'I'), R::NameRequired);
    editor.rename(9, "Rele 1");
    EXPECT_EQ(editor.set_contact(9, 'I'), R::ClosedWithReciprocal);  // new relays are interlocked
    EXPECT_EQ(editor.set_contact(11, 'V'),
              R::ContactNotOffered);  // the variator is offered from output 5

    make("00061F");
    EXPECT_EQ(editor.set_kind(1, 'F'), R::KindNotOffered);

    make("000315");
    editor.rename(13, "Dimmer");
    EXPECT_EQ(editor.set_contact(13, 'V'), R::None);
    EXPECT_EQ(row(5).nick, "Variatore_Dimmer");
    EXPECT_EQ(row(5).modo.substr(0, 2), "VV");
    EXPECT_EQ(row(13).modo[1], 'V');
    set_point_field(row(5).riserva2, 1, "020");
    EXPECT_EQ(editor.set_contact(13, '0'), R::None);  // undoing the pairing frees the input
    EXPECT_EQ(row(5).nick, "");
    EXPECT_EQ(row(5).modo.substr(0, 2), "P0");
    EXPECT_EQ(row(5).riserva2.substr(0, 9), "000000000");

    make("00041A");
    EXPECT_EQ(editor.set_kind(1, 'I'), R::KindNotOffered);  // a reader's inputs are read events
}

TEST_F(ModuleEditorTest, ParametersByPlace) {
    make("000215");
    EXPECT_EQ(editor.set_parameter(3, "P3", "255"), R::None);
    EXPECT_EQ(module_parameters(row(1).riserva3), "000000255000000000");
    EXPECT_EQ(editor.set_parameter(1, "P6", "1"), R::ParameterNotOffered);  // not on this page
    EXPECT_EQ(editor.set_parameter(1, "V1", "5"), R::ParameterNotOffered);  // a pushbutton has none
    editor.set_kind(1, 'N');
    EXPECT_EQ(editor.set_parameter(1, "V1", "5"), R::None);
    EXPECT_EQ(row(1).riserva2.substr(0, 3), "005");
    EXPECT_EQ(editor.set_parameter(1, "V3", "5"), R::ParameterNotOffered);
    editor.rename(9, "Luce");
    EXPECT_EQ(editor.set_parameter(9, "ON", "251"), R::None);
    EXPECT_EQ(editor.set_parameter(9, "OFF", "20"), R::None);
    EXPECT_EQ(row(9).riserva2.substr(0, 6), "000020");
    EXPECT_EQ(editor.set_parameter(1, "ON", "20"), R::ParameterNotOffered);
    EXPECT_EQ(editor.set_parameter(1, "Q1", "20"), R::ParameterNotOffered);

    make("000348");  // events of relays are kept by modules with flags only
    editor.rename(9, "Rele");
    EXPECT_EQ(editor.set_parameter(9, "ON", "200"), R::ParameterNotOffered);
}

TEST_F(ModuleEditorTest, SavingChecksSafetyInputsAndFillsTheTypesOwnPoints) {
    make("000215");
    editor.set_kind(2, 'p');
    EXPECT_EQ(editor.save(), R::SafetyInputsNeedInterval);
    editor.set_parameter(1, "P2", "10");
    EXPECT_EQ(editor.save(), R::None);

    make("000419");
    editor.rename(1, "Sensore sala");
    ASSERT_EQ(editor.save(), R::None);
    EXPECT_EQ(row(9).nick, "ATTIVAZIONE Sensore sala");
    editor.set_kind(1, 'L');
    ASSERT_EQ(editor.save(), R::None);
    EXPECT_EQ(row(9).nick, "");
    EXPECT_EQ(row(9).tipologia, "");

    make("00051F");
    editor.rename(9, "Presa cucina");
    ASSERT_EQ(editor.save(), R::None);
    EXPECT_EQ(row(8).nick, "(COMANDO) Presa cucina ");
    // The command link from input 8 to the output, written once however often
    // the module is saved.
    ASSERT_EQ(editor.save(), R::None);
    links.LEGGI_LINK();
    ASSERT_EQ(links.N_LINK(), 1);
    EXPECT_EQ(links.link(1).identificativoRX, "00051F/1");
    EXPECT_EQ(links.link(1).identificativoTX, "00051F/8");
}

}  // namespace
}  // namespace filo::modules
