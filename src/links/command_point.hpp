#pragma once
// How a selected command point and user point become the point fields of a link.
#include <cstdint>
#include <optional>
#include <string>

namespace filo::links {

// A row of table nick as the link editor reads it (LEGGI_RIGA_ID).
struct PointRow {
    std::string codice;
    std::string numero_filo;
    std::string nick;
    std::string modo;
    std::string tipologia;
};

// Item data 99999 marks a heading line of a selection list.
inline constexpr std::int64_t kHeadingItemData = 99999;
// Item data above this is a message module's code with a leading "1".
inline constexpr std::int64_t kLargestRowItemData = 16777215;

// The event that a block of hundred thousands of item data stands for.
struct CommandEvent {
    std::int64_t id = 0;         // ID of the nick row
    std::string EVENTO_COMANDO;  // "", "ON", "OFF", "TENUTO", "ALMENO1", ...
    int number_offset = 0;       // added to numero_filo
    int fixed_number = 0;        // aggregate and presence events: the number itself
    std::string fixed_name;      // their name in place of the point's
    bool rgb_master = false;     // COMANDO_DI_RGB = "DI_RGB"
};

// Decodes the item data of a command list entry; nothing for a heading line
// or for a value that is no command entry.
std::optional<CommandEvent> decode_command_item(std::int64_t item_data);

// The command point as a link stores it, and the editor's view of its kind.
struct CommandPoint {
    std::string identificativoTX;
    std::string numero_ingresso;
    std::string nick_trasmittente;
    std::string TIPO_COMANDO;    // also stored in column opzione
    std::string CLASSE_COMANDO;  // chooses the table of modes
    std::string EVENTO_COMANDO;
    std::string COMANDO_DI_RGB;  // "DI_RGB" or ""
};
CommandPoint compose_command(const CommandEvent& event, const PointRow& row);

// The user point as a link stores it.
struct UserPoint {
    std::string identificativoRX;
    std::string numero_uscita;
    std::string nick_ricevente;
    std::string TIPO_UTILIZZATORE;
};
UserPoint compose_user(const PointRow& row);

}  // namespace filo::links
