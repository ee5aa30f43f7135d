#include "app/seriale.hpp"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;

SERIALE::SERIALE(Session& session, Connection::PortLister lister, bus::PortOpener opener,
                 QWidget* parent)
    : QDialog(parent), session_(session), tool_(session, std::move(lister), std::move(opener)) {
    setObjectName("SERIALE");
    const auto& t = session_.texts;
    setWindowTitle(qs(t.text(Text::SERIAL_TITLE)));
    setModal(true);
    setMinimumWidth(520);
    auto* outer = new QVBoxLayout(this);
    outer->setSpacing(12);

    auto* automatic = new QGroupBox(this);
    auto* a = new QVBoxLayout(automatic);
    Command4_ = new QPushButton(qs(t.text(Text::SERIAL_AUTOMATIC)), automatic);
    Command4_->setObjectName("Command4");
    Command4_->setIcon(entry_icon(this, "connect"));
    Command4_->setMinimumHeight(36);
    ProgressBar6_ = new QProgressBar(automatic);
    ProgressBar6_->setObjectName("ProgressBar6");
    ProgressBar6_->setValue(0);
    ProgressBar6_->setTextVisible(false);
    a->addWidget(Command4_);
    a->addWidget(ProgressBar6_);
    outer->addWidget(automatic);

    auto* manual = new QGroupBox(this);
    auto* m = new QGridLayout(manual);
    Label3_0_ = new QPushButton(qs(t.text(Text::SERIAL_PORT_LIST)), manual);
    Label3_0_->setObjectName("Label3_0");
    Label3_0_->setFlat(true);
    ComboCOM_ = new QComboBox(manual);
    ComboCOM_->setObjectName("ComboCOM");
    ComboCOM_->setPlaceholderText(qs(t.text(Text::SERIAL_MANUAL)));
    auto* path_prompt = new QLabel(qs(t.text(Text::SERIAL_PATH_PROMPT)), manual);
    Text1_ = new QLineEdit(manual);
    Text1_->setObjectName("Text1");
    Text1_->setPlaceholderText("/dev/ttyUSB0");
    Command2_ = new QPushButton(qs(t.text(Text::SERIAL_USE_PATH)), manual);
    Command2_->setObjectName("Command2");
    m->addWidget(Label3_0_, 0, 0, 1, 2, Qt::AlignLeft);
    m->addWidget(ComboCOM_, 1, 0, 1, 2);
    m->addWidget(path_prompt, 2, 0, 1, 2);
    m->addWidget(Text1_, 3, 0);
    m->addWidget(Command2_, 3, 1);
    outer->addWidget(manual);

    auto* bottom = new QHBoxLayout;
    Label1_ = new QLabel(qs(tool_.Label1), this);
    Label1_->setObjectName("Label1");
    Command1_ = new QPushButton(qs(t.text(Text::SERIAL_EXIT)), this);
    Command1_->setObjectName("Command1");
    bottom->addWidget(Label1_, 1);
    bottom->addWidget(Command1_);
    outer->addLayout(bottom);

    tool_.on_progress = [this](std::size_t index, std::size_t count) {
        ProgressBar6_->setRange(0, static_cast<int>(count));
        ProgressBar6_->setValue(static_cast<int>(index) + 1);
        // The search waits on each port: the window keeps painting.
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    connect(Command4_, &QPushButton::clicked, this, [this] {
        setEnabled(false);
        const bool found = tool_.CONNETTI({Text1_->text().trimmed().toStdString()});
        setEnabled(true);
        Label1_->setText(qs(tool_.Label1));
        if (found) accept();
    });
    connect(ComboCOM_, &QComboBox::activated, this,
            [this](int index) { chosen(ComboCOM_->itemData(index).toString().toStdString()); });
    connect(Command2_, &QPushButton::clicked, this,
            [this] { chosen(Text1_->text().trimmed().toStdString()); });
    connect(Text1_, &QLineEdit::returnPressed, Command2_, &QPushButton::click);
    connect(Label3_0_, &QPushButton::pressed, this,
            [this] { Label3_0_->setText(qs(session_.texts.text(Text::SERIAL_REFRESHING))); });
    connect(Label3_0_, &QPushButton::released, this, [this] {
        refresh_ports();
        Label3_0_->setText(qs(session_.texts.text(Text::SERIAL_PORT_LIST)));
    });
    // ESCI hides the window and changes nothing.
    connect(Command1_, &QPushButton::clicked, this, &QDialog::reject);
    refresh_ports();
    Label1_->setText(qs(session_.STATO_LINEA));
}

void SERIALE::showEvent(QShowEvent* event) {
    refresh_ports();
    Label1_->setText(qs(session_.STATO_LINEA));
    QDialog::showEvent(event);
}

void SERIALE::refresh_ports() {
    tool_.ELENCO_COM();
    ComboCOM_->clear();
    for (const platform::PortInfo& p : tool_.ComboCOM)
        ComboCOM_->addItem(qs(p.caption + "  —  " + p.path), qs(p.path));
    ComboCOM_->setCurrentIndex(-1);
    Label1_->setText(qs(tool_.Label1));
}

void SERIALE::chosen(const std::string& path) {
    const bool open = tool_.choose(path);
    Label1_->setText(qs(tool_.Label1));
    if (open) accept();
}

}  // namespace filo::app
