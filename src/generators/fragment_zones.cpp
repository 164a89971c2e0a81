#include "generators/fragment_zones.h"

#include "vba/strings.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kEndOfTop = L"<end_of_top>";
constexpr std::wstring_view kBeginOfBottom = L"<begin_of_bottom>";

// A zone without the line end that closes it and the one that opens it: the lines of the
// zone are what is placed, each place supplying its own line break.
std::wstring Trimmed(std::wstring zone) {
  if (zone.starts_with(L"\r\n")) zone.erase(0, 2);
  else if (zone.starts_with(L"\n")) zone.erase(0, 1);
  if (zone.ends_with(L"\r\n")) zone.resize(zone.size() - 2);
  else if (zone.ends_with(L"\n")) zone.resize(zone.size() - 1);
  return zone;
}

}  // namespace

FragmentZones FragmentZonesSplit(const std::wstring& text) {
  FragmentZones z;
  std::wstring rest = text;
  if (long top = vba::InStr(rest, kEndOfTop, vba::Compare::Text); top > 0) {
    z.hasTop = true;
    z.top = Trimmed(rest.substr(0, top - 1));
    rest = rest.substr(top - 1 + kEndOfTop.size());
  }
  if (long bottom = vba::InStr(rest, kBeginOfBottom, vba::Compare::Text); bottom > 0) {
    z.hasBottom = true;
    z.bottom = Trimmed(rest.substr(bottom - 1 + kBeginOfBottom.size()));
    rest = rest.substr(0, bottom - 1);
  }
  z.middle = Trimmed(rest);
  return z;
}

}  // namespace quillet::generators
