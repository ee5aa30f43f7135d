#include "app/view_helpers.hpp"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>
#include <string>

namespace filo::app {

QString qs(const std::string& text) {
    return QString::fromStdString(text);
}

QPixmap flag_picture(int index, int height) {
    const int width = height * 3 / 2;
    QPixmap pixmap(width, height);
    QPainter p(&pixmap);
    auto vertical = [&](QColor a, QColor b, QColor c) {
        const int third = width / 3;
        p.fillRect(0, 0, third, height, a);
        p.fillRect(third, 0, third, height, b);
        p.fillRect(2 * third, 0, width - 2 * third, height, c);
    };
    auto horizontal = [&](QColor a, QColor b, QColor c, int middle_share) {
        const int band = height * (100 - middle_share) / 200;
        p.fillRect(0, 0, width, band, a);
        p.fillRect(0, band, width, height - 2 * band, b);
        p.fillRect(0, height - band, width, band, c);
    };
    switch (index) {
        case 1:
            horizontal(QColor(0xAA151B), QColor(0xF1BF00), QColor(0xAA151B), 50);
            break;
        case 2:
            vertical(QColor(0x002395), Qt::white, QColor(0xED2939));
            break;
        case 3:
            horizontal(Qt::black, QColor(0xDD0000), QColor(0xFFCE00), 34);
            break;
        default:
            vertical(QColor(0x009246), Qt::white, QColor(0xCE2B37));
            break;
    }
    p.setPen(QColor(0x606060));
    p.drawRect(0, 0, width - 1, height - 1);
    return pixmap;
}

QPixmap level_picture(int level, int height) {
    QPixmap pixmap(height, height);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const int bar = height / 4;
    for (int i = 0; i < 3; ++i) {
        const int h = height * (i + 1) / 3;
        const QRect r(i * (bar + bar / 3) + 2, height - h, bar, h);
        p.setPen(Qt::NoPen);
        p.setBrush(i < level ? QColor(0x2E7D32) : QColor(0xC8C8C8));
        p.drawRoundedRect(r, 2, 2);
    }
    return pixmap;
}

QIcon entry_icon(const QWidget* widget, const char* name) {
    const std::string n = name;
    QStyle* s = widget->style();
    if (n == "open") return s->standardIcon(QStyle::SP_DialogOpenButton);
    if (n == "new") return s->standardIcon(QStyle::SP_FileDialogNewFolder);
    if (n == "connect") return s->standardIcon(QStyle::SP_DriveNetIcon);
    if (n == "exit") return s->standardIcon(QStyle::SP_DialogCloseButton);
    if (n == "add") return s->standardIcon(QStyle::SP_FileIcon);
    if (n == "edit") return s->standardIcon(QStyle::SP_FileDialogDetailedView);
    if (n == "link") return s->standardIcon(QStyle::SP_CommandLink);
    if (n == "utility") return s->standardIcon(QStyle::SP_FileDialogListView);
    if (n == "program") return s->standardIcon(QStyle::SP_ArrowDown);
    if (n == "back") return s->standardIcon(QStyle::SP_ArrowBack);
    if (n == "print") return s->standardIcon(QStyle::SP_FileDialogContentsView);
    if (n == "scan") return s->standardIcon(QStyle::SP_BrowserReload);
    if (n == "export") return s->standardIcon(QStyle::SP_DialogSaveButton);
    if (n == "wizard") return s->standardIcon(QStyle::SP_DialogHelpButton);
    if (n == "save") return s->standardIcon(QStyle::SP_DialogApplyButton);
    if (n == "notes") return s->standardIcon(QStyle::SP_FileDialogInfoView);
    return s->standardIcon(QStyle::SP_MessageBoxInformation);
}

namespace {

class CaptionClick final : public QObject {
  public:
    CaptionClick(QLabel* caption, QAbstractButton* button) : QObject(caption), button_(button) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonRelease && button_->isEnabled()) {
            button_->click();
            return true;
        }
        if (event->type() == QEvent::Enter) QCoreApplication::sendEvent(button_, event);
        return QObject::eventFilter(watched, event);
    }

  private:
    QAbstractButton* button_;
};

class HoverFilter final : public QObject {
  public:
    HoverFilter(QWidget* widget, std::function<void()> f) : QObject(widget), f_(std::move(f)) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Enter) f_();
        return QObject::eventFilter(watched, event);
    }

  private:
    std::function<void()> f_;
};

}  // namespace

void on_hover(QWidget* widget, std::function<void()> f) {
    widget->installEventFilter(new HoverFilter(widget, std::move(f)));
}

void pair_caption(QLabel* caption, QAbstractButton* button) {
    caption->installEventFilter(new CaptionClick(caption, button));
    caption->setCursor(Qt::PointingHandCursor);
    button->setCursor(Qt::PointingHandCursor);
}

Command add_command(QWidget* parent, QGridLayout* grid, int row, const QString& button_name,
                    const char* icon, int icon_size, const QString& caption_name, int larger_by) {
    auto* button = new QToolButton(parent);
    button->setObjectName(button_name);
    button->setIcon(entry_icon(parent, icon));
    button->setIconSize(QSize(icon_size, icon_size));
    button->setAutoRaise(true);
    auto* caption = new QLabel(parent);
    caption->setObjectName(caption_name);
    if (larger_by != 0) {
        QFont f = caption->font();
        f.setPointSize(f.pointSize() + larger_by);
        caption->setFont(f);
    }
    pair_caption(caption, button);
    grid->addWidget(button, row, 0);
    grid->addWidget(caption, row, 1);
    return {button, caption};
}

QLabel* add_help_label(QGroupBox* frame, const char* name) {
    auto* layout = new QVBoxLayout(frame);
    auto* label = new QLabel(frame);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    layout->addWidget(label);
    return label;
}

void show_line_state(QLabel* label, const std::string& state, bool on_line) {
    label->setText(qs(state));
    label->setStyleSheet(on_line ? "color: #1B5E20; background: #C8E6C9;"
                                 : "color: #6D4C00; background: #FFF59D;");
}

void light_help_button(QPushButton* button, bool on) {
    button->setStyleSheet(on ? "background: #F5D000; font-weight: bold;" : "font-weight: bold;");
}

}  // namespace filo::app
