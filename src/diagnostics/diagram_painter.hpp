#pragma once
// Draws an output diagram with QPainter, once, for the screen, PNG and SVG
// alike. Qt Gui only: no widgets.
#include <QRect>
#include <QString>

class QPainter;

namespace filo::diagnostics {

struct OutputDiagram;

// Geometry in pixels (the form's twips / 15).
inline constexpr int kDiagramWidth = 600;
inline constexpr int kDiagramHeadHeight = 170;
inline constexpr int kDiagramRowHeight = 100;

int diagram_height(const OutputDiagram& diagram);
// Where a row's conditions mark (Image1) is drawn: clicks land there.
QRect conditions_mark(int row);
// Which row a point falls in, or -1.
int row_at(const OutputDiagram& diagram, int y);

// open_row: the row whose conditions (Frame7) are listed; -1 none, -2 all.
void paint_diagram(QPainter& painter, const OutputDiagram& diagram, int open_row);

// Drawn to a file; false when it could not be written. The SVG through Qt
// SVG, the PNG as an image of the same size.
bool write_diagram_svg(const OutputDiagram& diagram, const QString& path);
bool write_diagram_png(const OutputDiagram& diagram, const QString& path);

}  // namespace filo::diagnostics
