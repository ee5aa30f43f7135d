#pragma once
#include <cstdio>
#include <string>

#include "commissioning/module_image_reader.hpp"
#include "store/store_fixture.hpp"

namespace filo::testing {

// An empty project with a reader of module images. Modules are added with the
// shape the store gives them; tests then set the columns they need.
class ModuleImageTest : public StoreTest {
  protected:
    // A new module of the given type, with a code of its own.
    std::string add(const std::string& type, int rows = 16,
                    const std::string& output_tipologia = "RELE") {
        char number[8];
        std::snprintf(number, sizeof number, "%04X", ++modules_);
        const std::string codice = number + type;
        add_module(table, codice, rows, "Quadro", output_tipologia);
        return codice;
    }

    void set(const std::string& codice, int campo, const std::string& column,
             const std::string& value) {
        set_column(project, codice, campo, column, value);
    }

    // Kind letters of the input rows, row 1 first.
    void set_letters(const std::string& codice, const std::string& letters) {
        for (std::size_t i = 0; i < letters.size(); ++i)
            set(codice, static_cast<int>(i + 1), "modo", letters[i] + std::string(23, '0'));
    }

    // The modo of an output row: kind and contact, the AND bits, the RECIPROCO bits.
    static std::string modo(const char* kind, const char* and_bits, const char* reciprocal) {
        return std::string(kind) + and_bits + reciprocal;
    }
    // riserva3 of row 1: the 8 relay bits at zero, then the module parameters.
    static std::string module_row(const char* parameters) {
        return std::string(8, '0') + parameters;
    }

    commissioning::ModuleImage image(const std::string& codice) {
        commissioning::ModuleImageReading r = reader.LEGGI_INGRESSI_MODULO(codice);
        EXPECT_EQ(r.STATO_MODULO, store::kModuloEsistente) << codice;
        return r.IMMAGINE_MODULO;
    }

    commissioning::ModuleImageReader reader{table};

  private:
    int modules_ = 0;
};

}  // namespace filo::testing
