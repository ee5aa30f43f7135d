#pragma once
// The analysis of one module from the line monitor: fifteen queries, one a
// tick of 100 ms, and the collector that reads the answers into the shapes
// of the window (relays, flags, inputs, lamps, analog bars) whenever they come.
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace filo::diagnostics {

inline constexpr int kAnalysisTickMs = 100;
inline constexpr int kAnalogBarReset = 3300;  // the height a bar starts from
inline constexpr int kAnalogBarBase = 3540;   // a bar's top is this less its height

class ModuleAnalysis {
  public:
    std::string ANALISI_INDIRIZZO;
    int ANALISI_PASSO = -1;
    int ANALISI_ULTIMO = 14;
    bool ANALISI_ATTIVA = false;
    std::string ANALISI_TIPO;
    // 1-based as the shapes are; element 0 unused.
    std::array<bool, 9> ANALISI_LAMPADE{};

    std::array<bool, 9> relays{};     // relay shapes 1-8 lit
    std::array<bool, 9> relay_red{};  // lamps drawn on the relay shapes
    std::array<bool, 17> flags{};     // flag shapes 1-16 lit
    std::array<int, 9> inputs{};      // input shapes 1-8: colour 0 (grey) to 4
    std::array<int, 9> bar_height{};  // analog bars 1-8
    std::array<int, 9> bar_top{};

    // Command3: starts the analysis of the address (ANALISI_INDIRIZZO).
    void start(std::string_view address);
    // A tick of Timer2: the frame to send without checksum, if this step
    // sends one. When the steps are over the analysis ends (finished()).
    std::optional<std::string> tick();
    // The analysis just ended at this tick: the window reads the point names.
    bool finished() const { return !ANALISI_ATTIVA && ANALISI_PASSO > ANALISI_ULTIMO; }
    // The collector: a frame received while ANALISI_ATTIVA.
    void collect(std::string_view rx_trama, std::string_view rx_grezzo);

  private:
    bool has_groups() const;
};

}  // namespace filo::diagnostics
