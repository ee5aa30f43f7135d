#include "links/link_editor.hpp"

#include "common/basic_functions.hpp"
#include "links/link_rows.hpp"
#include "store/link_queries.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::links {
namespace {

using basic::left;
using basic::mid;
using basic::val;

constexpr const char* kMessaggi = "MESSAGGI";

std::string hex_of(std::int64_t v) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string s;
    for (; v > 0; v /= 16) s.insert(s.begin(), kHex[v % 16]);
    return s;
}

// A time box left at zero was never typed: it stores "0" in seconds.
StoredTime typed_time(const TimeEntry& t, std::string_view user_module_type) {
    if (t == TimeEntry{}) return {"0", "0"};
    return encode_time(t, user_module_type);
}

bool is_aggregate(const std::string& e) {
    return e == "ALMENO1" || e == "TUTTI";
}

// A bit string of eight "0"/"1", first character highest, as a decimal text.
std::string byte_text(std::string_view bits) {
    int v = 0;
    for (char c : bits) v = v * 2 + (c == '1');
    return std::to_string(v);
}

}  // namespace

bool LinkEditor::select_command(std::int64_t item_data, const std::string& text) {
    messages.reset();
    if (item_data == kHeadingItemData) {
        clear_command();
        run_check();
        return false;
    }
    const std::optional<CommandEvent> event = decode_command_item(item_data);
    if (!event) return false;
    modules_.RIGA_CODICE.clear();
    modules_.LEGGI_RIGA_ID(event->id);
    if (modules_.RIGA_CODICE.empty()) return false;
    const PointRow row{modules_.RIGA_CODICE, modules_.RIGA_NUMERO_FILO, modules_.RIGA_NICK,
                       modules_.RIGA_MODO, modules_.RIGA_TIPOLOGIA};
    command = compose_command(*event, row);
    COMANDO = text;
    ID_COMANDO = event->id;
    have_command_ = true;
    last_side = Side::Command;
    run_check();
    return true;
}

bool LinkEditor::select_user(std::int64_t item_data, const std::string& text) {
    CONSENSO_COMANDI.clear();
    if (item_data == kHeadingItemData) {
        clear_user();
        run_check();
        return false;
    }
    if (item_data <= 0) return false;  // group entries: the output groups' own window
    last_side = Side::User;
    if (item_data > kLargestRowItemData) {
        const std::string hex = hex_of(item_data);
        message_module = hex.substr(1);
        user = {message_module + "/0", "0", text, ""};
        UTILIZZATORE = kMessaggi;
        MODO_UTILIZZATORE.clear();
        ID_UTILIZZATORE = 0;
    } else {
        const std::int64_t id = item_data % 100000;
        modules_.RIGA_CODICE.clear();
        modules_.LEGGI_RIGA_ID(id);
        if (modules_.RIGA_CODICE.empty()) return false;
        const PointRow row{modules_.RIGA_CODICE, modules_.RIGA_NUMERO_FILO, modules_.RIGA_NICK,
                           modules_.RIGA_MODO, modules_.RIGA_TIPOLOGIA};
        user = compose_user(row);
        UTILIZZATORE = text;
        ID_UTILIZZATORE = id;
        MODO_UTILIZZATORE = row.modo;
        user_valore7_ = modules_.RIGA_VALORE7;
        const std::string connesso(mid(modules_.RIGA_CONNESSO, 2, 1));
        if (connesso == "e") CONSENSO_COMANDI = "CONSENTE_COMANDI";
        if (connesso == "E") CONSENSO_COMANDI = "NON_CONSENTE_COMANDI";
        message_module.clear();
    }
    have_user_ = true;
    run_check();
    return true;
}

void LinkEditor::clear_command() {
    have_command_ = false;
    COMANDO.clear();
    ID_COMANDO = 0;
    command = {};
    offer = {};
    mode = {};
}

void LinkEditor::clear_user() {
    have_user_ = false;
    UTILIZZATORE.clear();
    ID_UTILIZZATORE = 0;
    user = {};
    message_module.clear();
    MODO_UTILIZZATORE.clear();
    offer = {};
    mode = {};
}

std::string LinkEditor::user_module_type() const {
    return std::string(mid(user.identificativoRX, 5, 2));
}

void LinkEditor::run_check() {
    offer = {};
    mode = {};
    if (!have_user_) {
        check_ = Check::NeedsUser;
        return;
    }
    if (!have_command_) {
        check_ = Check::NeedsCommand;
        return;
    }
    const std::string tx_module(left(command.identificativoTX, 6));
    const std::string rx_module(left(user.identificativoRX, 6));
    const bool same_module = tx_module == rx_module;
    bool refused = command.nick_trasmittente == user.nick_ricevente;
    refused = refused || (command.nick_trasmittente.size() > 10 &&
                          command.nick_trasmittente.substr(10) + " " == user.nick_ricevente);
    refused = refused || (user.TIPO_UTILIZZATORE == "REGOLATORE" && same_module);
    if (!refused && is_aggregate(command.EVENTO_COMANDO) && same_module &&
        !user.numero_uscita.empty()) {
        // The aggregate event may not drive an output that takes part in it.
        const std::vector<store::NickRow> rows = modules_.read_rows(rx_module);
        const auto n = static_cast<std::size_t>(val(user.numero_uscita));
        if (!rows.empty() && n >= 1 && mid(rows.front().riserva3, n, 1) != "0") refused = true;
    }
    if (refused) {
        if (last_side == Side::User)
            clear_command();
        else
            clear_user();
        check_ = Check::Refused;
        return;
    }
    if ((command.TIPO_COMANDO == "v" || command.TIPO_COMANDO == "z") &&
        user.TIPO_UTILIZZATORE == "VCITOF") {
        check_ = Check::Silent;
        return;
    }
    pair = {.TIPO_COMANDO = command.TIPO_COMANDO,
            .CLASSE_COMANDO = command.CLASSE_COMANDO,
            .TIPO_UTILIZZATORE = user.TIPO_UTILIZZATORE,
            .UTILIZZATORE = UTILIZZATORE == kMessaggi ? kMessaggi : "",
            .MODO_UTILIZZATORE = MODO_UTILIZZATORE,
            .user_module_type = user_module_type(),
            .numero_uscita = static_cast<int>(val(user.numero_uscita)),
            .CONSENSO_COMANDI = CONSENSO_COMANDI};
    read_pair();
    offer = offer_modes(pair, texts_);
    check_ = Check::Modes;
}

void LinkEditor::read_pair() {
    store::LinkRow& lk = links_.LINK_CORRENTE;
    lk.identificativoRX = user.identificativoRX;
    lk.identificativoTX = command.identificativoTX;
    queries_.LEGGI_ASSOCIAZIONE(user.TIPO_UTILIZZATORE == "RGB");
    ESITO_ASSOCIAZIONE = queries_.ESITO_ASSOCIAZIONE;
    stored = lk;
    stored_id = ESITO_ASSOCIAZIONE == store::kEsitoEsisteGia ? links_.ID_LINK : 0;
    stored_mode = stored_id ? static_cast<int>(val(mid(stored.modo_, 9, 1))) : 0;
    valori_avanzati.assign(queries_.VALORI_AVANZATI.begin(), queries_.VALORI_AVANZATI.end());
    messages.reset();
    if (stored_id && UTILIZZATORE == kMessaggi) messages = read_message_bits(stored);
}

bool LinkEditor::select_mode(int index) {
    if (check_ != Check::Modes || !offer.offers(index)) return false;
    mode = links::select_mode(pair, offer, index);
    STESSO_MODO = stored_id && stored_mode == index ? "SI" : "NO";
    if (mode.REGOLA_LUMINOSITA)
        for (const auto& [i, v] : kRegolaLuminositaRamp) valori_avanzati[i] = std::string(v);
    if (STESSO_MODO != "SI") {
        time_on = delay_on = delay_off = {};
        ricaricabile = true;
        lamp = {};
        return true;
    }
    if (UTILIZZATORE == kMessaggi) return true;
    ricaricabile = mid(stored.modo_, 7, 1) != "0";
    time_on = decode_time({stored.tempo_on1, stored.tempo_on2});
    delay_on = decode_time({stored.tempo_off1, stored.tempo_off2});
    delay_off = decode_time({queries_.LK_SPEGNIMENTO1, queries_.LK_SPEGNIMENTO2});
    if (user.TIPO_UTILIZZATORE == "SPIA") {
        const int off2 = static_cast<int>(val(stored.tempo_off2));
        const int on1 = static_cast<int>(val(stored.tempo_on1));
        const int on2 = static_cast<int>(val(stored.tempo_on2));
        if (off2 == 0 && on1 == 0 && on2 == 0) {
            lamp.kind = LampSettings::Kind::Steady;
        } else if (off2 > 0 && on1 == 0) {
            // "Luce fissa" was stored as 255 off and reopens as a simple blink.
            lamp.kind = LampSettings::Kind::Simple;
            lamp.t_off = off2;
            lamp.t_on = on2;
        } else {
            lamp.kind = LampSettings::Kind::Composite;
            lamp.pattern = bus_bits(on1) + bus_bits(on2);
        }
    }
    return true;
}

std::string LinkEditor::bus_bits(int value) {
    std::string s(8, '0');
    for (int i = 0; i < 8; ++i)
        if (value & (0x80 >> i)) s[static_cast<std::size_t>(i)] = '1';
    return s;
}

bool LinkEditor::direct_ready() const {
    return mode.REGOLA_LUMINOSITA || mode.VARIA_COLORI == "SI" || mode.SOLO_AVANZATE ||
           user.TIPO_UTILIZZATORE == "VCITOF" || mode.GESTIONE_EMERGENZA ||
           mid(MODO_UTILIZZATORE, 2, 1) == "V";
}

bool LinkEditor::ready() const {
    if (mode.INDICE_MODO == 0) return false;
    return direct_ready() || !opens_advanced_options(mode.FUNZIONE);
}

bool LinkEditor::needs_advanced_options() const {
    if (mode.INDICE_MODO == 0) return false;
    return (!direct_ready() && opens_advanced_options(mode.FUNZIONE)) ||
           needs_reference_point(mode.FUNZIONE);
}

bool LinkEditor::thresholds_differ() const {
    if (STESSO_MODO != "SI" || UTILIZZATORE == kMessaggi) return false;
    const std::string on = mode.LK_ON.empty() ? stored.on_ : mode.LK_ON;
    const std::string off = mode.LK_OFF.empty() ? stored.off_ : mode.LK_OFF;
    return !(queries_.LK_ON_PRECEDENTE == on && queries_.LK_OFF_PRECEDENTE == off);
}

void LinkEditor::keep_previous_thresholds() {
    mode.LK_ON = queries_.LK_ON_PRECEDENTE;
    mode.LK_OFF = queries_.LK_OFF_PRECEDENTE;
}

TimeBoxes LinkEditor::boxes() const {
    TimeBoxes b;
    b.ricaricabile = offer.ricaricabile_shown;
    if (mode.INDICE_MODO == 0 || direct_ready()) return b;
    b.frame9 = b.time_on = b.delay_on = b.delay_off = true;
    if (mode.SOLO_SPEGNE == "SI") b.time_on = b.delay_on = false;
    if (mode.SOLO_ACCENDE == "SI") b.delay_off = false;
    if (mode.FAMIGLIA == "6" && mode.SOLO_ACCENDE != "SI")
        b.time_on = b.delay_on = b.delay_off = false;
    if (mode.SENZA_TIMER == "SI") {
        b.time_on = b.delay_on = b.delay_off = false;
        b.no_timer = true;
    }
    if (UTILIZZATORE == kMessaggi) b.frame9 = b.time_on = b.delay_on = b.delay_off = false;
    if (user.TIPO_UTILIZZATORE == "SPIA" && val(user.numero_uscita) < 7) b.lamp = true;
    const std::string type = user_module_type();
    b.tenths = (type == "25" || type == "26") && !opens_advanced_options(mode.FUNZIONE);
    return b;
}

std::vector<store::LinkRow> LinkEditor::compose() const {
    std::vector<store::LinkRow> rows;
    if (!ready() || needs_advanced_options()) return rows;
    const std::string type = user_module_type();
    const bool messages_link = UTILIZZATORE == kMessaggi;

    store::LinkRow r;
    r.identificativoRX = user.identificativoRX;
    r.numero_uscita = user.numero_uscita;
    r.nick_ricevente = user.nick_ricevente;
    r.identificativoTX = command.identificativoTX;
    r.numero_ingresso = command.numero_ingresso;
    r.nick_trasmittente = command.nick_trasmittente;
    r.opzione = mode.analog_command ? "A" : command.TIPO_COMANDO;

    StoredTime on = typed_time(time_on, type), off = typed_time(delay_on, type);
    const StoredTime spegnimento = typed_time(delay_off, type);
    if (boxes().lamp) {
        switch (lamp.kind) {
            case LampSettings::Kind::Composite:
                on = {byte_text(lamp.pattern.substr(0, 8)), byte_text(lamp.pattern.substr(8, 8))};
                off = {"0", "0"};
                break;
            case LampSettings::Kind::Simple:
                on = {"0", std::to_string(lamp.t_on)};
                off = {"0", std::to_string(lamp.t_off)};
                break;
            case LampSettings::Kind::Steady:
                on = {"0", "0"};
                off = {"0", "255"};
                break;
        }
    }
    if (user.TIPO_UTILIZZATORE == "VCITOF") {
        on = {"0", std::to_string(video_door_code(left(user.identificativoRX, 6),
                                                  static_cast<int>(val(user.numero_uscita))))};
        r.numero_uscita = "1";
    }
    if (mode.GESTIONE_EMERGENZA) on.high = std::to_string(user_valore7_);
    r.tempo_on1 = on.high;
    r.tempo_on2 = on.low;
    r.tempo_off1 = off.high;
    r.tempo_off2 = off.low;

    const std::string& kind = r.opzione;
    ModeFlags flags;
    flags.compared_value = mode.VARIA_COLORI == "SI";
    flags.analog_source = kind == "A" || kind == "V" || kind == "K";
    flags.inverted = mode.INVERTITO == "1";
    flags.retriggerable = ricaricabile && mode.FUNZIONE != 4 && mode.FUNZIONE != 8;
    flags.step_by_step = mode.PASSO_PASSO == "1";
    flags.mode_digit = mode.INDICE_MODO;
    r.modo_ = encode_modo(flags);
    r.on_ = mode.LK_ON.empty() ? stored.on_ : mode.LK_ON;
    r.off_ = mode.LK_OFF.empty() ? stored.off_ : mode.LK_OFF;
    r.and_ = stored.and_.empty() ? "00000000" : stored.and_;
    r.minuto = r.ora = r.giorno = "00";

    WeekFlags week;
    if (mode.GESTIONE_EMERGENZA) {
        week.emergency = CONSENSO_COMANDI == "CONSENTE_COMANDI"
                             ? WeekFlags::Emergency::AllowsCommands
                             : WeekFlags::Emergency::RefusesCommands;
    } else {
        week.tempo_on_in_tenths = r.tempo_on2.ends_with('D');
    }
    week.tempo_off_in_tenths = r.tempo_off2.ends_with('D');
    week.dato13_in_tenths = spegnimento.in_tenths();
    r.settimana = encode_settimana(week);
    r.dato13 = dato13_text(spegnimento);

    if (messages_link) {
        r.modo_ = std::string("00000000") + std::to_string(mode.INDICE_MODO);
        r.modo_[0] = mode.INVERTITO == "1" ? '1' : '0';
        r.modo_[1] = mode.SOLO_SPEGNE == "SI" ? '1' : '0';
        r.modo_[2] = mode.SOLO_ACCENDE == "SI" ? '1' : '0';
        store_message_bits(messages, r);
        rows = {r, store::second_page(r)};
        return rows;
    }

    auto channel_values = [this, &kind](std::size_t first, bool dimmer) {
        const auto& v = valori_avanzati;
        ChannelValues c{v[first],
                        v[first + 1],
                        v[first + 5],
                        v[first + 4],
                        v[first + 3],
                        v[first + 2],
                        v[first + 6],
                        v[first + 7] == "SI",
                        v[first + 8] == "SI",
                        kind == "V" || kind == "A" || (dimmer && kind == "K")};
        return c;
    };
    auto with_events = [&r](const std::string& events) {
        store::LinkRow m = r;
        m.modo_[3] = m.modo_[4] = events == "EVENTI" ? '1' : '0';
        return m;
    };
    switch (shape_of_function(mode.FUNZIONE)) {
        case LinkShape::Plain:
        case LinkShape::PlainUntimed:
            rows = {r, store::second_page(r)};
            break;
        case LinkShape::Dimmer: {
            const store::LinkRow m = with_events(queries_.EVENTI_ROSSO);
            rows = {m, channel_row(m, channel_values(0, true))};
            break;
        }
        case LinkShape::Rgb: {
            const std::string* events[3] = {&queries_.EVENTI_ROSSO, &queries_.EVENTI_VERDE,
                                            &queries_.EVENTI_BLU};
            const bool of_rgb = command.COMANDO_DI_RGB == "DI_RGB";
            for (int c = 0; c < 3; ++c) {
                store::LinkRow m = with_events(*events[c]);
                if (c > 0) {
                    modules_.RIGA_CODICE.clear();
                    modules_.LEGGI_RIGA_ID(ID_UTILIZZATORE + c);
                    if (modules_.RIGA_CODICE.empty()) return {};
                    m.identificativoRX = modules_.RIGA_CODICE + "/" + modules_.RIGA_NUMERO_FILO;
                    m.numero_uscita = modules_.RIGA_NUMERO_FILO;
                    m.nick_ricevente = modules_.RIGA_NICK;
                }
                if (of_rgb) {
                    // The red event is two below the master's; green and blue follow it.
                    m.numero_ingresso =
                        std::to_string(static_cast<long long>(val(r.numero_ingresso)) - 2 + c);
                    m.identificativoTX =
                        std::string(left(r.identificativoTX, 6)) + "/" + m.numero_ingresso;
                }
                rows.push_back(m);
                rows.push_back(
                    channel_row(m, channel_values(9 * static_cast<std::size_t>(c), false)));
            }
            break;
        }
        case LinkShape::WithReference:
        case LinkShape::Nothing:
            break;
    }
    return rows;
}

LinkEditor::Save LinkEditor::COLLEGA(bool replace, std::vector<std::int64_t>* ids) {
    existing_id = 0;
    if (needs_advanced_options()) return Save::NeedsAdvanced;
    if (!ready()) return Save::NotReady;
    if (UTILIZZATORE == kMessaggi && messages.none()) return Save::NoMessages;
    const std::vector<store::LinkRow> rows = compose();
    if (rows.empty()) return Save::NotReady;

    sqlite::Transaction t(modules_.project().database());
    std::vector<std::int64_t> written;
    for (const store::LinkRow& row : rows) {
        links_.LINK_CORRENTE = row;
        if (!store::is_continuation(row)) {
            links_.CERCA_LINK_E();
            if (links_.ESITO_LINK == store::kEsitoImposta) return Save::SetsValue;
            if (links_.ESITO_LINK == store::kEsitoEsisteGia) {
                if (!replace) {
                    existing_id = links_.ID_LINK;
                    return Save::Exists;
                }
                links_.CANCELLA_LINK();
            }
            links_.LINK_CORRENTE = row;
        }
        links_.AGGIUNGI_LINK();
        written.push_back(links_.PROSSIMO_ID_LINK - 1);
    }
    t.commit();
    if (ids) *ids = std::move(written);
    return Save::Saved;
}

void LinkEditor::CANCELLA(std::int64_t id) {
    links_.ID_LINK = id;
    links_.CANCELLA_LINK();
}

}  // namespace filo::links
