#include "frontends/cli/json_text.h"

#include "vba/encoding.h"
#include "vba/strings.h"

namespace quillet::cli {

std::wstring W(const json& j) { return vba::FromUtf8(j.get<std::string>()); }

std::string U(std::wstring_view s) { return vba::ToUtf8(s); }

std::vector<std::wstring> CodeLines(const json& code) {
  if (code.is_array()) {
    std::vector<std::wstring> lines;
    for (const auto& l : code) lines.push_back(W(l));
    return lines;
  }
  std::wstring text = W(code);
  if (text.empty()) return {};
  std::vector<std::wstring> lines = vba::SplitLines(text);
  // A text that ends with a line end has no empty line behind it.
  if (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

json LinesJson(const std::vector<std::wstring>& lines) {
  json a = json::array();
  a.get_ref<json::array_t&>().reserve(lines.size());
  for (const auto& l : lines) a.push_back(U(l));
  return a;
}

std::string FileText(const std::string& bytes) {
  if (bytes.rfind("\xEF\xBB\xBF", 0) == 0) return bytes.substr(3);
  return vba::ToUtf8(vba::FromWindows1252(bytes));
}

}  // namespace quillet::cli
