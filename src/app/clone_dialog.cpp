#include "app/clone_dialog.hpp"

#include <QEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/clone_window.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "exchange/clone_job.hpp"

namespace filo::app {

using texts::Text;

namespace {

QPushButton* button(QWidget* parent, const char* name, const std::string& caption) {
    auto* b = new QPushButton(qs(caption), parent);
    b->setObjectName(name);
    return b;
}

}  // namespace

MACRO::MACRO(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), tool_(std::make_unique<CloneWindow>(session)) {
    setObjectName("MACRO");
    setModal(true);
    const texts::LanguageTables& t = session.texts;
    auto* outer = new QHBoxLayout(this);

    auto* buttons = new QVBoxLayout;
    Image1_1_ = button(this, "Image1_1", t.text(Text::CLONE_IMPORT));
    Image1_2_ = button(this, "Image1_2", t.text(Text::CLONE_RUN));
    Image1_3_ = button(this, "Image1_3", t.text(Text::CLONE_SET_NAME));
    Image1_8_ = button(this, "Image1_8", t.text(Text::CLONE_EXIT));
    // DISPONI_BOTTONI: the visible buttons stacked from the top.
    for (QPushButton* b : {Image1_1_, Image1_2_, Image1_3_, Image1_8_}) buttons->addWidget(b);
    buttons->addStretch();
    outer->addLayout(buttons);

    auto* right = new QVBoxLayout;
    Label2_ = new QLabel(this);
    Label2_->setObjectName("Label2");
    right->addWidget(Label2_);

    Frame4_ = new QGroupBox(qs(t.text(Text::CLONE_GROUP_FRAME)), this);
    Frame4_->setObjectName("Frame4");
    auto* name_row = new QHBoxLayout(Frame4_);
    Text2_ = new QLineEdit(Frame4_);
    Text2_->setObjectName("Text2");
    Label15_ = button(Frame4_, "Label15", t.text(Text::CLONE_EXIT_BLANK));
    name_row->addWidget(Text2_, 1);
    name_row->addWidget(Label15_);
    right->addWidget(Frame4_);

    Frame1_ = new QGroupBox(this);
    Frame1_->setObjectName("Frame1");
    auto* frame1 = new QVBoxLayout(Frame1_);
    auto* number_row = new QHBoxLayout;
    Label4_ = new QLabel(Frame1_);
    Label4_->setObjectName("Label4");
    Text3_ = new QLineEdit(Frame1_);
    Text3_->setObjectName("Text3");
    Text3_->setMaxLength(5);
    number_row->addWidget(Label4_);
    number_row->addWidget(Text3_);
    number_row->addStretch();
    frame1->addLayout(number_row);
    VScroll1_ = new QScrollArea(Frame1_);
    VScroll1_->setObjectName("VScroll1");
    VScroll1_->setWidgetResizable(true);
    auto* rows = new QWidget(VScroll1_);
    rows_grid_ = new QGridLayout(rows);
    rows_grid_->setAlignment(Qt::AlignTop);
    VScroll1_->setWidget(rows);
    frame1->addWidget(VScroll1_, 1);
    right->addWidget(Frame1_, 1);

    List1_ = new QListWidget(this);
    List1_->setObjectName("List1");
    List1_->hide();
    Frame7_ = new QGroupBox(this);
    Frame7_->setObjectName("Frame7");
    auto* progress = new QHBoxLayout(Frame7_);
    Label7_ = new QLabel(Frame7_);
    Label7_->setObjectName("Label7");
    progress->addWidget(Label7_);
    right->addWidget(Frame7_);
    Label10_ = new QLabel(this);
    Label10_->setObjectName("Label10");
    right->addWidget(Label10_);
    outer->addLayout(right, 1);

    connect(Image1_1_, &QPushButton::clicked, this, [this] { SCEGLI_CAMPIONE(); });
    connect(Image1_2_, &QPushButton::clicked, this, [this] {
        tool_->Text3_Change(Text3_->text().toStdString());
        tool_->ESEGUI_CLONE([this] {
            refresh();
            Frame7_->repaint();
        });
        Text3_->setText(qs(tool_->Text3));
        refresh();
    });
    connect(Image1_3_, &QPushButton::clicked, this, [this] {
        tool_->Image1_3_Click();
        refresh();
    });
    connect(Image1_8_, &QPushButton::clicked, this, &QDialog::accept);
    connect(Text2_, &QLineEdit::textEdited, this, [this](const QString& text) {
        // Text2_KeyPress: characters the name doesn't take are dropped.
        std::string s = text.toStdString();
        for (std::string bad; !(bad = exchange::refused_group_character(s)).empty();)
            s.erase(s.find(bad), bad.size());
        if (s != text.toStdString()) Text2_->setText(qs(s));
        tool_->Text2_Change(s);
        refresh();
    });
    connect(Label15_, &QPushButton::clicked, this, [this] {
        if (tool_->Label15 != session_.texts.text(Text::CLONE_ACCEPT)) {
            accept();
            return;
        }
        tool_->Label15_Click();
        refresh();
        Text3_->setFocus();
    });
    connect(Text3_, &QLineEdit::textEdited, this, [this](const QString& text) {
        QString digits;
        for (QChar c : text)
            if (c.isDigit()) digits += c;
        if (digits != text) Text3_->setText(digits);
        tool_->Text3_Change(digits.toStdString());
    });
    tool_->Form_Load();
    refresh();
    resize(760, 520);
}

MACRO::~MACRO() = default;

void MACRO::choose_sample(const std::string& file) {
    tool_->SCEGLI_CAMPIONE(file);
    rebuild_rows();
    refresh();
    if (tool_->Frame4) Text2_->setFocus();
}

void MACRO::SCEGLI_CAMPIONE() {
    const QString file = QFileDialog::getOpenFileName(
        this, qs(session_.texts.text(Text::OPEN_DIALOG_TITLE)),
        QString::fromStdString(session_.data_directory().string()), "*.mdb (*.mdb);;*.TRN (*.TRN)");
    choose_sample(file.toStdString());
}

void MACRO::rebuild_rows() {
    for (QLineEdit* e : Text1_) delete e;
    for (QLabel* l : row_labels_) delete l;
    Text1_.clear();
    row_labels_.clear();
    List1_->clear();
    QWidget* holder = VScroll1_->widget();
    for (int i = 0; i < tool_->N_RIGHE_CLONE(); ++i) {
        const CloneWindow::Row& r = tool_->rows[static_cast<std::size_t>(i)];
        List1_->addItem(qs(r.Label1));
        int column = 0;
        for (const char* name : {"Label6", "Label1", "Label3"}) {
            auto* l = new QLabel(holder);
            l->setObjectName(QString("%1_%2").arg(name).arg(i));
            rows_grid_->addWidget(l, i, column++);
            row_labels_.push_back(l);
        }
        auto* box = new QLineEdit(holder);
        box->setObjectName(QString("Text1_%1").arg(i));
        rows_grid_->addWidget(box, i, column);
        Text1_.push_back(box);
        box->installEventFilter(this);
        connect(box, &QLineEdit::textEdited, this, [this, i](const QString& text) {
            std::string s;
            for (char c : text.toStdString())
                if (char k = CloneWindow::Text1_KeyPress(c, s.size())) s += k;
            tool_->Text1_Change(i, s);
            refresh();
            if (tool_->next_focus >= 0)
                Text1_[static_cast<std::size_t>(tool_->next_focus)]->setFocus();
        });
    }
}

bool MACRO::eventFilter(QObject* watched, QEvent* event) {
    // Text1_Click and Text1_GotFocus alike.
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress) {
        for (std::size_t i = 0; i < Text1_.size(); ++i)
            if (Text1_[i] == watched) {
                tool_->Text1_GotFocus(static_cast<int>(i));
                refresh();
            }
    }
    return QDialog::eventFilter(watched, event);
}

void MACRO::refresh() {
    Image1_2_->setVisible(tool_->Image1_2);
    Image1_3_->setVisible(tool_->Image1_3);
    Label2_->setText(qs(tool_->Label2));
    Frame4_->setVisible(tool_->Frame4);
    Label15_->setText(qs(tool_->Label15));
    Frame1_->setVisible(tool_->Frame1);
    Label4_->setText(qs(tool_->Label4));
    Frame7_->setVisible(tool_->Frame7);
    Label7_->setText(qs(tool_->Label7));
    Label10_->setText(qs(tool_->Label10));
    VScroll1_->setVerticalScrollBarPolicy(tool_->VScroll1 ? Qt::ScrollBarAlwaysOn
                                                          : Qt::ScrollBarAsNeeded);
    for (std::size_t i = 0; i < Text1_.size() && i < tool_->rows.size(); ++i) {
        const CloneWindow::Row& r = tool_->rows[i];
        row_labels_[i * 3]->setText(qs(r.Label6));
        row_labels_[i * 3 + 1]->setText(qs(r.Label1));
        row_labels_[i * 3 + 2]->setText(qs(r.Label3));
        if (Text1_[i]->text() != qs(r.Text1)) Text1_[i]->setText(qs(r.Text1));
        Text1_[i]->setStyleSheet(r.green ? "background: #00FF00;" : "");
    }
}

}  // namespace filo::app
