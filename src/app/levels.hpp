#pragma once
#include "texts/text_key.hpp"

namespace filo::app {

// The name and the help of a programming level (1 SMART, 2 PROFESSIONALE,
// 3 AVANZATO).
texts::Text level_name(int level);
texts::Text level_help(int level);

}  // namespace filo::app
