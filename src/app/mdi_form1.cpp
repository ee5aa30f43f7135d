#include "app/mdi_form1.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>

#include "app/clone_dialog.hpp"
#include "app/export_dialog.hpp"
#include "app/form1.hpp"
#include "app/form11.hpp"
#include "app/form2.hpp"
#include "app/form3.hpp"
#include "app/form18.hpp"
#include "app/form4.hpp"
#include "app/form9.hpp"
#include "app/form8.hpp"
#include "app/levels.hpp"
#include "app/main_menu.hpp"
#include "app/moduli.hpp"
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
    translations_.use(t.language());
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
        exit_requested_ = true;
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
    host.show_module = [this](bool wait) { open_module({}, 0, ModuleOpener::ProjectWindow, {}, wait); };
    host.show_link_editor = [this] { open_link_editor(); };
    host.show_monitor = [this] { show_monitor(); };
    host.show_main_menu = [this] { show_main_menu(); };
    host.show_report = [this](int n) { open_report(n); };
    host.close_report = [this] { close_report(); };
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

Form8* MDIForm1::monitor() const {
    return monitor_;
}

void MDIForm1::show_monitor() {
    // Loaded once and kept, so that its state lasts while it is hidden.
    if (!monitor_) monitor_ = new Form8(session_, this);
    monitor_->load();
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
    connect(form, &Form4::connection_requested, this, &MDIForm1::show_connection);
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

void MDIForm1::open_module(const std::string& code, int PUNTO_EVIDENZIATO, ModuleOpener opener,
                           std::function<void()> on_close, bool wait) {
    if (module_ || panel_) return;  // one module at a time
    if (!code.empty()) {
        session_.modules.CODICE_MODULO = code;
        session_.modules.TIPO_MODULO = code.substr(4, 2);
        session_.modules.VERIFICA_MODULO(code);
    }
    if (session_.modules.TIPO_MODULO == "1E") {
        open_panel(std::move(on_close), wait);
        return;
    }
    auto* form = new MODULI(session_);
    module_ = form;
    show_until_closed(form, std::move(on_close));
    form->load(PUNTO_EVIDENZIATO, opener);
    if (wait) wait_until_closed(form);
}

void MDIForm1::open_panel(std::function<void()> on_close, bool wait) {
    auto* form = new Form11(session_);
    panel_ = form;
    show_until_closed(form, std::move(on_close));
    form->load();
    if (wait) wait_until_closed(form);
}

// A module's window over the current one until it closes: the menu waits, the
// window under it comes back, the project window shows the module as saved
// (its Form_Load again), then on_close.
template <class Form>
void MDIForm1::show_until_closed(Form* form, std::function<void()> on_close) {
    QPointer<QWidget> under = stack_->currentWidget();
    stack_->addWidget(form);
    stack_->setCurrentWidget(form);
    menuBar()->setEnabled(false);
    connect(form, &Form::closed, this, [this, form, under, on_close = std::move(on_close)] {
        module_.clear();
        panel_.clear();
        menuBar()->setEnabled(true);
        if (under) stack_->setCurrentWidget(under);
        stack_->removeWidget(form);
        form->deleteLater();
        if (Form3* f = form3(); f && f == under) f->load();
        if (on_close) on_close();
        refresh_status();
    });
}

template <class Form>
void MDIForm1::wait_until_closed(Form* form) {
    if (stack_->indexOf(form) < 0) return;  // it closed while loading
    QEventLoop loop;
    connect(form, &Form::closed, &loop, &QEventLoop::quit);
    loop.exec();
}

Form11* MDIForm1::panel_window() const {
    return panel_;
}

MODULI* MDIForm1::module_window() const {
    return module_;
}

void MDIForm1::open_link_editor() {
    Form3* hub = form3();
    if (!hub || stack_->findChild<Form9*>()) return;
    // Form9 covers the project window; a point's module opens over it, and
    // the editor comes back to the fore when the module window closes.
    LinkEditorHost host;
    host.open_module = [this](const std::string& codice, int PUNTO_EVIDENZIATO) {
        // The editor waits for the module window, then reads its lists again.
        open_module(codice, PUNTO_EVIDENZIATO, ModuleOpener::LinkEditor, [this] {
            if (Form9* editor = stack_->findChild<Form9*>()) {
                editor->tool().module_closed();
                editor->refresh();
            }
        }, true);
    };
    host.show_hub = [this] {
        Form9* form = stack_->findChild<Form9*>();
        if (!form) return;
        if (Form3* f = form3()) {
            stack_->setCurrentWidget(f);
            f->load();
        }
        stack_->removeWidget(form);
        form->deleteLater();
        refresh_status();
    };
    auto* form = new Form9(session_, std::move(host));
    stack_->addWidget(form);
    stack_->setCurrentWidget(form);
    form->load();
}

void MDIForm1::open_report(int numero_report) {
    close_report();
    auto* form = new Form18(session_, this);
    form->setWindowFlag(Qt::Window);
    form->setAttribute(Qt::WA_DeleteOnClose);
    connect(form, &Form18::closed, form, &QWidget::close);
    if (!form->load(numero_report)) {
        delete form;
        return;
    }
    report_ = form;
    form->resize(900, 1000);
    form->show();
}

void MDIForm1::close_report() {
    if (report_) report_->close();
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
    // The main menu is left only through its own commands.
    if (session_.PROGETTO_CHIUSO == "NO" || (form1() && !exit_requested_)) {
        event->ignore();
        return;
    }
    session_.close_port();
    event->accept();
}

}  // namespace filo::app
