#pragma once
#include <functional>

namespace filo::app {

// What the hub asks of the windows around it.
struct HubHost {
    std::function<void()> show_connection;   // SERIALE, modal
    std::function<void()> show_programming;  // Form4
    std::function<void()> show_main_menu;    // Form1; the hub goes
    // Form18 with report 1-5 (STAMPA_1 to STAMPA_5), and its unloading.
    std::function<void(int numero_report)> show_report;
    std::function<void()> close_report;
    // The scan's next tick after this many milliseconds.
    std::function<void(int ms)> schedule_scan_tick;
};

}  // namespace filo::app
