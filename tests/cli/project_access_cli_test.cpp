// Projects that are not the user's to change: a read-only file or folder,
// an unwritable data directory, a file that carries triggers and views.
#include <unistd.h>

#include "cli/cli_fixture.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

namespace fs = std::filesystem;

class ProjectAccessTest : public testing::CliFixture {
  protected:
    ProjectAccessTest() {
        fs::create_directories(shared);
        project = testing::make_empty_project(shared, "casa").string();
        run_ok({"add-module", project, printed("00121F"), "--note", "Quadro"});
        run_ok({"set-point", project, "00121F/9", "--name", "Luce sala"});
        run_ok({"set-point", project, "00121F/1", "--name", "Pulsante"});
    }
    ~ProjectAccessTest() override {
        for (const fs::path& p : {dir.path(), shared, fs::path(project)})
            fs::permissions(p, fs::perms::owner_all);
    }
    // filo-cli as a user who may not write what root may: root itself
    // writes everywhere, so it runs the command as nobody.
    testing::ProgramResult as_other_user(const std::vector<std::string>& args,
                                         const std::string& home) {
        if (::geteuid() != 0) return testing::run_program("filo-cli", args, {{"FILO_HOME", home}});
        std::vector<std::string> wrapped = {"--reuid=65534", "--regid=65534", "--clear-groups",
                                            testing::program_path("filo-cli").string()};
        wrapped.insert(wrapped.end(), args.begin(), args.end());
        return testing::run_program("/usr/bin/setpriv", wrapped, {{"FILO_HOME", home}});
    }
    // Folders r-x and the project r-- for everyone, its owner included.
    void lock_away(const std::vector<fs::path>& folders) {
        for (const fs::path& f : folders) fs::permissions(f, kReadable | kEnterable);
        fs::permissions(project, kReadable);
    }
    static constexpr fs::perms kReadable =
        fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    static constexpr fs::perms kEnterable =
        fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;

    fs::path shared = dir / "condivisa";
    std::string project;
};

TEST_F(ProjectAccessTest, ReadingWorksOnAReadOnlyProjectAndLeavesItAsItWas) {
    const std::string before = testing::read_file(project);
    lock_away({dir.path(), shared});
    const std::string home = (dir / "home").string();
    const std::vector<std::vector<std::string>> reading = {
        {"modules", project}, {"image", project, "00121F"},
        {"links", project},   {"points", project, "--outputs"},
        {"check", project},   {"program", project, "--dry-run"},
    };
    for (const auto& args : reading) {
        auto r = as_other_user(args, home);
        EXPECT_EQ(r.exit_code, 0) << args[0] << ": " << r.err;
        EXPECT_NE(r.out, "") << args[0];
    }
    auto write = as_other_user({"set-point", project, "00121F/2", "--name", "Tenuto"}, home);
    EXPECT_EQ(write.exit_code, 1);
    EXPECT_EQ(write.err.rfind("Il progetto non si può modificare, non è scrivibile: ", 0), 0u)
        << write.err;
    EXPECT_NE(write.err.find("condivisa"), std::string::npos) << write.err;
    EXPECT_EQ(testing::read_file(project), before);
}

TEST_F(ProjectAccessTest, AnUnwritableDataDirectoryIsNamedAsSuch) {
    const fs::path home = dir / "programma";
    fs::create_directories(home);
    lock_away({home, dir.path()});
    const fs::path mine = fs::temp_directory_path() / ("filo-mine-" + std::to_string(::getpid()));
    fs::create_directories(mine);
    fs::permissions(mine, fs::perms::all);
    auto r = as_other_user({"new", (mine / "nuovo").string()}, home.string());
    fs::remove_all(mine);
    EXPECT_EQ(r.exit_code, 1);
    EXPECT_EQ(r.err,
              "La cartella dei dati del programma non è scrivibile: " + home.string() + "\n");
}

TEST_F(ProjectAccessTest, TriggersAndViewsKeepAProjectClosedAndCheckNamesThem) {
    {
        sqlite::Connection c(project, sqlite::OpenMode::ReadWrite);
        c.exec("CREATE TRIGGER wipe AFTER UPDATE ON nick BEGIN DELETE FROM associazioni; END");
        c.exec("CREATE VIEW tutto AS SELECT * FROM nick");
    }
    const std::string before = testing::read_file(project);
    const std::string refused =
        "Il progetto contiene codice SQL che Filo non esegue e non viene aperto: trigger wipe, "
        "view tutto\n";
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"set-point", project, "00121F/9", "--name", "Altro"},
          std::vector<std::string>{"modules", project}}) {
        auto r = cli(args);
        EXPECT_EQ(r.exit_code, 1) << args[0];
        EXPECT_EQ(r.err, refused) << args[0];
    }
    EXPECT_EQ(testing::read_file(project), before);
    auto check = cli({"check", project});
    EXPECT_EQ(check.exit_code, 1);
    const std::string line = "Codice SQL nel progetto, da eliminare perché il progetto si apra: ";
    EXPECT_EQ(check.out, line + "trigger wipe\n" + line + "view tutto\n");
}

}  // namespace
}  // namespace filo
