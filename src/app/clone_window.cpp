#include "app/clone_window.hpp"

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

CloneWindow::CloneWindow(Session& session)
    : session_(session), job_(std::make_unique<exchange::CloneJob>(sample_, session.modules)) {}

CloneWindow::~CloneWindow() = default;

void CloneWindow::Form_Load() {
    Frame1 = Frame4 = Frame7 = false;
    Image1_2 = Image1_3 = false;
    Label15 = session_.texts.text(Text::CLONE_EXIT_BLANK);
}

void CloneWindow::tell(const exchange::CloneMessage& m) {
    session_.message_text(session_.texts.text(m.message) + m.after,
                          m.title ? session_.texts.text(*m.title) : std::string());
}

void CloneWindow::SCEGLI_CAMPIONE(const std::string& file) {
    rows.clear();
    VScroll1 = false;
    if (file.empty()) return;
    std::optional<exchange::CloneMessage> refused;
    try {
        refused = sample_.open(file);
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
        return;
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session_, e);
        return;
    }
    if (refused && refused->message == Text::PROJECT_MISSING) {
        tell(*refused);
        return;
    }
    Label2 = session_.texts.text(Text::CLONE_SOURCE_SELECTED) +
             std::filesystem::path(file).filename().string();
    if (refused) tell(*refused);
    for (const exchange::SampleModule& m : sample_.rows) {
        Row& r = rows.emplace_back();
        r.Label6 = session_.texts.text(Text::CLONE_ROW_NUMBER) + std::to_string(rows.size());
        r.Label1 = m.item;
        r.Label3 = m.type_label;
        r.Text1 = session_.texts.text(Text::CLONE_ENTER_CODE);
    }
    VScroll1 = rows.size() > 10;
    Image1_2 = false;
    Image1_3 = true;
    if (!rows.empty()) {
        Frame1 = false;
        Frame4 = true;
    }
}

void CloneWindow::Text2_Change(const std::string& text) {
    Text2 = text;
    Label15 = session_.texts.text(text.empty() ? Text::CLONE_EXIT_BLANK : Text::CLONE_ACCEPT);
}

void CloneWindow::Label15_Click() {
    Frame4 = false;
    if (Label15 != session_.texts.text(Text::CLONE_ACCEPT) || rows.empty()) return;
    Frame1 = true;
    Label4 = session_.texts.text(Text::CLONE_ADD) + Text2 +
             session_.texts.text(Text::CLONE_NUMBER_LABEL);
}

void CloneWindow::Image1_3_Click() {
    Frame1 = false;
    Frame4 = true;
}

char CloneWindow::Text1_KeyPress(char key, std::size_t current_length) {
    if (key == '\b') return key;
    if (current_length >= 8) return 0;
    if (key >= 'a' && key <= 'f') key = static_cast<char>(key - 'a' + 'A');
    if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'F')) return key;
    return 0;
}

void CloneWindow::Text1_GotFocus(int i) {
    Row& r = rows.at(static_cast<std::size_t>(i));
    if (r.Text1 == session_.texts.text(Text::CLONE_ENTER_CODE)) r.Text1.clear();
}

void CloneWindow::Text1_Change(int i, const std::string& text) {
    Row& r = rows.at(static_cast<std::size_t>(i));
    r.Text1 = text;
    next_focus = -1;
    if (text.size() != 8) {
        r.green = false;
        CONTROLLA_CODICI();
        return;
    }
    try {
        job_->CERCA_MODULI();
    } catch (const std::exception& e) {
        session_.message(Text::PROJECT_UNREADABLE, Text::TITLE_WARNING, {}, e.what());
        return;
    }
    if (auto m = job_->check_code(i + 1, text, session_.CONTROLLO_CODICE != "NO")) {
        tell(*m);
        r.Text1.clear();
        r.green = false;
        CONTROLLA_CODICI();
        return;
    }
    r.green = true;
    if (i + 1 < N_RIGHE_CLONE()) next_focus = i + 1;
    CONTROLLA_CODICI();
}

void CloneWindow::CONTROLLA_CODICI() {
    Image1_2 = !rows.empty();
    for (const Row& r : rows) Image1_2 = Image1_2 && r.green;
}

void CloneWindow::Text3_Change(const std::string& text) {
    Text3 = text;
}

void CloneWindow::ESEGUI_CLONE(const std::function<void()>& progress) {
    exchange::CloneRequest request{.group = Text2,
                                   .number = Text3,
                                   .codes = {},
                                   .check_digits = session_.CONTROLLO_CODICE != "NO"};
    for (const Row& r : rows) request.codes.push_back(r.Text1);
    try {
        const exchange::CloneOutcome outcome = job_->prepare(request);
        if (!outcome.refused_codes.empty()) {
            tell(outcome.refused_codes.front().message);
            return;
        }
        if (outcome.refusal) {
            tell(*outcome.refusal);
            return;
        }
        Frame7 = true;
        job_->write(outcome.plan, [&](const std::string& codice) {
            Label7 = codice;
            if (progress) progress();
        });
    } catch (const store::ProjectError& e) {
        Frame7 = false;
        tell_project_fault(session_, e);
        return;
    } catch (const sqlite::SqlError& e) {
        Frame7 = false;
        tell_project_fault(session_, e);
        return;
    }
    Frame7 = false;
    for (Row& r : rows) {
        r.Text1 = session_.texts.text(Text::CLONE_ENTER_CODE);
        r.green = false;
    }
    Image1_2 = false;
    Label10 = session_.texts.text(Text::CLONE_LAST) + Text3;
    Text3.clear();
}

}  // namespace filo::app
