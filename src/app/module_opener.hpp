#pragma once

namespace filo::app {

// Who opened the module window, and is shown again when it closes.
enum class ModuleOpener { ProjectWindow, LinkEditor };

}  // namespace filo::app
