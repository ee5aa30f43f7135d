#pragma once
#include <functional>

namespace filo::app {

// What the hub asks of the windows around it.
struct HubHost {
    std::function<void()> show_connection;   // SERIALE, modal
    std::function<void()> show_programming;  // Form4
    std::function<void()> show_main_menu;    // Form1; the hub goes
    std::function<void()> show_clone;        // MACRO, modal
    std::function<void()> show_export;       // FrmMain, modal
    // The scan's next tick after this many milliseconds.
    std::function<void(int ms)> schedule_scan_tick;
};

}  // namespace filo::app
