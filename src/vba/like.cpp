#include "vba/like.h"

#include <utility>
#include <vector>

#include "vba/error.h"
#include "vba/text.h"

namespace quillet::vba {
namespace {

// One element of a compiled pattern. Everything but Star matches exactly one character.
struct Token {
  enum class Kind { Char, Any, Digit, List, Star };
  Kind kind = Kind::Char;
  wchar_t ch = 0;                                   // Char
  bool negated = false;                             // List: "[!...]"
  std::vector<std::pair<wchar_t, wchar_t>> ranges;  // List: single characters are a-a ranges
};

// Reads the list that starts behind the "[" at pattern[i]; i ends behind its "]".
// Returns false for "[]", which stands for no character at all.
bool ParseList(std::wstring_view pattern, std::size_t& i, Token& token) {
  std::size_t close = pattern.find(L']', i);
  if (close == std::wstring_view::npos) Raise(kErrInvalidPattern);
  std::wstring_view list = pattern.substr(i, close - i);
  i = close + 1;
  if (list.empty()) return false;

  token.kind = Token::Kind::List;
  if (list.front() == L'!') {
    token.negated = true;
    list.remove_prefix(1);
  }
  // A "-" between two characters makes a range; first or last in the list it is itself.
  for (std::size_t j = 0; j < list.size();) {
    if (j + 2 < list.size() && list[j + 1] == L'-') {
      if (list[j] > list[j + 2]) Raise(kErrInvalidPattern);
      token.ranges.emplace_back(list[j], list[j + 2]);
      j += 3;
    } else {
      token.ranges.emplace_back(list[j], list[j]);
      ++j;
    }
  }
  return true;
}

std::vector<Token> Compile(std::wstring_view pattern) {
  std::vector<Token> tokens;
  for (std::size_t i = 0; i < pattern.size();) {
    Token token;
    wchar_t c = pattern[i++];
    switch (c) {
      case L'*':
        // Consecutive stars mean the same as one.
        if (!tokens.empty() && tokens.back().kind == Token::Kind::Star) continue;
        token.kind = Token::Kind::Star;
        break;
      case L'?':
        token.kind = Token::Kind::Any;
        break;
      case L'#':
        token.kind = Token::Kind::Digit;
        break;
      case L'[':
        if (!ParseList(pattern, i, token)) continue;
        break;
      default:
        token.ch = c;
        break;
    }
    tokens.push_back(std::move(token));
  }
  return tokens;
}

bool InRange(wchar_t c, const std::pair<wchar_t, wchar_t>& r) { return c >= r.first && c <= r.second; }

bool InList(const Token& token, wchar_t c, Compare compare) {
  bool found = false;
  for (const auto& r : token.ranges) {
    if (InRange(c, r) ||
        (compare == Compare::Text && (InRange(ToUpper(c), r) || InRange(ToLower(c), r)))) {
      found = true;
      break;
    }
  }
  return found != token.negated;
}

bool MatchesOne(const Token& token, wchar_t c, Compare compare) {
  switch (token.kind) {
    case Token::Kind::Char:
      return c == token.ch || (compare == Compare::Text && ToUpper(c) == ToUpper(token.ch));
    case Token::Kind::Any:
      return true;
    case Token::Kind::Digit:
      return IsDigit(c);
    case Token::Kind::List:
      return InList(token, c, compare);
    case Token::Kind::Star:
      break;
  }
  return false;
}

}  // namespace

bool Like(std::wstring_view text, std::wstring_view pattern, Compare compare) {
  const std::vector<Token> tokens = Compile(pattern);
  // Every token but a star takes one character, so on a mismatch it is enough to let
  // the most recent star take one character more: at most len(text) * len(pattern) steps.
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t t = 0, p = 0, star = kNone, starText = 0;
  while (t < text.size()) {
    if (p < tokens.size() && tokens[p].kind == Token::Kind::Star) {
      star = p++;
      starText = t;
    } else if (p < tokens.size() && MatchesOne(tokens[p], text[t], compare)) {
      ++p;
      ++t;
    } else if (star != kNone) {
      p = star + 1;
      t = ++starText;
    } else {
      return false;
    }
  }
  while (p < tokens.size() && tokens[p].kind == Token::Kind::Star) ++p;
  return p == tokens.size();
}

}  // namespace quillet::vba
