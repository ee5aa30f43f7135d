// Frame5 of MODULI, offscreen: the serial typed into the page.
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "app/moduli.hpp"
#include "bus/module_code.hpp"
#include "gui/gui_fixture.hpp"

namespace filo::testing {
namespace {

using ReplacementPageTest = SessionTest;

TEST_F(ReplacementPageTest, TheEighthCharacterReplacesTheModuleAndTheWindowCloses) {
    open_new_project();
    add_module("000215");
    const auto open = [&](bool stored) {
        session.modules.set_codice_modulo("000215");
        session.modules.STATO_MODULO = stored ? "MODULO_ESISTENTE" : "NUOVO_MODULO";
        auto window = std::make_unique<app::MODULI>(session);
        EXPECT_TRUE(window->load());
        window->show();
        return window;
    };
    EXPECT_FALSE(child<QPushButton>(open(false).get(), "Image1_3")->isEnabled());  // nero

    auto window = open(true);
    QSignalSpy closed(window.get(), &app::MODULI::closed);
    auto* page = child(window.get(), "Frame5");
    auto* serial = child<QLineEdit>(window.get(), "Text3");
    child<QPushButton>(window.get(), "Image1_3")->click();
    EXPECT_TRUE(page->isVisible());
    EXPECT_FALSE(child(window.get(), "Frame1")->isVisible());
    QTest::keyClicks(serial, "00ab1500");  // wrong check digits: the box emptied
    EXPECT_EQ(messages.shown.at(0), (Shown{"Codice inserito non corretto", "ATTENZIONE"}));
    EXPECT_EQ(serial->text(), "");
    child<QPushButton>(window.get(), "Label15")->click();  // ANNULLA
    EXPECT_FALSE(page->isVisible());

    child<QPushButton>(window.get(), "Image1_3")->click();
    const QString typed = QString::fromStdString(bus::printed_code("00AB15"));
    QTest::keyClicks(serial, typed.left(7).toLower());
    EXPECT_EQ(serial->text(), typed.left(7));  // seven characters do nothing
    EXPECT_EQ(closed.count(), 0);
    QTest::keyClicks(serial, typed.right(1));
    EXPECT_EQ(messages.shown.back(), (Shown{"Sostituzione avvenuta con successo  ", ""}));
    EXPECT_EQ(closed.count(), 1);
    EXPECT_EQ(rows("nick", "00AB15"), 32);
}

}  // namespace
}  // namespace filo::testing
