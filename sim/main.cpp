// filo-sim: a simulated programmer with a simulated installation behind it,
// on a pseudo-terminal. The path goes to the first line of standard output;
// control lines come on standard input; SIGTERM or SIGINT end it, and the
// dump is written then.
#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <sstream>

#include "sim/dump.hpp"
#include "sim/installation.hpp"
#include "sim/sim_server.hpp"
#include "sim/simulator.hpp"

namespace {

std::vector<std::string> split_codes(const std::vector<std::string>& lists) {
    std::vector<std::string> codes;
    for (const std::string& list : lists) {
        std::istringstream in(list);
        for (std::string code; std::getline(in, code, ',');)
            if (!code.empty()) codes.push_back(code);
    }
    return codes;
}

bool write_dump(const std::string& file, filo::sim::SimServer& server) {
    if (file.empty()) return true;
    std::string text;
    server.inspect([&](const filo::sim::Simulator& s) { text = filo::sim::dump_json(s); });
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    if (!out) std::cerr << "filo-sim: cannot write " << file << '\n';
    return static_cast<bool>(out);
}

// Serves control lines from standard input until a signal comes.
void wait_for_signal(int signal_fd, filo::sim::SimServer& server, const std::string& dump_file) {
    std::string input;
    bool stdin_open = true;
    char buffer[1024];
    for (;;) {
        pollfd fds[2] = {{signal_fd, POLLIN, 0}, {stdin_open ? 0 : -1, POLLIN, 0}};
        if (::poll(fds, 2, -1) < 0) {
            if (errno == EINTR) continue;
            return;
        }
        if (fds[0].revents & POLLIN) return;
        if (fds[1].revents & (POLLIN | POLLHUP | POLLERR)) {
            const ssize_t n = ::read(0, buffer, sizeof buffer);
            if (n <= 0) {
                stdin_open = false;  // no more control lines; serve on
                continue;
            }
            input.append(buffer, static_cast<std::size_t>(n));
            for (std::size_t eol; (eol = input.find('\n')) != std::string::npos;) {
                std::string line = input.substr(0, eol);
                input.erase(0, eol + 1);
                if (!line.empty() && line.back() == '\r') line.pop_back();
                if (line == "dump") {
                    write_dump(dump_file, server);
                    continue;
                }
                const std::string error = server.control(line);
                if (!error.empty()) std::cerr << "filo-sim: " << error << std::endl;
            }
        }
    }
}

int run(int argc, char** argv) {
    CLI::App app{"Filo simulator: a programmer and an installation on a pseudo-terminal",
                 "filo-sim"};
    std::string project, dump_file;
    std::vector<std::string> module_lists, silent;
    filo::sim::Faults faults;
    int late_ms = 0;
    app.add_option("--project", project, "Take the installation from a project's live modules")
        ->check(CLI::ExistingFile);
    app.add_option("--modules", module_lists, "Module codes, comma separated: 00121F,00221F");
    app.add_option("--dump", dump_file, "Write what the modules hold here, as JSON, at the end");
    app.add_option("--silent", silent, "A module that never answers (repeatable)");
    app.add_option("--late", late_ms, "Milliseconds by which every OK and answer is late")
        ->check(CLI::Range(0, 60000));
    app.add_option("--drop-ok", faults.drop_ok, "Chance that an OK is lost, 0 to 1")
        ->check(CLI::Range(0.0, 1.0));
    app.add_option("--noise", faults.noise, "Chance of garbage in front of a write, 0 to 1")
        ->check(CLI::Range(0.0, 1.0));
    app.add_flag("--split", faults.split, "Writes leave in pieces of 1-4 characters, 1 ms apart");
    app.add_option("--seed", faults.seed, "Seed of the faults");
    faults.baud = 19200;
    app.add_option("--baud", faults.baud,
                   "Line speed in bit/s, 10 bits a character; 0 answers at once")
        ->check(CLI::Range(0, 10000000))
        ->capture_default_str();
    int traffic = 0;
    app.add_option("--traffic", traffic,
                   "Random presses and releases a second over the inputs that have links")
        ->check(CLI::Range(0, 1000));
    CLI11_PARSE(app, argc, argv);
    faults.late = late_ms / 1000.0;

    // A project that can't be read ends the run through main's handler.
    std::vector<std::string> codes;
    if (!project.empty()) codes = filo::sim::bus_codes_of_project(project);
    const std::vector<std::string> listed = split_codes(module_lists);
    codes.insert(codes.end(), listed.begin(), listed.end());
    std::vector<filo::sim::SimModule> modules;
    try {
        modules = filo::sim::make_installation(codes, silent);
    } catch (const std::invalid_argument& e) {
        std::cerr << "filo-sim: " << e.what() << '\n';
        return 2;
    }

    // The signals are taken through a descriptor, by every thread alike.
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    const int signal_fd = ::signalfd(-1, &signals, SFD_CLOEXEC);

    filo::sim::Simulator simulator(std::move(modules), faults);
    filo::sim::SimServer server(simulator);
    server.start();
    if (traffic > 0) server.control("traffic " + std::to_string(traffic));
    std::cout << server.path() << std::endl;

    wait_for_signal(signal_fd, server, dump_file);
    server.stop();
    ::close(signal_fd);
    return write_dump(dump_file, server) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& e) {
        std::cerr << "filo-sim: " << e.what() << '\n';
        return 1;
    }
}
