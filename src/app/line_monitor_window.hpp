#pragma once
// Form8's tool object: the line monitor's state and actions on top of the
// decoder, with no widgets. The view draws it and forwards the clicks.
#include <array>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "diagnostics/line_decoder.hpp"
#include "diagnostics/line_monitor.hpp"
#include "diagnostics/module_analysis.hpp"
#include "diagnostics/module_directory.hpp"
#include "diagnostics/monitor_format.hpp"
#include "texts/voice.hpp"

namespace filo::app {

class Session;

// What the analysis view shows when the pointer rests on a shape.
enum class ShapeKind { Relay, Input, Flag };

class LineMonitorWindow {
  public:
    explicit LineMonitorWindow(Session& session);
    ~LineMonitorWindow();

    // Form_Load: the names of the open project, and the monitor listens.
    void Form_Load();
    // Form_QueryUnload: the decoder rests.
    void Form_QueryUnload();
    // The names again, after the project changed.
    void reload_names();

    const texts::LanguageTables& texts() const;
    diagnostics::LineDecoder& decoder() { return decoder_; }
    diagnostics::ModuleAnalysis& analysis() { return analysis_; }
    const diagnostics::LineMonitor& monitor() const { return monitor_; }

    // Label1(0) to Label1(4): Nome, Mittente, Ingresso, Valore, Descrizione.
    std::array<std::string, 5> Label1;
    std::string Label11;
    std::array<std::string, 20> Label10;  // the classic panel, newest on top
    int ProgressBar1 = 0;
    std::string Command2;  // "STOP" while decoding, "START" while held

    // The full history, oldest first, and what waits while it is paused.
    std::vector<diagnostics::MonitorEntry> history;
    std::vector<diagnostics::MonitorEntry> held_back;
    bool paused = false;
    void pause(bool on);

    // Told when entries were added to the history (first index, count), and
    // when anything else shown changed.
    std::function<void(std::size_t first, std::size_t count)> on_history_added;
    std::function<void()> on_history_cleared;
    std::function<void()> on_changed;

    // Check1(1) to Check1(5).
    void Check1_Click(int index, bool ticked);
    // The "FILTRA" boxes: the filter on, and the blinking timer on while any is.
    void Check3_Click(int index, bool ticked);
    bool Timer1 = false;
    bool blink = false;
    void Timer1_Timer();
    // Key filters of Text2, Text4 and Text3: the key as taken, or none.
    static std::optional<char> Text2_KeyPress(char key);
    static std::optional<char> Text4_KeyPress(char key);
    static std::optional<char> Text3_KeyPress(char key);
    // The box's text after a change: emptied when the rule says so.
    std::string Text2_Change(const std::string& text);
    std::string Text4_Change(const std::string& text);
    std::string Text3;

    void Command1_Click();  // RESET
    void Command2_Click();  // STOP / START
    // ANALISI: starts the analysis of Text3; Timer2 runs while it lasts.
    void Command3_Click();
    bool Timer2 = false;
    void Timer2_Timer();
    // The label of a shape and the name of its point, as the hover frame shows.
    std::string shape_caption(ShapeKind kind, int index) const;
    std::string shape_name(ShapeKind kind, int index) const;

    // Recording: every frame received goes to the file while it is open.
    bool start_recording(const std::string& path);
    void stop_recording();
    bool recording() const { return record_.is_open(); }

    // Replay of a recording through the same decoder. At once, or frame by
    // frame: replay_next() returns the milliseconds to the next frame, or
    // none at the end.
    bool open_replay(const std::string& path);
    void replay_all();
    std::optional<int> replay_next();
    int replay_skipped = 0;

    // The history as CSV, header first.
    bool export_csv(const std::string& path) const;

    // A frame typed without its checksum, sent as programming sends it;
    // report holds what the line answered.
    bool send_frame(const std::string& frame);
    std::string report;

    // The status line: frames held back and frames not decoded.
    std::string status_text() const;

  private:
    void entry(const diagnostics::MonitorEntry& e);
    void STORICO(const std::string& frame);
    void changed();

    Session& session_;
    std::unique_ptr<diagnostics::ModuleDirectory> names_;
    diagnostics::LineDecoder decoder_;
    diagnostics::LineMonitor monitor_;
    diagnostics::ModuleAnalysis analysis_;
    texts::Voice voice_;
    std::ofstream record_;
    std::vector<diagnostics::RecordedFrame> replay_;
    std::size_t replay_at_ = 0;
    std::vector<std::string> NOMI_PRESENTI;
};

}  // namespace filo::app
