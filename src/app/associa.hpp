#pragma once
// ASSOCIA, opened by "ASSOCIAZIONI " of the module window: the sets of the
// events TUTTI and ALMENO1 of an output module. It draws the aggregate editor
// and forwards the installer's clicks to it; what it changes stays in the
// module window's record until that window's Salva.
#include <QWidget>
#include <array>
#include <memory>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace filo::modules {
class AggregateEditor;
}

namespace filo::app {

class Session;

class ASSOCIA final : public QWidget {
    Q_OBJECT
  public:
    // Form_Load on the module of the session's shared record.
    explicit ASSOCIA(Session& session, QWidget* parent = nullptr);
    ~ASSOCIA() override;
    modules::AggregateEditor& tool() { return *tool_; }

  signals:
    // After CONFERMA: the module window shows its boxes again.
    void closed();

  protected:
    // Closing the window confirms, as CONFERMA does: no way out drops the
    // set shown.
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* build_full_page();
    QWidget* build_simple_page();
    void refresh();
    bool confirm();

    Session& session_;
    std::unique_ptr<modules::AggregateEditor> tool_;
    bool filling_ = false;
    bool confirmed_ = false;
    QGroupBox* Frame6_ = nullptr;
    QGroupBox* Frame11_ = nullptr;
    std::array<QRadioButton*, 4> Option5_{};
    std::array<QCheckBox*, 49> Check2_{};
    std::array<QCheckBox*, 17> Check3_{};
    std::array<QRadioButton*, 2> Option3_{};
    QLabel* logic_ = nullptr;  // the drawing of OR or AND
    QLineEdit* Text5_ = nullptr;
    std::array<QCheckBox*, 9> Check1_{};
};

}  // namespace filo::app
