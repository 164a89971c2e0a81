#include "generators/fragment_zones.h"

#include "vba/strings.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kEndOfTop = L"<end_of_top>";
constexpr std::wstring_view kBeginOfBottom = L"<begin_of_bottom>";

// A zone without the line ends at its end.
std::wstring TrailingLineEndsRemoved(std::wstring zone) {
  while (!zone.empty() && (zone.back() == L'\r' || zone.back() == L'\n')) zone.pop_back();
  return zone;
}

}  // namespace

FragmentZones FragmentZonesSplit(const std::wstring& text) {
  FragmentZones z;
  std::wstring rest = text;
  if (long top = vba::InStr(rest, kEndOfTop, vba::Compare::Text); top > 0) {
    z.hasTop = true;
    z.top = TrailingLineEndsRemoved(rest.substr(0, top - 1));
    rest = rest.substr(top - 1 + kEndOfTop.size());
  }
  if (long bottom = vba::InStr(rest, kBeginOfBottom, vba::Compare::Text); bottom > 0) {
    z.hasBottom = true;
    z.bottom = TrailingLineEndsRemoved(rest.substr(bottom - 1 + kBeginOfBottom.size()));
    rest = rest.substr(0, bottom - 1);
  }
  // The line end of the top mark's own line does not belong to the middle.
  if (z.hasTop && rest.starts_with(L"\r\n")) rest.erase(0, 2);
  else if (z.hasTop && rest.starts_with(L"\n")) rest.erase(0, 1);
  z.middle = TrailingLineEndsRemoved(rest);
  return z;
}

}  // namespace quillet::generators
