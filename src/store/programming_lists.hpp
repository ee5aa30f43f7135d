#pragma once
// What a programming run collects from table nick besides the module image:
// the remote controls that radio receivers learn, the texts of serial
// outputs, and the cards of a card reader.
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace filo::store {

class Project;

// A remote control element of the project, numbered by its place in the
// list: the number by which its receiver knows it, counted over the whole
// project.
struct Telecomando {
    std::string A;  // characters 1-2 of its code
    std::string B;  // characters 3-4 of its code
    std::string C;  // the receiver's code: characters 1-6 of riserva4
};

// One OUT_SERIALE row with texts. The index is the row's place in the query
// (from 1); rows of modules of type FF are skipped but keep their place.
struct TestoSeriale {
    int indice = 0;
    std::string codice;
    std::string numero_filo;
    std::string riserva2;
    std::string riserva3;
};

class ProgrammingLists {
  public:
    explicit ProgrammingLists(Project& project) : project_(project) {}

    static constexpr int kMaxTelecomandi = 100;
    static constexpr int kMaxTesti = 255;
    static constexpr int kCardRows = 8;
    static constexpr int kCardsPerRow = 50;

    // LISTA_telecomandi: TELECOMANDI[i - 1] is remote i; at most 100.
    std::vector<Telecomando> TELECOMANDI;
    int N_TELECOMANDI = 0;
    std::string MASCHERA_TELECOMANDI1;
    std::string MASCHERA_TELECOMANDI2;
    std::string MASCHERA_TELECOMANDI3;

    // CERCA_TESTI: at most 255 places.
    std::vector<TestoSeriale> TESTI;

    // CERCA_CARD: CARD[campo][k], 1-based in both (index 0 unused); an
    // empty entry ends the cards of its row.
    std::array<std::array<std::string, kCardsPerRow + 1>, kCardRows + 1> CARD;

    void LISTA_telecomandi();
    void CERCA_TESTI();
    void CERCA_CARD(std::string_view codice_modulo);

  private:
    Project& project_;
};

}  // namespace filo::store
