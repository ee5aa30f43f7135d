#pragma once
#include <functional>

namespace filo::app {

// What the hub asks of the windows around it.
struct HubHost {
    std::function<void()> show_connection;   // SERIALE, modal
    std::function<void()> show_programming;  // Form4
    std::function<void()> show_monitor;      // Form8
    std::function<void()> show_main_menu;    // Form1; the hub goes
    // The scan's next tick after this many milliseconds.
    std::function<void(int ms)> schedule_scan_tick;
};

}  // namespace filo::app
