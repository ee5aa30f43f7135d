#include "app/line_monitor_window.hpp"

#include <cctype>

#include "app/session.hpp"
#include "bus/receive_assembler.hpp"
#include "commissioning/run_report.hpp"
#include "common/basic_functions.hpp"
#include "platform/time_of_day.hpp"
#include "store/link_queries.hpp"

namespace filo::app {
namespace {

using texts::Text;

bool is_hex(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

}  // namespace

LineMonitorWindow::LineMonitorWindow(Session& session)
    : session_(session),
      decoder_(session.texts, nullptr),
      monitor_(decoder_),
      voice_(session.speech.get()) {
    Label11 = session.texts.text(Text::MONITOR_WAITING);
    Command2 = session.texts.text(Text::MONITOR_STOP);
    monitor_.use_analysis(&analysis_);
    monitor_.time_of_day = platform::milliseconds_since_midnight;
    monitor_.on_frame = [this](std::string_view raw, int time_ms) {
        if (record_.is_open())
            record_ << diagnostics::recording_line({time_ms, std::string(raw)}) << '\n'
                    << std::flush;
    };
    monitor_.on_entry = [this](const diagnostics::MonitorEntry& e) { entry(e); };
}

LineMonitorWindow::~LineMonitorWindow() {
    session_.receiver.set_consumer(bus::ReceiveAssembler::Consumer::Monitor, nullptr);
}

const texts::LanguageTables& LineMonitorWindow::texts() const {
    return session_.texts;
}

void LineMonitorWindow::Form_Load() {
    reload_names();
    voice_.use_language(session_.texts.language());
    monitor_.attach(session_.receiver);
    session_.receiver.flags.MONITOR_SOSPESO = "NO";
}

void LineMonitorWindow::Form_QueryUnload() {
    session_.receiver.flags.MONITOR_SOSPESO = "SI";
    Timer2 = false;
    analysis_.ANALISI_ATTIVA = false;
}

void LineMonitorWindow::reload_names() {
    if (session_.project.is_open()) {
        names_ = std::make_unique<diagnostics::ModuleDirectory>(
            diagnostics::ModuleDirectory::load(session_.project));
        decoder_.use_directory(names_.get());
    } else {
        decoder_.use_directory(nullptr);
        names_.reset();
    }
}

void LineMonitorWindow::changed() {
    if (on_changed) on_changed();
}

void LineMonitorWindow::entry(const diagnostics::MonitorEntry& e) {
    if (e.decoded) {
        Label1 = {decoder_.LM_NOME, decoder_.LM_MODULO, decoder_.LM_INGRESSO, decoder_.LM_VALORE,
                  decoder_.LM_DESCRIZIONE};
        Label11 = e.frame;
        ProgressBar1 = decoder_.value_bar;
        STORICO(e.frame);
        if (e.speak) {
            voice_.TESTO_PARLATO = e.spoken;
            voice_.PARLA();
        }
    }
    if (paused) {
        held_back.push_back(e);
    } else {
        history.push_back(e);
        if (on_history_added) on_history_added(history.size() - 1, 1);
    }
    changed();
}

void LineMonitorWindow::STORICO(const std::string& frame) {
    if (basic::mid(frame, 4, 1) != "8") return;
    for (std::size_t i = 19; i >= 1; --i) Label10[i] = Label10[i - 1];
    Label10[0] = "8  " + std::string(basic::mid(frame, 5, 4)) + "  " +
                 std::string(basic::mid(frame, 9, 2)) + "  " +
                 std::string(basic::mid(frame, 11, 2));
}

void LineMonitorWindow::pause(bool on) {
    paused = on;
    if (on || held_back.empty()) return changed();
    const std::size_t first = history.size();
    history.insert(history.end(), std::make_move_iterator(held_back.begin()),
                   std::make_move_iterator(held_back.end()));
    held_back.clear();
    if (on_history_added) on_history_added(first, history.size() - first);
    changed();
}

void LineMonitorWindow::Check1_Click(int index, bool ticked) {
    diagnostics::SpeechTicks& t = decoder_.ticks;
    bool* ticks[] = {&t.mittente, &t.nome, &t.ingresso, &t.descrizione, &t.valore};
    if (index >= 1 && index <= 5) *ticks[index - 1] = ticked;
}

void LineMonitorWindow::Check3_Click(int index, bool ticked) {
    if (index == 0) decoder_.filters.on_mittente = ticked;
    if (index == 1) decoder_.filters.on_ingresso = ticked;
    Timer1 = decoder_.filters.on_mittente || decoder_.filters.on_ingresso;
    if (!Timer1) blink = false;
    changed();
}

void LineMonitorWindow::Timer1_Timer() {
    blink = !blink;
    changed();
}

std::optional<char> LineMonitorWindow::Text2_KeyPress(char key) {
    if (key == '\b') return key;
    const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(key)));
    return is_hex(upper) ? std::optional<char>(upper) : std::nullopt;
}

std::optional<char> LineMonitorWindow::Text4_KeyPress(char key) {
    if (key == '\b' || (key >= '0' && key <= '9')) return key;
    return std::nullopt;
}

std::optional<char> LineMonitorWindow::Text3_KeyPress(char key) {
    return Text2_KeyPress(key);
}

std::string LineMonitorWindow::Text2_Change(const std::string& text) {
    decoder_.filters.Text2 = text.size() > 4 ? std::string() : text;
    return decoder_.filters.Text2;
}

std::string LineMonitorWindow::Text4_Change(const std::string& text) {
    decoder_.filters.Text4 = text.size() > 3 || basic::val(text) > 255 ? std::string() : text;
    return decoder_.filters.Text4;
}

void LineMonitorWindow::Command1_Click() {
    for (std::size_t i = 1; i < Label10.size(); ++i) Label10[i].clear();
    history.clear();
    held_back.clear();
    if (on_history_cleared) on_history_cleared();
    changed();
}

void LineMonitorWindow::Command2_Click() {
    decoder_.decoding = !decoder_.decoding;
    Command2 = session_.texts.text(decoder_.decoding ? Text::MONITOR_STOP : Text::MONITOR_START);
    changed();
}

void LineMonitorWindow::Command3_Click() {
    analysis_.start(Text3);
    NOMI_PRESENTI.clear();
    Timer2 = true;
    changed();
}

void LineMonitorWindow::Timer2_Timer() {
    if (!Timer2) return;
    if (std::optional<std::string> frame = analysis_.tick()) {
        if (session_.on_line()) {
            session_.line.STRINGA_TX = *frame;
            session_.line.INVIA_ORDINE();
        }
    }
    if (analysis_.finished()) {
        Timer2 = false;
        if (session_.project.is_open()) {
            store::LinkQueries queries(session_.project, session_.links, session_.texts);
            queries.CERCA_NOMI(analysis_.ANALISI_INDIRIZZO);
            NOMI_PRESENTI = queries.NOMI_PRESENTI;
        }
    }
    changed();
}

std::string LineMonitorWindow::shape_caption(ShapeKind kind, int index) const {
    switch (kind) {
        case ShapeKind::Relay:
            return "Rele  " + std::to_string(index);
        case ShapeKind::Flag:
            return "Flag  " + std::to_string(index);
        default:
            return "Digitale";
    }
}

std::string LineMonitorWindow::shape_name(ShapeKind kind, int index) const {
    // Names in row order: inputs 1-8, then the outputs, then the flags.
    const int place = kind == ShapeKind::Input   ? index
                      : kind == ShapeKind::Relay ? 8 + index
                                                 : 16 + index;
    if (place >= 1 && place <= static_cast<int>(NOMI_PRESENTI.size()) &&
        !NOMI_PRESENTI[static_cast<std::size_t>(place - 1)].empty())
        return NOMI_PRESENTI[static_cast<std::size_t>(place - 1)];
    return session_.texts.text(Text::MONITOR_NO_NICKNAME);
}

bool LineMonitorWindow::start_recording(const std::string& path) {
    record_.close();
    record_.open(path, std::ios::binary | std::ios::trunc);
    changed();
    return record_.is_open();
}

void LineMonitorWindow::stop_recording() {
    record_.close();
    changed();
}

bool LineMonitorWindow::open_replay(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    diagnostics::Recording r = diagnostics::read_recording(in);
    replay_ = std::move(r.frames);
    replay_skipped = r.skipped;
    replay_at_ = 0;
    return true;
}

std::optional<int> LineMonitorWindow::replay_next() {
    if (replay_at_ >= replay_.size()) return std::nullopt;
    const diagnostics::RecordedFrame& frame = replay_[replay_at_++];
    // Through an assembler of its own: the port's may be in the middle of a frame.
    bus::ReceiveAssembler receiver;
    receiver.flags.MONITOR_SOSPESO = "NO";
    receiver.set_consumer(bus::ReceiveAssembler::Consumer::Monitor,
                          [this, &frame](const bus::ReceiveAssembler& r) {
                              const auto saved = monitor_.on_frame;
                              monitor_.on_frame = nullptr;
                              monitor_.receive(r.RX_TRAMA, r.RX_GREZZO, frame.time_ms);
                              monitor_.on_frame = saved;
                          });
    receiver.feed(frame.bytes);
    if (replay_at_ >= replay_.size()) return std::nullopt;
    int gap = replay_[replay_at_].time_ms - frame.time_ms;
    if (gap < 0) gap += diagnostics::kMillisecondsPerDay;
    return gap;
}

void LineMonitorWindow::replay_all() {
    while (replay_next()) {
    }
}

bool LineMonitorWindow::export_csv(const std::string& path) const {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out << diagnostics::csv_header() << '\n';
    for (const diagnostics::MonitorEntry& e : history)
        out << diagnostics::csv_line(e.fields) << '\n';
    return static_cast<bool>(out);
}

bool LineMonitorWindow::send_frame(const std::string& frame) {
    report.clear();
    if (frame.size() < 2 || (frame.front() != '(' && frame.front() != '[') || frame.back() != ']') {
        session_.message(Text::FRAME_NOT_VALID, Text::TITLE_WARNING);
        return false;
    }
    if (!session_.on_line()) return false;
    const std::string address(basic::mid(frame, 3, 4));
    session_.line.on_answer = [this, &address](int attempt, bool answered) {
        report += commissioning::report_line(address, " ", answered, attempt) + "\n";
    };
    session_.line.STRINGA_TX = frame;
    const bool answered = session_.line.INVIA_STRINGA(0);
    session_.line.on_answer = nullptr;
    changed();
    return answered;
}

std::string LineMonitorWindow::status_text() const {
    const texts::LanguageTables& t = session_.texts;
    std::string s = t.text(Text::MONITOR_FRAMES) +
                    std::to_string(history.size() + held_back.size()) + "   " +
                    t.text(Text::MONITOR_NOT_DECODED) + std::to_string(monitor_.not_decoded());
    if (paused) s += "   " + t.text(Text::MONITOR_HELD_BACK) + std::to_string(held_back.size());
    return s;
}

}  // namespace filo::app
