#pragma once
// The add-in's command bar as a front-end sees it: described as JSON (captions, types,
// pictures, visible and enabled states, dropdown entries) and checked for what a user
// could click. The runner's dumps and the studio's page read the same description.
#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <vector>

#include "hostmodel/memory_commandbars.h"
#include "hostmodel/memory_vbe.h"

namespace quillet::frontends {

// The add-in's bar, or nullptr while it is not built.
host::MemoryCommandBar* AddInBar(host::MemoryVBE& vbe);

// Every control of the bar, depth first; each entry carries its "path" (1-based indexes
// from the bar down) so that a front-end can name it back.
nlohmann::json DescribeBar(const host::MemoryCommandBar& bar);

// A number that changes whenever anything the description shows changes (controls added,
// removed or written to), so that a front-end redescribes the bar only then.
long long BarChanges(const host::MemoryCommandBar& bar);

// The control at a path of indexes, or nullptr.
std::shared_ptr<host::MemoryControl> ControlAt(const host::MemoryCommandBar& bar, const std::vector<int>& path);

// Why the user could not click the control now (the bar or a control on the way down is
// hidden or disabled); empty when they could, or when the control is not on this bar.
std::string WhyNotClickable(const host::MemoryCommandBar& bar, const host::MemoryControl& control);

}  // namespace quillet::frontends
