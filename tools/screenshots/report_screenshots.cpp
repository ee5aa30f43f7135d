// The report window and the first page of each report, for the documentation:
// a few links on the demo project, the window grabbed, each report written as
// PDF and its first page turned into PNG by pdftoppm.
#include <QDir>
#include <QPageSize>
#include <QProcess>
#include <QTemporaryDir>
#include <iostream>

#include "app/form18.hpp"
#include "app/report_window.hpp"
#include "app/session.hpp"
#include "exchange/report_renderer.hpp"
#include "store/link_table.hpp"

namespace {

struct DemoLink {
    const char* rx;
    const char* tx;
    const char* nick_rx;
    const char* nick_tx;
    const char* opzione;
    const char* tempo_on2;
    const char* and_;
    const char* dato13;  // of the second page, "" when none
};

// What an installer links first in the demo house.
constexpr DemoLink kLinks[] = {
    {"001015/1", "001015/1", "Luce cucina", "Pulsante cucina", "P", "0", "00000000", ""},
    {"001015/2", "001015/2", "Luce sala", "Pulsante sala", "P", "120", "00000000", "000030"},
    {"001015/1", "002014/1", "Luce cucina", "Pulsante porta", "P", "0", "00000000", ""},
    {"001015/2", "002014/1", "Luce sala", "Pulsante porta", "P", "0", "00000000", ""},
    {"003005/1", "002014/2", "Lampada soggiorno", "Interruttore scale", "I", "0", "00000000", ""},
    {"003005/1", "004019/1", "Lampada soggiorno", "Sensore luce giardino", "L", "0", "00000001",
     ""},
    {"001015/3", "0000", "Cappa", "ALLE_ORE", " ", "0", "00000000", ""},
};

void add_demo_links(filo::store::LinkTable& links) {
    for (const DemoLink& d : kLinks) {
        filo::store::LinkRow& l = links.LINK_CORRENTE;
        l = {};
        l.identificativoRX = d.rx;
        l.identificativoTX = d.tx;
        l.numero_uscita = std::string(d.rx).substr(7);
        l.nick_ricevente = d.nick_rx;
        l.nick_trasmittente = d.nick_tx;
        l.opzione = d.opzione;
        l.tempo_on1 = l.tempo_off1 = l.tempo_off2 = "0";
        l.tempo_on2 = d.tempo_on2;
        l.modo_ = "000000112";
        l.on_ = "251";
        l.off_ = "8";
        l.and_ = d.and_;
        l.dato13 = "000000";
        links.AGGIUNGI_LINK();
        if (*d.dato13) {
            l = filo::store::second_page(l);
            l.dato13 = d.dato13;
            links.AGGIUNGI_LINK();
        }
    }
}

}  // namespace

bool save_report_pictures(filo::app::Session& session, const QDir& out) {
    add_demo_links(session.links);
    bool ok = true;
    filo::app::Form18 form(session);
    form.resize(900, 1000);
    ok &= form.load(2);
    form.show();
    const QString shot = out.filePath("20-report-window.png");
    ok &= form.grab().save(shot);
    std::cout << "saved " << shot.toStdString() << '\n';
    form.hide();

    QTemporaryDir pdfs;
    for (int kind = 1; kind <= 5; ++kind) {
        ok &= form.load(kind);
        const QString pdf = pdfs.filePath(QString("report-%1.pdf").arg(kind));
        ok &=
            filo::exchange::write_report_pdf(form.tool().document(), pdf, QPageSize(QPageSize::A4));
        const QString png = out.filePath(QString("report-%1").arg(kind));
        const int code = QProcess::execute(
            "pdftoppm", {"-png", "-r", "80", "-f", "1", "-l", "1", "-singlefile", pdf, png});
        std::cout << (code == 0 ? "saved " : "FAILED ") << png.toStdString() << ".png\n";
        ok &= code == 0;
    }
    return ok;
}
