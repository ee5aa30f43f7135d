#include "exchange/report_renderer.hpp"

#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <QRectF>
#include <QString>
#include <algorithm>

namespace filo::exchange {
namespace {

QString qs(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The fixed-pitch font of the report's boxes, at a pixel size.
QFont box_font(double pixels, bool bold = false) {
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::TypeWriter);
    font.setPixelSize(std::max(1, static_cast<int>(pixels)));
    font.setBold(bold);
    return font;
}

// Draws the text in the box, squeezed sideways when it is wider: measured
// on the painter's own device, whose hinting may widen the glyphs.
void draw_fitted(QPainter& painter, const QRectF& box, int flags, const QString& text) {
    const double wide = painter.fontMetrics().horizontalAdvance(text);
    if (wide <= box.width() || wide <= 0) {
        painter.drawText(box, flags, text);
        return;
    }
    painter.save();
    painter.translate(box.left(), box.top());
    painter.scale(box.width() / wide, 1.0);
    painter.drawText(QRectF(0, 0, wide, box.height()), flags, text);
    painter.restore();
}

// Characters of the longest line of the page's groups.
qsizetype widest_line(const ReportPage& page, qsizetype indent, qsizetype code_column) {
    qsizetype widest = 0;
    for (const ReportGroup& g : page.groups) {
        widest = std::max(widest, qs(g.caption).size());
        for (const std::string& line : g.lines)
            widest = std::max(widest, indent + qs(line).size() + code_column);
    }
    return widest;
}

}  // namespace

void paint_report_page(QPainter& painter, const QRectF& area, const ReportDocument& document,
                       std::size_t index) {
    if (!document.kind || index >= document.pages.size()) return;
    const ReportPage& page = document.pages[index];
    const ReportKind& kind = *document.kind;
    const bool modules = kind.layout == ReportLayout::Modules;
    // Room for the bound and the groups' overrun, below five lines of heading
    // and above two of foot.
    const double line = area.height() / (kind.bound + 4 + 5 + 2);
    const double left = area.left();
    const double width = area.width();
    painter.save();
    painter.setPen(Qt::black);

    // Project and date, then the title and the heads.
    painter.setFont(box_font(line * 0.8));
    const QRectF top(left, area.top(), width, line);
    painter.drawText(top, Qt::AlignLeft | Qt::AlignVCenter, qs(document.project));
    painter.drawText(top, Qt::AlignRight | Qt::AlignVCenter, qs(document.date));
    painter.setFont(box_font(line * 1.4, true));
    draw_fitted(painter, QRectF(left, area.top() + line * 1.2, width, line * 1.8), Qt::AlignCenter,
                qs(document.title).trimmed());
    painter.setFont(box_font(line * 0.8));
    draw_fitted(painter, QRectF(left, area.top() + line * 3.5, width, line),
                Qt::AlignLeft | Qt::AlignVCenter, qs(document.heads));

    // The groups: a frame with the caption on its top edge, lines inside.
    const qsizetype indent = 2;
    const qsizetype code_column = modules ? 16 : 0;
    const qsizetype widest = std::max<qsizetype>(widest_line(page, indent, code_column), 40);
    QFont font = box_font(line * 0.85);
    const double advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
    if (advance * widest > width) font = box_font(line * 0.85 * width / (advance * widest));
    const double char_width = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
    const double body = area.top() + line * 5;
    painter.setFont(font);
    for (const ReportGroup& g : page.groups) {
        const double y = body + g.top_line * line;
        const double height = line * (static_cast<double>(g.lines.size()) + 1.5);
        painter.setPen(QPen(Qt::gray, 0));
        painter.drawRect(QRectF(left, y + line * 0.5, width, height));
        painter.setPen(Qt::black);
        const QString caption = qs(g.caption);
        const QRectF caption_box(left + char_width, y,
                                 QFontMetricsF(font).horizontalAdvance(caption) + char_width, line);
        painter.fillRect(caption_box, Qt::white);
        painter.drawText(caption_box, Qt::AlignLeft | Qt::AlignVCenter, caption);
        for (std::size_t k = 0; k < g.lines.size(); ++k) {
            const QRectF row(left + char_width * indent, y + line * (1.2 + static_cast<double>(k)),
                             width - char_width * (indent + 1), line);
            draw_fitted(painter, row, Qt::AlignLeft | Qt::AlignVCenter, qs(g.lines[k]));
            if (k < g.codes.size())
                painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, qs(g.codes[k]));
        }
    }

    // The foot: the page and the rows it holds.
    painter.setFont(box_font(line * 0.8));
    const QRectF foot(left, area.bottom() - line * 1.2, width, line);
    painter.drawText(foot, Qt::AlignCenter, qs(document.page_caption(index)));
    painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter,
                     QStringLiteral("%1 - %2").arg(page.first_row).arg(page.last_row));
    painter.restore();
}

bool paint_report(QPagedPaintDevice& device, const ReportDocument& document, std::size_t pages) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const std::size_t count = std::min(pages, document.pages.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) device.newPage();
        paint_report_page(painter, QRectF(0, 0, device.width(), device.height()), document, i);
    }
    return painter.end();
}

bool write_report_pdf(const ReportDocument& document, const QString& file, const QPageSize& size) {
    QPdfWriter writer(file);
    writer.setResolution(300);
    writer.setPageLayout(QPageLayout(size, QPageLayout::Portrait, QMarginsF(12, 12, 12, 12),
                                     QPageLayout::Millimeter));
    writer.setTitle(qs(document.title).simplified());
    writer.setCreator(QStringLiteral("Filo"));
    return paint_report(writer, document, document.pages.size());
}

}  // namespace filo::exchange
