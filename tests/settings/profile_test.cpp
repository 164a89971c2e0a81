// The INI reader and writer underneath the INI objects.
#include <gtest/gtest.h>

#include "settings/profile.h"

namespace quillet::settings {
namespace {

std::wstring Nuls(std::wstring s) {
  for (auto& c : s)
    if (c == L'|') c = L'\0';
  return s;
}

TEST(IniDocument, ReplacingASectionKeepsEveryOtherByte) {
  // LF line ends, text above the first section, a blank separator, a comment elsewhere.
  std::string before = "; top\n[A]\na=1\n\n[B]\r\n# note\nb = 2\n\n[C]\nc=3";
  IniDocument doc(before);
  EXPECT_EQ(doc.SectionNames(), (std::vector<std::wstring>{L"A", L"B", L"C"}));
  EXPECT_EQ(*doc.SectionLines(L"b"), (std::vector<std::wstring>{L"# note", L"b = 2"}));
  doc.ReplaceSection(L"B", {L"# note", L"b=5", L"x=6"});
  EXPECT_EQ(doc.Bytes(), "; top\n[A]\na=1\n\n[B]\r\n# note\r\nb=5\r\nx=6\r\n\n[C]\nc=3");
  // The last section of a file without a final line end, then a new section behind it.
  doc.ReplaceSection(L"C", {L"c=4"});
  doc.ReplaceSection(L"New", {});
  EXPECT_EQ(doc.Bytes(), "; top\n[A]\na=1\n\n[B]\r\n# note\r\nb=5\r\nx=6\r\n\n[C]\nc=4\r\n[New]\r\n");
  doc.DeleteSection(L"a");
  EXPECT_EQ(doc.SectionNames(), (std::vector<std::wstring>{L"B", L"C", L"New"}));
  EXPECT_FALSE(doc.SectionLines(L"A"));
}

TEST(IniDocument, WriteStringReplacesInPlaceOrAdds) {
  IniDocument doc(std::string("[S]\nKey = old\nother=1\n\n[T]\nt=1\n"));
  doc.WriteString(L"s", L"KEY", L"new");
  doc.WriteString(L"S", L"added", L"");
  doc.WriteString(L"U", L"u", L"1");
  EXPECT_EQ(doc.Bytes(), "[S]\nKEY=new\nother=1\nadded=\r\n\n[T]\nt=1\n[U]\r\nu=1\r\n");
  EXPECT_TRUE(doc.KeyExists(L"s", L"ADDED"));
  EXPECT_FALSE(doc.KeyExists(L"T", L"u"));
  // The first of two sections of one name is the one read and written.
  IniDocument twice(std::string("[A]\nx=1\n[a]\ny=2\n"));
  EXPECT_EQ(twice.SectionNames(), (std::vector<std::wstring>{L"A"}));
  twice.WriteString(L"A", L"y", L"3");
  EXPECT_EQ(twice.Bytes(), "[A]\nx=1\ny=3\r\n[a]\ny=2\n");
}

TEST(IniDocument, KeepsTheFilesEncoding) {
  IniDocument latin(std::string("[A]\nname=Caf\xE9\n"));
  EXPECT_EQ(*latin.SectionLines(L"A"), std::vector<std::wstring>{L"name=Caf\u00e9"});
  latin.WriteString(L"A", L"x", L"\u00e9");
  EXPECT_EQ(latin.Bytes(), "[A]\nname=Caf\xE9\nx=\xE9\r\n");
  // A character without a Windows-1252 byte turns the file into UTF-8 with a mark.
  latin.WriteString(L"A", L"y", L"\u0436");
  EXPECT_EQ(latin.Bytes(), "\xEF\xBB\xBF[A]\nname=Caf\xC3\xA9\nx=\xC3\xA9\r\ny=\xD0\xB6\r\n");
  EXPECT_EQ(*IniDocument(latin.Bytes()).SectionLines(L"A"),
            (std::vector<std::wstring>{L"name=Caf\u00e9", L"x=\u00e9", L"y=\u0436"}));
}

TEST(ProfileBuffer, ASmallBufferAnswersSizeMinusTwo) {
  std::filesystem::path dir = std::filesystem::temp_directory_path() / "quillet-profile-buffer";
  std::filesystem::create_directories(dir / "c");
  io::MappedFileSystem files(dir);
  files.WriteFile(L"C:\\a.ini", "[A]\nabc=1\n\nde=2\n");
  // "abc=1|de=2|" is 11 characters; with the closing NUL it needs 12.
  struct Case {
    long size, result;
    std::wstring buffer;
  } cases[] = {
      {12, 11, Nuls(L"abc=1|de=2||")},
      {40, 11, Nuls(L"abc=1|de=2||")},
      {11, 9, Nuls(L"abc=1|de=||")},
  };
  for (const auto& c : cases) {
    std::wstring buffer;
    EXPECT_EQ(ProfileSection(files, L"C:\\a.ini", L"a", buffer, c.size), c.result) << c.size;
    EXPECT_EQ(buffer, c.buffer) << c.size;
  }
  std::wstring buffer;
  EXPECT_EQ(ProfileSectionNames(files, L"C:\\a.ini", buffer, 3), 2);
  EXPECT_EQ(buffer, Nuls(L"A||"));
  EXPECT_EQ(ProfileSection(files, L"C:\\a.ini", L"none", buffer, 10), 0);
  EXPECT_EQ(ProfileSection(files, L"C:\\missing.ini", L"a", buffer, 10), 0);
  std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace quillet::settings
