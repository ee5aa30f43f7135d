#include "app/form8.hpp"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>
#include <optional>

#include "app/analisi.hpp"
#include "app/line_monitor_window.hpp"
#include "app/monitor_history_model.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "diagnostics/output_diagram.hpp"

namespace filo::app {
namespace {

using texts::Text;

// A key filter of a text box: the key as the tool takes it, or dropped.
class KeyFilter final : public QObject {
  public:
    KeyFilter(QObject* parent, std::function<std::optional<char>(char)> filter)
        : QObject(parent), filter_(std::move(filter)) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Backspace || key->text().isEmpty()) return false;
        const QChar c = key->text().at(0);
        if (c.unicode() > 127) return true;
        const std::optional<char> taken = filter_(static_cast<char>(c.unicode()));
        if (!taken) return true;
        if (*taken != c.unicode()) {
            static_cast<QLineEdit*>(watched)->insert(QString(QChar(*taken)));
            return true;
        }
        return false;
    }

  private:
    std::function<std::optional<char>(char)> filter_;
};

QString shape_style(const QColor& colour) {
    return QString("background:%1;border:1px solid #555;padding:2px").arg(colour.name());
}

// A label whose text changes with every frame: its size does not follow the
// text, so a new text repaints it without laying the window out again.
void steady(QLabel* label) {
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    label->ensurePolished();
    label->setMinimumHeight(label->sizeHint().height());
}

// A style sheet costs a new polish of the widget: set only when it changes.
void set_style(QWidget* w, const QString& style) {
    if (w->styleSheet() != style) w->setStyleSheet(style);
}

const QColor kGrey(200, 200, 200);
const QColor kLit(250, 220, 40);
const QColor kRed(220, 40, 40);
const QColor kInputColours[5] = {kGrey, QColor(80, 200, 80), QColor(80, 150, 240),
                                 QColor(240, 150, 60), QColor(190, 90, 220)};

}  // namespace

Form8::Form8(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window),
      session_(session),
      tool_(std::make_unique<LineMonitorWindow>(session)) {
    setObjectName("Form8");
    const texts::LanguageTables& t = session.texts;
    setWindowTitle(qs(t.text(Text::MONITOR_CAPTION)));
    auto* layout = new QVBoxLayout(this);

    auto* top = new QHBoxLayout;
    Label11_ = new QLabel(this);
    Label11_->setObjectName("Label11");
    Label11_->setStyleSheet("font-family:monospace;font-size:14pt");
    steady(Label11_);
    Command2_ = new QPushButton(this);
    Command2_->setObjectName("Command2");
    Command1_ = new QPushButton(qs(t.text(Text::MONITOR_RESET)), this);
    Command1_->setObjectName("Command1");
    top->addWidget(Label11_, 1);
    top->addWidget(Command2_);
    top->addWidget(Command1_);
    layout->addLayout(top);

    auto* decoded = new QWidget(this);
    build_decoded(decoded);
    layout->addWidget(decoded);

    auto* views = new QHBoxLayout;
    const Text view_texts[3] = {Text::MONITOR_REDUCE, Text::MONITOR_ANALYSE_MODULE,
                                Text::MONITOR_EXTEND};
    for (int i = 0; i < 3; ++i) {
        Option1_[i] = new QRadioButton(qs(t.text(view_texts[i])), this);
        Option1_[i]->setObjectName(QString("Option1_%1").arg(i));
        views->addWidget(Option1_[i]);
        connect(Option1_[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) show_view(i);
        });
    }
    views->addStretch(1);
    layout->addLayout(views);

    Frame1_ = new QGroupBox(this);
    Frame1_->setObjectName("Frame1");
    build_history(Frame1_);
    layout->addWidget(Frame1_, 1);
    Frame2_ = new QGroupBox(qs(t.text(Text::MONITOR_ANALYSE_MODULE)), this);
    Frame2_->setObjectName("Frame2");
    build_analysis(Frame2_);
    layout->addWidget(Frame2_, 1);
    status_ = new QLabel(this);
    status_->setObjectName("status");
    steady(status_);
    layout->addWidget(status_);

    Timer1_ = new QTimer(this);
    Timer1_->setInterval(500);
    connect(Timer1_, &QTimer::timeout, this, [this] { tool_->Timer1_Timer(); });
    Timer2_ = new QTimer(this);
    Timer2_->setInterval(diagnostics::kAnalysisTickMs);
    connect(Timer2_, &QTimer::timeout, this, [this] { tool_->Timer2_Timer(); });
    replay_timer_ = new QTimer(this);
    replay_timer_->setSingleShot(true);
    connect(replay_timer_, &QTimer::timeout, this, [this] {
        if (const std::optional<int> next = tool_->replay_next()) replay_timer_->start(*next);
    });
    // A busy line changes the window many times a second: it is drawn at
    // most ten times a second.
    refresh_timer_ = new QTimer(this);
    refresh_timer_->setSingleShot(true);
    refresh_timer_->setInterval(100);
    connect(refresh_timer_, &QTimer::timeout, this, &Form8::refresh);

    connect(Command1_, &QPushButton::clicked, this, [this] { tool_->Command1_Click(); });
    connect(Command2_, &QPushButton::clicked, this, [this] { tool_->Command2_Click(); });
    tool_->on_changed = [this] { schedule_refresh(); };
    // New rows reach the table with the next drawing, all at once.
    tool_->on_history_added = [this](std::size_t, std::size_t) { schedule_refresh(); };
    tool_->on_history_cleared = [this] { model_->cleared(); };
    Option1_[2]->setChecked(true);
    resize(1000, 720);
}

Form8::~Form8() = default;

void Form8::build_decoded(QWidget* box) {
    const texts::LanguageTables& t = session_.texts;
    auto* grid = new QGridLayout(box);
    // Label1(0) to Label1(4): Nome, Mittente, Ingresso, Valore, Descrizione.
    const Text captions[5] = {Text::MONITOR_NAME, Text::MONITOR_SENDER, Text::MONITOR_INPUT,
                              Text::MONITOR_VALUE, Text::MONITOR_DESCRIPTION};
    for (int i = 0; i < 5; ++i) {
        grid->addWidget(new QLabel(qs(t.text(captions[i])), box), 0, i);
        Label1_[i] = new QLabel(box);
        Label1_[i]->setObjectName(QString("Label1_%1").arg(i));
        Label1_[i]->setStyleSheet("background:white;border:1px solid #999;padding:2px");
        steady(Label1_[i]);
        grid->addWidget(Label1_[i], 1, i);
    }
    ProgressBar1_ = new QProgressBar(box);
    ProgressBar1_->setObjectName("ProgressBar1");
    ProgressBar1_->setRange(0, 255);
    ProgressBar1_->setTextVisible(false);
    grid->addWidget(ProgressBar1_, 2, 0, 1, 5);
    // Check1(1) to Check1(5): what is spoken.
    const Text ticks[5] = {Text::MONITOR_SENDER, Text::MONITOR_NAME, Text::MONITOR_INPUT,
                           Text::MONITOR_DESCRIPTION, Text::MONITOR_VALUE};
    for (int i = 1; i <= 5; ++i) {
        Check1_[i] = new QCheckBox(qs(t.text(ticks[i - 1])), box);
        Check1_[i]->setObjectName(QString("Check1_%1").arg(i));
        Check1_[i]->setChecked(true);
        grid->addWidget(Check1_[i], 3, i - 1);
        connect(Check1_[i], &QCheckBox::toggled, this,
                [this, i](bool on) { tool_->Check1_Click(i, on); });
    }
    // The filters: the box takes the place of the label while it is on.
    Text2_ = new QLineEdit(box);
    Text2_->setObjectName("Text2");
    Text4_ = new QLineEdit(box);
    Text4_->setObjectName("Text4");
    Text2_->installEventFilter(new KeyFilter(Text2_, &LineMonitorWindow::Text2_KeyPress));
    Text4_->installEventFilter(new KeyFilter(Text4_, &LineMonitorWindow::Text4_KeyPress));
    connect(Text2_, &QLineEdit::textEdited, this, [this](const QString& s) {
        const QString kept = qs(tool_->Text2_Change(s.toStdString()));
        if (kept != s) Text2_->setText(kept);
    });
    connect(Text4_, &QLineEdit::textEdited, this, [this](const QString& s) {
        const QString kept = qs(tool_->Text4_Change(s.toStdString()));
        if (kept != s) Text4_->setText(kept);
    });
    QLineEdit* boxes[2] = {Text2_, Text4_};
    const Text filter_captions[2] = {Text::MONITOR_SENDER, Text::MONITOR_INPUT};
    for (int i = 0; i < 2; ++i) {
        Check3_[i] =
            new QCheckBox(qs(t.text(Text::MONITOR_FILTER) + " " + t.text(filter_captions[i])), box);
        Check3_[i]->setObjectName(QString("Check3_%1").arg(i));
        boxes[i]->setVisible(false);
        boxes[i]->setMaximumWidth(80);
        grid->addWidget(Check3_[i], 4, i * 2);
        grid->addWidget(boxes[i], 4, i * 2 + 1);
        connect(Check3_[i], &QCheckBox::toggled, this, [this, i, boxes](bool on) {
            boxes[i]->setVisible(on);
            tool_->Check3_Click(i, on);
            if (tool_->Timer1)
                Timer1_->start();
            else
                Timer1_->stop();
        });
    }
}

void Form8::build_history(QGroupBox* frame) {
    const texts::LanguageTables& t = session_.texts;
    auto* row = new QHBoxLayout(frame);
    auto* classic = new QVBoxLayout;
    classic->setSpacing(0);
    for (int i = 0; i < 20; ++i) {
        Label10_[i] = new QLabel(frame);
        Label10_[i]->setObjectName(QString("Label10_%1").arg(i));
        Label10_[i]->setStyleSheet("font-family:monospace");
        Label10_[i]->setMinimumWidth(150);
        steady(Label10_[i]);
        classic->addWidget(Label10_[i]);
    }
    classic->addStretch(1);
    row->addLayout(classic);

    auto* full = new QVBoxLayout;
    model_ = new MonitorHistoryModel(*tool_, this);
    history_ = new QTableView(frame);
    history_->setObjectName("HistoryTable");
    history_->setModel(model_);
    history_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    history_->verticalHeader()->setDefaultSectionSize(20);
    history_->verticalHeader()->hide();
    history_->horizontalHeader()->setStretchLastSection(true);
    history_->setSelectionBehavior(QAbstractItemView::SelectRows);
    full->addWidget(history_, 1);

    auto* buttons = new QHBoxLayout;
    pause_ = new QPushButton(qs(t.text(Text::MONITOR_PAUSE)), frame);
    pause_->setObjectName("Pause");
    pause_->setCheckable(true);
    connect(pause_, &QPushButton::toggled, this, [this](bool on) { tool_->pause(on); });
    record_ = new QPushButton(qs(t.text(Text::MONITOR_RECORD)), frame);
    record_->setObjectName("Record");
    connect(record_, &QPushButton::clicked, this, [this] {
        if (tool_->recording()) return tool_->stop_recording();
        const QString file = QFileDialog::getSaveFileName(this, record_->text(), {}, "*.txt");
        if (!file.isEmpty() && !tool_->start_recording(file.toStdString()))
            session_.message(Text::RECORDING_NOT_WRITTEN, Text::TITLE_WARNING, {},
                             file.toStdString());
    });
    replay_ = new QPushButton(qs(t.text(Text::MONITOR_REPLAY)), frame);
    replay_->setObjectName("Replay");
    at_once_ = new QCheckBox(qs(t.text(Text::MONITOR_AT_ONCE)), frame);
    at_once_->setObjectName("AtOnce");
    connect(replay_, &QPushButton::clicked, this, [this] {
        const QString file = QFileDialog::getOpenFileName(this, replay_->text(), {}, "*.txt");
        if (file.isEmpty()) return;
        if (!tool_->open_replay(file.toStdString()))
            return session_.message(Text::RECORDING_UNREADABLE, Text::TITLE_WARNING, {},
                                    file.toStdString());
        if (tool_->replay_skipped > 0)
            session_.message(Text::RECORDING_LINES_SKIPPED, Text::TITLE_WARNING, {},
                             std::to_string(tool_->replay_skipped));
        if (at_once_->isChecked())
            tool_->replay_all();
        else
            replay_timer_->start(0);
    });
    export_ = new QPushButton(qs(t.text(Text::MONITOR_EXPORT_CSV)), frame);
    export_->setObjectName("ExportCsv");
    connect(export_, &QPushButton::clicked, this, [this] {
        const QString file = QFileDialog::getSaveFileName(this, export_->text(), {}, "*.csv");
        if (!file.isEmpty() && !tool_->export_csv(file.toStdString()))
            session_.message(Text::RECORDING_NOT_WRITTEN, Text::TITLE_WARNING, {},
                             file.toStdString());
    });
    for (QWidget* w : {static_cast<QWidget*>(pause_), static_cast<QWidget*>(record_),
                       static_cast<QWidget*>(replay_), static_cast<QWidget*>(at_once_),
                       static_cast<QWidget*>(export_)})
        buttons->addWidget(w);
    buttons->addStretch(1);
    full->addLayout(buttons);

    auto* send = new QHBoxLayout;
    send_text_ = new QLineEdit(frame);
    send_text_->setObjectName("SendFrame");
    send_text_->setPlaceholderText("(30012EC05]");
    send_ = new QPushButton(qs(t.text(Text::MONITOR_SEND)), frame);
    send_->setObjectName("Send");
    report_ = new QLabel(frame);
    report_->setObjectName("SendReport");
    connect(send_, &QPushButton::clicked, this,
            [this] { tool_->send_frame(send_text_->text().trimmed().toStdString()); });
    send->addWidget(send_text_);
    send->addWidget(send_);
    send->addWidget(report_, 1);
    full->addLayout(send);
    row->addLayout(full, 1);
}

void Form8::build_analysis(QGroupBox* frame) {
    auto* grid = new QGridLayout(frame);
    Text3_ = new QLineEdit(frame);
    Text3_->setObjectName("Text3");
    Text3_->setMaxLength(4);
    Text3_->setMaximumWidth(80);
    Text3_->installEventFilter(new KeyFilter(Text3_, &LineMonitorWindow::Text3_KeyPress));
    connect(Text3_, &QLineEdit::textChanged, this,
            [this](const QString& s) { tool_->Text3 = s.toStdString(); });
    Command3_ = new QPushButton(qs(session_.texts.text(Text::MONITOR_ANALYSE)), frame);
    Command3_->setObjectName("Command3");
    connect(Command3_, &QPushButton::clicked, this, [this] {
        tool_->Command3_Click();
        Timer2_->start();
    });
    auto* asks = new QHBoxLayout;
    asks->addWidget(Text3_);
    asks->addWidget(Command3_);
    asks->addSpacing(40);
    // The diagram of one output, by its name, until the link editor offers it.
    auto* output = new QLineEdit(frame);
    output->setObjectName("UTILIZZATORE");
    auto* diagram = new QPushButton(qs(session_.texts.text(Text::MONITOR_ANALYSE)), frame);
    diagram->setObjectName("AnalisiUscita");
    connect(diagram, &QPushButton::clicked, this, [this, output] {
        const std::string name = output->text().trimmed().toStdString();
        const std::int64_t id =
            session_.project.is_open() ? diagnostics::find_output(session_.project, name) : 0;
        if (id == 0) return session_.message(Text::OUTPUT_NOT_FOUND, Text::TITLE_WARNING, {}, name);
        auto* window = new ANALISI(session_, id, this);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->show();
    });
    asks->addWidget(output);
    asks->addWidget(diagram);
    asks->addStretch(1);
    grid->addLayout(asks, 0, 0, 1, 8);
    auto shape = [this, frame](const QString& name, ShapeKind kind, int index) {
        auto* label = new QLabel(qs(tool_->shape_caption(kind, index)), frame);
        label->setObjectName(name);
        label->setAlignment(Qt::AlignCenter);
        label->setStyleSheet(shape_style(kGrey));
        return label;
    };
    for (int i = 1; i <= 8; ++i) {
        relays_[i] = shape(QString("Rele_%1").arg(i), ShapeKind::Relay, i);
        grid->addWidget(relays_[i], 1, i - 1);
        inputs_[i] = shape(QString("Digitale_%1").arg(i), ShapeKind::Input, i);
        grid->addWidget(inputs_[i], 2, i - 1);
        bars_[i] = new QProgressBar(frame);
        bars_[i]->setObjectName(QString("Barra_%1").arg(i));
        bars_[i]->setOrientation(Qt::Vertical);
        bars_[i]->setRange(0, 255 * 13);
        bars_[i]->setTextVisible(false);
        bars_[i]->setFixedHeight(120);
        grid->addWidget(bars_[i], 5, i - 1);
    }
    for (int i = 1; i <= 16; ++i) {
        flags_[i] = shape(QString("Flag_%1").arg(i), ShapeKind::Flag, i);
        grid->addWidget(flags_[i], 3 + (i - 1) / 8, (i - 1) % 8);
    }
    grid->setRowStretch(6, 1);  // the room left stays below the bars
}

void Form8::show_view(int option) {
    Frame2_->setVisible(option == 1);
    Frame1_->setVisible(option == 2);
    if (option == 1) refresh_analysis();
}

void Form8::load() {
    tool_->Form_Load();
    show();
    raise();
    refresh();
}

void Form8::closeEvent(QCloseEvent* event) {
    tool_->Form_QueryUnload();
    Timer1_->stop();
    Timer2_->stop();
    replay_timer_->stop();
    event->accept();
}

void Form8::schedule_refresh() {
    if (!refresh_timer_->isActive()) refresh_timer_->start();
}

void Form8::refresh() {
    const LineMonitorWindow& t = *tool_;
    Label11_->setText(qs(t.Label11));
    for (int i = 0; i < 5; ++i) Label1_[i]->setText(qs(t.Label1[static_cast<std::size_t>(i)]));
    for (int i = 0; i < 20; ++i) Label10_[i]->setText(qs(t.Label10[static_cast<std::size_t>(i)]));
    ProgressBar1_->setValue(t.ProgressBar1);
    Command2_->setText(qs(t.Command2));
    const QString filter_style = t.blink ? "background:#ffe070" : "background:white";
    set_style(Text2_, filter_style);
    set_style(Text4_, filter_style);
    pause_->setChecked(t.paused);
    record_->setText(qs(
        session_.texts.text(t.recording() ? Text::MONITOR_STOP_RECORDING : Text::MONITOR_RECORD)));
    report_->setText(qs(t.report));
    status_->setText(qs(t.status_text()));
    if (!t.Timer2) Timer2_->stop();
    const int shown = model_->rowCount();
    const int kept = static_cast<int>(t.history.size());
    if (kept > shown) {
        model_->rows_added(shown, kept - shown);
        if (!t.paused) history_->scrollToBottom();
    }
    if (Frame2_->isVisible()) refresh_analysis();
}

void Form8::refresh_analysis() {
    const diagnostics::ModuleAnalysis& a = tool_->analysis();
    for (int i = 1; i <= 8; ++i) {
        const auto k = static_cast<std::size_t>(i);
        set_style(relays_[i], shape_style(a.relay_red[k] ? kRed : a.relays[k] ? kLit : kGrey));
        set_style(inputs_[i], shape_style(kInputColours[a.inputs[k]]));
        bars_[i]->setValue(a.bar_height[k] == diagnostics::kAnalogBarReset ? 0 : a.bar_height[k]);
        relays_[i]->setToolTip(qs(tool_->shape_caption(ShapeKind::Relay, i) + "\n" +
                                  tool_->shape_name(ShapeKind::Relay, i)));
        inputs_[i]->setToolTip(qs(tool_->shape_caption(ShapeKind::Input, i) + "\n" +
                                  tool_->shape_name(ShapeKind::Input, i)));
    }
    for (int i = 1; i <= 16; ++i) {
        set_style(flags_[i], shape_style(a.flags[static_cast<std::size_t>(i)] ? kLit : kGrey));
        flags_[i]->setToolTip(qs(tool_->shape_caption(ShapeKind::Flag, i) + "\n" +
                                 tool_->shape_name(ShapeKind::Flag, i)));
    }
}

}  // namespace filo::app
