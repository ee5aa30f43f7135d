// MACRO and FrmMain offscreen: a clone typed in the window, and an export.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "app/clone_dialog.hpp"
#include "app/export_dialog.hpp"
#include "bus/module_code.hpp"
#include "exchange/clone_fixture.hpp"
#include "gui/gui_fixture.hpp"

namespace filo::testing {
namespace {

using texts::Text;

class ExchangeWindowsTest : public SessionTest {
  protected:
    ExchangeWindowsTest() {
        open_new_project("casa");
        sample = make_empty_project(dir.path(), "campione");
        fill_clone_sample(sample);
    }
    std::filesystem::path sample;
};

TEST_F(ExchangeWindowsTest, CloneTypedInTheWindow) {
    app::MACRO window(session);
    window.show();
    window.choose_sample(sample.string());
    EXPECT_TRUE(child(&window, "Frame4")->isVisible());
    EXPECT_EQ(child<QLineEdit>(&window, "Text1_3")->text().toStdString(), "INSERISCI CODICE");
    QTest::keyClicks(child<QLineEdit>(&window, "Text2"), "Villa!");
    EXPECT_EQ(child<QLineEdit>(&window, "Text2")->text(), "Villa");  // "!" is dropped
    child<QPushButton>(&window, "Label15")->click();
    ASSERT_TRUE(child(&window, "Frame1")->isVisible());

    // A wrong code is told and leaves its box empty; "CLONA" waits for all four.
    auto* first = child<QLineEdit>(&window, "Text1_0");
    QTest::mouseClick(first, Qt::LeftButton);
    QTest::keyClicks(first, "01011f00");
    EXPECT_EQ(messages.shown.back().text, "Codice inserito non corretto");
    EXPECT_EQ(first->text(), "");
    for (int i = 0; i < 4; ++i) {
        auto* box = child<QLineEdit>(&window, ("Text1_" + std::to_string(i)).c_str());
        QTest::mouseClick(box, Qt::LeftButton);
        QTest::keyClicks(box, QString::fromStdString(bus::printed_code(kCloneCodes[i])));
        EXPECT_FALSE(child(&window, "Image1_2")->isVisible() && i < 3) << i;
    }
    EXPECT_TRUE(child(&window, "Image1_2")->isVisible());
    QTest::keyClicks(child<QLineEdit>(&window, "Text3"), "1");
    child<QPushButton>(&window, "Image1_2")->click();
    EXPECT_EQ(session.modules.read_rows("01021A").at(0).riserva, "1");
    EXPECT_EQ(child<QLabel>(&window, "Label10")->text(), "ultima  1");
    EXPECT_EQ(child<QLineEdit>(&window, "Text1_0")->text(), "INSERISCI CODICE");
}

TEST_F(ExchangeWindowsTest, StartCopiesNickAndExportsTheReaders) {
    add_module("00011A");
    app::FrmMain window(session);
    EXPECT_EQ(window.windowTitle(), "Microsoft Access to SQLite Conversor");
    child<QPushButton>(&window, "Command1")->click();
    EXPECT_EQ(window.tool().List2, std::vector<std::string>{"Creating nick  (done)"});
    EXPECT_EQ(messages.shown.back(), (Shown{"Progetto XXX Creato", "     Creazione progetto"}));
    EXPECT_TRUE(std::filesystem::exists(dir / "casa.DB"));
    EXPECT_TRUE(std::filesystem::exists(dir / "ESP_casa" / "DATI_HARDWARE.mdb"));
}

}  // namespace
}  // namespace filo::testing
