#include "app/mdi_form1.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>

#include "app/clone_dialog.hpp"
#include "app/export_dialog.hpp"
#include "app/form1.hpp"
#include "app/form2.hpp"
#include "app/form3.hpp"
#include "app/form4.hpp"
#include "app/levels.hpp"
#include "app/main_menu.hpp"
#include "app/project_hub.hpp"
#include "app/seriale.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "bus/receive_assembler.hpp"

namespace filo::app {

using texts::Text;

AppServices system_services() {
    AppServices s;
    s.list_ports = platform::list_serial_ports;
    s.open_port = platform::open_serial_port;
    s.choose_project_file = [](QWidget* parent, const QString& directory, const QString& title) {
        return QFileDialog::getOpenFileName(parent, title, directory,
                                            "*.TRN (*.TRN *.trn);;*.mdb (*.mdb *.MDB)");
    };
    s.exec_dialog = [](QDialog& dialog) { return dialog.exec(); };
    return s;
}

MDIForm1::MDIForm1(Session& session, AppServices services, QWidget* parent)
    : QMainWindow(parent), session_(session), services_(std::move(services)) {
    setObjectName("MDIForm1");
    setWindowTitle("Filo");
    stack_ = new QStackedWidget(this);
    setCentralWidget(stack_);
    line_state_ = new QLabel(this);
    line_state_->setObjectName("line_state");
    level_state_ = new QLabel(this);
    statusBar()->addPermanentWidget(level_state_);
    statusBar()->addPermanentWidget(line_state_);
    build_menu();
    session_.receiver.flags.RX_SOSPESO = "NO";
    resize(1100, 720);
    show_main_menu();
}

void MDIForm1::build_menu() {
    project_menu_ = menuBar()->addMenu(QString());
    line_menu_ = menuBar()->addMenu(QString());
    // The captions follow the language: the menus are filled when shown.
    connect(project_menu_, &QMenu::aboutToShow, this, [this] {
        const auto& t = session_.texts;
        project_menu_->clear();
        const bool in_menu = form1() != nullptr;
        project_menu_
            ->addAction(qs(t.text(Text::MENU_OPEN_PROJECT)), this, &MDIForm1::open_project_dialog)
            ->setEnabled(in_menu);
        project_menu_
            ->addAction(qs(t.text(Text::MENU_NEW_PROJECT)), this, &MDIForm1::show_new_project)
            ->setEnabled(in_menu);
        project_menu_
            ->addAction(qs(t.text(Text::BACK_TO_START)), this,
                        [this] {
                            if (Form3* f = form3()) f->tool().menu_click(ProjectHub::BackToStart);
                        })
            ->setEnabled(form3() != nullptr);
        project_menu_->addSeparator();
        project_menu_->addAction(qs(t.text(Text::MENU_EXIT)), this, &QWidget::close);
    });
    connect(line_menu_, &QMenu::aboutToShow, this, [this] {
        const auto& t = session_.texts;
        line_menu_->clear();
        line_menu_->addAction(qs(t.text(Text::MENU_CONNECTION)), this, &MDIForm1::show_connection);
        line_menu_->addAction(qs(t.text(Text::PROGRAM_INSTALLATION)), this, [this] {
            if (Form3* f = form3())
                f->tool().menu_click(ProjectHub::Program);
            else
                session_.message(Text::PROJECT_NOT_OPEN, Text::TITLE_WARNING);
        });
    });
    refresh_status();
}

void MDIForm1::refresh_status() {
    const auto& t = session_.texts;
    project_menu_->setTitle(qs(t.text(Text::PROJECT_WORD)));
    line_menu_->setTitle(qs(t.text(Text::LINE_MENU)));
    line_state_->setText(qs(session_.STATO_LINEA));
    level_state_->setText(
        qs(t.text(Text::LEVEL_CAPTION) + " " + t.text(level_name(session_.LIVELLO))));
}

QWidget* MDIForm1::current_form() const {
    return form_;
}

Form1* MDIForm1::form1() const {
    return qobject_cast<Form1*>(form_.data());
}

Form3* MDIForm1::form3() const {
    return qobject_cast<Form3*>(form_.data());
}

void MDIForm1::set_form(QWidget* form) {
    // The next form shows before the last one goes, which may be inside one
    // of its own handlers: it is deleted once that has returned.
    QWidget* old = form_;
    stack_->addWidget(form);
    stack_->setCurrentWidget(form);
    form_ = form;
    if (old) {
        stack_->removeWidget(old);
        old->hide();
        old->deleteLater();
    }
    refresh_status();
}

void MDIForm1::show_main_menu() {
    setWindowTitle("Filo");
    auto* form = new Form1(session_);
    connect(form, &Form1::open_requested, this, &MDIForm1::open_project_dialog);
    connect(form, &Form1::new_project_requested, this, &MDIForm1::show_new_project);
    connect(form, &Form1::connection_requested, this, &MDIForm1::show_connection);
    connect(form, &Form1::exit_requested, this, [this] {
        session_.close_port();
        session_.PROGETTO_CHIUSO = "SI";
        close();
    });
    connect(form, &Form1::full_screen_requested, this, &QWidget::showFullScreen);
    // The language and the level are chosen there: the main window follows.
    connect(form, &Form1::changed, this, &MDIForm1::refresh_status);
    set_form(form);
}

void MDIForm1::show_new_project() {
    auto* form = new Form2(session_);
    connect(form, &Form2::exit_requested, this, &MDIForm1::show_main_menu);
    connect(form, &Form2::project_created, this, &MDIForm1::show_project);
    set_form(form);
}

bool MDIForm1::show_project() {
    HubHost host;
    host.show_connection = [this] { show_connection(); };
    host.show_programming = [this] { open_programming(); };
    host.show_main_menu = [this] { show_main_menu(); };
    host.show_clone = [this] { MACRO(session_, this).exec(); };
    host.show_export = [this] { FrmMain(session_, this).exec(); };
    auto* form = new Form3(session_, std::move(host));
    connect(form, &Form3::caption_changed, this, &QWidget::setWindowTitle);
    if (!form->load()) {
        delete form;
        if (!form1()) show_main_menu();
        return false;
    }
    set_form(form);
    return true;
}

void MDIForm1::open_project_dialog() {
    const QString file =
        services_.choose_project_file(this, qs(session_.data_directory().string()),
                                      qs(session_.texts.text(Text::OPEN_DIALOG_TITLE)));
    if (file.isEmpty()) return;
    Form1* menu = form1();
    if (!menu || !menu->tool().open_project(file.toStdString())) return;
    show_project();
}

void MDIForm1::show_connection() {
    SERIALE dialog(session_, services_.list_ports, services_.open_port, this);
    services_.exec_dialog(dialog);
    if (Form1* f = form1()) f->refresh();
    if (Form3* f = form3()) f->refresh();
    refresh_status();
}

void MDIForm1::open_programming() {
    Form3* hub = form3();
    if (!hub || stack_->findChild<Form4*>()) return;
    // Form4 covers the project window, which stays loaded beneath it; the
    // menus wait, as the run owns the line until the window closes.
    auto* form = new Form4(session_);
    stack_->addWidget(form);
    stack_->setCurrentWidget(form);
    menuBar()->setEnabled(false);
    connect(form, &Form4::closed, this, [this, form] {
        menuBar()->setEnabled(true);
        if (Form3* f = form3()) {
            stack_->setCurrentWidget(f);
            f->load();
        }
        stack_->removeWidget(form);
        form->deleteLater();
        refresh_status();
    });
    form->load();
}

void MDIForm1::port_lost(const QString& what) {
    session_.close_port();
    session_.message(Text::PORT_LOST, Text::TITLE_WARNING, {}, what.toStdString());
    if (Form1* f = form1()) f->refresh();
    if (Form3* f = form3()) f->refresh();
    refresh_status();
}

void MDIForm1::closeEvent(QCloseEvent* event) {
    // The project window must be left first, by its own command.
    if (session_.PROGETTO_CHIUSO == "NO") {
        event->ignore();
        return;
    }
    session_.close_port();
    event->accept();
}

}  // namespace filo::app
