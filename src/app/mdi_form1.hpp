#pragma once
// MDIForm1, the main window: it stays for the whole run and shows one form
// at a time (the main menu, the new project, the project window).
#include <QMainWindow>
#include <QPointer>
#include <functional>

#include "app/connection.hpp"

class QDialog;
class QLabel;
class QMenu;
class QStackedWidget;

namespace filo::app {

class Session;
class Form1;
class Form2;
class Form3;
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

    Session& session_;
    AppServices services_;
    QStackedWidget* stack_ = nullptr;
    QPointer<QWidget> form_;
    QPointer<Form18> report_;
    QLabel* line_state_ = nullptr;
    QLabel* level_state_ = nullptr;
    QMenu* project_menu_ = nullptr;
    QMenu* line_menu_ = nullptr;
};

}  // namespace filo::app
