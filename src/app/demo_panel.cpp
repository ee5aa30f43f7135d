#include "app/demo_panel.hpp"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include "app/demo.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;

DemoPanel::DemoPanel(Session& session, Demo& demo, QWidget* parent) : QDialog(parent), demo_(demo) {
    setObjectName("DemoPanel");
    setWindowTitle(qs(session.texts.text(Text::DEMO_PRESS)));
    const auto& t = session.texts;
    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(qs(t.text(Text::DEMO_MODULE)), this), 0, 0);
    modules_ = new QComboBox(this);
    modules_->setObjectName("modules");
    for (const std::string& code : demo.module_codes()) modules_->addItem(qs(code));
    grid->addWidget(modules_, 0, 1);
    grid->addWidget(new QLabel(qs(t.text(Text::DEMO_INPUT)), this), 1, 0);
    input_ = new QSpinBox(this);
    input_->setObjectName("input");
    input_->setRange(1, 8);
    grid->addWidget(input_, 1, 1);
    auto* press = new QPushButton(qs(t.text(Text::DEMO_PRESS_BUTTON)), this);
    press->setObjectName("press");
    auto* release = new QPushButton(qs(t.text(Text::DEMO_RELEASE_BUTTON)), this);
    release->setObjectName("release");
    grid->addWidget(press, 2, 0);
    grid->addWidget(release, 2, 1);
    error_ = new QLabel(this);
    grid->addWidget(error_, 3, 0, 1, 2);
    connect(press, &QPushButton::clicked, this, [this] { send("press"); });
    connect(release, &QPushButton::clicked, this, [this] { send("release"); });
}

void DemoPanel::send(const char* verb) {
    const std::string line = std::string(verb) + " " + modules_->currentText().toStdString() + " " +
                             std::to_string(input_->value());
    error_->setText(qs(demo_.control(line)));
}

}  // namespace filo::app
