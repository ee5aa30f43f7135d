#include "diagnostics/diagram_painter.hpp"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QSvgGenerator>

#include "diagnostics/output_diagram.hpp"

namespace filo::diagnostics {
namespace {

const QColor kInk(30, 30, 30);
const QColor kOn(0, 140, 0);
const QColor kOff(200, 0, 0);
const QColor kFrame(90, 90, 160);
constexpr int kCommandLeft = 10;
constexpr int kCommandWidth = 190;
constexpr int kArrowLeft = 250;
constexpr int kArrowRight = 420;
constexpr int kOutputLeft = 430;

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

int row_top(int row) {
    return kDiagramHeadHeight + row * kDiagramRowHeight;
}

void arrow(QPainter& p, QPoint from, QPoint to, const QColor& colour) {
    p.setPen(QPen(colour, 2));
    p.drawLine(from, to);
    const int dx = to.x() > from.x() ? -8 : 8;
    QPainterPath head;
    head.moveTo(to);
    head.lineTo(to.x() + dx, to.y() - 5);
    head.lineTo(to.x() + dx, to.y() + 5);
    head.closeSubpath();
    p.fillPath(head, colour);
}

void mark(QPainter& p, QPoint at, const QColor& colour) {
    p.setPen(QPen(colour, 1));
    p.setBrush(colour);
    p.drawEllipse(at, 5, 5);
    p.setBrush(Qt::NoBrush);
}

void paint_head(QPainter& p, const OutputDiagram& d) {
    p.setPen(QPen(kFrame, 1));
    p.drawRect(kOutputLeft - 15, 5, kDiagramWidth - kOutputLeft + 10, 70);
    p.drawText(kOutputLeft - 12, 20, "--------------------UTILIZZATORE");
    p.setPen(kInk);
    QFont bold = p.font();
    bold.setBold(true);
    p.setFont(bold);
    p.drawText(QRect(kOutputLeft - 5, 25, kDiagramWidth - kOutputLeft, 22), Qt::AlignLeft,
               q(d.UTILIZZATORE));
    bold.setBold(false);
    p.setFont(bold);
    p.drawText(kOutputLeft - 5, 65, q(d.module_label));

    p.setPen(QPen(kFrame, 1));
    p.drawRect(kCommandLeft, 5, 390, 90);
    p.drawText(kCommandLeft + 5, 20, "AND  e   RECIPROCI");
    p.setPen(kInk);
    for (int i = 1; i <= 8; ++i) {
        const TiedOutput& t = d.tied[static_cast<std::size_t>(i)];
        if (t.name.empty()) continue;
        const int x = kCommandLeft + 5 + (t.reciprocal ? 200 : 0);
        p.drawText(x, 22 + 9 * i, q(t.name));
    }
    p.setPen(QPen(kFrame, 1));
    p.drawText(kCommandLeft, 125, "------ PUNTI   DI   COMANDO");
    p.drawText(kOutputLeft - 5, 125, "ASSOCIAZIONI DIRETTE");
    p.setPen(kOn);
    p.drawText(kArrowLeft + 40, 150, "ACCENDI");
    p.setPen(kOff);
    p.drawText(kArrowLeft + 40, 165, "SPEGNI");
}

void paint_row(QPainter& p, const OutputDiagram& d, int i) {
    const DiagramRow& r = d.rows[static_cast<std::size_t>(i)];
    const int top = row_top(i);
    p.setPen(kInk);
    p.drawRect(kCommandLeft, top + 30, kCommandWidth, 30);
    p.drawText(QRect(kCommandLeft + 4, top + 30, kCommandWidth - 8, 30),
               Qt::AlignVCenter | Qt::AlignLeft, q(r.command));
    arrow(p, {kCommandLeft + kCommandWidth, top + 45}, {kArrowLeft - 10, top + 45}, kInk);
    if (r.has_conditions) {
        const QRect m = conditions_mark(i);
        p.setPen(QPen(kFrame, 1));
        p.drawRect(m);
        p.drawText(m, Qt::AlignCenter, "?");
    }
    const bool on = !r.label_on.empty();
    const bool off = !r.label_off.empty();
    if (on) {
        arrow(p, {kArrowLeft, top + 25}, {kArrowRight, top + 25}, kOn);
        p.setPen(kOn);
        p.drawText(kArrowLeft + 5, top + 18, q(r.label_on));
        const QRect times(kArrowLeft, top + 5, kArrowRight - kArrowLeft - 12, 16);
        p.drawText(times, Qt::AlignRight | Qt::AlignVCenter, q(r.t_asp));
        p.drawText(times.translated(0, 25), Qt::AlignRight | Qt::AlignVCenter, q(r.t_on));
        if (r.mark_on) mark(p, {kArrowRight - 20, top + 25}, kOn);
    }
    if (off) {
        arrow(p, {kArrowLeft, top + 70}, {kArrowRight, top + 70}, kOff);
        p.setPen(kOff);
        p.drawText(kArrowLeft + 5, top + 63, q(r.label_off));
        p.drawText(QRect(kArrowLeft, top + 75, kArrowRight - kArrowLeft - 12, 16),
                   Qt::AlignRight | Qt::AlignVCenter, q(r.t_rit));
        if (r.mark_off) mark(p, {kArrowRight - 20, top + 70}, kOff);
    }
    if (on || off) {
        p.setPen(kInk);
        p.drawRect(kOutputLeft, top + 30, kDiagramWidth - kOutputLeft - 10, 30);
        p.drawText(QRect(kOutputLeft + 4, top + 30, kDiagramWidth - kOutputLeft - 18, 30),
                   Qt::AlignVCenter | Qt::AlignLeft, q(d.UTILIZZATORE));
    }
}

// Frame7 with List1: the condition points, over the rows below.
void paint_conditions(QPainter& p, const DiagramRow& r, int i) {
    const int top = row_top(i);
    if (r.has_conditions) {
        const int h = 22 + 14 * static_cast<int>(r.conditions.size());
        const QRect box(kCommandLeft + 20, top + 62, 360, h);
        p.fillRect(box, QColor(255, 255, 225));
        p.setPen(QPen(kFrame, 1));
        p.drawRect(box);
        p.drawText(box.left() + 4, box.top() + 14, q(r.conditions_caption));
        p.setPen(kInk);
        int y = box.top() + 28;
        for (const std::string& c : r.conditions) {
            p.drawText(box.left() + 12, y, q(c));
            y += 14;
        }
    }
}

}  // namespace

int diagram_height(const OutputDiagram& d) {
    return row_top(static_cast<int>(d.rows.size())) + 60;
}

QRect conditions_mark(int row) {
    return {kCommandLeft + kCommandWidth + 8, row_top(row) + 52, 16, 16};
}

int row_at(const OutputDiagram& d, int y) {
    if (y < kDiagramHeadHeight) return -1;
    const int row = (y - kDiagramHeadHeight) / kDiagramRowHeight;
    return row < static_cast<int>(d.rows.size()) ? row : -1;
}

void paint_diagram(QPainter& p, const OutputDiagram& d, int open_row) {
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(QRect(0, 0, kDiagramWidth, diagram_height(d)), Qt::white);
    paint_head(p, d);
    for (int i = 0; i < static_cast<int>(d.rows.size()); ++i) paint_row(p, d, i);
    // An open list goes over the rows below it.
    for (int i = 0; i < static_cast<int>(d.rows.size()); ++i)
        if (open_row == -2 || open_row == i)
            paint_conditions(p, d.rows[static_cast<std::size_t>(i)], i);
}

bool write_diagram_svg(const OutputDiagram& d, const QString& path) {
    QSvgGenerator svg;
    svg.setFileName(path);
    svg.setSize(QSize(kDiagramWidth, diagram_height(d)));
    svg.setViewBox(QRect(0, 0, kDiagramWidth, diagram_height(d)));
    svg.setTitle(QString::fromStdString(d.UTILIZZATORE));
    QPainter p;
    if (!p.begin(&svg)) return false;
    paint_diagram(p, d, -2);
    return p.end();
}

bool write_diagram_png(const OutputDiagram& d, const QString& path) {
    QImage image(kDiagramWidth, diagram_height(d), QImage::Format_RGB32);
    QPainter p(&image);
    paint_diagram(p, d, -2);
    p.end();
    return image.save(path, "PNG");
}

}  // namespace filo::diagnostics
