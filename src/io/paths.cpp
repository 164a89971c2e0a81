#include "io/paths.h"

#include <vector>

#include "vba/text.h"

namespace quillet::io {
namespace {

bool IsSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

bool IsDriveLetter(wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z'); }

bool HasDrive(std::wstring_view path) {
  return path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == L':';
}

bool IsUnc(std::wstring_view path) {
  return path.size() >= 3 && IsSeparator(path[0]) && IsSeparator(path[1]) && !IsSeparator(path[2]);
}

// Index of the first character after the last separator (or after "C:"), 0 if none.
std::size_t NameStart(std::wstring_view path) {
  for (std::size_t i = path.size(); i > 0; --i)
    if (IsSeparator(path[i - 1])) return i;
  return HasDrive(path) ? 2 : 0;
}

std::vector<std::wstring_view> SplitParts(std::wstring_view s) {
  std::vector<std::wstring_view> parts;
  std::size_t i = 0;
  while (i < s.size()) {
    while (i < s.size() && IsSeparator(s[i])) ++i;
    std::size_t start = i;
    while (i < s.size() && !IsSeparator(s[i])) ++i;
    if (i > start) parts.push_back(s.substr(start, i - start));
  }
  return parts;
}

struct Rooted {
  std::wstring root;       // "C:\", "C:", "\\server\share\", "\" or empty
  std::wstring_view rest;  // what follows the root
  bool absolute = true;
};

// Splits off the root, which normalizing keeps as it is (with an upper-case drive letter).
Rooted SplitRoot(std::wstring_view path) {
  Rooted r;
  r.rest = path;
  if (IsUnc(path)) {
    auto parts = SplitParts(path);
    r.root = L"\\\\" + std::wstring(parts[0]);
    std::size_t used = 2 + parts[0].size();
    if (parts.size() > 1) {
      used = path.find(parts[1], used) + parts[1].size();
      r.root += L'\\';
      r.root += parts[1];
    }
    r.root += L'\\';
    r.rest = path.substr(used);
  } else if (HasDrive(path)) {
    r.root = std::wstring(path.substr(0, 2));
    r.root[0] = vba::ToUpper(r.root[0]);
    r.rest = path.substr(2);
    r.absolute = !r.rest.empty() && IsSeparator(r.rest[0]);
    if (r.absolute) r.root += L'\\';
  } else if (!path.empty() && IsSeparator(path[0])) {
    r.root = L"\\";
  } else {
    r.absolute = false;
  }
  return r;
}

}  // namespace

bool IsAbsoluteWindowsPath(std::wstring_view path) {
  if (HasDrive(path)) return path.size() == 2 || IsSeparator(path[2]);
  return IsUnc(path);
}

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
  if (IsAbsoluteWindowsPath(name) || folder.empty()) return std::wstring(name);
  std::size_t end = folder.size();
  // Exactly one separator between the parts, whatever each side brought.
  while (end > 0 && IsSeparator(folder[end - 1])) --end;
  std::size_t start = 0;
  while (start < name.size() && IsSeparator(name[start])) ++start;
  std::wstring out(folder.substr(0, end));
  out += L'\\';
  out += name.substr(start);
  return out;
}

std::wstring FolderOf(std::wstring_view path) { return std::wstring(path.substr(0, NameStart(path))); }

std::wstring FileNameOf(std::wstring_view path) { return std::wstring(path.substr(NameStart(path))); }

std::wstring ExtensionOf(std::wstring_view path) {
  std::wstring_view name = path.substr(NameStart(path));
  std::size_t dot = name.rfind(L'.');
  return dot == std::wstring_view::npos ? std::wstring() : std::wstring(name.substr(dot));
}

std::wstring NormalizePath(std::wstring_view path) {
  auto [root, rest, absolute] = SplitRoot(path);
  std::vector<std::wstring_view> kept;
  for (std::wstring_view part : SplitParts(rest)) {
    if (part == L".") continue;
    if (part == L"..") {
      if (!kept.empty() && kept.back() != L"..") {
        kept.pop_back();
      } else if (!absolute && root.empty()) {
        kept.push_back(part);  // a relative path may climb above its start
      }
      continue;
    }
    kept.push_back(part);
  }

  std::wstring out = root;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (i > 0) out += L'\\';
    out += kept[i];
  }
  bool trailing = !rest.empty() && IsSeparator(rest.back());
  if (trailing && !kept.empty()) out += L'\\';
  if (out.empty() && !path.empty()) out = L".";
  return out;
}

bool SamePath(std::wstring_view a, std::wstring_view b) {
  // A final "\" does not make another path, except that it is part of a root.
  auto comparable = [](std::wstring_view p) {
    std::wstring s = NormalizePath(p);
    if (s.size() > SplitRoot(s).root.size() && s.back() == L'\\') s.pop_back();
    return s;
  };
  return vba::EqualsText(comparable(a), comparable(b));
}

}  // namespace quillet::io
