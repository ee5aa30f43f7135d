#pragma once
// ANALISI: the diagram of everything that commands one output, painted from
// the diagram model; it scrolls, lists a row's conditions on a click, and
// is saved as PNG or SVG. Read-only: nothing is sent, nothing written.
#include <QWidget>
#include <cstdint>
#include <memory>

namespace filo::diagnostics {
struct OutputDiagram;
}

namespace filo::app {

class Session;

// Picture1: the diagram, drawn once per change.
class DiagramPicture final : public QWidget {
    Q_OBJECT
  public:
    DiagramPicture(const diagnostics::OutputDiagram& diagram, QWidget* parent);
    // The row whose conditions are listed (Frame7), -1 for none.
    int open_row = -1;
    // Image1_Click: lists the row's conditions, or hides them.
    void Image1_Click(int row);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    const diagnostics::OutputDiagram& diagram_;
};

class ANALISI final : public QWidget {
    Q_OBJECT
  public:
    ANALISI(Session& session, std::int64_t ID_UTILIZZATORE, QWidget* parent = nullptr);
    ~ANALISI() override;
    const diagnostics::OutputDiagram& diagram() const { return *diagram_; }
    DiagramPicture* picture() const { return picture_; }

  private:
    Session& session_;
    std::unique_ptr<diagnostics::OutputDiagram> diagram_;
    DiagramPicture* picture_ = nullptr;
};

}  // namespace filo::app
