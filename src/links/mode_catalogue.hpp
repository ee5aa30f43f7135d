#pragma once
// The modes a link editor offers for a pair of a command point and a user
// point (Option1(1) to Option1(9)), what each is called and what selecting it
// writes into the fields of a link. Every compatibility rule between kinds of
// point lives here, as tables: the window, filo-cli and the tests read them.
#include <array>
#include <string>
#include <string_view>

namespace filo::texts {
class LanguageTables;
}

namespace filo::links {

inline constexpr int kModeCount = 9;

// What the catalogue needs to know of a selected pair.
struct ModePair {
    std::string TIPO_COMANDO{};       // P, p, T, t, I, E, ES, EP, card, ...
    std::string CLASSE_COMANDO{};     // "INPUT", "PRESENZA", "EVENTO", ...
    std::string TIPO_UTILIZZATORE{};  // RELE, SPIA, RGB, DIMMER, VCITOF, FLAG, ""
    // "MESSAGGI" (a message module), "USA GRUPPO" (a group) or "".
    std::string UTILIZZATORE{};
    std::string MODO_UTILIZZATORE{};  // modo of the user row: character 2 "V" is a variator relay
    std::string user_module_type{};   // characters 5 and 6 of the user module's code
    int numero_uscita = 0;            // of the user point
    std::string CONSENSO_COMANDI{};   // "CONSENTE_COMANDI", "NON_CONSENTE_COMANDI" or ""
};

// SENZA_TIMER: flag points, and the flag outputs (above 8) of the module
// types that have them, have no timers.
std::string SENZA_TIMER(const ModePair& pair);

// The family of a pair and the modes it shows, with their captions.
struct ModeOffer {
    std::string FAMIGLIA;  // "" when nothing is offered
    std::string SENZA_TIMER;
    std::array<bool, kModeCount + 1> shown{};  // 1 to 9
    std::array<std::string, kModeCount + 1> caption;
    // Label1 and Check1 ("Ricaricabile").
    bool ricaricabile_shown = false;

    bool offers(int mode) const { return mode >= 1 && mode <= kModeCount && shown[mode]; }
    bool empty() const;
};
ModeOffer offer_modes(const ModePair& pair, const texts::LanguageTables& texts);

// The working fields that a mode sets; the editor turns them into columns.
struct ModeFields {
    std::string FAMIGLIA = "0";
    int INDICE_MODO = 0;
    std::string LK_ON, LK_OFF;              // "" leaves the stored value
    std::string SOLO_ACCENDE, SOLO_SPEGNE;  // "SI" or ""
    std::string PASSO_PASSO, INVERTITO;     // "1" or ""
    int FUNZIONE = 1;
    bool SOLO_AVANZATE = false;
    std::string VARIA_COLORI;  // "SI" or ""
    bool REGOLA_LUMINOSITA = false;
    bool GESTIONE_EMERGENZA = false;
    std::string SENZA_TIMER;
    bool LAMPEGGIO_AMMESSO = true;
    bool analog_command = false;  // "Comando analogico diretto": TIPO_COMANDO becomes A
};

// The settings of mode `index` of the offer's family for the pair: the
// family's base, then the mode's, then what the user's kind imposes.
ModeFields select_mode(const ModePair& pair, const ModeOffer& offer, int index);

// The ramp that "Regola la luminosità ambiente" fixes, as entries of
// VALORI_AVANZATI (index, value).
inline constexpr std::array<std::pair<int, std::string_view>, 5> kRegolaLuminositaRamp = {
    {{2, "1"}, {3, "1"}, {4, "10"}, {5, "10"}, {6, "200"}}};

// A video door panel takes a code in place of the output number, by the
// module of the user row; -1 for a module that has none.
int video_door_code(std::string_view user_module, int numero_uscita);

// The advanced options a mode opens by itself once a link is otherwise
// complete (thermostats, power limits, dimmers and RGB outputs), or whose
// storing needs the point that sets the reference value.
bool opens_advanced_options(int funzione);
bool needs_reference_point(int funzione);

}  // namespace filo::links
