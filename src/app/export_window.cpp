#include "app/export_window.hpp"

#include <cmath>

#include "app/session.hpp"
#include "exchange/export_nick.hpp"
#include "exchange/export_project.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

ExportWindow::ExportWindow(Session& session) : session_(session) {}

void ExportWindow::Form_Load() {
    caption = session_.texts.text(Text::EXPORT_CAPTION);
}

void ExportWindow::Command1_Click(const std::function<void()>& yield) {
    Command1 = false;
    List2.clear();
    List2_selected = -1;
    convert(yield);
    Command1 = true;
    if (!closed) export_cards();
}

void ExportWindow::Command3_Click() {
    export_cards();
}

void ExportWindow::Command2_Click() {
    closed = true;
}

void ExportWindow::convert(const std::function<void()>& yield) {
    const texts::LanguageTables& t = session_.texts;
    try {
        exchange::ProjectExport files(session_.project, session_.data_directory());
        List2.push_back(t.text(Text::EXPORT_CREATING_NICK));
        files.convert([&](std::int64_t row, std::int64_t total) {
            percent = static_cast<int>(
                std::lround(static_cast<double>(row) * 100.0 / static_cast<double>(total)));
            caption = std::to_string(percent) + t.text(Text::EXPORT_INSERTING) +
                      std::to_string(row) + t.text(Text::EXPORT_OF) + std::to_string(total) +
                      t.text(Text::EXPORT_IN_NICK);
            if (yield) yield();
        });
    } catch (const exchange::ExportError& e) {
        session_.message_text(exchange::describe(e, t), t.text(Text::EXPORT_CAPTION));
        caption = t.text(Text::EXPORT_CAPTION);
        // A table that can't be made closes the window.
        if (e.text() == Text::EXPORT_CREATE_ERROR) closed = true;
        return;
    } catch (const std::exception& e) {
        session_.message(Text::PROJECT_UNREADABLE, Text::TITLE_WARNING, {}, e.what());
        caption = t.text(Text::EXPORT_CAPTION);
        return;
    }
    List2.back() += t.text(Text::EXPORT_DONE);
    List2_selected = static_cast<int>(List2.size()) - 1;
    caption = t.text(Text::EXPORT_CAPTION);
}

void ExportWindow::export_cards() {
    const texts::LanguageTables& t = session_.texts;
    try {
        exchange::ProjectExport files(session_.project, session_.data_directory());
        files.export_cards();
    } catch (const exchange::ExportError& e) {
        session_.message_text(exchange::describe(e, t), t.text(Text::EXPORT_CAPTION));
        return;
    } catch (const std::exception& e) {
        session_.message(Text::PROJECT_UNREADABLE, Text::TITLE_WARNING, {}, e.what());
        return;
    }
    session_.message(Text::CREATED_WORD, Text::TITLE_PROJECT_CREATION,
                     t.text(Text::PROJECT_WORD) + " XXX ");
}

}  // namespace filo::app
