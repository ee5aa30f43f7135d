#pragma once
// What differs by type in the one module window, as data: the kinds offered
// on inputs, the contacts offered on outputs, the parameters of the options
// page with their captions and defaults, and the special options. The six
// commands of a description are the functions below; a window renders their
// results and never reads the fields itself.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "modules/type_catalogue.hpp"

namespace filo::store {
struct ModuleRecord;
}
namespace filo::texts {
class LanguageTables;
}

namespace filo::modules {

enum class KindList { Standard, Photosensor, Probe, RemoteButton, VideoDoor, Cards, None };
// ListsA: outputs 1 to 4 N.A. or N.C., 5 to 8 N.A. or VARIATORE; the two
// relay module has N.A. alone on its virtual outputs 3 and 4.
enum class ContactList { ListsA, ListsTwoRelays, OpenOrClosed, OpenOnly, None };
enum class NamesShown { Outputs, OutputsAndFlags, LinkTestOnly, None };
enum class SpecialOptions { None, Channels, Reader, CodeFlag };

// A box of the options page, in page order: it edits field P<field> of the
// module. A box with field 0 is not on the page.
struct ParameterBox {
    int field = 0;
    texts::Text caption{};
    std::string_view default_value;  // shown when the stored value is 0; "" for none
};

struct DescriptionModel {
    Description id;
    KindList kinds;
    ContactList contacts;
    NamesShown names;
    std::uint8_t fields_written;  // bit n-1 for P<n>
    std::array<ParameterBox, 6> boxes;
    std::uint8_t hidden_contacts;  // bit j-1: the contact list of output j is hidden
    std::uint8_t hidden_marks;     // bit j-1: the option button of output j is hidden
    bool mark_test;                // outputs with options set are marked
    SpecialOptions options;
};
const DescriptionModel& model_of(Description description);

// The default constants, as the descriptions and the image use them.
struct PREDEFINITI_MODULO {
    static constexpr std::string_view P3_ANTIRIMBALZO = "020";
    static constexpr std::string_view P4_LAMPEGGIO_ON = "010";
    static constexpr std::string_view P5_LAMPEGGIO_OFF = "010";
    static constexpr std::string_view P6_ROLLING_CODE = "030";
    static constexpr std::string_view P2_FOTOSENSORE = "005";
    static constexpr std::string_view P3_FOTOSENSORE = "040";
    static constexpr std::string_view P4_FOTOSENSORE = "125";
    static constexpr std::string_view P5_FOTOSENSORE = "200";
    static constexpr std::string_view P6_FOTOSENSORE = "001";
    static constexpr std::string_view P2_SONDA = "040";
};

// "OPZIONICOMBO_in": the entries of the kind list of input i (1..8). Item
// data is the letter's character code; for a card reader the list holds the
// cards of read event i after its heading, with item data 0.
struct ListOption {
    std::string text;
    int item_data = 0;
};
// The kind letters offered on the inputs of a type, in list order (none for
// the card reader, whose list holds cards).
std::vector<char> offered_kinds(const ModuleType& type);
std::vector<ListOption> kind_options(const ModuleType& type, int input,
                                     const store::ModuleRecord& record,
                                     const texts::LanguageTables& texts);

// "NOMI_OUT" for output box j (1..8), and flags 9..24 for the names alone.
struct OutputBox {
    std::string name;
    std::vector<char> contacts;   // offered, by contact character; empty when the list is hidden
    char contact = kContactOpen;  // character 2 of modo
    bool options_marked = false;  // modo holds settings from character 3 on
    bool option_button_hidden = false;
};
OutputBox output_box(const ModuleType& type, int j, const store::ModuleRecord& record);

// "GRAFICABASE": the window's heading, buttons and box captions. The video
// door pages take the page's code to number their boxes.
struct WindowLayout {
    std::string name;
    std::uint8_t buttons = 0;
    std::array<std::string, 9> input_captions;   // [i], i = 1..8; "" = box hidden
    std::array<std::string, 9> output_captions;  // [j], j = 1..8
};
WindowLayout window_layout(const ModuleType& type, const std::string& module_code,
                           const texts::LanguageTables& texts);

// "DEFOULT_read": the options page as it opens.
struct ParameterPage {
    struct Box {
        int field = 0;
        std::string caption;
        std::string value;  // as shown: leading zeros dropped, or the default
        bool visible = true;
    };
    std::vector<Box> boxes;
    SpecialOptions options = SpecialOptions::None;
    bool rgb_channels = false;  // Channels: "CANALE   R G B" rather than single channels
    char reader = 'G';          // Reader: 'E' external, 'I' internal, 'G' generic
    bool rolling_code = false;  // CodeFlag
    std::array<std::vector<std::string>, 9> cards;  // Reader: the card list of event i
};
ParameterPage read_parameters(const ModuleType& type, const store::ModuleRecord& record,
                              const texts::LanguageTables& texts);
// "DEFOULT_write": the page back into the record. Fields that the page reads
// but does not show keep their stored value; values are held to 0..255.
void write_parameters(const ModuleType& type, const ParameterPage& page,
                      store::ModuleRecord& record);

// The options of an input, by its kind (the three fields of riserva2):
// caption and default of each field offered; none offered says "no setting".
struct InputParameter {
    int field;
    texts::Text caption;
    std::string_view default_value;
};
std::vector<InputParameter> input_parameters(char kind);
// Kinds whose page tests timed reading: with P2 set they take no threshold.
bool is_analog_kind(char kind);

// The fields P<n> of the module's page as it shows for this record: bit n-1.
std::uint8_t shown_fields(const ModuleType& type, const store::ModuleRecord& record);
// Does the window of the type show input box i, output box j (1..8) or flag
// j (9..24)? The video door pages take the page's code.
bool shows_input(const ModuleType& type, int i);
bool shows_output(const ModuleType& type, const std::string& module_code, int j);

}  // namespace filo::modules
