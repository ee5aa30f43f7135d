#pragma once
// Form4, the programming window's view.
#include <QWidget>
#include <memory>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTimer;
class QToolButton;

namespace filo::app {

class Session;
class ProgrammingWindow;

class Form4 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form4(Session& session, QWidget* parent = nullptr);
    ~Form4() override;
    ProgrammingWindow& tool() { return *tool_; }
    // Form_Load: the run starts by itself shortly after.
    void load();
    void refresh();

  signals:
    // Form_Unload: the window is done and may go.
    void closed();
    // The set-up of a regulator needs a port: SERIALE, modal.
    void connection_requested();

  private:
    // Adds what the report gained since it was last shown.
    static void append_new(QPlainTextEdit* box, const std::string& text, std::size_t& shown);

    Session& session_;
    std::unique_ptr<ProgrammingWindow> tool_;
    QToolButton* Image1_[3] = {};
    QLabel* Label4_[3] = {};
    QLabel* Label22_ = nullptr;
    QLabel* Label2_ = nullptr;
    QLabel* Label1_0_ = nullptr;
    QLabel* Label1_1_ = nullptr;
    QLabel* Label11_ = nullptr;
    QLabel* errors_caption_ = nullptr;
    QLabel* Label15_ = nullptr;
    QLabel* bar1_caption_ = nullptr;
    QLabel* bar2_caption_ = nullptr;
    QLabel* text1_caption_ = nullptr;
    QLabel* text2_caption_ = nullptr;
    QGroupBox* Frame1_ = nullptr;
    QGroupBox* Frame2_ = nullptr;
    QGroupBox* help_ = nullptr;
    QProgressBar* ProgressBar1_1_ = nullptr;
    QProgressBar* ProgressBar1_2_ = nullptr;
    QPlainTextEdit* Text1_ = nullptr;
    QPlainTextEdit* Text2_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    QComboBox* Combo_REGOLATORI_ = nullptr;
    QTimer* Timer1_ = nullptr;
    int run_shown_ = 0;
    std::size_t text1_shown_ = 0;
    std::size_t text2_shown_ = 0;
    std::size_t regolatori_shown_ = 0;
};

}  // namespace filo::app
