#pragma once
// A sample project to clone and a target project, in a directory of their own.
#include <gtest/gtest.h>

#include <filesystem>

#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace filo::testing {

// A sample with a relay module, two card readers (inside and outside), a
// page of the video-door panel, a deleted module, and links: a plain one
// with its second page, one from a reader, and one from a gateway channel.
inline void fill_clone_sample(const std::filesystem::path& file) {
    store::Project p;
    p.open(file);
    store::ModuleTable t(p);
    add_module(t, "00011F", 16, "Cucina");
    set_column(p, "00011F", 1, "nick", "Pulsante cucina");
    set_column(p, "00011F", 9, "nick", "Luce d'ingresso");
    add_module(t, "00021A", 9, "Lettore");
    set_column(p, "00021A", 1, "connesso", ".E......");
    set_column(p, "00021A", 1, "nick", "Badge");
    add_module(t, "00031A", 9, "Lettore 2");
    set_column(p, "00031A", 1, "connesso", ".I......");
    add_module(t, "FFF023", 16, "PAGINA 1 VIDEOCITOFONO", "VCITOF");
    add_module(t, "0004FF", 16, "");
    p.database().exec("UPDATE nick SET riserva = 'K' WHERE codice = '0004FF'");
    store::LinkTable links(p);
    links.LINK_CORRENTE =
        switching_link("00011F/9", "00011F/1", "Luce d'ingresso", "Pulsante cucina");
    links.AGGIUNGI_LINK();
    links.LINK_CORRENTE = store::second_page(links.LINK_CORRENTE);
    links.AGGIUNGI_LINK();
    links.LINK_CORRENTE = switching_link("00011F/10", "00021A/1", "Luce", "Badge");
    links.AGGIUNGI_LINK();
    links.LINK_CORRENTE = switching_link("00011F/11", "FFFEFF/5", "Luce", "NET_GATE");
    links.AGGIUNGI_LINK();
}

// The sample's four listed modules, and new codes for them.
inline constexpr const char* kSampleCodes[] = {"00011F", "00021A", "00031A", "FFF023"};
inline constexpr const char* kCloneCodes[] = {"01011F", "01021A", "01031A", "010123"};

class CloneTest : public ::testing::Test {
  protected:
    CloneTest()
        : sample(make_empty_project(dir.path(), "campione")),
          target(make_empty_project(dir.path(), "casa")) {
        fill_clone_sample(sample);
        store::Project p;
        p.open(target);
        store::ModuleTable t(p);
        add_module(t, "00011F", 16, "Quadro");  // same code as the sample's: no matter
        add_module(t, "0A0A1F", 16, "Clone_Vecchio <7> Quadro");
    }
    TempDir dir;
    std::filesystem::path sample;
    std::filesystem::path target;
};

}  // namespace filo::testing
