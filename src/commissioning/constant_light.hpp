#pragma once
// AVANZATE2: the working point of a photo-sensor module, set live. The
// installer moves the slider; the module enters set-up mode, takes the set
// point and regulates its lamps; the window shows the sensor's reading and
// the command to the lamps as the module reports them, and stores the point
// in the project at confirmation. The module regulates; this only sets and
// shows. Timers are the host's: it runs Timer2 while Timer2 is true and
// Timer3 once when Timer3 is armed.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "texts/text_key.hpp"

namespace filo::bus {
class Line;
}
namespace filo::store {
class ModuleTable;
}

namespace filo::commissioning {

class ConstantLight {
  public:
    static constexpr int kTimer2Ms = 1500;  // the periodic query
    static constexpr int kTimer3Ms = 15;    // the query just after an event
    static constexpr int kSetPointGapTenths = 4;
    // Above this the lamps are at their full power.
    static constexpr int kFullPower = 250;

    ConstantLight(store::ModuleTable& modules, bus::Line& line);
    ~ConstantLight();
    ConstantLight(const ConstantLight&) = delete;
    ConstantLight& operator=(const ConstantLight&) = delete;

    // Form4's list gives "1" and the code read as hexadecimal; "" for 0.
    static std::string regulator_of_item(std::int64_t item_data);

    std::string MODULO_REGOLATORE;
    std::string PUNTO_LAVORO;
    std::string POTENZA_MINIMA;

    int Slider1 = 0;   // 0-100
    int Label7 = 0;    // the level, 0-255
    int Label6 = -1;   // the sensor's reading, -1 until one comes
    int comando = -1;  // the command to the lamps (Shape4), -1 until one comes
    bool Shape6_red = false;
    bool Shape6B_visible = false;
    texts::Text Label4 = texts::Text::LIGHT_SET_LEVEL;
    bool Timer2 = false;
    bool Timer3 = false;
    // Told after a frame changed what the window shows.
    std::function<void()> changed;

    // Reads the module and starts taking every frame. Throws as LEGGI_MODULO.
    void Form_Load();
    // A press on the slider stops the periodic query.
    void Slider1_MouseDown() { Timer2 = false; }
    // The end of a movement: the level and PUNTO_LAVORO from the slider.
    void Slider1_Change(int slider);
    // On line: set-up mode, 0.4 s with events served, the set point, and
    // the periodic query from now on.
    void send_set_point();
    void Timer2_Timer();
    void Timer3_Timer();
    // Every frame while the window is open.
    void GRAFICA_PER_AVANZATE2(std::string_view RX_TRAMA);
    // Stores the point in the project and, on line, leaves set-up mode.
    // Throws as MODIFICA_MODULO; the window stays open then.
    void Label1_Click(bool on_line);
    // Stops taking frames; done by the destructor too.
    void close();

  private:
    std::string address() const { return MODULO_REGOLATORE.substr(0, 4); }
    void send_tail(const std::string& frame);

    store::ModuleTable& modules_;
    bus::Line& line_;
    bool open_ = false;
};

}  // namespace filo::commissioning
