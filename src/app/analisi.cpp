#include "app/analisi.hpp"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "diagnostics/diagram_painter.hpp"
#include "diagnostics/output_diagram.hpp"

namespace filo::app {

using texts::Text;

DiagramPicture::DiagramPicture(const diagnostics::OutputDiagram& diagram, QWidget* parent)
    : QWidget(parent), diagram_(diagram) {
    setObjectName("Picture1");
    setFixedSize(diagnostics::kDiagramWidth, diagnostics::diagram_height(diagram));
}

void DiagramPicture::Image1_Click(int row) {
    open_row = open_row == row ? -1 : row;
    update();
}

void DiagramPicture::paintEvent(QPaintEvent*) {
    QPainter p(this);
    diagnostics::paint_diagram(p, diagram_, open_row);
}

void DiagramPicture::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const int row = diagnostics::row_at(diagram_, at.y());
    if (row >= 0 && diagram_.rows[static_cast<std::size_t>(row)].has_conditions &&
        diagnostics::conditions_mark(row).contains(at))
        Image1_Click(row);
}

ANALISI::ANALISI(Session& session, std::int64_t ID_UTILIZZATORE, QWidget* parent)
    : QWidget(parent, Qt::Window),
      session_(session),
      diagram_(std::make_unique<diagnostics::OutputDiagram>(
          diagnostics::build_output_diagram(session.project, session.texts, ID_UTILIZZATORE))) {
    setObjectName("ANALISI");
    setWindowTitle(qs(diagram_->UTILIZZATORE));
    auto* layout = new QVBoxLayout(this);
    auto* hint =
        new QLabel("Posizionare il cursore sulla funzione per visualizzare tutti i dettagli", this);
    hint->setObjectName("Label44");
    layout->addWidget(hint);
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName("VScroll1");
    picture_ = new DiagramPicture(*diagram_, scroll);
    scroll->setWidget(picture_);
    layout->addWidget(scroll, 1);
    auto* buttons = new QHBoxLayout;
    auto save = [this](const char* name, const char* filter, auto write) {
        auto* b = new QPushButton(name, this);
        b->setObjectName(name);
        connect(b, &QPushButton::clicked, this, [this, filter, write] {
            const QString file = QFileDialog::getSaveFileName(this, {}, {}, filter);
            if (!file.isEmpty() && !write(*diagram_, file))
                session_.message(Text::RECORDING_NOT_WRITTEN, Text::TITLE_WARNING, {},
                                 file.toStdString());
        });
        return b;
    };
    buttons->addWidget(save("PNG", "*.png", diagnostics::write_diagram_png));
    buttons->addWidget(save("SVG", "*.svg", diagnostics::write_diagram_svg));
    buttons->addStretch(1);
    layout->addLayout(buttons);
    resize(diagnostics::kDiagramWidth + 40, 700);
}

ANALISI::~ANALISI() = default;

}  // namespace filo::app
