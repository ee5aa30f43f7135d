#include "app/form9.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <functional>

#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;
using Time = LinkEditorWindow::Time;
using Part = LinkEditorWindow::Part;

namespace {

// A combo whose list opens only when the window agrees: a link waiting for
// "COLLEGA" asks first.
class GuardedCombo final : public QComboBox {
  public:
    GuardedCombo(QWidget* parent, std::function<bool()> may_open)
        : QComboBox(parent), may_open_(std::move(may_open)) {}
    void showPopup() override {
        if (may_open_()) QComboBox::showPopup();
    }

  private:
    std::function<bool()> may_open_;
};

QLabel* wrapped_label(QWidget* parent, const char* name) {
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    l->setWordWrap(true);
    return l;
}

QPushButton* button(QWidget* parent, const QString& name, const std::string& caption) {
    auto* b = new QPushButton(qs(caption), parent);
    b->setObjectName(name);
    return b;
}

}  // namespace

Form9::Form9(Session& session, LinkEditorHost host, QWidget* parent)
    : QWidget(parent), session_(session) {
    host.changed = [this] { refresh(); };
    tool_ = std::make_unique<LinkEditorWindow>(session, std::move(host));
    setObjectName("Form9");
    const texts::LanguageTables& t = session.texts;
    auto* outer = new QVBoxLayout(this);
    auto* heading = new QLabel(qs(t.text(Text::LINK_EDITOR_HEADING)), this);
    heading->setObjectName("Label_heading");
    heading->setStyleSheet("font-size: 16pt; font-weight: bold;");
    outer->addWidget(heading);
    auto* columns = new QHBoxLayout;
    outer->addLayout(columns, 1);

    // A side: its filters, its combo, the key of its point and its links.
    auto side = [&](const char* code_name, const char* name_name, const char* combo_name,
                    const char* key_name, const char* also_name, const char* list_name, Text title,
                    QLineEdit*& code, QLineEdit*& nick, QComboBox*& combo, QPushButton*& key,
                    QLabel*& also, QListWidget*& list) {
        auto* box = new QVBoxLayout;
        box->addWidget(new QLabel(qs(t.text(title)), this));
        auto* filters = new QHBoxLayout;
        filters->addWidget(new QLabel(qs(t.text(Text::FILTER_BY)), this));
        code = new QLineEdit(this);
        code->setObjectName(code_name);
        code->setMaxLength(6);
        nick = new QLineEdit(this);
        nick->setObjectName(name_name);
        filters->addWidget(code);
        filters->addWidget(nick);
        box->addLayout(filters);
        combo = new GuardedCombo(this, [this] {
            const bool open = tool_->leave_unconfirmed();
            refresh();
            return open;
        });
        combo->setObjectName(combo_name);
        combo->setMaxVisibleItems(25);
        box->addWidget(combo);
        key = new QPushButton(this);
        key->setObjectName(key_name);
        key->setFlat(true);
        box->addWidget(key);
        also = wrapped_label(this, also_name);
        box->addWidget(also);
        list = new QListWidget(this);
        list->setObjectName(list_name);
        box->addWidget(list, 1);
        columns->addLayout(box, 3);
    };
    side("Text18", "Text8", "Combo_COMANDI", "Label26_0", "Label6", "LISTA_COMANDATI",
         Text::SELECT_COMMAND_POINT_CAPS, Text18_, Text8_, Combo_COMANDI_, Label26_0_, Label6_,
         LISTA_COMANDATI_);

    // The middle: hint, modes, times, lamp, details, buttons.
    auto* middle = new QVBoxLayout;
    columns->insertLayout(1, middle, 4);
    Check3_ = new QCheckBox(qs(t.text(Text::LINK_AUTOSELECT)), this);
    Check3_->setObjectName("Check3");
    middle->addWidget(Check3_);
    auto* Frame5 = new QGroupBox(this);
    Frame5->setObjectName("Frame5");
    Label15_ = wrapped_label(Frame5, "Label15");
    (new QVBoxLayout(Frame5))->addWidget(Label15_);
    middle->addWidget(Frame5);
    Label9_ = wrapped_label(this, "Label9");
    middle->addWidget(Label9_);
    for (int i = 1; i <= links::kModeCount; ++i) {
        Option1_[static_cast<std::size_t>(i)] = button(this, QString("Option1_%1").arg(i), "");
        middle->addWidget(Option1_[static_cast<std::size_t>(i)]);
        connect(Option1_[static_cast<std::size_t>(i)], &QPushButton::clicked, this, [this, i] {
            tool_->Option1_Click(i);
            refresh();
        });
    }
    Label18_ = wrapped_label(this, "Label18");
    Label18_->setText(qs(t.text(Text::LINK_SELECT_MESSAGES)));
    middle->addWidget(Label18_);
    List1_ = new QListWidget(this);
    List1_->setObjectName("List1");
    List1_->setSelectionMode(QAbstractItemView::MultiSelection);
    middle->addWidget(List1_);
    Label22_ = wrapped_label(this, "Label22");
    Label22_->setStyleSheet("font-weight: bold;");
    middle->addWidget(Label22_);
    Label19_ = wrapped_label(this, "Label19");
    middle->addWidget(Label19_);

    Frame9_ = new QGroupBox(this);
    Frame9_->setObjectName("Frame9");
    auto* times = new QVBoxLayout(Frame9_);
    auto time_frame = [&](const char* name, Text title, const std::array<const char*, 4>& boxes,
                          Time time) {
        auto* frame = new QGroupBox(qs(t.text(title)), Frame9_);
        frame->setObjectName(name);
        auto* grid = new QGridLayout(frame);
        time_box(grid, 0, 0, boxes[0], time, Part::Hours);
        time_box(grid, 0, 1, boxes[1], time, Part::Minutes);
        time_box(grid, 0, 2, boxes[2], time, Part::Seconds);
        tenths_[static_cast<std::size_t>(time)] =
            time_box(grid, 0, 3, boxes[3], time, Part::Tenths);
        times->addWidget(frame);
        return frame;
    };
    Frame1_ =
        time_frame("Frame1", Text::TIME_ON, {"Text1", "Text2", "Text3", "Text3bis"}, Time::On);
    Check1_ = new QCheckBox(qs(t.text(Text::TIME_RELOADABLE)), Frame1_);
    Check1_->setObjectName("Check1");
    static_cast<QGridLayout*>(Frame1_->layout())->addWidget(Check1_, 1, 0, 1, 4);
    connect(Check1_, &QCheckBox::toggled, this, [this](bool on) {
        if (!filling_) tool_->editor().ricaricabile = on;
    });
    Frame7_ = time_frame("Frame7", Text::TIME_ON_DELAY, {"Text4", "Text5", "Text6", "Text6bis"},
                         Time::DelayOn);
    Frame10_ = time_frame("Frame10", Text::TIME_BEFORE_OFF,
                          {"Text11", "Text12", "Text13", "Text13bis"}, Time::DelayOff);
    Frame11_ = new QGroupBox(Frame9_);
    Frame11_->setObjectName("Frame11");
    (new QVBoxLayout(Frame11_))->addWidget(new QLabel(qs(t.text(Text::LINK_FLAGS_HAVE_NO_TIMER))));
    times->addWidget(Frame11_);
    middle->addWidget(Frame9_);

    // The lamp of an indicator output.
    Frame12_ = new QGroupBox(this);
    Frame12_->setObjectName("Frame12");
    auto* lamp = new QGridLayout(Frame12_);
    const Text lamp_texts[3] = {Text::LAMP_COMPOSITE_BLINK, Text::LAMP_SIMPLE_BLINK,
                                Text::LAMP_STEADY};
    const links::LampSettings::Kind kinds[3] = {links::LampSettings::Kind::Composite,
                                                links::LampSettings::Kind::Simple,
                                                links::LampSettings::Kind::Steady};
    for (int i = 0; i < 3; ++i) {
        auto* o = new QRadioButton(qs(t.text(lamp_texts[i])), Frame12_);
        o->setObjectName(QString("Option2_%1").arg(i));
        Option2_[static_cast<std::size_t>(i)] = o;
        lamp->addWidget(o, i, 0, 1, 4);
        const links::LampSettings::Kind kind = kinds[i];
        connect(o, &QRadioButton::toggled, this, [this, kind](bool on) {
            if (on && !filling_) tool_->editor().lamp.kind = kind;
        });
    }
    Text22_ = new QLineEdit(Frame12_);
    Text22_->setObjectName("Text22");
    Text23_ = new QLineEdit(Frame12_);
    Text23_->setObjectName("Text23");
    lamp->addWidget(new QLabel("T on", Frame12_), 3, 0);
    lamp->addWidget(Text22_, 3, 1);
    lamp->addWidget(new QLabel("T off", Frame12_), 3, 2);
    lamp->addWidget(Text23_, 3, 3);
    auto lamp_time = [this](QLineEdit* box, int links::LampSettings::*field) {
        connect(box, &QLineEdit::textEdited, this, [this, box, field](const QString& s) {
            const int v = std::clamp(s.toInt(), 1, 255);
            tool_->editor().lamp.*field = v;
            if (!s.isEmpty()) box->setText(QString::number(v));
        });
    };
    lamp_time(Text22_, &links::LampSettings::t_on);
    lamp_time(Text23_, &links::LampSettings::t_off);
    auto* steps = new QHBoxLayout;
    for (int i = 0; i < 16; ++i) {
        auto* step = new QToolButton(Frame12_);
        step->setObjectName(QString("Image6_%1").arg(i));
        step->setCheckable(true);
        step->setFixedSize(14, 22);
        Image6_[static_cast<std::size_t>(i)] = step;
        steps->addWidget(step);
        connect(step, &QToolButton::toggled, this, [this, i](bool high) {
            if (filling_) return;
            tool_->editor().lamp.pattern[static_cast<std::size_t>(i)] = high ? '1' : '0';
        });
    }
    lamp->addLayout(steps, 4, 0, 1, 4);
    middle->addWidget(Frame12_);

    // The details of one link.
    Frame6_ = new QGroupBox(this);
    Frame6_->setObjectName("Frame6");
    auto* details = new QGridLayout(Frame6_);
    Label21_ = wrapped_label(Frame6_, "Label21");
    Label21_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Label23_ = wrapped_label(Frame6_, "Label23");
    auto* Label24_0 = button(Frame6_, "Label24_0", t.text(Text::LINK_DELETE));
    auto* Label24_1 = button(Frame6_, "Label24_1", t.text(Text::LINK_CLOSE_DETAILS));
    details->addWidget(Label21_, 0, 0, 1, 2);
    details->addWidget(new QLabel("ID", Frame6_), 1, 0);
    details->addWidget(Label23_, 1, 1);
    details->addWidget(Label24_0, 2, 0);
    details->addWidget(Label24_1, 2, 1);
    connect(Label24_0, &QPushButton::clicked, this, [this] {
        tool_->Label24_Click(0);
        refresh();
    });
    connect(Label24_1, &QPushButton::clicked, this, [this] {
        tool_->Label24_Click(1);
        refresh();
    });
    middle->addWidget(Frame6_);
    middle->addStretch(1);

    auto* buttons = new QHBoxLayout;
    Label29_0_ = button(this, "Label29_0", t.text(Text::MODULE_OPTIONS));
    Image4_1_ = button(this, "Image4_1", t.text(Text::LINK_CONNECT));
    Image4_2_ = button(this, "Image4_2", t.text(Text::LINK_EXIT));
    buttons->addWidget(Label29_0_);
    buttons->addWidget(Image4_1_);
    buttons->addWidget(Image4_2_);
    middle->addLayout(buttons);
    Label25_ = new QLabel(this);
    Label25_->setObjectName("Label25");
    middle->addWidget(Label25_);

    side("Text17", "Text16", "Combo_UTILIZZATORI", "Label26_1", "Label5", "LISTA_COMANDANTI",
         Text::SELECT_OUTPUT_POINT_CAPS, Text17_, Text16_, Combo_UTILIZZATORI_, Label26_1_, Label5_,
         LISTA_COMANDANTI_);

    // Events.
    auto act = [this](auto f) {
        return [this, f](auto&&... args) {
            if (filling_) return;
            f(args...);
            refresh();
        };
    };
    connect(Combo_COMANDI_, qOverload<int>(&QComboBox::activated), this,
            act([this](int i) { tool_->Combo_COMANDI_Click(i); }));
    connect(Combo_UTILIZZATORI_, qOverload<int>(&QComboBox::activated), this,
            act([this](int i) { tool_->Combo_UTILIZZATORI_Click(i); }));
    connect(Text18_, &QLineEdit::textEdited, this,
            act([this](const QString& s) { tool_->Text18_Change(s.toStdString()); }));
    connect(Text8_, &QLineEdit::textEdited, this,
            act([this](const QString& s) { tool_->Text8_Change(s.toStdString()); }));
    connect(Text17_, &QLineEdit::textEdited, this,
            act([this](const QString& s) { tool_->Text17_Change(s.toStdString()); }));
    connect(Text16_, &QLineEdit::textEdited, this,
            act([this](const QString& s) { tool_->Text16_Change(s.toStdString()); }));
    connect(LISTA_COMANDANTI_, &QListWidget::itemClicked, this, act([this](QListWidgetItem* item) {
                tool_->LISTA_COMANDANTI_Click(LISTA_COMANDANTI_->row(item));
            }));
    connect(LISTA_COMANDATI_, &QListWidget::itemClicked, this, act([this](QListWidgetItem* item) {
                tool_->LISTA_COMANDATI_Click(LISTA_COMANDATI_->row(item));
            }));
    for (QListWidget* list : {LISTA_COMANDANTI_, LISTA_COMANDATI_})
        connect(list, &QListWidget::itemDoubleClicked, this, act([this](QListWidgetItem* item) {
                    tool_->list_double_click(item->data(Qt::UserRole).toLongLong());
                }));
    connect(List1_, &QListWidget::itemChanged, this, [](QListWidgetItem*) {});
    connect(List1_, &QListWidget::itemSelectionChanged, this, [this] {
        if (filling_) return;
        for (int i = 0; i < List1_->count(); ++i)
            tool_->List1_select(i, List1_->item(i)->isSelected());
    });
    connect(Check3_, &QCheckBox::clicked, this, act([this](bool on) { tool_->Check3_Click(on); }));
    connect(Label26_0_, &QPushButton::clicked, this,
            act([this](bool) { tool_->Label26_Click(0); }));
    connect(Label26_1_, &QPushButton::clicked, this,
            act([this](bool) { tool_->Label26_Click(1); }));
    connect(Label29_0_, &QPushButton::clicked, this, act([this](bool) { tool_->Label29_Click(); }));
    connect(Image4_1_, &QPushButton::clicked, this, act([this](bool) { tool_->Image4_1_Click(); }));
    connect(Image4_2_, &QPushButton::clicked, this, [this] { tool_->Image4_2_Click(); });
}

Form9::~Form9() = default;

QLineEdit* Form9::time_box(QGridLayout* grid, int row, int column, const char* name, Time time,
                           Part part) {
    auto* box = new QLineEdit(this);
    box->setObjectName(name);
    box->setMaxLength(3);
    box->setMaximumWidth(48);
    grid->addWidget(box, row, column);
    connect(box, &QLineEdit::textEdited, this, [this, box, time, part](const QString& s) {
        if (filling_) return;  // CARICA_TEMPI
        box->setText(qs(tool_->time_box_change(time, part, s.toStdString())));
        refresh();
    });
    return box;
}

void Form9::fill_list(QListWidget* list, const std::vector<store::ListEntry>& entries) {
    list->clear();
    for (const store::ListEntry& e : entries) {
        auto* item = new QListWidgetItem(qs(e.text), list);
        item->setData(Qt::UserRole, static_cast<qlonglong>(e.item_data));
        // What the link will do, decoded, at a glance.
        item->setToolTip(qs(tool_->link_text(e.item_data)));
    }
}

void Form9::load() {
    tool_->load();
    Text8_->setVisible(tool_->name_filters_shown());
    Text16_->setVisible(tool_->name_filters_shown());
    refresh();
}

void Form9::refresh() {
    filling_ = true;
    LinkEditorWindow& t = *tool_;
    setWindowTitle(qs(t.caption));
    auto fill_combo = [](QComboBox* combo, const std::vector<store::ListEntry>& entries,
                         int index) {
        combo->clear();
        for (const store::ListEntry& e : entries)
            combo->addItem(qs(e.text), static_cast<qlonglong>(e.item_data));
        combo->setCurrentIndex(index);
    };
    fill_combo(Combo_COMANDI_, t.Combo_COMANDI, t.command_index);
    fill_combo(Combo_UTILIZZATORI_, t.Combo_UTILIZZATORI, t.user_index);
    Label26_0_->setText(qs(t.Label26_0));
    Label26_1_->setText(qs(t.Label26_1));
    Label6_->setText(qs(t.Label6));
    Label5_->setText(qs(t.Label5));
    Label9_->setText(qs(t.Label9));
    Label22_->setText(qs(t.Label22));
    Label19_->setText(qs(t.Label19));
    Label15_->setText(qs(t.ISTRUZIONE));
    Label25_->setText(qs(t.Label25));
    fill_list(LISTA_COMANDATI_, t.LISTA_COMANDATI);
    fill_list(LISTA_COMANDANTI_, t.LISTA_COMANDANTI);
    for (int i = 1; i <= links::kModeCount; ++i) {
        const auto& m = t.Option1[static_cast<std::size_t>(i)];
        QPushButton* b = Option1_[static_cast<std::size_t>(i)];
        b->setVisible(m.visible);
        b->setText(qs(m.caption));
        b->setStyleSheet(m.green ? "background-color: #00ff00; text-align: left;"
                                 : "background-color: white; text-align: left;");
    }
    const bool messages = t.List1_shown();
    List1_->setVisible(messages);
    Label18_->setVisible(messages);
    if (messages) {
        List1_->clear();
        for (const store::ListEntry& e : t.List1) {
            auto* item = new QListWidgetItem(qs(e.text), List1_);
            const auto n = static_cast<std::size_t>(e.item_data);
            item->setSelected(n >= 1 && n <= 96 && t.editor().messages.test(n - 1));
        }
    }
    const links::TimeBoxes b = t.boxes();
    Frame9_->setVisible(b.frame9);
    Frame1_->setVisible(b.time_on);
    Frame7_->setVisible(b.delay_on);
    Frame10_->setVisible(b.delay_off);
    Frame11_->setVisible(b.no_timer);
    Check1_->setVisible(b.ricaricabile);
    Check1_->setChecked(t.editor().ricaricabile);
    const links::LinkEditor& e = t.editor();
    const links::TimeEntry* entries[3] = {&e.time_on, &e.delay_on, &e.delay_off};
    const char* names[3][3] = {
        {"Text1", "Text2", "Text3"}, {"Text4", "Text5", "Text6"}, {"Text11", "Text12", "Text13"}};
    for (int i = 0; i < 3; ++i) {
        const links::TimeEntry& te = *entries[i];
        const int parts[3] = {te.hours, te.minutes, te.seconds};
        for (int p = 0; p < 3; ++p)
            if (auto* box = findChild<QLineEdit*>(names[i][p]); box && !box->hasFocus())
                box->setText(QString::asprintf("%02d", parts[p]));
        tenths_[static_cast<std::size_t>(i)]->setVisible(t.tenths_shown(static_cast<Time>(i)));
        if (!tenths_[static_cast<std::size_t>(i)]->hasFocus())
            tenths_[static_cast<std::size_t>(i)]->setText(QString::number(te.tenths));
    }
    Frame12_->setVisible(b.lamp);
    const links::LampSettings& lamp = e.lamp;
    Option2_[0]->setChecked(lamp.kind == links::LampSettings::Kind::Composite);
    Option2_[1]->setChecked(lamp.kind == links::LampSettings::Kind::Simple);
    Option2_[2]->setChecked(lamp.kind == links::LampSettings::Kind::Steady);
    Text22_->setText(QString::number(lamp.t_on));
    Text23_->setText(QString::number(lamp.t_off));
    for (std::size_t i = 0; i < 16; ++i)
        Image6_[i]->setChecked(i < lamp.pattern.size() && lamp.pattern[i] == '1');
    Frame6_->setVisible(t.Frame6);
    Label21_->setText(qs(t.Label21));
    Label23_->setText(qs(t.Label23));
    Check3_->setChecked(t.Check3);
    Image4_1_->setStyleSheet(t.DA_CONFERMARE == "SI" ? "background-color: #ffd700;" : "");
    filling_ = false;
}

}  // namespace filo::app
