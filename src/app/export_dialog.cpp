#include "app/export_dialog.hpp"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;

FrmMain::FrmMain(Session& session, QWidget* parent) : QDialog(parent), tool_(session) {
    setObjectName("FrmMain");
    setModal(true);
    const texts::LanguageTables& t = session.texts;
    auto* outer = new QVBoxLayout(this);
    auto* frame = new QGroupBox(qs(t.text(Text::EXPORT_DEBUG_FRAME)), this);
    frame->setObjectName("Frame1");
    auto* in_frame = new QVBoxLayout(frame);
    List2_ = new QListWidget(frame);
    List2_->setObjectName("List2");
    in_frame->addWidget(List2_);
    outer->addWidget(frame, 1);
    ProgressBar1_ = new QProgressBar(this);
    ProgressBar1_->setObjectName("ProgressBar1");
    ProgressBar1_->setRange(0, 100);
    outer->addWidget(ProgressBar1_);
    auto* buttons = new QHBoxLayout;
    Command1_ = new QPushButton(qs(t.text(Text::EXPORT_START)), this);
    Command1_->setObjectName("Command1");
    Command3_ = new QPushButton(qs(t.text(Text::EXPORT_CARDS_ONLY)), this);
    Command3_->setObjectName("Command3");
    Command2_ = new QPushButton(qs(t.text(Text::EXPORT_EXIT)), this);
    Command2_->setObjectName("Command2");
    for (QPushButton* b : {Command1_, Command3_, Command2_}) buttons->addWidget(b);
    outer->addLayout(buttons);

    connect(Command1_, &QPushButton::clicked, this, [this] {
        int shown = -1;
        tool_.Command1_Click([this, &shown] {
            // Repaint once a per cent: a large project has tens of thousands of rows.
            if (tool_.percent == shown) return;
            shown = tool_.percent;
            refresh();
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
        refresh();
        if (tool_.closed) accept();
    });
    connect(Command3_, &QPushButton::clicked, this, [this] {
        tool_.Command3_Click();
        refresh();
    });
    connect(Command2_, &QPushButton::clicked, this, [this] {
        tool_.Command2_Click();
        accept();
    });
    tool_.Form_Load();
    refresh();
    resize(520, 360);
}

void FrmMain::refresh() {
    setWindowTitle(qs(tool_.caption));
    Command1_->setEnabled(tool_.Command1);
    List2_->clear();
    for (const std::string& line : tool_.List2) List2_->addItem(qs(line));
    if (tool_.List2_selected >= 0) List2_->setCurrentRow(tool_.List2_selected);
    ProgressBar1_->setValue(tool_.percent);
}

}  // namespace filo::app
