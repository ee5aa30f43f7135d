#pragma once
// Form8, the line monitor's view: the last frame decoded, the speech ticks,
// the filters, the classic 20-line history beside the full one, and the
// analysis of one module.
#include <QWidget>
#include <memory>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTableView;
class QTimer;

namespace filo::app {

class Session;
class LineMonitorWindow;
class MonitorHistoryModel;

class Form8 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form8(Session& session, QWidget* parent = nullptr);
    ~Form8() override;
    LineMonitorWindow& tool() { return *tool_; }

    // Form_Load: shown, and the monitor listens.
    void load();
    void refresh();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void build_decoded(QWidget* box);
    void build_history(QGroupBox* frame);
    void build_analysis(QGroupBox* frame);
    void show_view(int option);
    void refresh_analysis();
    void schedule_refresh();

    Session& session_;
    std::unique_ptr<LineMonitorWindow> tool_;
    MonitorHistoryModel* model_ = nullptr;
    QLabel* Label11_ = nullptr;
    QLabel* Label1_[5] = {};
    QCheckBox* Check1_[6] = {};
    QCheckBox* Check3_[2] = {};
    QLineEdit* Text2_ = nullptr;
    QLineEdit* Text4_ = nullptr;
    QLineEdit* Text3_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    QPushButton* Command3_ = nullptr;
    QRadioButton* Option1_[3] = {};
    QLabel* Label10_[20] = {};
    QProgressBar* ProgressBar1_ = nullptr;
    QGroupBox* Frame1_ = nullptr;
    QGroupBox* Frame2_ = nullptr;
    QTableView* history_ = nullptr;
    QPushButton* pause_ = nullptr;
    QPushButton* record_ = nullptr;
    QPushButton* replay_ = nullptr;
    QCheckBox* at_once_ = nullptr;
    QPushButton* export_ = nullptr;
    QLineEdit* send_text_ = nullptr;
    QPushButton* send_ = nullptr;
    QLabel* report_ = nullptr;
    QLabel* status_ = nullptr;
    QLabel* relays_[9] = {};
    QLabel* flags_[17] = {};
    QLabel* inputs_[9] = {};
    QProgressBar* bars_[9] = {};
    QTimer* Timer1_ = nullptr;
    QTimer* Timer2_ = nullptr;
    QTimer* replay_timer_ = nullptr;
    QTimer* refresh_timer_ = nullptr;
};

}  // namespace filo::app
