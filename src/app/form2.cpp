#include "app/form2.hpp"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/levels.hpp"
#include "app/main_menu.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;

Form2::Form2(Session& session, QWidget* parent)
    : QWidget(parent), session_(session), tool_(session) {
    setObjectName("Form2");
    const auto& t = session_.texts;
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(24, 18, 24, 12);
    outer->setSpacing(12);

    auto* heading = new QLabel(qs(t.text(Text::NEW_PROJECT_NAME)), this);
    heading->setObjectName("Label1");
    QFont big = heading->font();
    big.setPointSize(big.pointSize() + 8);
    big.setBold(true);
    heading->setFont(big);
    auto* level = new QLabel(
        qs(t.text(Text::LEVEL_CAPTION) + " " + t.text(level_name(session_.LIVELLO))), this);
    level->setObjectName("Label4");
    auto* top = new QHBoxLayout;
    top->addWidget(heading);
    top->addStretch();
    top->addWidget(level);
    outer->addLayout(top);

    auto* prompt = new QLabel(qs(t.text(Text::NEW_PROJECT_PROMPT)), this);
    prompt->setObjectName("Label2");
    outer->addWidget(prompt);
    Text1_ = new QLineEdit(this);
    Text1_->setObjectName("Text1");
    QFont typed = Text1_->font();
    typed.setPointSize(typed.pointSize() + 4);
    Text1_->setFont(typed);
    outer->addWidget(Text1_);

    auto* middle = new QHBoxLayout;
    auto* commands = new QGridLayout;
    static constexpr Text kCaptions[] = {Text::NEW_PROJECT_CREATE, Text::NEW_PROJECT_NOTES,
                                         Text::NEW_PROJECT_EXIT};
    static constexpr Text kHelp[] = {Text::HELP_CREATE, Text::HELP_NOTES,
                                     Text::HELP_BACK_WITHOUT_CREATING};
    static constexpr const char* kIcons[] = {"save", "notes", "back"};
    for (int i = 0; i < 3; ++i) {
        const Command entry = add_command(this, commands, i, QString("Image4_%1").arg(i), kIcons[i],
                                          36, QString("Label%1").arg(5 + i), 3);
        // Held off for a moment, so that the click that opened the window
        // can't also press a command in it.
        entry.button->setEnabled(false);
        entry.caption->setText(qs(t.text(kCaptions[i])));
        on_hover(entry.button, [this, i] {
            if (session_.AIUTO) Label10_->setText(qs(session_.texts.text(kHelp[i])));
        });
        Image4_[static_cast<std::size_t>(i)] = entry.button;
    }
    commands->setRowStretch(3, 1);
    middle->addLayout(commands, 2);
    auto* frame = new QGroupBox(qs(t.text(Text::HELP_TOGGLE)), this);
    frame->setObjectName("Frame1");
    Label10_ = add_help_label(frame, "Label10");
    Label10_->setText(qs(t.text(Text::HELP_CREATE)));
    Label10_->setMinimumHeight(120);
    auto* help_column = new QVBoxLayout;
    help_column->addWidget(frame);
    help_column->addStretch();
    middle->addLayout(help_column, 3);
    outer->addLayout(middle, 1);

    connect(Image4_[0], &QToolButton::clicked, this, [this] {
        if (tool_.create(Text1_->text().toStdString())) emit project_created();
    });
    connect(Image4_[1], &QToolButton::clicked, this, [this] {
        session_.message(Text::NOT_YET_AVAILABLE, Text::TITLE_WARNING, {},
                         session_.texts[Text::NEW_PROJECT_NOTES]);
    });
    connect(Image4_[2], &QToolButton::clicked, this, &Form2::exit_requested);
    connect(Text1_, &QLineEdit::returnPressed, Image4_[0], &QToolButton::click);

    Timer1_ = new QTimer(this);
    Timer1_->setObjectName("Timer1");
    Timer1_->setSingleShot(true);
    connect(Timer1_, &QTimer::timeout, this, [this] {
        for (QToolButton* b : Image4_) b->setEnabled(true);
    });
    Timer1_->start(300);
    tool_.load();
}

}  // namespace filo::app
