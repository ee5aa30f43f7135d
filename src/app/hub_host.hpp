#pragma once
#include <functional>

namespace filo::app {

// What the hub asks of the windows around it.
struct HubHost {
    std::function<void()> show_connection;   // SERIALE, modal
    std::function<void()> show_programming;  // Form4
    std::function<void()> show_link_editor;  // Form9
    std::function<void()> show_monitor;      // Form8
    std::function<void()> show_main_menu;    // Form1; the hub goes
    // MODULI (Form11 for a panel) on CODICE_MODULO of the session's module table, new or stored
    // as STATO_MODULO says; with `wait`, returns once the window has closed.
    std::function<void(bool wait)> show_module;
    // Form18 with report 1-5 (STAMPA_1 to STAMPA_5), and its unloading.
    std::function<void(int numero_report)> show_report;
    std::function<void()> close_report;
    std::function<void()> show_clone;        // MACRO, modal
    std::function<void()> show_export;       // FrmMain, modal
    // The scan's next tick after this many milliseconds.
    std::function<void(int ms)> schedule_scan_tick;
    // The window shows the hub as it stands, before a question box covers it.
    std::function<void()> changed;
};

}  // namespace filo::app
