#pragma once
// The rows that make one link in table associazioni. A link is a run of
// consecutive rows; readers find the continuation rows by position.
#include <string>
#include <vector>

#include "store/link_row.hpp"

namespace filo::links {

// How the link editor stores a link, by the FUNZIONE of its mode.
enum class LinkShape {
    Plain,          // main row, second page (store::second_page)
    PlainUntimed,   // thermostat and power modes: no retrigger, then plain
    WithReference,  // main row, second page, reference row, second page
    Dimmer,         // main row, channel row
    Rgb,            // three times: main row, channel row
    Nothing,        // modes that store no link
};
LinkShape shape_of_function(int funzione);

// The values a channel row carries for a dimmer or RGB channel: the ramp of
// the advanced options.
struct ChannelValues {
    std::string on_, off_;
    std::string tempo_on1, tempo_on2, tempo_off1, tempo_off2;
    std::string minuto;             // the start level of the ramp
    bool continuous_cycle = false;  // modo_ character 2
    bool quick_off = false;         // modo_ character 8
    bool analog_source = false;     // modo_ character 7: the source is of kind V, A (or K)
};
// The row behind a dimmer or RGB main row: the same output, the command's
// number + 128 and the output's + 8, marked "SECONDA RIGA".
store::LinkRow channel_row(const store::LinkRow& main, const ChannelValues& values);

// The row by which a point sets the reference value of the main row's
// output. The main row itself gets on_ = the output's number, off_ "0" and
// "USA VALORE COMPARATO" (make_reference_main).
void make_reference_main(store::LinkRow& main);
store::LinkRow reference_row(const store::LinkRow& main, const std::string& setter_identificativoTX,
                             const std::string& setter_nick);

}  // namespace filo::links
