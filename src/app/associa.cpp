#include "app/associa.hpp"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "modules/aggregate_editor.hpp"

namespace filo::app {

using texts::Text;

namespace {

// The colour of each set: the background of its choice and of the name, and
// the type of its participants.
struct SetColour {
    const char* background;
    const char* type;
};
constexpr std::array<SetColour, 4> kSetColours = {{
    {"", ""},
    {"#ffe0a0", "#a05000"},
    {"#c8f0c8", "#006000"},
    {"#c8dcff", "#0040a0"},
}};

QLabel* bold_label(const QString& text, QWidget* parent, const char* name) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    QFont f = label->font();
    f.setBold(true);
    label->setFont(f);
    return label;
}

// Boxes name1 to name(N-1), half in each of two columns below row 0 of the
// grid; a click goes to `click` with the box's number.
template <std::size_t N, class Click>
void add_box_columns(QGridLayout* grid, QWidget* parent, QObject* context,
                     std::array<QCheckBox*, N>& boxes, const char* name, Click click) {
    constexpr int per_column = static_cast<int>(N - 1) / 2;
    for (int n = 1; n < static_cast<int>(N); ++n) {
        auto* box = new QCheckBox(parent);
        box->setObjectName(QString(name) + QString::number(n));
        box->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        QObject::connect(box, &QCheckBox::clicked, context,
                         [click, n](bool ticked) { click(n, ticked); });
        grid->addWidget(box, n <= per_column ? n : n - per_column, n <= per_column ? 0 : 1,
                        Qt::AlignLeft);
        boxes[static_cast<std::size_t>(n)] = box;
    }
}

}  // namespace

ASSOCIA::ASSOCIA(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window),
      session_(session),
      tool_(std::make_unique<modules::AggregateEditor>(session.modules, session.texts)) {
    setObjectName("ASSOCIA");
    setWindowTitle(qs(session.texts.text(Text::AGGREGATE_BUTTON)) +
                   qs(session.modules.CODICE_MODULO));
    setWindowModality(Qt::WindowModal);
    tool_->confirm_name_removal = [this](int links) {
        const auto& t = session_.texts;
        return session_.ask_text(std::to_string(links) + t.text(Text::AGGREGATE_LINKS_LOST),
                                 t.text(Text::TITLE_WARNING));
    };
    auto* outer = new QVBoxLayout(this);
    outer->addWidget(build_full_page());
    outer->addWidget(build_simple_page());
    Frame6_->setVisible(tool_->full);
    Frame11_->setVisible(!tool_->full);
    refresh();
}

ASSOCIA::~ASSOCIA() = default;

QWidget* ASSOCIA::build_full_page() {
    const auto& t = session_.texts;
    Frame6_ = new QGroupBox(this);
    Frame6_->setObjectName("Frame6");
    auto* page = new QVBoxLayout(Frame6_);
    page->addWidget(bold_label(qs(t.text(Text::AGGREGATE_FULL_TITLE)), Frame6_, "Label23"));

    auto* sets = new QHBoxLayout;
    // The choice of the set and that of the logic are apart.
    auto* set_group = new QButtonGroup(Frame6_);
    for (int n = 1; n <= 3; ++n) {
        const QString letter(QChar('a' + n - 1));
        auto* b = new QRadioButton(qs(t.text(Text::AGGREGATE_SET)) + letter, Frame6_);
        b->setObjectName(QString("Option5_%1").arg(n));
        b->setAutoFillBackground(true);
        b->setStyleSheet(
            QString("background-color: %1; padding: 4px;").arg(kSetColours[n].background));
        connect(b, &QRadioButton::clicked, this, [this, n] {
            tool_->Option5_Click(n);
            refresh();
        });
        set_group->addButton(b);
        sets->addWidget(b);
        Option5_[static_cast<std::size_t>(n)] = b;
    }
    sets->addStretch(1);
    page->addLayout(sets);

    auto* body = new QHBoxLayout;
    // The participants: two columns of 24, the first without captions.
    auto* points = new QGridLayout;
    points->setVerticalSpacing(0);
    points->addWidget(new QLabel(qs(t.text(Text::AGGREGATE_WHEN_ON)), Frame6_), 0, 0);
    points->addWidget(new QLabel(qs(t.text(Text::AGGREGATE_WHEN_OFF)), Frame6_), 0, 1);
    points->itemAtPosition(0, 0)->widget()->setObjectName("Label21");
    points->itemAtPosition(0, 1)->widget()->setObjectName("Label20");
    add_box_columns(points, Frame6_, this, Check2_, "Check2_", [this](int n, bool ticked) {
        if (filling_) return;
        tool_->Check2_Click(n, ticked);
        refresh();
    });
    body->addLayout(points, 1);

    auto* side = new QVBoxLayout;
    auto* Frame8 = new QGroupBox(qs(t.text(Text::AGGREGATE_NAME_FRAME)), Frame6_);
    Frame8->setObjectName("Frame8");
    auto* name_row = new QVBoxLayout(Frame8);
    Text5_ = new QLineEdit(Frame8);
    Text5_->setObjectName("Text5");
    Text5_->setMaxLength(8);
    connect(Text5_, &QLineEdit::textEdited, this, [this](const QString& s) {
        tool_->Text5_Change(s.toStdString());
        refresh();
    });
    name_row->addWidget(Text5_);
    side->addWidget(Frame8);

    side->addWidget(bold_label(qs(t.text(Text::AGGREGATE_REACTING)), Frame6_, "Label18"));
    auto* reactions = new QGridLayout;
    reactions->setVerticalSpacing(0);
    auto* Label17 = new QLabel(qs(t.text(Text::AGGREGATE_SWITCHES)), Frame6_);
    Label17->setObjectName("Label17");
    reactions->addWidget(Label17, 0, 0, 1, 2);
    add_box_columns(reactions, Frame6_, this, Check3_, "Check3_", [this](int n, bool ticked) {
        if (filling_) return;
        tool_->Check3_Click(n, ticked);
        refresh();
    });
    reactions->setColumnStretch(1, 1);
    side->addLayout(reactions);

    auto* logic = new QHBoxLayout;
    auto* choices = new QVBoxLayout;
    const Text captions[] = {Text::AGGREGATE_OR, Text::AGGREGATE_AND};
    auto* logic_group = new QButtonGroup(Frame6_);
    for (int n = 0; n < 2; ++n) {
        auto* b = new QRadioButton(qs(t.text(captions[n])), Frame6_);
        b->setObjectName(QString("Option3_%1").arg(n));
        connect(b, &QRadioButton::clicked, this, [this, n] {
            tool_->Option3_Click(n);
            refresh();
        });
        logic_group->addButton(b);
        choices->addWidget(b);
        Option3_[static_cast<std::size_t>(n)] = b;
    }
    logic->addLayout(choices);
    logic_ = new QLabel(Frame6_);
    logic_->setObjectName("Image_logic");
    logic_->setAlignment(Qt::AlignCenter);
    logic_->setMinimumSize(56, 48);
    logic_->setStyleSheet("border: 2px solid #404040; font-size: 18px; font-weight: bold;");
    logic->addWidget(logic_);
    logic->addStretch(1);
    side->addLayout(logic);
    side->addStretch(1);

    auto* Label35 = new QPushButton(qs(t.text(Text::PAGE_CONFIRM)), Frame6_);
    Label35->setObjectName("Label35");
    connect(Label35, &QPushButton::clicked, this, [this] {
        if (confirm()) close();
    });
    side->addWidget(Label35);
    body->addLayout(side, 1);
    page->addLayout(body, 1);
    return Frame6_;
}

QWidget* ASSOCIA::build_simple_page() {
    const auto& t = session_.texts;
    Frame11_ = new QGroupBox(this);
    Frame11_->setObjectName("Frame11");
    auto* page = new QVBoxLayout(Frame11_);
    auto* Label40 = bold_label(qs(t.text(Text::AGGREGATE_SIMPLE_TITLE)), Frame11_, "Label40");
    Label40->setWordWrap(true);
    page->addWidget(Label40);
    for (int k = 1; k <= 8; ++k) {
        auto* box = new QCheckBox(Frame11_);
        box->setObjectName(QString("Check1_%1").arg(k));
        connect(box, &QCheckBox::clicked, this, [this, k](bool ticked) {
            if (filling_) return;
            tool_->Check1_Click(k, ticked);
            refresh();
        });
        page->addWidget(box);
        Check1_[static_cast<std::size_t>(k)] = box;
    }
    auto* Label37 = new QPushButton(qs(t.text(Text::PAGE_CONFIRM)), Frame11_);
    Label37->setObjectName("Label37");
    connect(Label37, &QPushButton::clicked, this, [this] {
        if (confirm()) close();
    });
    page->addWidget(Label37);
    page->addStretch(1);
    return Frame11_;
}

bool ASSOCIA::confirm() {
    if (confirmed_) return true;
    confirmed_ = tool_->full ? tool_->Label35_Click() : tool_->Label37_Click();
    refresh();
    return confirmed_;
}

void ASSOCIA::closeEvent(QCloseEvent* event) {
    if (!confirm()) {
        event->ignore();
        return;
    }
    event->accept();
    emit closed();
}

void ASSOCIA::refresh() {
    const modules::AggregateEditor& w = *tool_;
    filling_ = true;
    const auto show = [](QCheckBox* c, const modules::AggregateEditor::Box& b) {
        c->setText(qs(b.caption));
        c->setVisible(b.shown);
        c->setEnabled(b.enabled);
        c->setChecked(b.ticked);
    };
    if (w.full) {
        const SetColour& colour = kSetColours[static_cast<std::size_t>(w.ASSOCIAZIONE_CORRENTE)];
        for (int n = 1; n <= 3; ++n)
            Option5_[static_cast<std::size_t>(n)]->setChecked(n == w.ASSOCIAZIONE_CORRENTE);
        for (int n = 1; n <= 48; ++n) {
            show(Check2_[static_cast<std::size_t>(n)], w.Check2[static_cast<std::size_t>(n)]);
            Check2_[static_cast<std::size_t>(n)]->setStyleSheet(
                QString("color: %1;").arg(colour.type));
        }
        for (int n = 1; n <= 16; ++n)
            show(Check3_[static_cast<std::size_t>(n)], w.Check3[static_cast<std::size_t>(n)]);
        Option3_[0]->setChecked(w.or_logic);
        Option3_[1]->setChecked(!w.or_logic);
        logic_->setText(w.or_logic ? "≥1" : "&");
        if (Text5_->text() != qs(w.Text5)) Text5_->setText(qs(w.Text5));
        Text5_->setStyleSheet(QString("background-color: %1;").arg(colour.background));
    } else {
        for (int k = 1; k <= 8; ++k)
            show(Check1_[static_cast<std::size_t>(k)], w.Check1[static_cast<std::size_t>(k)]);
    }
    filling_ = false;
}

}  // namespace filo::app
