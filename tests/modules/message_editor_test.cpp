#include "modules/message_editor.hpp"

#include <gtest/gtest.h>

#include "store/link_table.hpp"
#include "store/store_fixture.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

class MessageEditorTest : public testing::StoreTest {
  protected:
    // Form11 on a new panel interface.
    void open(const std::string& code = "00071E") {
        table.set_codice_modulo(code);
        editor.load();
    }
    // Types a message into the place of list entry `index`, as the installer
    // does: the list dropped (storing the one in hand), the entry chosen.
    void type_message(int index, const std::string& name, const std::string& text) {
        editor.Combo1_DropDown();
        editor.Combo1_Click(index);
        editor.Combo1_CloseUp();
        editor.Text1_Change(name);
        editor.RichTextBox1_Change(text);
    }
    store::NickRow& row(int r) { return table.RIGHE_MODULO.riga(r); }

    texts::LanguageTables texts;
    store::LinkTable links{project};
    MessageEditor editor{table, links, texts};
};

TEST_F(MessageEditorTest, ANewPanelOffersOnePlaceThenOneFreePlaceBehindTheMessages) {
    open();
    EXPECT_TRUE(editor.new_module());
    EXPECT_EQ(editor.Label16.substr(0, 6), "00071E");  // and its check digits
    EXPECT_EQ(editor.Combo1, std::vector<std::string>{"Messaggio n°  1"});
    EXPECT_EQ(editor.Text1, "Messaggio n° 1");
    EXPECT_EQ(editor.RichTextBox1, "\\b");  // a new message begins in red
    EXPECT_EQ(editor.Text5, "02");

    editor.RichTextBox1_Change("\\bPorta aperta");
    editor.Combo1_DropDown();
    EXPECT_EQ(editor.Combo1, (std::vector<std::string>{"Messaggio n° 1", "Disponibile n° 2"}));
    editor.Combo1_DropDown();  // the free place is there already
    EXPECT_EQ(editor.Combo1.size(), 2u);
    EXPECT_EQ(row(1).nick, "Messaggio n° 1");
    EXPECT_EQ(row(1).riserva2, "04B\\bPorta aperta");

    // Up to row 96 only: rows 97 and 98 are no places for a message.
    for (int k = 2; k <= 96; ++k) type_message(k - 1, "M" + std::to_string(k), "\\bTesto");
    editor.Combo1_DropDown();
    EXPECT_EQ(editor.Combo1.size(), 96u);
    EXPECT_EQ(editor.Combo1.back(), "Messaggio n° 96");
}

TEST_F(MessageEditorTest, ShortTextsLeaveThePlaceWithoutRecordAndTheNameAsItWas) {
    open();
    type_message(0, "Allarme", "\\bFuoco");
    editor.RichTextBox1_Change("\\bFu");  // 4 characters: a name, an entry, no record
    editor.Combo1_DropDown();
    EXPECT_EQ(row(1).nick, "Allarme");
    EXPECT_EQ(row(1).riserva2, "");
    EXPECT_EQ(editor.Combo1[0], "Messaggio n° 1");
    editor.Combo1_Click(0);
    editor.RichTextBox1_Change("\\b");  // 2: the place is free again, the name stays
    editor.Combo1_DropDown();
    EXPECT_EQ(editor.Combo1[0], "Disponibile n° 1");
    EXPECT_EQ(row(1).nick, "Allarme");
    EXPECT_EQ(editor.Text1, "");
}

TEST_F(MessageEditorTest, RepeatedNamesAreNumberedAndRepeatedTextsTakeTheTextShown) {
    open();
    type_message(0, "Piano 3", "\\hBenvenuti");
    editor.Combo4_Click(2);
    editor.Check4 = editor.Check3 = true;
    editor.Combo1_DropDown();
    editor.Combo1_Click(1);
    EXPECT_EQ(editor.Text1, "Piano  2");  // cut by the digits of the number alone
    EXPECT_EQ(editor.RichTextBox1, "\\hBenvenuti");
    EXPECT_EQ(editor.Combo4, 0);     // "02B" in front of the text shown
    EXPECT_EQ(row(2).riserva2, "");  // stored only on moving on or saving
    editor.Combo1_DropDown();
    EXPECT_EQ(row(2).nick, "Piano  2");
    EXPECT_EQ(row(2).riserva2, "02B\\hBenvenuti");
    EXPECT_FALSE(editor.Text1_Change("Piano à"));  // the name set only
    EXPECT_EQ(editor.Text1, "Piano  2");
}

TEST_F(MessageEditorTest, SalvaStoresTheMarkTheIdleMessageAndAFullRecord) {
    open();
    editor.Text4_Change("Pannello ingresso");
    editor.Check1 = true;
    const std::string full = "\\d" + std::string(70, 'x');
    type_message(0, "Lungo", full);
    editor.Combo4_Click(3);
    editor.Combo1_DropDown();   // stored: ticking Check2 wouldn't store it
    editor.Check2_Click(true);  // the idle message: row 98
    EXPECT_EQ(editor.RichTextBox1, "\\b");
    editor.RichTextBox1_Change("\\aChiuso");
    editor.Combo4_Click(0);
    ASSERT_TRUE(editor.SALVA_INTERFACCIA());

    table.LEGGI_MODULO("00071E");
    ASSERT_EQ(table.RIGHE_MODULO.N_RIGHE_MODULO(), 99);
    EXPECT_EQ(row(1).riserva2 + row(1).riserva3, "15V" + full.substr(0, 61));
    EXPECT_EQ(row(98).riserva2, "02B\\aChiuso");
    for (int k : {1, 50, 98}) EXPECT_EQ(row(k).note, "*Pannello ingresso") << k;
    EXPECT_EQ(row(99).note, "");
    EXPECT_EQ(row(99).campo + row(99).numero_filo + row(99).tipologia + row(99).connesso,
              "9999OUT_SERIALE0");

    editor.load();  // opened again
    EXPECT_FALSE(editor.new_module());
    EXPECT_EQ(editor.Text4, "Pannello ingresso");
    EXPECT_TRUE(editor.Check1);
    EXPECT_EQ(editor.Combo4, 3);
    EXPECT_EQ(editor.Text1, "Lungo");

    editor.Text4.clear();
    EXPECT_FALSE(editor.SALVA_INTERFACCIA());
    EXPECT_EQ(editor.USCITA_CONSENTITA, "NO");
}

}  // namespace
}  // namespace filo::modules
