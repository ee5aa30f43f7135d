#pragma once
// The pages of a report painted with QPainter: the same drawing goes to the
// screen, a printer (QPrinter) and a PDF file (QPdfWriter).
#include <cstddef>

#include "exchange/report_layout.hpp"

class QPainter;
class QPagedPaintDevice;
class QPageSize;
class QRectF;
class QString;

namespace filo::exchange {

// Paints page index (from 0) of the document into the area: project and
// date, title, heads, the groups, the page number and the rows it holds.
void paint_report_page(QPainter& painter, const QRectF& area, const ReportDocument& document,
                       std::size_t index);

// Sends the first `pages` pages (all when larger) to a printer or a PDF
// writer, a page each. False when the device can't be painted on.
bool paint_report(QPagedPaintDevice& device, const ReportDocument& document, std::size_t pages);

// The report as a PDF file in the given page size (A4, Letter). False when
// the file can't be written.
bool write_report_pdf(const ReportDocument& document, const QString& file, const QPageSize& size);

}  // namespace filo::exchange
