#include "links/link_rows.hpp"

#include "common/basic_functions.hpp"

namespace filo::links {
namespace {

std::string plus(const std::string& number, int n) {
    return std::to_string(static_cast<long long>(basic::val(number)) + n);
}

std::string number_text(const std::string& number) {
    return std::to_string(static_cast<long long>(basic::val(number)));
}

}  // namespace

LinkShape shape_of_function(int funzione) {
    switch (funzione) {
        case 1:
        case 2:
        case 10:
        case 20:
        case 22:
            return LinkShape::Plain;
        case 3:
        case 5:
        case 9:
        case 21:
            return LinkShape::WithReference;
        case 4:
        case 8:
            return LinkShape::PlainUntimed;
        case 6:
            return LinkShape::Rgb;
        case 7:
            return LinkShape::Dimmer;
        default:
            return LinkShape::Nothing;
    }
}

store::LinkRow channel_row(const store::LinkRow& main, const ChannelValues& v) {
    store::LinkRow r = main;
    r.ID = 0;
    r.numero_ingresso = plus(main.numero_ingresso, 128);
    r.numero_uscita = plus(main.numero_uscita, 8);
    r.identificativoTX = main.identificativoTX.substr(0, 6) + "/" + r.numero_ingresso;
    r.nick_trasmittente = std::string(store::kSecondaRiga);
    r.opzione = "+";
    r.on_ = v.on_;
    r.off_ = v.off_;
    r.tempo_on1 = v.tempo_on1;
    r.tempo_on2 = v.tempo_on2;
    r.tempo_off1 = v.tempo_off1;
    r.tempo_off2 = v.tempo_off2;
    r.minuto = v.minuto;
    r.modo_ = "00000000";
    if (v.continuous_cycle) r.modo_[1] = '1';
    if (v.analog_source) r.modo_[6] = '1';
    if (v.quick_off) r.modo_[7] = '1';
    r.note.clear();
    return r;
}

void make_reference_main(store::LinkRow& main) {
    if (main.modo_.size() >= 2) main.modo_[1] = '1';
    main.on_ = number_text(main.numero_uscita);
    main.off_ = "0";
}

store::LinkRow reference_row(const store::LinkRow& main, const std::string& setter_identificativoTX,
                             const std::string& setter_nick) {
    store::LinkRow r;
    r.identificativoRX = main.identificativoRX;
    r.numero_uscita = main.numero_uscita;
    r.nick_ricevente = main.nick_ricevente;
    r.identificativoTX = setter_identificativoTX;
    r.numero_ingresso = setter_identificativoTX.substr(setter_identificativoTX.find('/') + 1);
    r.nick_trasmittente = setter_nick;
    r.opzione = "a";
    r.note = std::string(store::kImpostaValoreRiferimento);
    r.modo_ = "01000000" + std::string(basic::mid(main.modo_, 9, 1));
    r.on_ = "0";
    r.off_ = number_text(main.numero_uscita);
    // Times, condition and calendar stay empty: the row only passes a value.
    r.dato13 = main.dato13;
    return r;
}

}  // namespace filo::links
