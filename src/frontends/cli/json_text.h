#pragma once
// Text at the JSON edge: JSON strings are UTF-8, the engine's text is wide.
#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace quillet::cli {

// Scenarios keep their keys in the order written: a form's "set" applies in that order.
using json = nlohmann::ordered_json;

std::wstring W(const json& j);
std::string U(std::wstring_view s);
// A module's code given as one string (lines split at CR LF, CR or LF) or an array of lines.
std::vector<std::wstring> CodeLines(const json& code);
json LinesJson(const std::vector<std::wstring>& lines);
// File bytes as text for the output: UTF-8 with a byte-order mark, else Windows-1252.
std::string FileText(const std::string& bytes);

}  // namespace quillet::cli
