#include "io/shell_link.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "io/paths.h"
#include "vba/encoding.h"
#include "vba/error.h"

namespace quillet::io {
namespace {

// Flags of the header.
constexpr uint32_t kHasLinkTargetIdList = 0x1;
constexpr uint32_t kHasLinkInfo = 0x2;
constexpr uint32_t kHasName = 0x4;
constexpr uint32_t kHasRelativePath = 0x8;
constexpr uint32_t kHasWorkingDir = 0x10;
constexpr uint32_t kHasArguments = 0x20;
constexpr uint32_t kHasIconLocation = 0x40;
constexpr uint32_t kIsUnicode = 0x80;
// Flags of the link info.
constexpr uint32_t kVolumeIdAndLocalBasePath = 0x1;
constexpr uint32_t kCommonNetworkRelativeLink = 0x2;

constexpr uint32_t kHeaderSize = 0x4C;
constexpr unsigned char kLinkClsid[16] = {0x01, 0x14, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00,
                                          0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46};
constexpr uint32_t kFileAttributeArchive = 0x20;
constexpr uint32_t kDriveFixed = 3;

[[noreturn]] void Refuse(const std::string& why) {
  vba::Raise(vba::kErrInvalidCall, L"The shortcut is not a valid shell link: " + vba::FromUtf8(why) + L".");
}

// A bounded view of the bytes: every read names the field it is for, so a short or
// malformed file says where it breaks.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : b_(bytes) {}

  size_t Size() const { return b_.size(); }
  void Need(size_t at, size_t count, const char* field) const {
    if (at > b_.size() || count > b_.size() - at) Refuse(std::string("the file ends inside ") + field);
  }
  uint32_t U8(size_t at, const char* field) const {
    Need(at, 1, field);
    return static_cast<unsigned char>(b_[at]);
  }
  uint32_t U16(size_t at, const char* field) const {
    Need(at, 2, field);
    return U8(at, field) | U8(at + 1, field) << 8;
  }
  uint32_t U32(size_t at, const char* field) const {
    Need(at, 4, field);
    return U16(at, field) | U16(at + 2, field) << 16;
  }
  // A string that ends at a NUL byte, in the Windows code page.
  std::wstring Ansi(size_t at, size_t end, const char* field) const {
    Need(at, 0, field);
    size_t nul = b_.find('\0', at);
    if (nul == std::string_view::npos || nul >= end) Refuse(std::string("the file ends inside ") + field);
    return vba::FromWindows1252(b_.substr(at, nul - at));
  }
  // A string that ends at a NUL character, in UTF-16.
  std::wstring Unicode(size_t at, size_t end, const char* field) const {
    std::vector<uint16_t> units;
    for (;; at += 2) {
      if (at + 2 > end) Refuse(std::string("the file ends inside ") + field);
      uint32_t u = U16(at, field);
      if (u == 0) break;
      units.push_back(static_cast<uint16_t>(u));
    }
    return FromUtf16(units);
  }
  std::wstring Utf16(size_t at, size_t count, const char* field) const {
    Need(at, count * 2, field);
    std::vector<uint16_t> units(count);
    for (size_t i = 0; i < count; ++i) units[i] = static_cast<uint16_t>(U16(at + 2 * i, field));
    return FromUtf16(units);
  }
  std::string_view Bytes(size_t at, size_t count, const char* field) const {
    Need(at, count, field);
    return b_.substr(at, count);
  }

  static std::wstring FromUtf16(const std::vector<uint16_t>& units) {
    std::wstring out;
    for (size_t i = 0; i < units.size(); ++i) {
      uint32_t u = units[i];
      if constexpr (sizeof(wchar_t) == 4) {
        if (u >= 0xD800 && u < 0xDC00 && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000) {
          u = 0x10000 + ((u - 0xD800) << 10) + (units[++i] - 0xDC00);
        }
      }
      out += static_cast<wchar_t>(u);
    }
    return out;
  }

 private:
  std::string_view b_;
};

// ---- reading ----

// The path an ID list spells, when it is made of a drive and file system entries; empty
// for anything else (a network place, a virtual folder).
std::wstring IdListPath(const Reader& r, size_t at, size_t end) {
  std::wstring path;
  while (true) {
    if (at + 2 > end) Refuse("LinkTargetIDList has no TerminalID");
    uint32_t size = r.U16(at, "LinkTargetIDList.ItemID");
    if (size == 0) break;
    if (size < 3 || at + size > end) Refuse("LinkTargetIDList.ItemID has a wrong size");
    size_t data = at + 2, dataEnd = at + size;
    uint32_t type = r.U8(data, "LinkTargetIDList.ItemID");
    if (type == 0x1F) {
      // The root: a shell folder by its class; the computer holds the drives.
    } else if ((type & 0x70) == 0x20) {
      path = r.Ansi(data + 1, dataEnd, "LinkTargetIDList volume item");
      if (!path.empty() && path.back() != L'\\') path += L'\\';
    } else if ((type & 0x70) == 0x30 && !path.empty()) {
      size_t nameAt = data + 12;
      bool unicode = (type & 0x04) != 0;
      std::wstring name = unicode ? r.Unicode(nameAt, dataEnd, "LinkTargetIDList file entry name")
                                  : r.Ansi(nameAt, dataEnd, "LinkTargetIDList file entry name");
      // The short name comes first; the long name lies in the extension block behind it.
      size_t ext = nameAt + (unicode ? 2 * (name.size() + 1) : name.size() + 1);
      if ((ext - at) % 2) ++ext;
      if (ext + 8 <= dataEnd && r.U32(ext + 4, "LinkTargetIDList extension") == 0xBEEF0004) {
        uint32_t version = r.U16(ext + 2, "LinkTargetIDList extension");
        size_t longAt = ext + 18 + (version >= 7 ? 18 : 0) + (version >= 3 ? 2 : 0) + (version >= 9 ? 4 : 0) +
                        (version >= 8 ? 4 : 0);
        size_t extEnd = ext + r.U16(ext, "LinkTargetIDList extension");
        if (extEnd <= dataEnd && longAt < extEnd) {
          std::wstring longName = r.Unicode(longAt, extEnd, "LinkTargetIDList long name");
          if (!longName.empty()) name = longName;
        }
      }
      if (path.back() != L'\\') path += L'\\';
      path += name;
    } else {
      return {};
    }
    at += size;
  }
  return path;
}

// The target that the link info holds: the local base path, or the share's name, each
// followed by the common path suffix.
std::wstring LinkInfoPath(const Reader& r, size_t at) {
  uint32_t size = r.U32(at, "LinkInfo.LinkInfoSize");
  uint32_t headerSize = r.U32(at + 4, "LinkInfo.LinkInfoHeaderSize");
  if (size < 0x1C || headerSize < 0x1C || headerSize > size) Refuse("LinkInfo.LinkInfoHeaderSize is wrong");
  r.Need(at, size, "LinkInfo");
  size_t end = at + size;
  uint32_t flags = r.U32(at + 8, "LinkInfo.LinkInfoFlags");
  auto field = [&](size_t offset, const char* name) -> size_t {
    uint32_t v = r.U32(at + offset, name);
    if (v >= size) Refuse(std::string(name) + " points outside LinkInfo");
    return at + v;
  };
  bool unicodeOffsets = headerSize >= 0x24;
  std::wstring suffix;
  if (unicodeOffsets && r.U32(at + 0x20, "LinkInfo.CommonPathSuffixOffsetUnicode") != 0)
    suffix = r.Unicode(field(0x20, "LinkInfo.CommonPathSuffixOffsetUnicode"), end, "LinkInfo.CommonPathSuffixUnicode");
  else if (r.U32(at + 0x18, "LinkInfo.CommonPathSuffixOffset") != 0)
    suffix = r.Ansi(field(0x18, "LinkInfo.CommonPathSuffixOffset"), end, "LinkInfo.CommonPathSuffix");

  std::wstring base;
  if (flags & kVolumeIdAndLocalBasePath) {
    size_t volume = field(0x0C, "LinkInfo.VolumeIDOffset");
    if (r.U32(volume, "VolumeID.VolumeIDSize") <= 0x10) Refuse("VolumeID.VolumeIDSize is too small");
    if (unicodeOffsets && r.U32(at + 0x1C, "LinkInfo.LocalBasePathOffsetUnicode") != 0)
      base = r.Unicode(field(0x1C, "LinkInfo.LocalBasePathOffsetUnicode"), end, "LinkInfo.LocalBasePathUnicode");
    else
      base = r.Ansi(field(0x10, "LinkInfo.LocalBasePathOffset"), end, "LinkInfo.LocalBasePath");
  } else if (flags & kCommonNetworkRelativeLink) {
    size_t net = field(0x14, "LinkInfo.CommonNetworkRelativeLinkOffset");
    uint32_t netSize = r.U32(net, "CommonNetworkRelativeLink.CommonNetworkRelativeLinkSize");
    if (netSize < 0x14 || net + netSize > end) Refuse("CommonNetworkRelativeLink.CommonNetworkRelativeLinkSize is wrong");
    uint32_t nameOffset = r.U32(net + 8, "CommonNetworkRelativeLink.NetNameOffset");
    if (nameOffset > 0x14 && netSize >= 0x1C && r.U32(net + 0x14, "CommonNetworkRelativeLink.NetNameOffsetUnicode") != 0)
      base = r.Unicode(net + r.U32(net + 0x14, "CommonNetworkRelativeLink.NetNameOffsetUnicode"), net + netSize,
                       "CommonNetworkRelativeLink.NetNameUnicode");
    else
      base = r.Ansi(net + nameOffset, net + netSize, "CommonNetworkRelativeLink.NetName");
    if (!suffix.empty() && !base.empty() && base.back() != L'\\') base += L'\\';
  }
  return base + suffix;
}

// ---- writing ----

void PutU16(std::string& out, uint32_t v) {
  out += static_cast<char>(v & 0xFF);
  out += static_cast<char>((v >> 8) & 0xFF);
}
void PutU32(std::string& out, uint32_t v) {
  PutU16(out, v & 0xFFFF);
  PutU16(out, v >> 16);
}
void SetU32(std::string& out, size_t at, uint32_t v) {
  for (int i = 0; i < 4; ++i) out[at + i] = static_cast<char>((v >> (8 * i)) & 0xFF);
}
std::vector<uint16_t> ToUtf16(std::wstring_view s) {
  std::vector<uint16_t> units;
  for (wchar_t c : s) {
    uint32_t u = static_cast<uint32_t>(c);
    if (u >= 0x10000) {
      u -= 0x10000;
      units.push_back(static_cast<uint16_t>(0xD800 + (u >> 10)));
      units.push_back(static_cast<uint16_t>(0xDC00 + (u & 0x3FF)));
    } else {
      units.push_back(static_cast<uint16_t>(u));
    }
  }
  return units;
}
void PutUnicodeZ(std::string& out, std::wstring_view s) {
  for (uint16_t u : ToUtf16(s)) PutU16(out, u);
  PutU16(out, 0);
}
void PutAnsiZ(std::string& out, std::wstring_view s) {
  out += vba::ToWindows1252Lossy(s);
  out += '\0';
}

// The link info: the volume and local base path of a drive path, or the share and the
// suffix of a network path. Unicode copies are added when the code page cannot hold the text.
std::string LinkInfo(std::wstring_view target) {
  bool network = target.size() > 2 && target[0] == L'\\' && target[1] == L'\\';
  std::wstring base(target), suffix;
  if (network) {
    size_t share = target.find(L'\\', 2);
    size_t rest = share == std::wstring_view::npos ? share : target.find(L'\\', share + 1);
    base = target.substr(0, rest);
    suffix = rest == std::wstring_view::npos ? std::wstring() : std::wstring(target.substr(rest + 1));
  }
  bool unicode = !vba::ToWindows1252(target).has_value();
  uint32_t headerSize = unicode ? 0x24 : 0x1C;

  std::string info(headerSize, '\0');
  SetU32(info, 4, headerSize);
  if (network) {
    SetU32(info, 8, kCommonNetworkRelativeLink);
    SetU32(info, 0x14, static_cast<uint32_t>(info.size()));
    std::string net;
    uint32_t netHeader = unicode ? 0x1C : 0x14;
    PutU32(net, 0);
    PutU32(net, 0);  // no device name, no provider type
    PutU32(net, netHeader);
    PutU32(net, 0);
    PutU32(net, 0);
    if (unicode) {
      PutU32(net, 0);
      PutU32(net, 0);
    }
    PutAnsiZ(net, base);
    if (unicode) {
      SetU32(net, 0x14, static_cast<uint32_t>(net.size()));
      PutUnicodeZ(net, base);
    }
    SetU32(net, 0, static_cast<uint32_t>(net.size()));
    info += net;
  } else {
    SetU32(info, 8, kVolumeIdAndLocalBasePath);
    SetU32(info, 0x0C, static_cast<uint32_t>(info.size()));
    PutU32(info, 0x11);        // VolumeIDSize: the fields and an empty label
    PutU32(info, kDriveFixed);
    PutU32(info, 0);           // serial number
    PutU32(info, 0x10);        // label offset
    info += '\0';
    SetU32(info, 0x10, static_cast<uint32_t>(info.size()));
    PutAnsiZ(info, base);
  }
  SetU32(info, 0x18, static_cast<uint32_t>(info.size()));
  PutAnsiZ(info, suffix);
  if (unicode) {
    if (!network) {
      SetU32(info, 0x1C, static_cast<uint32_t>(info.size()));
      PutUnicodeZ(info, base);
    }
    SetU32(info, 0x20, static_cast<uint32_t>(info.size()));
    PutUnicodeZ(info, suffix);
  }
  SetU32(info, 0, static_cast<uint32_t>(info.size()));
  return info;
}

void PutCountedString(std::string& out, std::wstring_view s, const char* field) {
  std::vector<uint16_t> units = ToUtf16(s);
  if (units.size() > 0xFFFF) vba::Raise(vba::kErrInvalidCall, L"The shortcut's " + vba::FromUtf8(field) + L" is too long.");
  PutU16(out, static_cast<uint32_t>(units.size()));
  for (uint16_t u : units) PutU16(out, u);
}

}  // namespace

ShellLink ParseShellLink(std::string_view bytes) {
  Reader r(bytes);
  if (bytes.size() < kHeaderSize) Refuse("the file ends inside ShellLinkHeader");
  if (r.U32(0, "ShellLinkHeader.HeaderSize") != kHeaderSize) Refuse("ShellLinkHeader.HeaderSize is not 0x4C");
  if (r.Bytes(4, 16, "ShellLinkHeader.LinkCLSID") != std::string_view(reinterpret_cast<const char*>(kLinkClsid), 16))
    Refuse("ShellLinkHeader.LinkCLSID is not the shell link class");
  ShellLink link;
  uint32_t flags = r.U32(0x14, "ShellLinkHeader.LinkFlags");
  link.iconIndex = static_cast<int32_t>(r.U32(0x38, "ShellLinkHeader.IconIndex"));
  link.showCommand = r.U32(0x3C, "ShellLinkHeader.ShowCommand");
  size_t at = kHeaderSize;

  std::wstring idListPath;
  if (flags & kHasLinkTargetIdList) {
    link.hasIdList = true;
    uint32_t size = r.U16(at, "LinkTargetIDList.IDListSize");
    r.Need(at + 2, size, "LinkTargetIDList");
    if (size < 2) Refuse("LinkTargetIDList.IDListSize is too small");
    idListPath = IdListPath(r, at + 2, at + 2 + size);
    at += 2 + size;
  }
  if (flags & kHasLinkInfo) {
    link.targetPath = LinkInfoPath(r, at);
    at += r.U32(at, "LinkInfo.LinkInfoSize");
  }
  if (link.targetPath.empty()) link.targetPath = idListPath;

  bool unicode = flags & kIsUnicode;
  auto counted = [&](uint32_t flag, std::wstring& into, const char* field) {
    if (!(flags & flag)) return;
    uint32_t count = r.U16(at, field);
    at += 2;
    if (unicode) {
      into = r.Utf16(at, count, field);
      at += 2 * count;
    } else {
      into = vba::FromWindows1252(r.Bytes(at, count, field));
      at += count;
    }
  };
  counted(kHasName, link.description, "StringData.NAME_STRING");
  counted(kHasRelativePath, link.relativePath, "StringData.RELATIVE_PATH");
  counted(kHasWorkingDir, link.workingDir, "StringData.WORKING_DIR");
  counted(kHasArguments, link.arguments, "StringData.COMMAND_LINE_ARGUMENTS");
  counted(kHasIconLocation, link.iconLocation, "StringData.ICON_LOCATION");
  return link;
}

std::string SerializeShellLink(const ShellLink& link) {
  uint32_t flags = kIsUnicode;
  if (!link.targetPath.empty()) flags |= kHasLinkInfo;
  if (!link.description.empty()) flags |= kHasName;
  if (!link.relativePath.empty()) flags |= kHasRelativePath;
  if (!link.workingDir.empty()) flags |= kHasWorkingDir;
  if (!link.arguments.empty()) flags |= kHasArguments;
  if (!link.iconLocation.empty()) flags |= kHasIconLocation;

  std::string out;
  PutU32(out, kHeaderSize);
  out.append(reinterpret_cast<const char*>(kLinkClsid), 16);
  PutU32(out, flags);
  PutU32(out, kFileAttributeArchive);
  out.append(24, '\0');  // creation, access and write times: unknown
  PutU32(out, 0);        // file size
  PutU32(out, static_cast<uint32_t>(link.iconIndex));
  PutU32(out, link.showCommand);
  out.append(12, '\0');  // hot key and reserved fields

  if (flags & kHasLinkInfo) out += LinkInfo(link.targetPath);
  if (flags & kHasName) PutCountedString(out, link.description, "description");
  if (flags & kHasRelativePath) PutCountedString(out, link.relativePath, "relative path");
  if (flags & kHasWorkingDir) PutCountedString(out, link.workingDir, "working folder");
  if (flags & kHasArguments) PutCountedString(out, link.arguments, "arguments");
  if (flags & kHasIconLocation) PutCountedString(out, link.iconLocation, "icon location");
  PutU32(out, 0);  // no extra data blocks
  return out;
}

std::wstring ShellLinkTarget(const ShellLink& link, std::wstring_view linkFile) {
  if (!link.targetPath.empty()) return link.targetPath;
  if (link.relativePath.empty()) return {};
  return NormalizePath(JoinPath(FolderOf(linkFile), link.relativePath));
}

std::wstring RelativeLinkPath(std::wstring_view linkFile, std::wstring_view target) {
  auto parts = [](std::wstring_view path) {
    std::vector<std::wstring> out;
    std::wstring normal = NormalizePath(path);
    size_t start = 0;
    while (start <= normal.size()) {
      size_t end = normal.find(L'\\', start);
      if (end == std::wstring::npos) end = normal.size();
      if (end > start) out.emplace_back(normal.substr(start, end - start));
      start = end + 1;
    }
    return out;
  };
  std::vector<std::wstring> from = parts(FolderOf(linkFile)), to = parts(target);
  size_t common = 0;
  while (common < from.size() && common + 1 < to.size() && SamePath(from[common], to[common])) ++common;
  if (common == 0) return {};
  std::wstring rel;
  for (size_t i = common; i < from.size(); ++i) rel += L"..\\";
  if (rel.empty()) rel = L".\\";
  for (size_t i = common; i < to.size(); ++i) rel += to[i] + (i + 1 < to.size() ? L"\\" : L"");
  return rel;
}

}  // namespace quillet::io
