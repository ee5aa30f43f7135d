#include "gui/gui_fixture.hpp"

#include "app/module_entry.hpp"
#include "app/project_errors.hpp"
#include "bus/frame_builder.hpp"

namespace filo::testing {

bus::VirtualLine::Peer installation(std::vector<std::pair<int, int>> modules) {
    return [modules](bus::VirtualLine& l, std::string_view written) {
        if (written.size() != 14 || written[0] != '[' || written[3] != 'A') return;
        const int address = std::stoi(std::string(written.substr(4, 4)), nullptr, 16);
        for (const auto& [at, type] : modules)
            if (at == address)
                l.reply(bus::identification_answer_frame(static_cast<std::uint16_t>(at),
                                                         static_cast<std::uint8_t>(type)),
                        0.02);
    };
}

SessionTest::SessionTest() {
    session.LIVELLO = 3;
}

void SessionTest::open_new_project(const std::string& name) {
    session.files.ensure_empty_project();
    const auto file = session.files.project_path(name);
    session.files.create_project(file);
    ASSERT_TRUE(app::open_project_file(session, file));
}

void SessionTest::add_module(const std::string& code) {
    ASSERT_EQ(app::enter_new_module(session, code), app::ModuleEntry::Added) << code;
}

std::vector<std::string> SessionTest::shown_texts() const {
    std::vector<std::string> texts;
    for (const Shown& s : messages.shown) texts.push_back(s.text);
    return texts;
}

}  // namespace filo::testing
