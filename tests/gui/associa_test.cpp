// ASSOCIA from the module window: a set chosen by clicks reaches the table
// with the module window's Salva.
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "app/associa.hpp"
#include "app/moduli.hpp"
#include "gui/gui_fixture.hpp"
#include "store/sqlite.hpp"

namespace filo::testing {
namespace {

class AssociaTest : public SessionTest {
  protected:
    AssociaTest() { open_new_project(); }
    // Columns of one stored row of the module.
    std::string stored(const std::string& code, int campo, const char* column) {
        auto q = session.project.database().prepare(std::string("SELECT ") + column +
                                                    " FROM nick WHERE codice = ?1 AND campo = ?2");
        q.bind(1, code).bind(2, std::to_string(campo));
        return q.step() ? q.text(0) : "?";
    }
};

TEST_F(AssociaTest, ASetChosenInAssociaIsStoredAtSalva) {
    add_module("000115");
    session.modules.set_codice_modulo("000115");
    session.modules.STATO_MODULO = "MODULO_ESISTENTE";
    app::MODULI window(session);
    ASSERT_TRUE(window.load());
    window.show();
    QTest::keyClicks(child<QLineEdit>(&window, "Text1_1"), "Luce");
    QTest::keyClicks(child<QLineEdit>(&window, "Text1_2"), "Cappa");
    QPushButton* button = child<QPushButton>(&window, "Image1_5");
    EXPECT_EQ(button->text(), "ASSOCIAZIONI ");
    button->click();
    auto* associa = window.findChild<app::ASSOCIA*>("ASSOCIA");
    ASSERT_NE(associa, nullptr);
    EXPECT_FALSE(child<QGroupBox>(&window, "Frame1")->isVisible());
    EXPECT_TRUE(child<QGroupBox>(associa, "Frame6")->isVisible());
    EXPECT_FALSE(child<QCheckBox>(associa, "Check2_3")->isEnabled());  // no name

    QTest::mouseClick(child<QCheckBox>(associa, "Check2_25"), Qt::LeftButton);     // relay 1 off
    QTest::mouseClick(child<QCheckBox>(associa, "Check3_2"), Qt::LeftButton);      // switches 2 on
    EXPECT_FALSE(child<QCheckBox>(associa, "Check3_1")->isEnabled());              // a participant
    QTest::mouseClick(child<QRadioButton>(associa, "Option3_0"), Qt::LeftButton);  // OR
    EXPECT_TRUE(child<QRadioButton>(associa, "Option5_1")->isChecked());           // still set a
    QTest::keyClicks(child<QLineEdit>(associa, "Text5"), "Notte");
    child<QPushButton>(associa, "Label35")->click();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return window.findChild<app::ASSOCIA*>() == nullptr; }, 2000));
    EXPECT_TRUE(child<QGroupBox>(&window, "Frame1")->isVisible());
    EXPECT_EQ(stored("000115", 2, "riserva"), "");  // nothing before Salva

    child<QPushButton>(&window, "Image1_1")->click();
    EXPECT_EQ(stored("000115", 2, "riserva"), "Notte");
    EXPECT_EQ(stored("000115", 2, "riserva3").substr(0, 25), std::string(24, '0') + "1");
    EXPECT_EQ(stored("000115", 3, "riserva3").substr(0, 17), "01000000000000001");
}

}  // namespace
}  // namespace filo::testing
