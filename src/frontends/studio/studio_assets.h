#pragma once
// The page's files, built into the program: "index.html", "studio.js", "studio.css".
#include <string>
#include <string_view>

namespace quillet::studio {

// The file's bytes; empty for an unknown name.
std::string_view StudioAsset(const std::string& name);

}  // namespace quillet::studio
