#include "app/form1.hpp"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/levels.hpp"
#include "app/main_menu.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;

namespace {

constexpr const char* kEntryIcons[] = {"open", "new", "connect", "exit"};
constexpr const char* kCaptionNames[] = {"Label1", "Label2", "Label9", "Label3"};

}  // namespace

Form1::Form1(Session& session, QWidget* parent)
    : QWidget(parent), session_(session), tool_(std::make_unique<MainMenu>(session)) {
    setObjectName("Form1");
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(24, 18, 24, 12);
    outer->setSpacing(14);

    // The title line: the program and its version.
    auto* title = new QHBoxLayout;
    auto* name = new QLabel("Filo", this);
    QFont big = name->font();
    big.setPointSize(big.pointSize() * 2 + 4);
    big.setBold(true);
    name->setFont(big);
    Label12_ = new QLabel(this);
    Label12_->setObjectName("Label12");
    title->addWidget(name);
    title->addWidget(Label12_, 0, Qt::AlignBottom);
    title->addStretch();
    label22_ = new QLabel(this);
    label22_->setObjectName("label22");
    label22_->setFrameShape(QFrame::StyledPanel);
    label22_->setMargin(4);
    title->addWidget(label22_);
    outer->addLayout(title);

    // The commands on the left, the help panel on the right.
    auto* middle = new QHBoxLayout;
    auto* commands = new QGridLayout;
    commands->setVerticalSpacing(10);
    for (int i = 0; i < 4; ++i) {
        const Command entry = add_command(this, commands, i, QString("Image4_%1").arg(i),
                                          kEntryIcons[i], 40, kCaptionNames[i], 3);
        on_hover(entry.button, [this, i] {
            tool_->hover_entry(static_cast<MainMenu::Entry>(i));
            Label10_->setText(qs(tool_->Label10));
        });
        connect(entry.button, &QToolButton::clicked, this, [this, i] { entry_clicked(i); });
        Image4_[static_cast<std::size_t>(i)] = entry.button;
        captions_[static_cast<std::size_t>(i)] = entry.caption;
    }
    commands->setRowStretch(4, 1);
    middle->addLayout(commands, 2);

    Frame1_ = new QGroupBox(this);
    Frame1_->setObjectName("Frame1");
    Label10_ = add_help_label(Frame1_, "Label10");
    Label10_->setMinimumWidth(280);
    Label10_->setMinimumHeight(140);
    auto* help_column = new QVBoxLayout;
    help_column->addWidget(Frame1_);
    help_column->addStretch();
    middle->addLayout(help_column, 3);
    outer->addLayout(middle, 1);

    // The level, the language, help and full screen.
    auto* bottom = new QHBoxLayout;
    auto* level_box = new QGroupBox(this);
    auto* level = new QHBoxLayout(level_box);
    Label7_ = new QLabel(level_box);
    Label7_->setObjectName("Label7");
    level->addWidget(Label7_);
    for (int i = 0; i < 3; ++i) {
        auto* choice = new QPushButton(level_box);
        choice->setObjectName(QString("Label6_%1").arg(i));
        choice->setCheckable(true);
        choice->setAutoExclusive(true);
        on_hover(choice, [this, i] {
            tool_->hover_level(i);
            Label10_->setText(qs(tool_->Label10));
        });
        connect(choice, &QPushButton::clicked, this, [this, i] {
            tool_->choose_level(i);
            refresh();
        });
        level->addWidget(choice);
        Label6_[static_cast<std::size_t>(i)] = choice;
    }
    Image1_ = new QLabel(level_box);
    Image1_->setObjectName("Image1");
    Label4_ = new QLabel(level_box);
    Label4_->setObjectName("Label4");
    QFont number = Label4_->font();
    number.setBold(true);
    number.setPointSize(number.pointSize() + 6);
    Label4_->setFont(number);
    level->addSpacing(8);
    level->addWidget(Image1_);
    level->addWidget(Label4_);
    bottom->addWidget(level_box);

    auto* language_box = new QGroupBox(this);
    auto* language = new QHBoxLayout(language_box);
    language_caption_ = new QLabel(language_box);
    language->addWidget(language_caption_);
    for (int i = 0; i < 5; ++i) {
        auto* flag = new QToolButton(language_box);
        flag->setObjectName(QString("Image3_%1").arg(i));
        flag->setIcon(QIcon(flag_picture(i)));
        flag->setIconSize(QSize(33, 22));
        flag->setAutoRaise(true);
        connect(flag, &QToolButton::clicked, this, [this, i] {
            tool_->choose_language(i);
            refresh();
        });
        language->addWidget(flag);
        Image3_[static_cast<std::size_t>(i)] = flag;
    }
    // The fifth flag has no language of its own: a smaller Italian one.
    Image3_[4]->setIconSize(QSize(21, 14));
    Label8_ = new QLabel(language_box);
    Label8_->setObjectName("Label8");
    language->addWidget(Label8_);
    bottom->addWidget(language_box);
    bottom->addStretch();

    Label5_ = new QPushButton("i", this);
    Label5_->setObjectName("Label5");
    Label5_->setFixedSize(34, 34);
    connect(Label5_, &QPushButton::clicked, this, [this] {
        tool_->toggle_help();
        refresh();
    });
    Label11_ = new QPushButton(this);
    Label11_->setObjectName("Label11");
    connect(Label11_, &QPushButton::clicked, this, [this] {
        session_.SCHERMO_INTERO = true;
        Label11_->hide();
        emit full_screen_requested();
    });
    bottom->addWidget(Label5_);
    bottom->addWidget(Label11_);
    outer->addLayout(bottom);

    tool_->load();
    refresh();
}

Form1::~Form1() = default;

void Form1::refresh() {
    const auto& t = session_.texts;
    for (int i = 0; i < 4; ++i)
        captions_[static_cast<std::size_t>(i)]->setText(
            qs(tool_->caption(static_cast<MainMenu::Entry>(i))));
    Label10_->setText(qs(tool_->Label10));
    Frame1_->setTitle(qs(t.text(Text::HELP_TOGGLE)));
    Frame1_->setVisible(session_.AIUTO);
    light_help_button(Label5_, session_.AIUTO);
    Label7_->setText(qs(t.text(Text::LEVEL_CAPTION)));
    for (int i = 0; i < 3; ++i) {
        QPushButton* choice = Label6_[static_cast<std::size_t>(i)];
        choice->setText(qs(t.text(level_name(i + 1))));
        choice->setChecked(session_.LIVELLO == i + 1);
    }
    Label4_->setText(QString::number(session_.LIVELLO));
    Image1_->setPixmap(level_picture(session_.LIVELLO, 32));
    language_caption_->setText(qs(t.text(Text::LANGUAGE_CAPTION)));
    Label8_->setText(qs(tool_->Label8));
    Label11_->setText(qs(t.text(Text::FULL_SCREEN)));
    Label11_->setVisible(!session_.SCHERMO_INTERO);
    Label12_->setText(qs(t.text(Text::VERSION_PREFIX)) + FILO_VERSION);
    show_line_state(label22_, session_.STATO_LINEA, session_.on_line());
    emit changed();
}

void Form1::entry_clicked(int index) {
    tool_->command_clicked();
    switch (index) {
        case MainMenu::OpenProject:
            emit open_requested();
            break;
        case MainMenu::NewProject:
            emit new_project_requested();
            break;
        case MainMenu::Connect:
            if (tool_->connect_clicked()) emit connection_requested();
            refresh();
            break;
        case MainMenu::Exit:
            emit exit_requested();
            break;
        default:
            break;
    }
}

}  // namespace filo::app
