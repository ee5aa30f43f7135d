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

namespace filo::testing {
namespace {

using AssociaTest = SessionTest;

TEST_F(AssociaTest, ASetChosenInAssociaIsStoredAtSalva) {
    open_new_project();
    add_module("000115");
    session.modules.set_codice_modulo("000115");
    session.modules.STATO_MODULO = "MODULO_ESISTENTE";
    app::MODULI window(session);
    ASSERT_TRUE(window.load());
    window.show();
    QTest::keyClicks(child<QLineEdit>(&window, "Text1_1"), "Luce");
    QTest::keyClicks(child<QLineEdit>(&window, "Text1_2"), "Cappa");
    child<QPushButton>(&window, "Image1_5")->click();
    auto* associa = window.findChild<app::ASSOCIA*>("ASSOCIA");
    ASSERT_NE(associa, nullptr);
    EXPECT_FALSE(child<QGroupBox>(&window, "Frame1")->isVisible());
    QTest::mouseClick(child<QCheckBox>(associa, "Check2_25"), Qt::LeftButton);     // relay 1 off
    QTest::mouseClick(child<QCheckBox>(associa, "Check3_2"), Qt::LeftButton);      // switches 2 on
    QTest::mouseClick(child<QRadioButton>(associa, "Option3_0"), Qt::LeftButton);  // OR
    EXPECT_TRUE(child<QRadioButton>(associa, "Option5_1")->isChecked());           // still set a
    QTest::keyClicks(child<QLineEdit>(associa, "Text5"), "Notte");
    child<QPushButton>(associa, "Label35")->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.findChild<app::ASSOCIA*>(); }, 2000));
    EXPECT_TRUE(child<QGroupBox>(&window, "Frame1")->isVisible());
    EXPECT_EQ(session.modules.read_rows("000115")[1].riserva, "");  // nothing before Salva

    child<QPushButton>(&window, "Image1_1")->click();
    const std::vector<store::NickRow> rows = session.modules.read_rows("000115");
    EXPECT_EQ(rows[1].riserva, "Notte");
    EXPECT_EQ(rows[1].riserva3.substr(0, 25), std::string(24, '0') + "1");
    EXPECT_EQ(rows[2].riserva3.substr(0, 17), "01000000000000001");
}

}  // namespace
}  // namespace filo::testing
