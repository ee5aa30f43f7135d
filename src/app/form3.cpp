#include "app/form3.hpp"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/levels.hpp"
#include "app/main_menu.hpp"
#include "app/project_hub.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "commissioning/scan.hpp"

namespace filo::app {

using texts::Text;

Form3::Form3(Session& session, HubHost host, QWidget* parent) : QWidget(parent), session_(session) {
    host.schedule_scan_tick = [this](int ms) { Timer1_->start(ms); };
    host.changed = [this] { refresh(); };
    hub_ = std::make_unique<ProjectHub>(session, std::move(host));
    setObjectName("Form3");
    auto* outer = new QHBoxLayout(this);
    outer->setContentsMargins(16, 12, 16, 12);
    outer->setSpacing(16);

    // The main menu on the left.
    auto* menu = new QGridLayout;
    menu->setVerticalSpacing(8);
    add_entry(0, "add", "Label2", menu, 0);
    add_entry(1, "edit", "Label3", menu, 1);
    add_entry(2, "link", "Label4", menu, 2);
    add_entry(3, "utility", "Label5", menu, 3);
    add_entry(4, "program", "Label6", menu, 4);
    add_entry(5, "back", "Label7", menu, 5);
    Label17_ = new QPushButton(this);
    Label17_->setObjectName("Label17");
    connect(Label17_, &QPushButton::clicked, this, [this] {
        hub_->monitor_click();
        refresh();
    });
    menu->addWidget(Label17_, 6, 0, 1, 2);
    menu->setRowStretch(7, 1);
    Label25_ = new QLabel(this);
    Label25_->setObjectName("Label25");
    Label25_->setMinimumHeight(22);
    Label25_->setStyleSheet("color: red; font-weight: bold;");
    Label25_->installEventFilter(this);
    menu->addWidget(Label25_, 8, 0, 1, 2);
    outer->addLayout(menu, 2);

    // The work area on the right: project, frames, help.
    auto* right = new QVBoxLayout;
    auto* header = new QHBoxLayout;
    Label8_ = new QLabel(this);
    Label8_->setObjectName("Label8");
    Label1_ = new QLabel(this);
    Label1_->setObjectName("Label1");
    QFont big = Label1_->font();
    big.setPointSize(big.pointSize() + 6);
    big.setBold(true);
    Label1_->setFont(big);
    Label20_ = new QLabel(this);
    Label20_->setObjectName("Label20");
    Label23_ = new QLabel(this);
    Label23_->setObjectName("Label23");
    Label23_->setFrameShape(QFrame::StyledPanel);
    Label23_->setMargin(4);
    header->addWidget(Label8_);
    header->addWidget(Label1_);
    header->addStretch();
    header->addWidget(Label20_);
    header->addWidget(Label23_);
    right->addLayout(header);

    Frame2_ = new QGroupBox(this);
    Frame2_->setObjectName("Frame2");
    auto* typing = new QVBoxLayout(Frame2_);
    Label12_ = new QLabel(Frame2_);
    Label12_->setObjectName("Label12");
    Label12_->setWordWrap(true);
    Text3_ = new QLineEdit(Frame2_);
    Text3_->setObjectName("Text3");
    QFont mono("DejaVu Sans Mono");
    mono.setPointSize(Text3_->font().pointSize() + 6);
    Text3_->setFont(mono);
    Text3_->setMaximumWidth(260);
    Text3_->installEventFilter(this);
    connect(Text3_, &QLineEdit::textChanged, this, &Form3::Text3_changed);
    typing->addWidget(Label12_);
    typing->addWidget(Text3_);
    right->addWidget(Frame2_);

    Frame3_ = new QGroupBox(this);
    Frame3_->setObjectName("Frame3");
    auto* choice = new QGridLayout(Frame3_);
    Label13_ = new QLabel(Frame3_);
    Label13_->setObjectName("Label13");
    Label13_->setWordWrap(true);
    Combo1_ = new QComboBox(Frame3_);
    Combo1_->setObjectName("Combo1");
    Combo2_ = new QComboBox(Frame3_);
    Combo2_->setObjectName("Combo2");
    Combo1_->setMinimumWidth(220);
    Combo2_->setMinimumWidth(300);
    choice->addWidget(Label13_, 0, 0, 1, 2);
    choice->addWidget(Combo1_, 1, 0);
    choice->addWidget(Combo2_, 1, 1);
    connect(Combo1_, &QComboBox::activated, this, [this](int index) {
        if (filling_ || index < 0) return;
        hub_->Combo1_Click(Combo1_->itemText(index).toStdString());
        after_module_chosen();
    });
    connect(Combo2_, &QComboBox::activated, this, [this](int index) {
        if (filling_ || index < 0) return;
        if (!hub_->Combo2_Click(Combo2_->itemData(index).toLongLong()))
            Combo2_->setCurrentIndex(-1);
        after_module_chosen();
    });
    right->addWidget(Frame3_);

    Frame4_ = new QGroupBox(this);
    Frame4_->setObjectName("Frame4");
    auto* utility = new QGridLayout(Frame4_);
    add_entry(6, "print", "Label18", utility, 0);
    add_entry(7, "print", "Label16", utility, 1);
    add_entry(8, "print", "Label15", utility, 2);
    add_entry(9, "print", "label22", utility, 3);
    add_entry(10, "print", "Label14", utility, 4);
    auto* second = new QGridLayout;
    add_entry(11, "connect", "Label11", second, 0);
    add_entry(12, "scan", "Label33", second, 1);
    add_entry(13, "export", "Label24", second, 2);
    add_entry(15, "wizard", "Label26", second, 3);
    utility->addLayout(second, 0, 2, 5, 1);
    utility->setColumnStretch(1, 1);
    utility->setColumnStretch(3, 1);
    right->addWidget(Frame4_);

    Frame5_ = new QGroupBox(this);
    Frame5_->setObjectName("Frame5");
    auto* scan = new QGridLayout(Frame5_);
    scan_status_ = new QLabel(Frame5_);
    scan_status_->setObjectName("Label34");
    ProgressBar7_ = new QProgressBar(Frame5_);
    ProgressBar7_->setObjectName("ProgressBar7");
    ProgressBar7_->setRange(0, commissioning::InstallationScan::kLastAddress);
    found_caption_ = new QLabel(Frame5_);
    new_caption_ = new QLabel(Frame5_);
    List1_ = new QListWidget(Frame5_);
    List1_->setObjectName("List1");
    List2_ = new QListWidget(Frame5_);
    List2_->setObjectName("List2");
    QFont list_font("DejaVu Sans Mono");
    list_font.setPointSize(Text3_->font().pointSize() - 4);
    List1_->setFont(list_font);
    List2_->setFont(list_font);
    scan->addWidget(scan_status_, 0, 0, 1, 2);
    scan->addWidget(ProgressBar7_, 1, 0, 1, 2);
    scan->addWidget(found_caption_, 2, 0);
    scan->addWidget(new_caption_, 2, 1);
    scan->addWidget(List1_, 3, 0);
    scan->addWidget(List2_, 3, 1);
    right->addWidget(Frame5_);

    Frame1_ = new QGroupBox(this);
    Frame1_->setObjectName("Frame1");
    Label10_ = add_help_label(Frame1_, "Label10");
    right->addWidget(Frame1_);
    right->addStretch(1);

    auto* help_line = new QHBoxLayout;
    help_line->addStretch();
    Image13_ = new QPushButton("i", this);
    Image13_->setObjectName("Image13");
    Image13_->setFixedSize(34, 34);
    connect(Image13_, &QPushButton::clicked, this, [this] {
        session_.AIUTO = !session_.AIUTO;
        refresh();
    });
    help_line->addWidget(Image13_);
    right->addLayout(help_line);
    outer->addLayout(right, 5);

    Timer1_ = new QTimer(this);
    Timer1_->setObjectName("Timer1");
    Timer1_->setSingleShot(true);
    connect(Timer1_, &QTimer::timeout, this, [this] {
        hub_->scan_tick();
        refresh();
    });
    Timer2_ = new QTimer(this);
    Timer2_->setObjectName("Timer2");
    Timer2_->setSingleShot(true);
    Timer2_->setInterval(100);
    connect(Timer2_, &QTimer::timeout, this, [this] {
        hub_->Timer2_Timer();
        refresh();
    });
    Timer7_ = new QTimer(this);
    Timer7_->setObjectName("Timer7");
    Timer7_->setSingleShot(true);
    Timer7_->setInterval(ProjectHub::kGestureMs);
    connect(Timer7_, &QTimer::timeout, this, [this] {
        hub_->Timer7_Timer();
        refresh();
    });
}

Form3::~Form3() {
    hub_->unload();
}

void Form3::add_entry(int index, const char* icon, const char* caption_name, QGridLayout* grid,
                      int row) {
    // The main menu's entries (0 to 5) are larger than the utility's.
    const bool main_entry = index <= 5;
    const auto [button, caption] =
        add_command(this, grid, row, QString("Image1_%1").arg(index), icon, main_entry ? 36 : 24,
                    caption_name, main_entry ? 2 : 0);
    on_hover(button, [this, index] {
        hub_->hover(index);
        Label10_->setText(qs(hub_->Label10));
    });
    connect(button, &QToolButton::clicked, this, [this, index] {
        hub_->menu_click(index);
        // Back to the menu deletes this window later; nothing is left to show.
        if (session_.PROGETTO_CHIUSO == "SI") return;
        refresh();
        if (hub_->Frame2) Text3_->setFocus();
    });
    Image1_[index] = button;
    captions_[index] = caption;
}

bool Form3::load() {
    if (!hub_->load()) return false;
    refresh();
    return true;
}

void Form3::refresh() {
    const auto& t = session_.texts;
    for (auto& [index, caption] : captions_)
        if (auto text = ProjectHub::entry_caption(index)) caption->setText(qs(t.text(*text)));
    captions_[ProjectHub::Scan]->setText(qs(hub_->Label33));
    Label17_->setText(qs(t.text(Text::HUB_MONITOR)));
    Label8_->setText(qs(t.text(Text::PROJECT_LABEL)));
    Label1_->setText(qs(session_.project.NOME_PROGETTO));
    Label20_->setText(qs(t.text(Text::LEVEL_CAPTION) + " " + std::to_string(session_.LIVELLO) +
                         " " + t.text(level_name(session_.LIVELLO))));
    show_line_state(Label23_, session_.STATO_LINEA, session_.on_line());
    Label12_->setText(qs(t.text(Text::HUB_ENTER_PRINTED_CODE)));
    Label13_->setText(qs(t.text(Text::HUB_CHOOSE_MODULE)));
    Frame2_->setTitle(qs(t.text(Text::ADD_MODULE)));
    Frame3_->setTitle(qs(t.text(Text::EDIT_MODULE)));
    Frame4_->setTitle(qs(t.text(Text::UTILITY)));
    Frame5_->setTitle(qs(t.text(Text::MENU_SCAN)));
    Frame1_->setTitle(qs(t.text(Text::HELP_TOGGLE)));
    Frame2_->setVisible(hub_->Frame2);
    Frame3_->setVisible(hub_->Frame3);
    Frame4_->setVisible(hub_->Frame4);
    Frame5_->setVisible(hub_->scan_frame);
    Frame1_->setVisible(session_.AIUTO);
    light_help_button(Image13_, session_.AIUTO);
    Label10_->setText(qs(hub_->Label10));
    Label25_->setText(qs(hub_->Label25));
    if (Text3_->text().toStdString() != hub_->Text3) Text3_->setText(qs(hub_->Text3));

    filling_ = true;
    Combo1_->clear();
    for (const std::string& line : hub_->lists.by_code) Combo1_->addItem(qs(line));
    Combo1_->setPlaceholderText(qs(t.text(Text::SELECT_NUMBER)));
    Combo1_->setCurrentIndex(-1);
    Combo2_->clear();
    for (const store::ListEntry& e : hub_->lists.by_name)
        Combo2_->addItem(qs(e.text), QVariant::fromValue<qlonglong>(e.item_data));
    Combo2_->setPlaceholderText(qs(t.text(Text::SELECT_NAME)));
    Combo2_->setCurrentIndex(-1);
    filling_ = false;

    scan_status_->setText(qs(hub_->scan_status));
    ProgressBar7_->setVisible(hub_->scanning());
    ProgressBar7_->setValue(hub_->scan_progress);
    found_caption_->setText(qs(t.text(Text::SCAN_FOUND)));
    new_caption_->setText(qs(t.text(Text::SCAN_NEW)));
    List1_->clear();
    for (const std::string& code : hub_->List1) List1_->addItem(qs(code));
    List2_->clear();
    for (const std::string& code : hub_->List2) List2_->addItem(qs(code));
    emit caption_changed(qs(hub_->caption));
}

bool Form3::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Label25_ && event->type() == QEvent::MouseButtonDblClick) {
        hub_->Label25_DblClick();
        Timer7_->start();  // restarted at each double click
        Label25_->setText(qs(hub_->Label25));
        return true;
    }
    if (watched == Text3_ && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        // Editing and moving keys pass; every character goes through the filter.
        if (text.isEmpty() || key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete)
            return false;
        if (text.size() != 1 || text[0].unicode() > 127) return true;
        const char typed = static_cast<char>(text[0].unicode());
        const std::optional<char> passed =
            ProjectHub::filter_key(typed, static_cast<std::size_t>(Text3_->text().size()));
        if (!passed) return true;
        if (*passed != typed) {
            Text3_->insert(QString(QChar(*passed)));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void Form3::Text3_changed(const QString& text) {
    hub_->Text3_Change(text.toStdString());
    if (qs(hub_->Text3) != text) Text3_->setText(qs(hub_->Text3));
    after_module_chosen();
}

void Form3::after_module_chosen() {
    if (hub_->Timer2 && !Timer2_->isActive()) Timer2_->start();
}

}  // namespace filo::app
