#pragma once
// The image of a stored link for the bus: RECORD_LINK, the 35 characters of
// a kind "1" frame, made from a row of associazioni as it is stored.
#include <string>

#include "store/link_row.hpp"

namespace filo::store {
class LinkTable;
}

namespace filo::links {

struct LinkImage {
    std::string RECORD_LINK;    // "" for a row without receiver: no frame is sent
    std::string INGRESSO_HEX;   // the command's number, two hex digits
    std::string CODICE_MODULO;  // the receiving module
    std::string nick_trasmittente;
    std::string codice_trasmittente;  // the first six characters of identificativoTX
    // The first input of a photosensor drives the link: its name goes to the
    // list of regulators offered at the end of a run.
    bool regulator_source = false;
};

// The record of one row: numbers in hexadecimal, percentages ("/nnn") on the
// bus scale, the delay before switching off in the place of the time of day,
// the video door pages under their one bus address.
LinkImage link_image(const store::LinkRow& row);

// LEGGIprossimoLINK: the image of row L_ID(n) of TABELLA_LINK (n from 1), read
// anew from the table. False, and the image untouched, when the row is gone.
bool LEGGIprossimoLINK(store::LinkTable& links, int n, LinkImage& image);

// The frame that programs a link: "(" checksum "1" record "]".
std::string link_frame(const std::string& record_link);

}  // namespace filo::links
