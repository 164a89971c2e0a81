// The coloured page of a long module: 100 000 lines of procedures with comments, strings,
// keywords and indentation, beside one plain copy of the same text for scale.
#include <cstdio>
#include <string>

#include "bench.h"
#include "codetools/vb2html.h"

namespace quillet::bench {
namespace {

constexpr int kLines = 100000;

const std::wstring& LongModule() {
  static const std::wstring text = [] {
    std::wstring t = L"Option Explicit\r\n";
    for (int written = 1; written + 11 < kLines; written += 11) {
      const wchar_t* lines[] = {
          L"' Totals of the invoice lines < limit & > 0",
          L"Public Function Total(ByVal lngFrom As Long, Optional ByVal strName As String = \"a \"\"b\"\"\") As Currency",
          L"    Dim curSum As Currency, lngIndex As Long",
          L"    For lngIndex = lngFrom To UBound(marrLines)",
          L"        If Len(strName) > 0 And marrLines(lngIndex).Name <> strName Then GoTo NextLine",
          L"        curSum = curSum + marrLines(lngIndex).Amount * 1.2 ' with tax",
          L"NextLine:",
          L"    Next lngIndex",
          L"    Total = curSum: Debug.Print \"Total \" & Format(curSum, \"0.00\")",
          L"End Function",
          L""};
      for (const wchar_t* line : lines) {
        t += line;
        t += L"\r\n";
      }
    }
    t += L"' end";
    return t;
  }();
  return text;
}

double Megabytes() { return static_cast<double>(LongModule().size()) / 1e6; }

std::string Target() {
  char text[96];
  std::snprintf(text, sizeof text, "under %.1f ms (100 MB/s of %.1f MB)", Megabytes() * 10.0, Megabytes());
  return text;
}

volatile std::size_t sink;
// The page lives on until the next run's setup, so that giving its memory back is not timed.
std::wstring page;

Register html{{"HTML of a module of 100 000 lines", Target(),
               [] {
                 LongModule();
                 std::wstring().swap(page);
               },
               [] {
                 page = codetools::VB2HTML(LongModule());
                 sink = page.size();
               }}};
Register copy{{"  one plain copy of the same text", "for scale", [] { LongModule(); },
               [] {
                 std::wstring copy = LongModule();
                 sink = copy.size();
               }}};

}  // namespace
}  // namespace quillet::bench
