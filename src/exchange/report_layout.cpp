#include "exchange/report_layout.hpp"

#include "texts/language_tables.hpp"

namespace filo::exchange {
namespace {

using texts::Text;

constexpr ReportKind kKinds[] = {
    {.NUMERO_REPORT = 1,
     .layout = ReportLayout::ByCommand,
     .STAMPA_ESTESA = false,
     .bound = 65,
     .Label1 = Text::REPORT_TITLE_COMMANDS,
     .Label5 = Text::REPORT_HEADS_COMMANDS},
    {.NUMERO_REPORT = 2,
     .layout = ReportLayout::ByCommand,
     .STAMPA_ESTESA = true,
     .bound = 65,
     .Label1 = Text::REPORT_TITLE_COMMANDS,
     .Label5 = Text::REPORT_HEADS_COMMANDS},
    {.NUMERO_REPORT = 3,
     .layout = ReportLayout::ByUser,
     .STAMPA_ESTESA = false,
     .bound = 55,
     .Label1 = Text::REPORT_TITLE_USERS,
     .Label5 = Text::REPORT_HEADS_USERS},
    {.NUMERO_REPORT = 4,
     .layout = ReportLayout::ByUser,
     .STAMPA_ESTESA = true,
     .bound = 55,
     .Label1 = Text::REPORT_TITLE_USERS,
     .Label5 = Text::REPORT_HEADS_USERS},
    {.NUMERO_REPORT = 5,
     .layout = ReportLayout::Modules,
     .STAMPA_ESTESA = false,
     .bound = 55,
     .Label1 = Text::REPORT_TITLE_MODULES,
     .Label5 = Text::REPORT_HEADS_MODULES},
};

constexpr std::string_view kSixBlanks = "      ";

// The group a row belongs to, its caption and its line, by layout.
std::string group_key(ReportLayout layout, const ReportRow& r) {
    switch (layout) {
        case ReportLayout::ByCommand:
            return r.STAMPA_NICK_TX + '\t' + r.STAMPA_ID_TX;
        case ReportLayout::ByUser:
            return r.STAMPA_NICK_RX + '\t' + r.STAMPA_ID_RX;
        case ReportLayout::Modules:
            break;
    }
    return r.STAMPA_NICK_TX;
}

std::string caption(ReportLayout layout, const ReportRow& r) {
    switch (layout) {
        case ReportLayout::ByCommand:
            return r.STAMPA_NICK_TX + std::string(kSixBlanks) + r.STAMPA_ID_TX;
        case ReportLayout::ByUser:
            return r.STAMPA_NICK_RX + std::string(kSixBlanks) + r.STAMPA_ID_RX;
        case ReportLayout::Modules:
            break;
    }
    return r.STAMPA_NICK_TX + std::string(kSixBlanks);
}

// The row's lines in its group: one, or the name and the technical line.
void add_row(const ReportKind& kind, const ReportRow& r, ReportGroup& group) {
    const bool by_command = kind.layout == ReportLayout::ByCommand;
    switch (kind.layout) {
        case ReportLayout::Modules:
            group.lines.push_back(r.STAMPA_RIGA);
            group.codes.push_back(r.STAMPA_CODICE);
            return;
        case ReportLayout::ByCommand:
        case ReportLayout::ByUser:
            break;
    }
    const std::string& other_name = by_command ? r.STAMPA_NICK_RX : r.STAMPA_NICK_TX;
    const std::string& other_code = by_command ? r.STAMPA_ID_RX : r.STAMPA_ID_TX;
    if (kind.STAMPA_ESTESA) {
        group.lines.push_back(other_name);
        group.lines.push_back(r.STAMPA_RIGA);
    } else {
        group.lines.push_back(other_code + std::string(kSixBlanks) + other_name);
    }
}

}  // namespace

const ReportKind* report_kind(int numero_report) {
    for (const ReportKind& k : kKinds)
        if (k.NUMERO_REPORT == numero_report) return &k;
    return nullptr;
}

void build_rows(const ReportKind& kind, ReportRows& rows) {
    switch (kind.layout) {
        case ReportLayout::ByCommand:
            rows.LISTA_PER_STAMPA(LinkOrder::ByCommand);
            return;
        case ReportLayout::ByUser:
            rows.LISTA_PER_STAMPA(LinkOrder::ByUser);
            return;
        case ReportLayout::Modules:
            rows.LISTA_PER_STAMPA_NICK();
            return;
    }
}

std::string column_heads(const ReportKind& kind, const texts::LanguageTables& texts) {
    if (kind.layout != ReportLayout::Modules && !kind.STAMPA_ESTESA) return "   ";
    return texts.text(kind.Label5);
}

ReportPage lay_out_page(const ReportKind& kind, const std::vector<ReportRow>& rows,
                        int PRIMA_RIGA_PAGINA) {
    ReportPage page;
    page.first_row = PRIMA_RIGA_PAGINA;
    const int n_link = static_cast<int>(rows.size());
    page.last_row = n_link;
    int lines = 0;
    std::string open_key;
    bool group_open = false;
    for (int i = PRIMA_RIGA_PAGINA; i <= n_link; ++i) {
        ++lines;
        if (lines > kind.bound) {
            page.last_row = i - 1;  // the row at i opens the next page
            --lines;
            break;
        }
        const ReportRow& r = rows[static_cast<std::size_t>(i - 1)];
        if (r.STAMPA_NICK_TX.empty()) continue;  // a channel row: its line stays empty
        const std::string key = group_key(kind.layout, r);
        if (!group_open || key != open_key) {
            ReportGroup group;
            group.top_line = lines - 1;
            group.caption = caption(kind.layout, r);
            page.groups.push_back(std::move(group));
            open_key = key;
            group_open = true;
            lines += 2;
        }
        add_row(kind, r, page.groups.back());
        if (kind.STAMPA_ESTESA) ++lines;
    }
    page.lines_used = lines;
    return page;
}

std::vector<ReportPage> paginate(const ReportKind& kind, const std::vector<ReportRow>& rows) {
    std::vector<ReportPage> pages;
    int first = 1;
    do {
        pages.push_back(lay_out_page(kind, rows, first));
        first = pages.back().last_row + 1;
    } while (first <= static_cast<int>(rows.size()));
    return pages;
}

std::string ReportDocument::page_caption(std::size_t index) const {
    return page_word + std::to_string(index + 1) + page_of + std::to_string(pages.size());
}

ReportDocument make_document(const ReportKind& kind, const std::vector<ReportRow>& rows,
                             const texts::LanguageTables& texts, std::string project,
                             std::string date) {
    ReportDocument d;
    d.kind = &kind;
    d.title = texts.text(kind.Label1);
    d.heads = column_heads(kind, texts);
    d.project = std::move(project);
    d.date = std::move(date);
    d.page_word = texts.text(Text::REPORT_PAGE);
    d.page_of = texts.text(Text::REPORT_PAGE_OF);
    d.pages = paginate(kind, rows);
    return d;
}

}  // namespace filo::exchange
