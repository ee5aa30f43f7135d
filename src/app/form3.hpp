#pragma once
// Form3, the project window's view.
#include <QWidget>
#include <map>
#include <memory>

#include "app/hub_host.hpp"

class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTimer;
class QToolButton;

namespace filo::app {

class Session;
class ProjectHub;

class Form3 final : public QWidget {
    Q_OBJECT
  public:
    // host: what the hub asks of the main window; the scan's timer is this
    // window's own.
    Form3(Session& session, HubHost host, QWidget* parent = nullptr);
    ~Form3() override;
    ProjectHub& tool() { return *hub_; }
    // Form_Load; false when the project could not be opened.
    bool load();
    void refresh();

  signals:
    void caption_changed(const QString& caption);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void add_entry(int index, const char* icon, const char* caption_name, QGridLayout* grid,
                   int row);
    void Text3_changed(const QString& text);
    void after_module_chosen();

    Session& session_;
    std::unique_ptr<ProjectHub> hub_;
    std::map<int, QToolButton*> Image1_;
    std::map<int, QLabel*> captions_;
    QLabel* Label1_ = nullptr;
    QLabel* Label8_ = nullptr;
    QLabel* Label20_ = nullptr;
    QLabel* Label23_ = nullptr;
    QLabel* Label10_ = nullptr;
    QLabel* Label12_ = nullptr;
    QLabel* Label13_ = nullptr;
    QLabel* Label25_ = nullptr;
    QLabel* scan_status_ = nullptr;
    QLabel* found_caption_ = nullptr;
    QLabel* new_caption_ = nullptr;
    QPushButton* Label17_ = nullptr;
    QPushButton* Image13_ = nullptr;
    QGroupBox* Frame1_ = nullptr;
    QGroupBox* Frame2_ = nullptr;
    QGroupBox* Frame3_ = nullptr;
    QGroupBox* Frame4_ = nullptr;
    QGroupBox* Frame5_ = nullptr;
    QLineEdit* Text3_ = nullptr;
    QComboBox* Combo1_ = nullptr;
    QComboBox* Combo2_ = nullptr;
    QListWidget* List1_ = nullptr;
    QListWidget* List2_ = nullptr;
    QProgressBar* ProgressBar7_ = nullptr;
    QTimer* Timer1_ = nullptr;
    QTimer* Timer2_ = nullptr;
    QTimer* Timer7_ = nullptr;
    bool filling_ = false;
};

}  // namespace filo::app
