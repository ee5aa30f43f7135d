// Frame5 of MODULI, the replacement page: the serial of the new hardware
// in Text3, and ANNULLA.
#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QValidator>

#include "app/module_window.hpp"
#include "app/moduli.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"

namespace filo::app {

using texts::Text;

namespace {

// The code set: hexadecimal digits, "a" to "f" made capitals, 8 at most.
class SerialValidator final : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& input, int&) const override {
        input = input.toUpper();
        if (input.size() > 8) return Invalid;
        for (QChar c : input)
            if (!QStringLiteral("0123456789ABCDEF").contains(c)) return Invalid;
        return Acceptable;
    }
};

// With 8 characters in the box no key passes, backspace included: what
// stays there after a refusal is left until ANNULLA.
class FullBoxKeys final : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) return false;
        return static_cast<QLineEdit*>(watched)->text().size() >= 8;
    }
};

}  // namespace

void MODULI::build_replacement_page(QVBoxLayout* outer) {
    const auto& t = session_.texts;
    Frame5_ = new QGroupBox(qs(t.text(Text::MODULE_REPLACE_PROMPT)), this);
    Frame5_->setObjectName("Frame5");
    auto* page = new QVBoxLayout(Frame5_);
    auto* heading = new QLabel(qs(t.text(Text::REPLACE_PAGE_HEADING)), Frame5_);
    QFont large = heading->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.4);
    heading->setFont(large);
    heading->setAlignment(Qt::AlignCenter);
    auto* prompt = new QLabel(qs(t.text(Text::REPLACE_PAGE_PROMPT)), Frame5_);
    prompt->setAlignment(Qt::AlignCenter);
    Text3_ = new QLineEdit(Frame5_);
    Text3_->setObjectName("Text3");
    Text3_->setMaxLength(8);
    Text3_->setValidator(new SerialValidator(Text3_));
    Text3_->installEventFilter(new FullBoxKeys(Text3_));
    QFont serial = Text3_->font();
    serial.setFamily("monospace");
    serial.setPointSizeF(serial.pointSizeF() * 1.6);
    Text3_->setFont(serial);
    Text3_->setAlignment(Qt::AlignCenter);
    Text3_->setFixedWidth(Text3_->fontMetrics().horizontalAdvance("0000000000") + 16);
    connect(Text3_, &QLineEdit::textEdited, this, [this](const QString& s) {
        tool_->Text3_Change(s.toStdString());
        after_action();
    });
    auto* Label15 = new QPushButton(qs(t.text(Text::REPLACE_PAGE_CANCEL)), Frame5_);
    Label15->setObjectName("Label15");
    connect(Label15, &QPushButton::clicked, this, [this] {
        tool_->Label15_Click();
        after_action();
    });
    page->addSpacing(12);
    page->addWidget(heading);
    page->addWidget(prompt);
    page->addSpacing(12);
    page->addWidget(Text3_, 0, Qt::AlignHCenter);
    page->addSpacing(12);
    page->addWidget(Label15, 0, Qt::AlignHCenter);
    page->addSpacing(12);
    outer->addWidget(Frame5_);
    Frame5_->hide();
}

void MODULI::refresh_replacement_page() {
    const ModuleWindow& w = *tool_;
    const bool open = w.page == ModuleWindow::Page::Replace;
    const bool opening = open && !Frame5_->isVisible();
    Frame5_->setVisible(open);
    if (Text3_->text() != qs(w.replacement.Text3)) Text3_->setText(qs(w.replacement.Text3));
    if (opening) Text3_->setFocus();
}

}  // namespace filo::app
