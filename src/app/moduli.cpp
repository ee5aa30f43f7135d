#include "app/moduli.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QSlider>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/associa.hpp"
#include "app/module_window.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;

namespace {

// Typing passes the name set only; a name from another tool is shown as is
// and keeps its own characters while it is edited.
class NameValidator final : public QValidator {
  public:
    explicit NameValidator(QLineEdit* box) : QValidator(box), box_(box) {}
    State validate(QString& input, int&) const override {
        if (input.size() > 49) return Invalid;
        const QString kept = box_->property("stored").toString();
        for (QChar c : input)
            if (!allowed().contains(c) && !kept.contains(c)) return Invalid;
        return Acceptable;
    }

  private:
    static const QString& allowed() {
        static const QString set =
            QStringLiteral("°0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz.,-_/ ");
        return set;
    }
    QLineEdit* box_;
};

QValidator* name_validator(QLineEdit* box) {
    return new NameValidator(box);
}

QString contact_caption(const texts::LanguageTables& t, char c) {
    return qs(t.text(modules::contact_text(c)));
}

void paint(QWidget* w, const char* colour) {
    w->setStyleSheet(colour ? QString("background-color: %1;").arg(colour) : QString());
}

}  // namespace

MODULI::MODULI(Session& session, QWidget* parent)
    : QWidget(parent), session_(session), tool_(std::make_unique<ModuleWindow>(session)) {
    setObjectName("MODULI");
    auto* outer = new QVBoxLayout(this);
    auto* heading = new QHBoxLayout;
    Label7_ = new QLabel(this);
    Label7_->setObjectName("Label7");
    Label8_ = new QLabel(this);
    Label8_->setObjectName("Label8");
    QFont bold = Label8_->font();
    bold.setBold(true);
    Label8_->setFont(bold);
    label22_ = new QLabel(this);
    label22_->setObjectName("label22");
    heading->addWidget(Label7_);
    heading->addWidget(Label8_, 1);
    heading->addWidget(label22_);
    outer->addLayout(heading);
    Text24_ = new QLineEdit(this);
    Text24_->setObjectName("Text24");
    Text24_->setMaxLength(100);
    Text24_->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[A-Za-z0-9 .,\\-_/]{0,100}"), this));
    connect(Text24_, &QLineEdit::textEdited, this,
            [this](const QString& s) { tool_->Text24_Change(s.toStdString()); });
    outer->addWidget(Text24_);
    build_boxes(outer);
    build_pages(outer);
    build_replacement_page(outer);
    outer->addStretch(1);
    // The pages show over the boxes only when opened.
    for (QWidget* page : {static_cast<QWidget*>(Frame3_), static_cast<QWidget*>(Frame6_),
                          static_cast<QWidget*>(Frame7_), static_cast<QWidget*>(Frame12_)})
        page->hide();
    for (int k = 1; k <= 8; ++k) {
        Frame_ingressi_[k]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        Frame_out_[k]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    }
}

MODULI::~MODULI() = default;

void MODULI::build_boxes(QVBoxLayout* outer) {
    const auto& t = session_.texts;
    auto* body = new QHBoxLayout;
    Frame1_ = new QGroupBox(this);
    Frame1_->setObjectName("Frame1");
    auto* in_grid = new QGridLayout(Frame1_);
    for (int i = 1; i <= 8; ++i) {
        auto* frame = new QGroupBox(Frame1_);
        frame->setObjectName(QString("Frame_ingressi_%1").arg(i));
        auto* row = new QHBoxLayout(frame);
        auto* name = new QLineEdit(frame);
        name->setObjectName(QString("Text2_%1").arg(i));
        name->setMaxLength(49);
        name->setValidator(name_validator(name));
        name->installEventFilter(this);
        connect(name, &QLineEdit::textEdited, this, [this, i](const QString& s) {
            tool_->Text2_Change(i, s.toStdString());
            after_action();
        });
        auto* kind = new QComboBox(frame);
        kind->setObjectName(QString("Combo1_%1").arg(i));
        connect(kind, &QComboBox::activated, this, [this, i, kind](int index) {
            const int letter = kind->itemData(index).toInt();
            if (letter != 0) tool_->Combo1_Click(i, static_cast<char>(letter));
            after_action();
        });
        auto* options = new QToolButton(frame);
        options->setObjectName(QString("Image5_%1").arg(i));
        options->setText("...");
        connect(options, &QToolButton::clicked, this, [this, i] {
            tool_->Image5_Click(i);
            after_action();
        });
        auto* card = new QLineEdit(frame);
        card->setObjectName(QString("Text9_%1").arg(i));
        card->setPlaceholderText(qs(t.text(Text::CARD_BOX)));
        card->setMaxLength(6);
        card->setValidator(
            new QRegularExpressionValidator(QRegularExpression("[0-9A-Fa-f]{0,6}"), card));
        connect(card, &QLineEdit::textEdited, this, [this, i, card](const QString& s) {
            if (s.size() != 6) return;
            const bool added = tool_->Text9_Change(i, s.toStdString());
            paint(card, added ? "#00ff00" : "#ff0000");
            card->setEnabled(false);
            // Timer2: the box is ready for the next card.
            QTimer::singleShot(800, card, [card] {
                card->clear();
                paint(card, nullptr);
                card->setEnabled(true);
            });
            after_action();
        });
        row->addWidget(name, 2);
        row->addWidget(kind, 2);
        row->addWidget(card, 1);
        row->addWidget(options);
        in_grid->addWidget(frame, (i - 1) / 2, (i - 1) % 2);
        Frame_ingressi_[i] = frame;
        Text2_[i] = name;
        Combo1_[i] = kind;
        Image5_[i] = options;
        Text9_[i] = card;
    }
    Frame2_ = new QGroupBox(this);
    Frame2_->setObjectName("Frame2");
    auto* out_grid = new QGridLayout(Frame2_);
    for (int j = 1; j <= 8; ++j) {
        auto* frame = new QGroupBox(Frame2_);
        frame->setObjectName(QString("Frame_out_%1").arg(j));
        auto* row = new QHBoxLayout(frame);
        auto* name = new QLineEdit(frame);
        name->setObjectName(QString("Text1_%1").arg(j));
        name->installEventFilter(this);
        auto* contact = new QComboBox(frame);
        contact->setObjectName(QString("Combo2_%1").arg(j));
        connect(contact, &QComboBox::activated, this, [this, j, contact](int index) {
            tool_->Combo2_Click(j, static_cast<char>(contact->itemData(index).toInt()));
            after_action();
        });
        auto* options = new QToolButton(frame);
        options->setObjectName(QString("Image8_%1").arg(j));
        options->setText("...");
        connect(options, &QToolButton::clicked, this, [this, j] {
            tool_->Image8_Click(j);
            after_action();
        });
        row->addWidget(name, 2);
        row->addWidget(contact, 1);
        row->addWidget(options);
        out_grid->addWidget(frame, (j - 1) / 2, (j - 1) % 2);
        Frame_out_[j] = frame;
        Text1_[j] = name;
        Combo2_[j] = contact;
        Image8_[j] = options;
    }
    // The flags, on their own page.
    Frame3_ = new QGroupBox(this);
    Frame3_->setObjectName("Frame3");
    auto* flag_grid = new QGridLayout(Frame3_);
    for (int j = 9; j <= 24; ++j) {
        auto* name = new QLineEdit(Frame3_);
        name->setObjectName(QString("Text1_%1").arg(j));
        flag_grid->addWidget(new QLabel(qs(t.text(Text::FLAG_CAPTION)) + QString::number(j - 8)),
                             (j - 9) % 8, (j - 9) / 8 * 2);
        flag_grid->addWidget(name, (j - 9) % 8, (j - 9) / 8 * 2 + 1);
        Text1_[j] = name;
    }
    auto* Label34 = new QPushButton(qs(t.text(Text::PAGE_CLOSE)), Frame3_);
    Label34->setObjectName("Label34");
    connect(Label34, &QPushButton::clicked, this, [this] {
        tool_->Label34_Click();
        after_action();
    });
    flag_grid->addWidget(Label34, 8, 3);
    for (int j = 1; j <= 24; ++j) {
        QLineEdit* name = Text1_[j];
        name->setMaxLength(49);
        name->setValidator(name_validator(name));
        connect(name, &QLineEdit::textEdited, this, [this, j](const QString& s) {
            tool_->Text1_Change(j, s.toStdString());
            after_action();
        });
    }
    Frame6_ = new QGroupBox(qs(t.text(Text::RECEIVER_CHOICE)), this);
    Frame6_->setObjectName("Frame6");
    receivers_ = new QVBoxLayout(Frame6_);

    Frame_bottoni_ = new QWidget(this);
    Frame_bottoni_->setObjectName("Frame_bottoni");
    auto* button_column = new QVBoxLayout(Frame_bottoni_);
    const std::pair<int, Text> captions[] = {
        {1, Text::MODULE_SAVE},      {2, Text::DELETE_MODULE}, {3, Text::REPLACE_MODULE},
        {4, Text::MODULE_OPTIONS},   {5, Text::AGGREGATE_BUTTON}, {7, Text::FLAG_PAGE},
        {8, Text::MODULE_EXIT}};
    for (const auto& [n, caption] : captions) {
        auto* button = new QPushButton(qs(t.text(caption)), Frame_bottoni_);
        button->setObjectName(QString("Image1_%1").arg(n));
        connect(button, &QPushButton::clicked, this, [this, n] {
            tool_->Image1_Click(n);
            after_action();
        });
        button_column->addWidget(button);
        Image1_[static_cast<std::size_t>(n)] = button;
    }
    button_column->addStretch(1);
    auto* boxes = new QVBoxLayout;
    boxes->addWidget(Frame1_);
    boxes->addWidget(Frame2_);
    boxes->addWidget(Frame3_);
    boxes->addWidget(Frame6_);
    boxes->addStretch(1);
    body->addLayout(boxes, 1);
    body->addWidget(Frame_bottoni_);
    outer->addLayout(body, 1);
}

void MODULI::build_pages(QVBoxLayout* outer) {
    const auto& t = session_.texts;
    // Frame7: the module's page or an input's.
    Frame7_ = new QGroupBox(this);
    Frame7_->setObjectName("Frame7");
    auto* page = new QGridLayout(Frame7_);
    Label11_ = new QLabel(qs(t.text(Text::PAGE_VALID_FOR)), Frame7_);
    Label11_->setObjectName("Label11");
    page->addWidget(Label11_, 0, 0, 1, 2);
    for (int n = 0; n < 6; ++n) {
        Label4_[n] = new QLabel(Frame7_);
        Label4_[n]->setObjectName(QString("Label4_%1").arg(n));
        Text4_[n] = new QLineEdit(Frame7_);
        Text4_[n]->setObjectName(QString("Text4_%1").arg(n));
        Text4_[n]->setValidator(
            new QRegularExpressionValidator(QRegularExpression("[0-9]{0,3}"), Text4_[n]));
        connect(Text4_[n], &QLineEdit::textEdited, this, [this, n](const QString& s) {
            tool_->Text4_Change(n, s.toStdString());
            after_action();
        });
        page->addWidget(Label4_[n], n + 1, 0);
        page->addWidget(Text4_[n], n + 1, 1);
    }
    Option1_ = new QRadioButton(Frame7_);
    Option1_->setObjectName("Option1");
    Option2_ = new QRadioButton(Frame7_);
    Option2_->setObjectName("Option2");
    Option4_ = new QRadioButton(Frame7_);
    Option4_->setObjectName("Option4");
    page->addWidget(Option1_, 7, 0, 1, 2);
    page->addWidget(Option2_, 8, 0, 1, 2);
    page->addWidget(Option4_, 9, 0, 1, 2);
    const auto option_chosen = [this] {
        if (filling_) return;
        modules::ParameterPage& p = tool_->module_page;
        p.rgb_channels = Option2_->isChecked();
        p.rolling_code = Option2_->isChecked();
        p.reader = Option1_->isChecked() ? 'E' : Option2_->isChecked() ? 'I' : 'G';
    };
    for (QRadioButton* b : {Option1_, Option2_, Option4_})
        connect(b, &QRadioButton::toggled, this, option_chosen);
    auto* Label9 = new QPushButton(qs(t.text(Text::PAGE_CONFIRM)), Frame7_);
    Label9->setObjectName("Label9");
    connect(Label9, &QPushButton::clicked, this, [this] {
        tool_->Label9_Click();
        after_action();
    });
    page->addWidget(Label9, 10, 1);
    outer->addWidget(Frame7_);

    // Frame12: an output's page.
    Frame12_ = new QGroupBox(this);
    Frame12_->setObjectName("Frame12");
    auto* out_page = new QVBoxLayout(Frame12_);
    Frame8_ = new QGroupBox(qs(t.text(Text::PAGE_FUNCTIONS)), Frame12_);
    Frame8_->setObjectName("Frame8");
    auto* checks = new QGridLayout(Frame8_);
    checks->addWidget(new QLabel(qs(t.text(Text::PAGE_AND_WITH))), 0, 0);
    checks->addWidget(new QLabel(qs(t.text(Text::PAGE_INTERLOCKED_WITH))), 0, 1);
    for (int n = 1; n <= 16; ++n) {
        auto* box = new QCheckBox(Frame8_);
        box->setObjectName(QString("Check4_%1").arg(n));
        connect(box, &QCheckBox::clicked, this, [this, n](bool on) {
            tool_->Check4_Click(n, on);
            after_action();
        });
        checks->addWidget(box, (n - 1) % 8 + 1, (n - 1) / 8);
        Check4_[n] = box;
    }
    out_page->addWidget(Frame8_);
    values_ = new QWidget(Frame12_);
    auto* values = new QGridLayout(values_);
    Text6_ = new QLineEdit(values_);
    Text6_->setObjectName("Text6");
    Text7_ = new QLineEdit(values_);
    Text7_->setObjectName("Text7");
    for (QLineEdit* e : {Text6_, Text7_})
        e->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,3}"), e));
    connect(Text6_, &QLineEdit::textEdited, this, [this](const QString& s) {
        tool_->Text6_Change(s.toStdString());
        after_action();
    });
    connect(Text7_, &QLineEdit::textEdited, this, [this](const QString& s) {
        tool_->Text7_Change(s.toStdString());
        after_action();
    });
    values->addWidget(new QLabel(qs(t.text(Text::PAGE_VALUE_ON))), 0, 0);
    values->addWidget(Text6_, 0, 1);
    values->addWidget(new QLabel(qs(t.text(Text::PAGE_UNIT))), 0, 2);
    values->addWidget(new QLabel(qs(t.text(Text::PAGE_VALUE_OFF))), 1, 0);
    values->addWidget(Text7_, 1, 1);
    values->addWidget(new QLabel(qs(t.text(Text::PAGE_UNIT))), 1, 2);
    out_page->addWidget(values_);
    Image50_ = new QPushButton(qs(t.text(Text::PAGE_VARIATOR)), Frame12_);
    Image50_->setObjectName("Image50");
    connect(Image50_, &QPushButton::clicked, this, [this] {
        tool_->Image50_Click();
        after_action();
    });
    out_page->addWidget(Image50_);
    emergency_ = new QWidget(Frame12_);
    auto* emergency = new QHBoxLayout(emergency_);
    Slider1_ = new QSlider(Qt::Horizontal, emergency_);
    Slider1_->setObjectName("Slider1");
    Slider1_->setRange(0, 100);
    connect(Slider1_, &QSlider::valueChanged, this, [this](int v) {
        if (filling_) return;
        tool_->Slider1_Change(v);
        after_action();
    });
    Text8_ = new QLabel(emergency_);
    Text8_->setObjectName("Text8");
    Check1_ = new QCheckBox(qs(t.text(Text::PAGE_COMMANDS_IN_EMERGENCY)), emergency_);
    Check1_->setObjectName("Check1");
    connect(Check1_, &QCheckBox::toggled, this, [this](bool on) {
        if (!filling_) tool_->output_page.Check1 = on;
    });
    emergency->addWidget(new QLabel(qs(t.text(Text::PAGE_EMERGENCY_VALUE))));
    emergency->addWidget(Slider1_, 1);
    emergency->addWidget(Text8_);
    emergency->addWidget(Check1_);
    out_page->addWidget(emergency_);
    auto* Label36 = new QPushButton(qs(t.text(Text::PAGE_CLOSE)), Frame12_);
    Label36->setObjectName("Label36");
    connect(Label36, &QPushButton::clicked, this, [this] {
        tool_->Label36_Click();
        after_action();
    });
    out_page->addWidget(Label36);
    outer->addWidget(Frame12_);
}

bool MODULI::load(int PUNTO_EVIDENZIATO, ModuleOpener opener) {
    const bool ready = tool_->load(PUNTO_EVIDENZIATO, opener);
    refresh();
    if (!ready) QTimer::singleShot(0, this, [this] { emit closed(); });  // Timer1
    if (ready && tool_->highlighted) {
        const int p = tool_->highlighted;
        QLineEdit* box = p <= 8 ? Text2_[p] : Text1_[p - 8];
        box->setFocus();
    }
    return ready;
}

bool MODULI::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        for (int k = 1; k <= 8; ++k) {
            if (watched == Text1_[k]) tool_->Text1_DblClick(k);
            if (watched == Text2_[k]) tool_->Text2_DblClick(k);
            if (watched == Text1_[k] || watched == Text2_[k]) {
                after_action();
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void MODULI::after_action() {
    refresh();
    if (tool_->page == ModuleWindow::Page::Aggregates && !ASSOCIA_) open_associa();
    if (tool_->closed()) emit closed();
}

void MODULI::open_associa() {
    auto* window = new ASSOCIA(session_, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    ASSOCIA_ = window;
    connect(window, &ASSOCIA::closed, this, [this] {
        ASSOCIA_ = nullptr;
        tool_->ASSOCIA_closed();
        refresh();
    });
    window->show();
}

void MODULI::refresh() {
    const ModuleWindow& w = *tool_;
    const auto& t = session_.texts;
    filling_ = true;
    Label7_->setText(qs(w.Label7));
    Label8_->setText(qs(w.Label8));
    show_line_state(label22_, w.label22, session_.on_line());
    if (Text24_->text() != qs(w.Text24)) Text24_->setText(qs(w.Text24));
    Text24_->setReadOnly(session_.modules.TIPO_MODULO == "23");
    for (int i = 1; i <= 8; ++i) {
        const ModuleWindow::InputBox& box = w.inputs[i];
        Frame_ingressi_[i]->setVisible(box.visible);
        Frame_ingressi_[i]->setTitle(qs(box.caption));
        if (Text2_[i]->text() != qs(box.Text2)) Text2_[i]->setText(qs(box.Text2));
        Text2_[i]->setProperty("stored", qs(box.Text2));
        paint(Text2_[i], box.under_test ? "#ff0000" : w.highlighted == i ? "#c0ffff" : nullptr);
        Text2_[i]->setStyleSheet(Text2_[i]->styleSheet() + (box.red ? "color: #ff0000;" : ""));
        Combo1_[i]->clear();
        for (const modules::ListOption& o : box.Combo1)
            Combo1_[i]->addItem(qs(o.text), o.item_data);
        if (!w.cards) Combo1_[i]->setCurrentIndex(Combo1_[i]->findData(static_cast<int>(box.kind)));
        paint(Combo1_[i], box.linked ? "#ffff80" : nullptr);
        Image5_[i]->setVisible(box.option_button && !w.cards);
        Image5_[i]->setText(box.marked ? "•••" : "...");
        Text9_[i]->setVisible(w.cards);
    }
    for (int j = 1; j <= 24; ++j) {
        const ModuleWindow::OutputBox& box = w.outputs[j];
        if (j <= 8) Frame_out_[j]->setVisible(box.visible);
        if (j <= 8) Frame_out_[j]->setTitle(qs(box.caption));
        Text1_[j]->setEnabled(box.visible);
        if (Text1_[j]->text() != qs(box.Text1)) Text1_[j]->setText(qs(box.Text1));
        Text1_[j]->setProperty("stored", qs(box.Text1));
        paint(Text1_[j], box.under_test ? "#ff0000" : w.highlighted == j + 8 ? "#c0ffff" : nullptr);
        Text1_[j]->setStyleSheet(Text1_[j]->styleSheet() + (box.red ? "color: #ff0000;" : ""));
        if (j > 8) continue;
        Combo2_[j]->clear();
        for (char c : box.contacts) Combo2_[j]->addItem(contact_caption(t, c), static_cast<int>(c));
        Combo2_[j]->setCurrentIndex(Combo2_[j]->findData(static_cast<int>(box.contact)));
        Combo2_[j]->setVisible(!box.contacts.empty());
        Image8_[j]->setVisible(box.option_button);
        Image8_[j]->setEnabled(box.contact != modules::kContactClosed);  // nero
        Image8_[j]->setText(box.marked ? "•••" : "...");
    }
    // The receivers of a remote element, as many as there are.
    for (QRadioButton* b : Option3_) b->deleteLater();
    Option3_.clear();
    for (std::size_t n = 0; n < w.Option3.size(); ++n) {
        auto* b = new QRadioButton(qs(w.Option3[n]), Frame6_);
        b->setObjectName(QString("Option3_%1").arg(n + 1));
        b->setChecked(static_cast<int>(n) == w.receiver);
        connect(b, &QRadioButton::clicked, this,
                [this, n] { tool_->Option3_Click(static_cast<int>(n)); });
        receivers_->addWidget(b);
        Option3_.push_back(b);
    }
    Frame6_->setVisible(w.receiver_choice);

    using Page = ModuleWindow::Page;
    const bool boxes = w.page == Page::None;
    Frame1_->setVisible(boxes);
    Frame2_->setVisible(boxes);
    Frame_bottoni_->setVisible(boxes);
    Frame3_->setVisible(w.page == Page::Flags);
    for (int n : {2, 3, 4, 5, 7}) {
        const auto bit = n == 2   ? modules::kDeleteButton
                         : n == 3 ? modules::kReplaceButton
                         : n == 4 ? modules::kOptionsButton
                         : n == 5 ? modules::kAggregateButton
                                  : modules::kFlagPageButton;
        Image1_[static_cast<std::size_t>(n)]->setVisible((w.buttons & bit) != 0);
    }
    Image1_[2]->setEnabled(!w.new_module);
    Image1_[3]->setEnabled(!w.new_module);
    refresh_replacement_page();

    Frame7_->setVisible(w.page == Page::Module || w.page == Page::Input);
    Label11_->setText(qs(w.Label11.empty() ? t.text(Text::PAGE_VALID_FOR) : w.Label11));
    const auto& shown = w.page == Page::Module ? w.module_page.boxes : w.input_page.boxes;
    for (int n = 0; n < 6; ++n) {
        const bool on =
            n < static_cast<int>(shown.size()) && shown[static_cast<std::size_t>(n)].visible;
        Label4_[n]->setVisible(on);
        Text4_[n]->setVisible(on);
        if (!on) continue;
        Label4_[n]->setText(qs(shown[static_cast<std::size_t>(n)].caption));
        if (Text4_[n]->text() != qs(shown[static_cast<std::size_t>(n)].value))
            Text4_[n]->setText(qs(shown[static_cast<std::size_t>(n)].value));
    }
    using modules::SpecialOptions;
    const SpecialOptions options =
        w.page == Page::Module ? w.module_page.options : SpecialOptions::None;
    Option1_->setVisible(options != SpecialOptions::None);
    Option2_->setVisible(options != SpecialOptions::None);
    Option4_->setVisible(options == SpecialOptions::Reader);
    switch (options) {
        case SpecialOptions::Channels:
            Option1_->setText(qs(t.text(Text::OPTION_SINGLE_CHANNELS)));
            Option2_->setText(qs(t.text(Text::OPTION_RGB_CHANNEL)));
            (w.module_page.rgb_channels ? Option2_ : Option1_)->setChecked(true);
            break;
        case SpecialOptions::Reader:
            Option1_->setText(qs(t.text(Text::OPTION_READER_EXTERNAL)));
            Option2_->setText(qs(t.text(Text::OPTION_READER_INTERNAL)));
            Option4_->setText(qs(t.text(Text::OPTION_READER_GENERIC)));
            (w.module_page.reader == 'E'   ? Option1_
             : w.module_page.reader == 'I' ? Option2_
                                           : Option4_)
                ->setChecked(true);
            break;
        case SpecialOptions::CodeFlag:
            Option1_->setText(qs(t.text(Text::OPTION_SYNCHRONISED_CODE)));
            Option2_->setText(qs(t.text(Text::OPTION_ROLLING_CODE)));
            (w.module_page.rolling_code ? Option2_ : Option1_)->setChecked(true);
            break;
        case SpecialOptions::None:
            break;
    }

    Frame12_->setVisible(w.page == Page::Output);
    const ModuleWindow::OutputPage& op = w.output_page;
    Frame8_->setVisible(op.functions);
    for (int n = 1; n <= 16; ++n) {
        Check4_[n]->setText(qs(op.Check4_caption[n]));
        Check4_[n]->setChecked(op.Check4[n]);
    }
    values_->setVisible(op.values);
    if (Text6_->text() != qs(op.Text6)) Text6_->setText(qs(op.Text6));
    if (Text7_->text() != qs(op.Text7)) Text7_->setText(qs(op.Text7));
    Image50_->setVisible(op.variator);
    emergency_->setVisible(op.emergency);
    Slider1_->setValue(op.Slider1);
    Text8_->setText(QString::number(op.Slider1));
    Check1_->setChecked(op.Check1);
    filling_ = false;
}

}  // namespace filo::app
