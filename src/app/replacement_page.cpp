#include "app/replacement_page.hpp"

#include "app/session.hpp"
#include "modules/module_replacement.hpp"

namespace filo::app {

bool ReplacementPage::Text3_Change(const std::string& text) {
    Text3 = text.substr(0, 8);
    if (Text3.size() < 8) return false;
    const modules::ReplacementRefusal refusal = modules::replace_module(
        session_.modules, session_.links, Text3, session_.CONTROLLO_CODICE != "NO");
    if (refusal == modules::ReplacementRefusal::None) {
        session_.message_text(session_.texts.text(texts::Text::REPLACEMENT_DONE), "");
        return true;
    }
    const modules::ReplacementMessage m = modules::replacement_message(refusal);
    session_.message_text(session_.texts.text(m.text),
                          m.title ? session_.texts.text(*m.title) : std::string());
    if (m.empties_box) Text3.clear();
    return false;
}

}  // namespace filo::app
