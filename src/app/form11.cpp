#include "app/form11.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSyntaxHighlighter>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <functional>

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "modules/message_editor.hpp"
#include "modules/panel_messages.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

namespace {

QColor colour_of(modules::Rgb c) {
    return QColor(c.red, c.green, c.blue);
}

// The list of messages tells when it drops and when it closes: the editor
// stores the message in hand first, and offers a free place.
class MessageList final : public QComboBox {
  public:
    using QComboBox::QComboBox;
    std::function<void()> dropping, closing;

    void showPopup() override {
        if (dropping) dropping();
        QComboBox::showPopup();
    }
    void hidePopup() override {
        QComboBox::hidePopup();
        if (closing) closing();
    }
};

// Colours the text as the codes in it say, codes in white.
class MessageColours final : public QSyntaxHighlighter {
  public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

  protected:
    void highlightBlock(const QString& text) override {
        int at = 0;
        for (const modules::ColouredRun& run : modules::coloured_runs(text.toStdString())) {
            const int length = static_cast<int>(QString::fromStdString(run.text).size());
            setFormat(at, length, colour_of(run.colour));
            at += length;
        }
    }
};

QString preview_html(const modules::PanelPreview& p, bool lit, const texts::LanguageTables& t) {
    QString html = "<span style='font-size:16pt; font-family:monospace;'>";
    for (const modules::ColouredRun& run : p.runs) {
        // Off, a blinking text keeps its place on the panel.
        const QColor c = lit ? colour_of(run.colour) : QColor(Qt::black);
        html += QString("<span style='color:%1;'>%2</span>")
                    .arg(c.name(), QString::fromStdString(run.text).toHtmlEscaped());
    }
    html += "</span><br><span style='color:#a0a0a0;'>";
    const int mode = modules::mode_index(p.mode);
    if (mode >= 0)
        html += qs(t.text(modules::MODI_MESSAGGIO[static_cast<std::size_t>(mode)].caption));
    if (p.mode == modules::kBlinkingMode) html += " · " + qs(t.text(Text::PANEL_PREVIEW_BLINKING));
    if (p.sounds) html += " · " + qs(t.text(Text::PANEL_PREVIEW_SOUND)) + " ♪";
    return html + "</span>";
}

}  // namespace

Form11::Form11(Session& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      tool_(
          std::make_unique<modules::MessageEditor>(session.modules, session.links, session.texts)) {
    setObjectName("Form11");
    const auto& t = session.texts;
    auto* outer = new QVBoxLayout(this);
    auto* heading = new QHBoxLayout;
    auto* Label8 = new QLabel(qs(t.text(Text::MODULE_NAME_PANEL_INTERFACE)), this);
    Label8->setObjectName("Label8");
    QFont bold = Label8->font();
    bold.setBold(true);
    Label8->setFont(bold);
    Label16_ = new QLabel(this);
    Label16_->setObjectName("Label16");
    heading->addWidget(Label8, 1);
    heading->addWidget(Label16_);
    outer->addLayout(heading);

    auto* module_row = new QHBoxLayout;
    Text4_ = new QLineEdit(this);
    Text4_->setObjectName("Text4");
    Text4_->setMaxLength(30);
    connect(Text4_, &QLineEdit::textEdited, this, [this](const QString& s) {
        if (!tool_->Text4_Change(s.toStdString())) Text4_->setText(qs(tool_->Text4));
    });
    Check1_ = new QCheckBox(qs(t.text(Text::PANEL_SHOW_COUNT)), this);
    Check1_->setObjectName("Check1");
    connect(Check1_, &QCheckBox::toggled, this, [this](bool on) { tool_->Check1 = on; });
    module_row->addWidget(Text4_, 1);
    module_row->addWidget(Check1_);
    outer->addLayout(module_row);

    build_message(outer);

    auto* buttons = new QHBoxLayout;
    const std::pair<int, Text> kButtons[] = {
        {0, Text::MODULE_SAVE}, {2, Text::DELETE_MODULE}, {5, Text::MODULE_EXIT}};
    for (const auto& [n, caption] : kButtons) {
        auto* button = new QPushButton(qs(t.text(caption)), this);
        button->setObjectName(QString("Image1_%1").arg(n));
        connect(button, &QPushButton::clicked, this, [this, n = n] { Image1_Click(n); });
        buttons->addWidget(button);
        if (n == 2) Image1_2_ = button;
    }
    buttons->addStretch(1);
    outer->addLayout(buttons);
    outer->addStretch(1);

    blink_ = new QTimer(this);
    blink_->setInterval(500);
    connect(blink_, &QTimer::timeout, this, [this] {
        blink_on_ = !blink_on_;
        show_preview();
    });
}

Form11::~Form11() = default;

void Form11::build_message(QVBoxLayout* outer) {
    const auto& t = session_.texts;
    auto* grid = new QGridLayout;
    auto* list = new MessageList(this);
    Combo1_ = list;
    Combo1_->setObjectName("Combo1");
    Combo1_->setMinimumContentsLength(20);
    list->dropping = [this] {
        tool_->Combo1_DropDown();
        refresh();
    };
    // Timer1: once the list has closed and the choice (if any) is made.
    list->closing = [this] {
        QTimer::singleShot(0, this, [this] {
            if (tool_->ListIndex != -1) return;
            tool_->Combo1_CloseUp();
            refresh();
        });
    };
    connect(Combo1_, &QComboBox::activated, this, [this](int index) {
        tool_->Combo1_Click(index);
        refresh();
        RichTextBox1_->setFocus();
    });
    Label6_ = new QLabel(qs(t.text(Text::PANEL_MESSAGE_NAME)), this);
    Label6_->setObjectName("Label6");
    Text1_ = new QLineEdit(this);
    Text1_->setObjectName("Text1");
    Text1_->setMaxLength(49);
    connect(Text1_, &QLineEdit::textEdited, this, [this](const QString& s) {
        tool_->Text1_Change(s.toStdString());
        if (qs(tool_->Text1) != s) Text1_->setText(qs(tool_->Text1));
    });
    grid->addWidget(Combo1_, 0, 0);
    grid->addWidget(Label6_, 0, 1);
    grid->addWidget(Text1_, 0, 2, 1, 2);

    auto* text_title = new QLabel(qs(t.text(Text::PANEL_MESSAGE_TEXT)), this);
    RichTextBox1_ = new QTextEdit(this);
    RichTextBox1_->setObjectName("RichTextBox1");
    RichTextBox1_->setAcceptRichText(false);
    RichTextBox1_->setStyleSheet("background-color: black;");
    QFont mono("monospace");
    mono.setStyleHint(QFont::Monospace);
    mono.setPointSize(14);
    RichTextBox1_->setFont(mono);
    RichTextBox1_->setFixedHeight(90);
    new MessageColours(RichTextBox1_->document());
    connect(RichTextBox1_, &QTextEdit::textChanged, this, &Form11::text_changed);
    grid->addWidget(text_title, 1, 0);
    grid->addWidget(RichTextBox1_, 2, 0, 1, 4);

    Combo3_ = new QComboBox(this);
    Combo3_->setObjectName("Combo3");
    for (const modules::MessageColour& c : modules::COLORI_MESSAGGIO) {
        Combo3_->addItem(qs(t.text(c.caption)));
        if (c.preview)
            Combo3_->setItemData(Combo3_->count() - 1, colour_of(*c.preview), Qt::DecorationRole);
    }
    connect(Combo3_, &QComboBox::activated, this, [this](int k) {
        QTextCursor cursor = RichTextBox1_->textCursor();
        const int start = cursor.selectionStart();
        const std::size_t caret =
            tool_->Combo3_Click(k, static_cast<std::size_t>(start),
                                static_cast<std::size_t>(cursor.selectionEnd() - start));
        show_text();
        cursor = RichTextBox1_->textCursor();
        cursor.setPosition(std::min(static_cast<int>(caret),
                                    static_cast<int>(RichTextBox1_->toPlainText().size())));
        RichTextBox1_->setTextCursor(cursor);
        RichTextBox1_->setFocus();
    });
    Combo4_ = new QComboBox(this);
    Combo4_->setObjectName("Combo4");
    for (const modules::MessageMode& m : modules::MODI_MESSAGGIO)
        Combo4_->addItem(qs(t.text(m.caption)));
    connect(Combo4_, &QComboBox::activated, this, [this](int k) {
        tool_->Combo4_Click(k);
        show_preview();
    });
    persistence_ = new QWidget(this);
    auto* persistence_row = new QHBoxLayout(persistence_);
    persistence_row->setContentsMargins(0, 0, 0, 0);
    Text5_ = new QLineEdit(persistence_);
    Text5_->setObjectName("Text5");
    Text5_->setMaxLength(2);
    Text5_->setFixedWidth(40);
    connect(Text5_, &QLineEdit::textEdited, this, [this](const QString& s) {
        tool_->Text5_Change(s.toStdString());
        Text5_->setText(qs(tool_->Text5));
    });
    persistence_row->addWidget(new QLabel(qs(t.text(Text::PANEL_PERSISTENCE)), persistence_));
    persistence_row->addWidget(Text5_);
    persistence_row->addStretch(1);
    auto* colour_title = new QLabel(qs(t.text(Text::PANEL_COLOUR)), this);
    grid->addWidget(colour_title, 3, 0);
    grid->addWidget(Combo3_, 3, 1);
    grid->addWidget(Combo4_, 3, 2);
    grid->addWidget(persistence_, 3, 3);

    auto* preview_title = new QLabel(qs(t.text(Text::PANEL_PREVIEW)), this);
    preview_ = new QLabel(this);
    preview_->setObjectName("Anteprima");
    preview_->setTextFormat(Qt::RichText);
    preview_->setStyleSheet("background-color: black; padding: 6px;");
    preview_->setMinimumHeight(60);
    grid->addWidget(preview_title, 4, 0);
    grid->addWidget(preview_, 5, 0, 1, 4);

    Check2_ = new QCheckBox(qs(t.text(Text::PANEL_IDLE_MESSAGE)), this);
    Check2_->setObjectName("Check2");
    connect(Check2_, &QCheckBox::clicked, this, [this](bool on) {
        tool_->Check2_Click(on);
        refresh();
    });
    Check3_ = new QCheckBox(qs(t.text(Text::PANEL_REPEAT_TEXT)), this);
    Check3_->setObjectName("Check3");
    connect(Check3_, &QCheckBox::clicked, this, [this](bool on) { tool_->Check3 = on; });
    Check4_ = new QCheckBox(qs(t.text(Text::PANEL_REPEAT_NAME)), this);
    Check4_->setObjectName("Check4");
    connect(Check4_, &QCheckBox::clicked, this, [this](bool on) { tool_->Check4 = on; });
    grid->addWidget(Check2_, 6, 0);
    grid->addWidget(Check3_, 6, 1);
    grid->addWidget(Check4_, 6, 2);
    grid->setColumnStretch(3, 1);
    outer->addLayout(grid);
}

bool Form11::load() {
    try {
        tool_->load();
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
        QTimer::singleShot(0, this, [this] { emit closed(); });
        return false;
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session_, e);
        QTimer::singleShot(0, this, [this] { emit closed(); });
        return false;
    }
    refresh();
    RichTextBox1_->setFocus();
    return true;
}

void Form11::text_changed() {
    if (filling_) return;
    QString text = RichTextBox1_->toPlainText();
    text.remove('\n');  // one line on the panel
    tool_->RichTextBox1_Change(text.toStdString());
    show_text();
}

void Form11::show_text() {
    filling_ = true;
    if (RichTextBox1_->toPlainText() != qs(tool_->RichTextBox1)) {
        RichTextBox1_->setPlainText(qs(tool_->RichTextBox1));
        RichTextBox1_->moveCursor(QTextCursor::End);
    }
    Text5_->setText(qs(tool_->Text5));
    filling_ = false;
    show_preview();
}

void Form11::show_preview() {
    const modules::MessageEditor& w = *tool_;
    const char mode = modules::MODI_MESSAGGIO[static_cast<std::size_t>(w.Combo4)].letter;
    const modules::PanelPreview p = modules::panel_preview({w.Text5, mode, w.RichTextBox1});
    if (mode == modules::kBlinkingMode && !blink_->isActive()) blink_->start();
    if (mode != modules::kBlinkingMode) {
        blink_->stop();
        blink_on_ = true;
    }
    preview_->setText(preview_html(p, blink_on_, session_.texts));
}

void Form11::refresh() {
    const modules::MessageEditor& w = *tool_;
    filling_ = true;
    Label16_->setText(qs(w.Label16));
    Text4_->setText(qs(w.Text4));
    Check1_->setChecked(w.Check1);
    Combo1_->clear();
    for (const std::string& entry : w.Combo1) Combo1_->addItem(qs(entry));
    Combo1_->setCurrentIndex(w.ListIndex);
    Text1_->setText(qs(w.Text1));
    Combo3_->setCurrentIndex(w.Combo3);
    Combo4_->setCurrentIndex(w.Combo4);
    Check2_->setChecked(w.Check2);
    Check3_->setChecked(w.Check3);
    Check4_->setChecked(w.Check4);
    // The idle message has no name, place, mode or persistence of its own.
    for (QWidget* c : {static_cast<QWidget*>(Combo1_), static_cast<QWidget*>(Combo4_),
                       static_cast<QWidget*>(Text1_), static_cast<QWidget*>(persistence_),
                       static_cast<QWidget*>(Check3_), static_cast<QWidget*>(Check4_),
                       static_cast<QWidget*>(Label6_)})
        c->setVisible(!w.Check2);
    Image1_2_->setEnabled(!w.new_module());
    filling_ = false;
    show_text();
}

void Form11::Image1_Click(int n) {
    modules::MessageEditor& w = *tool_;
    w.USCITA_CONSENTITA = "SI";
    try {
        switch (n) {
            case 0:
                if (!w.SALVA_INTERFACCIA())
                    session_.message(Text::PANEL_NAME_REQUIRED, Text::TITLE_NOTICE_PANEL);
                break;
            case 2:
                if (w.new_module()) return;
                if (!session_.ask(Text::DELETE_MODULE_CONFIRM, Text::DELETE_MODULE)) {
                    w.USCITA_CONSENTITA = "NO";
                    break;
                }
                w.ELIMINA_INTERFACCIA();
                break;
            case 5:
                if (!session_.ask(Text::EXIT_WITHOUT_SAVING, Text::MODULE_WINDOW_TITLE)) return;
                break;
            default:
                return;
        }
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
        w.USCITA_CONSENTITA = "NO";
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session_, e);
        w.USCITA_CONSENTITA = "NO";
    }
    refresh();
    if (w.USCITA_CONSENTITA == "NO") return;
    emit closed();
}

}  // namespace filo::app
