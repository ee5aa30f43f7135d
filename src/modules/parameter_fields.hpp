#pragma once
// The fixed-width fields that the module window keeps in table nick: module
// parameters P1..P6 in riserva3 of row 1, point parameters in riserva2, the
// receiver of a remote in riserva4, cards in dati_aggiuntivi1.
#include <string>
#include <string_view>
#include <vector>

namespace filo::modules {

// Between a stored three-digit field and the number shown: "007" shows "7",
// "000" shows "0" (two leading zeros go, else one).
std::string TOGLI_ZERI(std::string_view stored);
// A number typed in a box, as a stored field: left-padded to three digits,
// "" giving "000". Longer texts are kept (the box holds 0..255).
std::string TRE_CIFRE(std::string_view shown);
// A typed value held to the range of a field: digits only, above 255 is 255.
std::string held_to_byte(std::string_view typed);

// STRINGA_PARAMETRI: characters 9 to 26 of riserva3 of row 1, six fields of
// three digits. A row 1 shorter than 26 characters reads as zeros.
std::string module_parameters(const std::string& riserva3_row1);
void set_module_parameters(std::string& riserva3_row1, std::string_view parameters);
// Field n (1..6) of STRINGA_PARAMETRI.
std::string parameter_field(const std::string& parameters, int n);
void set_parameter_field(std::string& parameters, int n, std::string_view value);

// Types 34 and 35 keep one flag at character 10 of STRINGA_PARAMETRI:
// "1" rolling code ("codice variabile"), "0" synchronised code.
bool uses_rolling_code(const std::string& parameters);
void set_rolling_code(std::string& parameters, bool rolling);

// The three fields of riserva2 of a point (1..3).
std::string point_field(const std::string& riserva2, int n);
void set_point_field(std::string& riserva2, int n, std::string_view value);

// Output event values, riserva2 of an output row: the value when on (251
// when stored as 0), when off (9 when 0), and in emergency (0..255, set as a
// percentage of 255).
struct OutputValues {
    int on = 251;
    int off = 9;
    int emergency = 0;
};
OutputValues read_output_values(const std::string& riserva2);
void write_output_values(std::string& riserva2, const OutputValues& values);
int emergency_value_of_percent(int percent);

// The receiver that a remote element belongs to: characters 1 to 6 of
// riserva4 of row 1, "000000" when none.
std::string receiver_code(const std::string& riserva4_row1);
void set_receiver_code(std::string& riserva4_row1, std::string_view code);

// The cards of a read event of a card reader: six characters each, read up
// to character 240 of dati_aggiuntivi1.
std::vector<std::string> cards_of(const std::string& dati_aggiuntivi1);
// Stores the entries that are exactly six characters long, in order.
std::string cards_text(const std::vector<std::string>& entries);

}  // namespace filo::modules
