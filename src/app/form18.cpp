#include "app/form18.hpp"

#include <QComboBox>
#include <QDate>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageSize>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/report_window.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "exchange/report_renderer.hpp"

namespace filo::app {

using texts::Text;

namespace {

QPageSize chosen_size(const QComboBox* box) {
    return QPageSize(box->currentIndex() == 1 ? QPageSize::Letter : QPageSize::A4);
}

}  // namespace

ReportCanvas::ReportCanvas(const ReportWindow& tool, QWidget* parent)
    : QWidget(parent), tool_(tool) {
    setObjectName("ReportPage");
    setMinimumSize(420, 594);
}

void ReportCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    if (tool_.document().pages.empty()) return;
    // The sheet with the shape of A4, as large as the widget allows.
    const double ratio = 297.0 / 210.0;
    double w = width() - 16.0;
    double h = w * ratio;
    if (h > height() - 16.0) {
        h = height() - 16.0;
        w = h / ratio;
    }
    const QRectF sheet((width() - w) / 2, (height() - h) / 2, w, h);
    painter.fillRect(sheet, Qt::white);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const double margin = w * 12.0 / 210.0;
    exchange::paint_report_page(painter, sheet.adjusted(margin, margin, -margin, -margin),
                                tool_.document(), tool_.page_index());
}

Form18::Form18(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
    ReportHost host;
    host.print = [this](const exchange::ReportDocument&, std::size_t pages) {
        print_preview(pages);
    };
    host.close = [this] { emit closed(); };
    tool_ = std::make_unique<ReportWindow>(session, std::move(host));
    setObjectName("Form18");
    const auto& t = session_.texts;

    auto* outer = new QVBoxLayout(this);
    Label1_ = new QLabel(this);
    Label1_->setObjectName("Label1");
    QFont bold = Label1_->font();
    bold.setBold(true);
    Label1_->setFont(bold);
    outer->addWidget(Label1_);
    // The heads are drawn on the page; the label keeps them for who reads it.
    Label5_ = new QLabel(this);
    Label5_->setObjectName("Label5");
    Label5_->hide();

    auto* bar = new QHBoxLayout;
    Command1_ = new QPushButton(QStringLiteral("<<"), this);
    Command1_->setObjectName("Command1");
    Command2_ = new QPushButton(QStringLiteral(">>"), this);
    Command2_->setObjectName("Command2");
    Label4_ = new QLabel(this);
    Label4_->setObjectName("Label4");
    Label2_ = new QLabel(this);
    Label2_->setObjectName("Label2");
    Label3_ = new QLabel(this);
    Label3_->setObjectName("Label3");
    page_size_ = new QComboBox(this);
    page_size_->setObjectName("PageSize");
    page_size_->addItems({QStringLiteral("A4"), QStringLiteral("Letter")});
    pdf_ = new QPushButton(qs(t.text(Text::REPORT_SAVE_PDF)), this);
    pdf_->setObjectName("SavePdf");
    Command3_ = new QPushButton(qs(t.text(Text::REPORT_PRINT)), this);
    Command3_->setObjectName("Command3");
    Command4_ = new QPushButton(qs(t.text(Text::REPORT_EXIT)), this);
    Command4_->setObjectName("Command4");
    bar->addWidget(Command1_);
    bar->addWidget(Label4_);
    bar->addWidget(Command2_);
    bar->addSpacing(12);
    bar->addWidget(Label2_);
    bar->addWidget(new QLabel(QStringLiteral("-"), this));
    bar->addWidget(Label3_);
    bar->addStretch(1);
    bar->addWidget(page_size_);
    bar->addWidget(pdf_);
    bar->addWidget(Command3_);
    bar->addWidget(Command4_);
    outer->addLayout(bar);
    canvas_ = new ReportCanvas(*tool_, this);
    outer->addWidget(canvas_, 1);

    connect(Command1_, &QPushButton::clicked, this, [this] {
        tool_->Command1_Click();
        refresh();
    });
    connect(Command2_, &QPushButton::clicked, this, [this] {
        tool_->Command2_Click();
        refresh();
    });
    connect(Command3_, &QPushButton::clicked, this, [this] { tool_->Command3_Click(); });
    connect(Command4_, &QPushButton::clicked, this, [this] { tool_->Command4_Click(); });
    connect(pdf_, &QPushButton::clicked, this, &Form18::save_pdf);
}

Form18::~Form18() = default;

bool Form18::load(int numero_report) {
    const bool made =
        tool_->STAMPA(numero_report, QDate::currentDate().toString(Qt::ISODate).toStdString());
    setWindowTitle(qs(tool_->Label1).simplified());
    refresh();
    return made;
}

void Form18::refresh() {
    const ReportWindow& t = *tool_;
    Label1_->setText(qs(t.Label1).simplified());
    Label5_->setText(qs(t.Label5));
    Label2_->setText(qs(t.Label2));
    Label3_->setText(qs(t.Label3));
    Label4_->setText(qs(t.Label4));
    Command1_->setEnabled(t.Command1);
    Command2_->setEnabled(t.Command2);
    canvas_->update();
}

void Form18::print_preview(std::size_t pages) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(chosen_size(page_size_));
    printer.setPageMargins(QMarginsF(12, 12, 12, 12), QPageLayout::Millimeter);
    printer.setDocName(qs(tool_->Label1).simplified());
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this, pages](QPrinter* p) { exchange::paint_report(*p, tool_->document(), pages); });
    preview.exec();
}

void Form18::save_pdf() {
    const QString file = QFileDialog::getSaveFileName(
        this, qs(session_.texts.text(Text::REPORT_SAVE_PDF)),
        qs((session_.data_directory() / (session_.project.NOME_PROGETTO + ".pdf")).string()),
        QStringLiteral("PDF (*.pdf)"));
    if (file.isEmpty()) return;
    if (exchange::write_report_pdf(tool_->document(), file, chosen_size(page_size_)))
        session_.message(Text::RUN_REPORT_SAVED, Text::TITLE_WARNING, {}, file.toStdString());
    else
        session_.message(Text::FILE_ERROR, Text::TITLE_WARNING, {}, file.toStdString());
}

}  // namespace filo::app
