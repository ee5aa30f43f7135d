#pragma once
// A project with the module editor over it, as the module window and
// filo-cli's set-point use it.
#include <initializer_list>
#include <string>
#include <utility>

#include "modules/module_editor.hpp"
#include "store/link_table.hpp"
#include "store/store_fixture.hpp"

namespace filo::testing {

class ModuleEditorTest : public StoreTest {
  protected:
    // A saved module of the code's type with the points named, opened for editing.
    void make(const std::string& code,
              std::initializer_list<std::pair<int, const char*>> names = {}) {
        ASSERT_TRUE(editor.create(code));
        for (const auto& [row, name] : names)
            ASSERT_EQ(editor.rename(row, name), modules::EditRefusal::None) << row;
        ASSERT_EQ(editor.save(), modules::EditRefusal::None);
        ASSERT_TRUE(editor.open(code));
    }
    store::NickRow& row(int r) { return table.RIGHE_MODULO.riga(r); }

    store::LinkTable links{project};
    modules::ModuleEditor editor{table, links};
};

}  // namespace filo::testing
