#pragma once
// The channels of the network gateway. A gateway sets the reference value of
// a point over a numbered channel: the project keeps the channels as the 255
// rows of the pseudo-module FFFEFF in table nick, made when a project first
// needs one, and as links whose command side is the marker NET_GATE.

namespace filo::store {

class ModuleTable;

inline constexpr const char* kCodiceCanali = "FFFEFF";
inline constexpr int kCanali = 255;
// Item data of the channel entry of a list: the channel + this.
inline constexpr int kCanaleItemData = 1000000;

class GatewayChannels {
  public:
    explicit GatewayChannels(ModuleTable& table) : table_(table) {}

    // The channel proposed for a new link; 0 when none is free.
    int CANALE_FORZATO = 0;

    // Makes sure the channel rows exist; leaves STATO_MODULO at
    // "NUOVO_MODULO" when they had to be made, else "MODULO_ESISTENTE".
    void CONTROLLA_PRESENZA_KNG();
    // Appends the 255 channel rows, numbered after the last module.
    void AGGIUNGI_KNG();
    // Names the row of channel n "CANALE  n"; nothing without such a row.
    void MODIFICA_KNG(int n);
    // CANALE_FORZATO = one above the highest channel in use, 1 when none is.
    // The search stops before 250: true, with CANALE_FORZATO 0, when all
    // channels it offers are taken (the caller says so to the installer).
    bool CERCA_CANALE();

  private:
    ModuleTable& table_;
};

}  // namespace filo::store
