#pragma once
// IMMAGINE_MODULO: the masks and parameters that the programming run sends to
// one module, read from its rows of table nick.
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace filo::commissioning {

// A fixed array numbered from 1, as the module numbers its wires and rows:
// element i is (i), and (0) or (N + 1) is out of range.
template <typename T, std::size_t N>
class OneBasedArray {
  public:
    explicit OneBasedArray(const T& start) { items_.fill(start); }

    static constexpr int size() { return static_cast<int>(N); }
    static constexpr bool holds(int i) { return i >= 1 && i <= size(); }

    T& operator()(int i) { return items_.at(static_cast<std::size_t>(i - 1)); }
    const T& operator()(int i) const { return items_.at(static_cast<std::size_t>(i - 1)); }

    bool operator==(const OneBasedArray&) const = default;

  private:
    std::array<T, N> items_;
};

// "000": the module keeps its own value and no frame is sent for it.
inline constexpr const char* kNotSent = "000";
// TIPOLOGIE of a module with no input kinds: the run does not send it.
inline constexpr const char* kNoInputTypes = "FF0000000000";
// MASCHERA_INGRESSI of a module with remote points (letter R): the run skips
// such a module in its reset, kinds and parameter phases.
inline constexpr int kRemotePointsMask = 500;

// Masks are 16-bit numbers (bit n - 1 for wire n; MASCHERA_INGRESSI may also
// hold 500 and more); numbers in text form are three decimal digits.
struct ModuleImage {
    int MASCHERA_INGRESSI = 0;
    int MASCHERA_V = 0;
    int MASCHERA_A = 0;
    int MASCHERA_F = 0;
    int MASCHERA_T = 0;
    int MASCHERA_N = 0;
    int MASCHERA_SICUREZZE = 0;
    int MASCHERA_INVERTITI = 0;

    std::string TIPOLOGIE = kNoInputTypes;  // 12 hex digits
    std::string HEX_INVERTITI = "00";
    std::string HEX_SICUREZZE = "00";

    // Bit strings of relay wire w, first character bit 0.
    OneBasedArray<std::string, 8> AND_USCITA{"00000000"};
    OneBasedArray<std::string, 8> RECIPROCI_USCITA{"00000000"};
    // Entries of radio sockets, by wire.
    OneBasedArray<std::string, 8> CIABATTA{"0000"};

    // Parameters of input row r and analog event values of relay row r.
    OneBasedArray<std::string, 16> PARAMETRO_1{kNotSent};
    OneBasedArray<std::string, 16> PARAMETRO_2{kNotSent};
    OneBasedArray<std::string, 16> PARAMETRO_3{kNotSent};
    OneBasedArray<std::string, 16> EVENTO_1{kNotSent};
    OneBasedArray<std::string, 16> EVENTO_2{kNotSent};

    // Module parameters P1 to P6; 7 and 8 are P4 and P5 of type "0B".
    std::string PERSONALIZZATO_1 = kNotSent;
    std::string PERSONALIZZATO_2 = kNotSent;
    std::string PERSONALIZZATO_3 = kNotSent;
    std::string PERSONALIZZATO_4 = kNotSent;
    std::string PERSONALIZZATO_5 = kNotSent;
    std::string PERSONALIZZATO_6 = kNotSent;
    std::string PERSONALIZZATO_7 = kNotSent;
    std::string PERSONALIZZATO_8 = kNotSent;

    std::string MASCHERA_GRUPPI = kNotSent;
    OneBasedArray<std::string, 32> GRUPPO{kNotSent};
    std::string RIGHE_GRUPPO = kNotSent;
    std::string MESSAGGI_ATTIVI;  // "SI" or ""
    std::string NUMERO_TX_RF = kNotSent;

    bool operator==(const ModuleImage&) const = default;
};

// The image as NAME=value pairs in the order of its table, arrays as
// NAME(i) from 1, masks in decimal.
std::vector<std::pair<std::string, std::string>> named_values(const ModuleImage& image);

// A mask or a three-digit value as one byte of a frame: two upper-case hex
// digits, "00" for anything that is not a number from 0 to 255.
std::string byte_hex(long long value);

}  // namespace filo::commissioning
