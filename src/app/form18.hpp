#pragma once
// Form18, the report window's view: the page drawn by the report renderer,
// the same drawing that goes to the printer and to PDF.
#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;

namespace filo::app {

class Session;
class ReportWindow;

// The page of the report shown, scaled to the widget with the page's shape.
class ReportCanvas final : public QWidget {
  public:
    ReportCanvas(const ReportWindow& tool, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const ReportWindow& tool_;
};

class Form18 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form18(Session& session, QWidget* parent = nullptr);
    ~Form18() override;
    ReportWindow& tool() { return *tool_; }
    // STAMPA_1 to STAMPA_5; false when the report can't be made.
    bool load(int numero_report);
    void refresh();

  signals:
    void closed();

  private:
    void print_preview(std::size_t pages);
    void save_pdf();

    Session& session_;
    std::unique_ptr<ReportWindow> tool_;
    QLabel* Label1_ = nullptr;
    QLabel* Label2_ = nullptr;
    QLabel* Label3_ = nullptr;
    QLabel* Label4_ = nullptr;
    QLabel* Label5_ = nullptr;
    QPushButton* Command1_ = nullptr;
    QPushButton* Command2_ = nullptr;
    QPushButton* Command3_ = nullptr;
    QPushButton* Command4_ = nullptr;
    QPushButton* pdf_ = nullptr;
    QComboBox* page_size_ = nullptr;
    ReportCanvas* canvas_ = nullptr;
};

}  // namespace filo::app
