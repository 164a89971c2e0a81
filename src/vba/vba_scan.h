#pragma once
// The one scan of VBA text that both the HTML page and the colouring of a rich text box
// run: words (letters, "_" and "#") looked up in the two keyword lists, strings, comments
// and every other character, reported to a sink in the order the page writes them.
//
//   struct Sink {
//     std::size_t Word(std::size_t start, std::size_t length, std::size_t at);  // -> where to go on
//     void String(std::size_t start, std::size_t length);
//     void Comment(std::size_t start, std::size_t length);                       // an apostrophe comment
//     std::size_t Other(std::size_t at, wchar_t c);                               // -> where to go on
//     void End(wchar_t last);                                                     // last: 0 for no text
//   };
//   ScanVba(text, sink);
//
// A word is reported when the character that ends it comes (`at`), or at the end; a string
// or a comment in between leaves it pending, so it is reported behind them. Positions are
// 0-based. A sink may move the scan on by returning a later position than it was given.
#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillet::vba {

// The keyword lists in the form "*word*word*...*", as the system keeps them.
const std::wstring& FunctionWords();
const std::wstring& StatementWords();

// A word's spellings in the two lists; nullptr where a list does not hold it.
struct KeywordHit {
  const std::wstring* function = nullptr;
  const std::wstring* statement = nullptr;
};
// Looks a word up in both lists without regard to case.
KeywordHit LookUpKeyword(std::wstring_view word);
// "REM" in any letter case.
bool IsRemWord(std::wstring_view word);

inline bool IsWordChar(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c == L'_' || c == L'#';
}

template <class Sink>
void ScanVba(std::wstring_view text, Sink& sink) {
  const std::size_t n = text.size();
  std::size_t wordStart = 0, wordLength = 0;
  wchar_t last = 0;
  for (std::size_t i = 0; i < n; ++i) {
    wchar_t c = text[i];
    last = c;
    if (IsWordChar(c)) {
      if (wordLength == 0) wordStart = i;
      ++wordLength;
    } else if (c == L'"') {
      // No line-end test: a string that is never closed runs to the end of the text.
      std::size_t close = text.find(L'"', i + 1);
      if (close == std::wstring_view::npos) close = n - 1;
      sink.String(i, close + 1 - i);
      i = close;
    } else if (c == L'\'') {
      std::size_t end = text.find(L"\r\n", i);
      if (end == std::wstring_view::npos) end = n;
      sink.Comment(i, end - i);
      // Going on at the LF: the comment wrote the line break, the LF writes nothing.
      i = end;
    } else {
      std::size_t next = i;
      if (wordLength > 0) next = sink.Word(wordStart, wordLength, i);
      wordLength = 0;
      next = std::max(next, sink.Other(i, c));
      i = next;
    }
  }
  if (wordLength > 0) sink.Word(wordStart, wordLength, n);
  sink.End(last);
}

}  // namespace quillet::vba
