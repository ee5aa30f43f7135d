#include "app/form4.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTextCursor>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/avanzate2.hpp"
#include "app/programming_window.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {
namespace {

// "done / all"; nothing to do reads 0 / 0, not a bar stuck short of its end.
void show_count(QProgressBar* bar, int done, int all) {
    bar->setRange(0, std::max(all, 1));
    bar->setValue(all > 0 ? done : 0);
    bar->setFormat(all > 0 ? "%v / %m" : "0 / 0");
}

}  // namespace

using texts::Text;

Form4::Form4(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
    ProgrammingHost host;
    host.schedule_run = [this](int ms) { Timer1_->start(ms); };
    host.changed = [this] { refresh(); };
    host.beep = [] { QApplication::beep(); };
    host.show_hub = [this] { emit closed(); };
    host.show_constant_light = [this](const std::string& code) {
        AVANZATE2 dialog(session_, code, [this] { emit connection_requested(); }, this);
        if (dialog.load()) dialog.exec();
    };
    tool_ = std::make_unique<ProgrammingWindow>(session, std::move(host));
    setObjectName("Form4");
    const auto& t = session_.texts;

    auto* outer = new QHBoxLayout(this);
    outer->setContentsMargins(16, 12, 16, 12);
    outer->setSpacing(16);

    // The three buttons on the left, the short message and the help below.
    auto* left = new QVBoxLayout;
    auto* buttons = new QGridLayout;
    buttons->setVerticalSpacing(10);
    static constexpr const char* kIcons[] = {"program", "notes", "back"};
    for (int i = 0; i < 3; ++i) {
        const Command entry = add_command(this, buttons, i, QString("Image1_%1").arg(i), kIcons[i],
                                          36, QString("Label4_%1").arg(i), 2);
        on_hover(entry.button, [this, i] {
            tool_->hover(i);
            Label15_->setText(qs(tool_->Label15));
        });
        connect(entry.button, &QToolButton::clicked, this, [this, i] {
            tool_->Image1_Click(i);
            refresh();
        });
        Image1_[i] = entry.button;
        Label4_[i] = entry.caption;
    }
    left->addLayout(buttons);
    Check1_ = new QCheckBox(qs(t.text(Text::RUN_DISABLE_SHORT_MESSAGE)), this);
    Check1_->setObjectName("Check1");
    connect(Check1_, &QCheckBox::toggled, this, [this](bool on) { tool_->Check1_Click(on); });
    left->addSpacing(12);
    left->addWidget(Check1_);
    left->addStretch(1);
    help_ = new QGroupBox(qs(t.text(Text::HELP_TOGGLE)), this);
    Label15_ = add_help_label(help_, "Label15");
    Label15_->setMinimumHeight(80);
    left->addWidget(help_);
    outer->addLayout(left, 2);

    // The state of the run, the two frames, the regulators.
    auto* right = new QVBoxLayout;
    Label22_ = new QLabel(this);
    Label22_->setObjectName("Label22");
    QFont big = Label22_->font();
    big.setPointSize(big.pointSize() + 5);
    big.setBold(true);
    Label22_->setFont(big);
    Label22_->setMargin(6);
    Label22_->setWordWrap(true);
    Label2_ = new QLabel(this);
    Label2_->setObjectName("Label2");
    auto* errors = new QHBoxLayout;
    errors_caption_ = new QLabel(qs(t.text(Text::RUN_ERRORS)), this);
    Label11_ = new QLabel(this);
    Label11_->setObjectName("Label11");
    Label11_->setMinimumWidth(60);
    QFont bold = Label11_->font();
    bold.setBold(true);
    Label11_->setFont(bold);
    errors->addWidget(Label2_, 1);
    errors->addWidget(errors_caption_);
    errors->addWidget(Label11_);
    right->addWidget(Label22_);
    right->addLayout(errors);

    Frame2_ = new QGroupBox(this);
    Frame2_->setObjectName("Frame2");
    auto* bars = new QVBoxLayout(Frame2_);
    bars->setSpacing(8);
    Label1_1_ = new QLabel(Frame2_);
    Label1_1_->setObjectName("Label1_1");
    Label1_1_->setFont(bold);
    bar1_caption_ = new QLabel(qs(t.text(Text::RUN_INIT_MODULES)), Frame2_);
    ProgressBar1_1_ = new QProgressBar(Frame2_);
    ProgressBar1_1_->setObjectName("ProgressBar1_1");
    bar2_caption_ = new QLabel(qs(t.text(Text::RUN_LINKS)), Frame2_);
    ProgressBar1_2_ = new QProgressBar(Frame2_);
    ProgressBar1_2_->setObjectName("ProgressBar1_2");
    for (QProgressBar* bar : {ProgressBar1_1_, ProgressBar1_2_}) {
        bar->setMinimumHeight(26);
        bar->setFormat("%v / %m");
    }
    bars->addWidget(Label1_1_);
    bars->addWidget(bar1_caption_);
    bars->addWidget(ProgressBar1_1_);
    bars->addSpacing(8);
    bars->addWidget(bar2_caption_);
    bars->addWidget(ProgressBar1_2_);
    right->addWidget(Frame2_);

    Frame1_ = new QGroupBox(this);
    Frame1_->setObjectName("Frame1");
    auto* report = new QGridLayout(Frame1_);
    QFont mono("DejaVu Sans Mono");
    text1_caption_ = new QLabel(qs(t.text(Text::RUN_ALL_SENDS)), Frame1_);
    text2_caption_ = new QLabel(qs(t.text(Text::RUN_FAILED_SENDS)), Frame1_);
    Text1_ = new QPlainTextEdit(Frame1_);
    Text1_->setObjectName("Text1");
    Text2_ = new QPlainTextEdit(Frame1_);
    Text2_->setObjectName("Text2");
    for (QPlainTextEdit* box : {Text1_, Text2_}) {
        box->setReadOnly(true);
        box->setFont(mono);
        box->setLineWrapMode(QPlainTextEdit::NoWrap);
    }
    Command1_ = new QPushButton(qs(t.text(Text::RUN_SAVE_REPORT)), Frame1_);
    Command1_->setObjectName("Command1");
    Command1_->setIcon(entry_icon(this, "save"));
    connect(Command1_, &QPushButton::clicked, this, [this] { tool_->Command1_Click(); });
    report->addWidget(text1_caption_, 0, 0);
    report->addWidget(text2_caption_, 0, 1);
    report->addWidget(Text1_, 1, 0);
    report->addWidget(Text2_, 1, 1);
    report->addWidget(Command1_, 2, 0, 1, 2, Qt::AlignRight);
    report->setColumnStretch(0, 3);
    report->setColumnStretch(1, 2);
    right->addWidget(Frame1_, 1);

    auto* regulators = new QHBoxLayout;
    Label1_0_ = new QLabel(qs(t.text(Text::RUN_CONSTANT_LIGHT)), this);
    Label1_0_->setObjectName("Label1_0");
    Label1_0_->setFont(bold);
    Combo_REGOLATORI_ = new QComboBox(this);
    Combo_REGOLATORI_->setObjectName("Combo_REGOLATORI");
    Combo_REGOLATORI_->setMinimumWidth(260);
    connect(Combo_REGOLATORI_, &QComboBox::activated, this, [this](int index) {
        if (index < 0) return;
        tool_->Combo_REGOLATORI_Click(Combo_REGOLATORI_->itemData(index).toLongLong());
        Combo_REGOLATORI_->setCurrentIndex(-1);
    });
    regulators->addWidget(Label1_0_);
    regulators->addWidget(Combo_REGOLATORI_);
    regulators->addStretch(1);
    right->addLayout(regulators);
    right->addStretch(0);
    outer->addLayout(right, 5);

    Timer1_ = new QTimer(this);
    Timer1_->setObjectName("Timer1");
    Timer1_->setSingleShot(true);
    connect(Timer1_, &QTimer::timeout, this, [this] {
        tool_->Timer1_Timer();
        refresh();
    });
}

Form4::~Form4() = default;

void Form4::load() {
    tool_->Form_Load();
    Check1_->setChecked(false);
    refresh();
}

void Form4::refresh() {
    const ProgrammingWindow& w = *tool_;
    for (int i = 0; i < 3; ++i) Label4_[i]->setText(qs(w.Label4[i]));
    Label22_->setText(qs(w.Label22));
    switch (w.Label22_tone) {
        case ProgrammingWindow::Tone::Green:
            Label22_->setStyleSheet("color: #1B5E20; background: #C8E6C9;");
            break;
        case ProgrammingWindow::Tone::Red:
            Label22_->setStyleSheet("color: #B71C1C; background: #FFCDD2;");
            break;
        case ProgrammingWindow::Tone::Plain:
            Label22_->setStyleSheet("color: #0D47A1;");
            break;
    }
    Label2_->setText(qs(w.Label2));
    Label11_->setText(qs(w.Label11));
    Label1_1_->setText(qs(w.Label1_1));
    Label15_->setText(qs(w.Label15));
    help_->setVisible(session_.AIUTO);
    Frame1_->setVisible(w.Frame1);
    Frame2_->setVisible(w.Frame2);
    Frame2_->setTitle(qs(session_.texts.text(Text::PROGRAM_INSTALLATION)));
    Command1_->setVisible(w.Command1);
    show_count(ProgressBar1_1_, w.bar1, w.bar1_max);
    show_count(ProgressBar1_2_, w.bar2, w.bar2_max);
    if (w.runs != run_shown_) {
        // A new run: its report starts empty.
        Text1_->clear();
        Text2_->clear();
        text1_shown_ = text2_shown_ = 0;
        run_shown_ = w.runs;
    }
    append_new(Text1_, w.report().TEXT1, text1_shown_);
    append_new(Text2_, w.report().TEXT2, text2_shown_);

    if (w.Combo_REGOLATORI.size() != regolatori_shown_ ||
        static_cast<std::size_t>(Combo_REGOLATORI_->count()) != w.Combo_REGOLATORI.size()) {
        Combo_REGOLATORI_->clear();
        for (const commissioning::Regolatore& r : w.Combo_REGOLATORI)
            Combo_REGOLATORI_->addItem(qs(r.nick), QVariant::fromValue<qlonglong>(r.item_data));
        Combo_REGOLATORI_->setPlaceholderText(qs(session_.texts.text(Text::SELECT_NAME)));
        Combo_REGOLATORI_->setCurrentIndex(-1);
        regolatori_shown_ = w.Combo_REGOLATORI.size();
    }
    Label1_0_->setVisible(w.regolatori_visible);
    Combo_REGOLATORI_->setVisible(w.regolatori_visible);
}

void Form4::append_new(QPlainTextEdit* box, const std::string& text, std::size_t& shown) {
    if (text.size() <= shown) return;
    QString added = qs(text.substr(shown));
    added.replace("\r\n", "\n");
    if (box->document()->isEmpty() && added.startsWith('\n')) added.remove(0, 1);
    QTextCursor end(box->document());
    end.movePosition(QTextCursor::End);
    end.insertText(added);
    box->verticalScrollBar()->setValue(box->verticalScrollBar()->maximum());
    shown = text.size();
}

}  // namespace filo::app
