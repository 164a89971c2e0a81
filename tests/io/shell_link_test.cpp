#include "io/shell_link.h"

#include <random>

#include <gtest/gtest.h>

#include "vba/encoding.h"
#include "vba/error.h"

namespace quillet::io {
namespace {

// Fixtures are put together field by field from the published layout of the format.
struct Bytes {
  std::string b;
  Bytes& u8(uint32_t v) { b += static_cast<char>(v); return *this; }
  Bytes& u16(uint32_t v) { return u8(v & 0xFF).u8(v >> 8 & 0xFF); }
  Bytes& u32(uint32_t v) { return u16(v & 0xFFFF).u16(v >> 16); }
  Bytes& ansiz(const std::string& s) { b += s; return u8(0); }
  Bytes& utf16(const std::wstring& s) { for (wchar_t c : s) u16(c); return *this; }
  Bytes& raw(const std::string& s) { b += s; return *this; }
};

Bytes Header(uint32_t flags) {
  Bytes h;
  h.u32(0x4C).u32(0x00021401).u16(0).u16(0).u8(0xC0).u8(0).u8(0).u8(0).u8(0).u8(0).u8(0).u8(0x46);
  h.u32(flags).u32(0x20);
  for (int i = 0; i < 6; ++i) h.u32(0);  // three times
  h.u32(0).u32(0).u32(1).u16(0).u16(0).u32(0).u32(0);
  EXPECT_EQ(h.b.size(), 0x4Cu);
  return h;
}

std::wstring Refusal(std::string_view bytes) {
  try {
    ParseShellLink(bytes);
  } catch (const vba::Error& e) {
    return e.Description();
  }
  return L"(accepted)";
}

TEST(ShellLink, RoundTripOfTheLinksItMakes) {
  ShellLink link;
  link.targetPath = L"C:\\Quillet\\Fragments\\Loops\\For Each.bas";
  link.relativePath = L"..\\Loops\\For Each.bas";
  link.workingDir = L"C:\\Quillet\\Fragments\\Loops";
  link.arguments = L"/x";
  link.description = L"A loop";
  link.iconLocation = L"%SystemRoot%\\shell32.dll";
  link.iconIndex = 3;
  std::string bytes = SerializeShellLink(link);
  EXPECT_EQ(bytes.substr(0, 4), std::string("\x4C\0\0\0", 4));
  ShellLink back = ParseShellLink(bytes);
  EXPECT_EQ(back.targetPath, link.targetPath);
  EXPECT_EQ(back.relativePath, link.relativePath);
  EXPECT_EQ(back.workingDir, link.workingDir);
  EXPECT_EQ(back.arguments, link.arguments);
  EXPECT_EQ(back.description, link.description);
  EXPECT_EQ(back.iconLocation, link.iconLocation);
  EXPECT_EQ(back.iconIndex, 3);

  // Text the code page cannot hold goes through the Unicode copies; shares keep their name.
  for (std::wstring target : {L"C:\\Fragmente\\\x0421\x043F\x0438\x0441\x043E\x043A \U0001F600.bas",
                              L"\\\\server\\share\\Fragments\\x.bas", L"\\\\server\\\x0434\\x.bas", L"D:\\x.bas"}) {
    ShellLink only;
    only.targetPath = target;
    EXPECT_EQ(ParseShellLink(SerializeShellLink(only)).targetPath, target);
  }

  EXPECT_EQ(RelativeLinkPath(L"C:\\F\\Short\\x.bas.lnk", L"C:\\F\\Loops\\x.bas"), L"..\\Loops\\x.bas");
  EXPECT_EQ(RelativeLinkPath(L"C:\\F\\x.bas.lnk", L"C:\\F\\x.bas"), L".\\x.bas");
  EXPECT_EQ(RelativeLinkPath(L"C:\\F\\x.bas.lnk", L"D:\\F\\x.bas"), L"");
  ShellLink relative;
  relative.relativePath = L"..\\Loops\\x.bas";
  EXPECT_EQ(ShellLinkTarget(relative, L"C:\\F\\Short\\x.bas.lnk"), L"C:\\F\\Loops\\x.bas");
}

TEST(ShellLink, HandBuiltLinksOfTheFormat) {
  // An ID list (computer, drive C:, folder, file with its long name) and a relative path
  // in the code page.
  Bytes ids;
  ids.u16(20).u8(0x1F).u8(0x50).raw(std::string(16, '\x11'));
  ids.u16(25).u8(0x2F).ansiz("C:\\").raw(std::string(18, '\0'));
  Bytes folder;
  folder.u8(0x31).u8(0).u32(0).u32(0).u16(0x10).ansiz("FRAGME~1").u8(0);  // 22 bytes
  Bytes ext;
  ext.u16(0).u16(9).u32(0xBEEF0004).u32(0).u32(0).u16(0x2E).raw(std::string(18, '\0')).u16(0).u32(0).u32(0);
  ext.utf16(L"Fragments").u16(0).u16(22);
  ext.b[0] = static_cast<char>(ext.b.size());
  ids.u16(2 + folder.b.size() + ext.b.size()).raw(folder.b).raw(ext.b);
  Bytes file;
  file.u8(0x36).u8(0).u32(0).u32(0).u16(0x20).utf16(L"x.bas").u16(0);
  ids.u16(2 + file.b.size()).raw(file.b).u16(0);
  Bytes a = Header(0x01 | 0x08);
  a.u16(ids.b.size()).raw(ids.b).u16(8).raw("..\\x.bas").u32(0);
  ShellLink la = ParseShellLink(a.b);
  EXPECT_TRUE(la.hasIdList);
  EXPECT_EQ(la.targetPath, L"C:\\Fragments\\x.bas");
  EXPECT_EQ(la.relativePath, L"..\\x.bas");
  EXPECT_EQ(ShellLinkTarget(la, L"C:\\Fragments\\Sub\\x.bas.lnk"), L"C:\\Fragments\\x.bas");

  // Link info with a volume and an ANSI local base path, the suffix empty; the name in
  // the code page (0xE9 is e acute).
  Bytes info;
  info.u32(0).u32(0x1C).u32(1).u32(0x1C).u32(0x2D).u32(0).u32(0x3B);
  info.u32(0x11).u32(3).u32(0x1234).u32(0x10).u8(0);
  info.ansiz("C:\\Caf\xE9\\y.bas").ansiz("");
  info.b[0] = static_cast<char>(info.b.size());
  Bytes b = Header(0x02 | 0x04);
  b.raw(info.b).u16(4).raw("Caf\xE9").u32(0);
  ShellLink lb = ParseShellLink(b.b);
  EXPECT_EQ(lb.targetPath, L"C:\\Caf\xE9\\y.bas");
  EXPECT_EQ(lb.description, L"Caf\xE9");

  // A relative path, a working folder and an icon in Unicode.
  Bytes c = Header(0x08 | 0x10 | 0x40 | 0x80);
  c.u16(7).utf16(L".\\\x0416.bas").u16(4).utf16(L"C:\\W").u16(1).utf16(L"i").u32(0);
  ShellLink lc = ParseShellLink(c.b);
  EXPECT_EQ(lc.relativePath, L".\\\x0416.bas");
  EXPECT_EQ(lc.workingDir, L"C:\\W");
  EXPECT_EQ(lc.iconLocation, L"i");
  EXPECT_EQ(ShellLinkTarget(lc, L"C:\\F\\l.lnk"), L"C:\\F\\\x0416.bas");
}

TEST(ShellLink, ForeignAndTruncatedFilesAreRefusedNamingTheField) {
  EXPECT_NE(Refusal("Attribute VB_Name = \"x\"\r\n").find(L"ShellLinkHeader"), std::wstring::npos);
  Bytes wrongSize = Header(0);
  wrongSize.b[0] = 0x5A;
  EXPECT_NE(Refusal(wrongSize.b).find(L"ShellLinkHeader.HeaderSize"), std::wstring::npos);
  Bytes wrongClass = Header(0);
  wrongClass.b[4] = 0x02;
  EXPECT_NE(Refusal(wrongClass.b).find(L"ShellLinkHeader.LinkCLSID"), std::wstring::npos);

  ShellLink link;
  link.targetPath = L"C:\\F\\x.bas";
  link.relativePath = L".\\x.bas";
  std::string whole = SerializeShellLink(link);
  EXPECT_NE(Refusal(whole.substr(0, 0x50)).find(L"LinkInfo"), std::wstring::npos);
  // Cut inside the relative path: the string data is named.
  std::wstring cut = Refusal(whole.substr(0, whole.size() - 8));
  EXPECT_NE(cut.find(L"StringData.RELATIVE_PATH"), std::wstring::npos) << vba::ToUtf8(cut);
  Bytes idList = Header(0x01);
  idList.u16(40).u16(0);
  EXPECT_NE(Refusal(idList.b).find(L"LinkTargetIDList"), std::wstring::npos);
}

TEST(ShellLink, RandomBytesNeverCrash) {
  ShellLink link;
  link.targetPath = L"C:\\Fragments\\\x0416\\x.bas";
  link.relativePath = L"..\\x.bas";
  link.description = L"d";
  std::string seed = SerializeShellLink(link);
  std::mt19937 rng(14);
  for (int i = 0; i < 3000; ++i) {
    std::string bytes = seed;
    int changes = 1 + static_cast<int>(rng() % 8);
    for (int k = 0; k < changes; ++k) bytes[rng() % bytes.size()] = static_cast<char>(rng());
    if (i % 3 == 0) bytes.resize(rng() % bytes.size());
    try {
      ParseShellLink(bytes);
    } catch (const vba::Error&) {
    }
  }
}

}  // namespace
}  // namespace quillet::io
