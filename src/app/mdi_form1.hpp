#pragma once
// MDIForm1, the main window: it stays for the whole run and shows one form
// at a time (the main menu, the new project, the project window).
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <string>

#include "app/connection.hpp"
#include "app/module_opener.hpp"
#include "app/qt_translations.hpp"

class QDialog;
class QLabel;
class QMenu;
class QStackedWidget;

namespace filo::app {

class Session;
class Form1;
class Form2;
class Form3;
class MODULI;
class Form11;
class Form8;
class Form18;

// What the main window needs from the world; tests replace the modal steps.
struct AppServices {
    Connection::PortLister list_ports;
    bus::PortOpener open_port;
    // The open dialog: the file chosen, "" when none.
    std::function<QString(QWidget* parent, const QString& directory, const QString& title)>
        choose_project_file;
    // Runs a modal dialog to its end.
    std::function<int(QDialog&)> exec_dialog;
};
// The services of a real run: system ports, file dialog, modal exec.
AppServices system_services();

class MDIForm1 final : public QMainWindow {
    Q_OBJECT
  public:
    MDIForm1(Session& session, AppServices services, QWidget* parent = nullptr);

    void show_main_menu();
    void show_new_project();
    // The project window on the project named in the session; false (and the
    // main menu) when it can't be opened.
    bool show_project();
    // SERIALE, modal; the windows show the line's state after it.
    void show_connection();
    // Form4, the programming window, over the project window; its run
    // starts by itself.
    void open_programming();
    // MODULI (Form11 for a panel interface) over the current form, which
    // shows again when it closes. With a
    // code, the stored module of that code (VERIFICA_MODULO); without, the
    // module that the session's table has prepared. PUNTO_EVIDENZIATO: the
    // point shown highlighted (1-8 inputs, 9-16 outputs). on_close runs once
    // the window has gone; with `wait` the call returns only then.
    void open_module(const std::string& code = {}, int PUNTO_EVIDENZIATO = 0,
                     ModuleOpener opener = ModuleOpener::ProjectWindow,
                     std::function<void()> on_close = {}, bool wait = false);
    // The module window while it is open, else null.
    MODULI* module_window() const;
    // Form11, the panel interface's window, while it is open, else null.
    Form11* panel_window() const;
    // Form9, the link editor, over the project window.
    void open_link_editor();
    // Form8, the line monitor, beside the project window.
    void show_monitor();
    Form8* monitor() const;
    // Form18 beside the project window with one of the five reports; a
    // report already shown goes first.
    void open_report(int numero_report);
    void close_report();
    // The port was lost under a running operation.
    void port_lost(const QString& what);

    QWidget* current_form() const;
    Form1* form1() const;
    Form3* form3() const;
    void refresh_status();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void set_form(QWidget* form);
    void build_menu();
    void open_project_dialog();
    // Form11 in place of MODULI for a panel interface (type 1E).
    void open_panel(std::function<void()> on_close, bool wait);
    template <class Form>
    void show_until_closed(Form* form, std::function<void()> on_close);
    template <class Form>
    void wait_until_closed(Form* form);

    Session& session_;
    // Set by the menu's own exit, the one close that the main menu allows.
    bool exit_requested_ = false;
    // The toolkit's buttons and dialogs in the language of the tables.
    QtTranslations translations_;
    AppServices services_;
    QStackedWidget* stack_ = nullptr;
    QPointer<QWidget> form_;
    QPointer<MODULI> module_;
    QPointer<Form11> panel_;
    QPointer<Form18> report_;
    QLabel* line_state_ = nullptr;
    QLabel* level_state_ = nullptr;
    QMenu* project_menu_ = nullptr;
    QMenu* line_menu_ = nullptr;
    QPointer<Form8> monitor_;
};

}  // namespace filo::app
