#pragma once
// A text the models hold many times over, kept once: the project's and the module's name
// that every procedure of a module carries, and the few words a model repeats for each of
// its items ("ByVal", "Sub/Function"). It reads as a constant std::wstring. Its text never
// changes in place: assigning gives the holder a text of its own and leaves every other
// holder of the old one as it was, so a module renamed and read again cannot change what
// another module's procedures say.
//
//   SharedText module = component->Name();   // one text ...
//   a.ModuleName = module;                     // ... held by both procedures,
//   b.ModuleName = module;
//   b.ModuleName = L"Other";                   // until one of them is given another
#include <atomic>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace quillet::analysis {

class SharedText {
 public:
  SharedText() = default;
  SharedText(std::wstring text) : block_(Make(std::move(text))) {}
  SharedText(std::wstring_view text) : SharedText(std::wstring(text)) {}
  SharedText(const wchar_t* text) : SharedText(std::wstring(text)) {}
  SharedText(const SharedText& other) : block_(other.block_) { Hold(); }
  SharedText(SharedText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  ~SharedText() { Release(); }

  SharedText& operator=(const SharedText& other) {
    SharedText copy(other);
    std::swap(block_, copy.block_);
    return *this;
  }
  SharedText& operator=(SharedText&& other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  SharedText& operator=(std::wstring text) { return *this = SharedText(std::move(text)); }
  SharedText& operator=(std::wstring_view text) { return *this = SharedText(text); }
  SharedText& operator=(const wchar_t* text) { return *this = SharedText(text); }

  // A word that lasts as long as the program: its holders keep no count of it. Meant for a
  // function-local constant that hands the same word to every item.
  static SharedText Lasting(std::wstring_view word) {
    SharedText t;
    t.block_ = new Block{std::atomic<long>(kLasting), std::wstring(word)};
    return t;
  }

  const std::wstring& str() const { return block_ ? block_->text : Empty(); }
  operator const std::wstring&() const { return str(); }
  operator std::wstring_view() const { return str(); }

  bool empty() const { return str().empty(); }
  std::size_t size() const { return str().size(); }
  std::size_t length() const { return str().size(); }
  const wchar_t* c_str() const { return str().c_str(); }
  const wchar_t* data() const { return str().data(); }
  wchar_t operator[](std::size_t i) const { return str()[i]; }
  auto begin() const { return str().begin(); }
  auto end() const { return str().end(); }
  std::wstring substr(std::size_t from, std::size_t count = std::wstring::npos) const { return str().substr(from, count); }
  std::size_t find(std::wstring_view what, std::size_t from = 0) const { return str().find(what, from); }

  // True when both hold the very same text, not merely equal ones.
  bool SharesWith(const SharedText& other) const { return block_ == other.block_ && block_; }

  friend bool operator==(const SharedText& a, const SharedText& b) {
    return a.block_ == b.block_ || a.str() == b.str();
  }
  friend bool operator==(const SharedText& a, std::wstring_view b) { return a.str() == b; }
  friend bool operator==(const SharedText& a, const wchar_t* b) { return a.str() == b; }
  friend bool operator==(const SharedText& a, const std::wstring& b) { return a.str() == b; }
  friend auto operator<=>(const SharedText& a, const SharedText& b) { return a.str() <=> b.str(); }
  friend std::wstring operator+(const SharedText& a, std::wstring_view b) { return Joined(a.str(), b); }
  friend std::wstring operator+(std::wstring_view a, const SharedText& b) { return Joined(a, b.str()); }
  friend std::wstring operator+(const SharedText& a, const wchar_t* b) { return Joined(a.str(), b); }
  friend std::wstring operator+(const wchar_t* a, const SharedText& b) { return Joined(a, b.str()); }
  friend std::wstring operator+(const SharedText& a, const std::wstring& b) { return Joined(a.str(), b); }
  friend std::wstring operator+(const std::wstring& a, const SharedText& b) { return Joined(a, b.str()); }
  friend std::wstring operator+(const SharedText& a, const SharedText& b) { return Joined(a.str(), b.str()); }
  friend std::wostream& operator<<(std::wostream& out, const SharedText& t) { return out << t.str(); }
  // How a failed test shows it: the text in quotes, a character beyond ASCII as "?".
  friend void PrintTo(const SharedText& t, std::ostream* out) {
    *out << 'L' << '"';
    for (wchar_t c : t.str()) *out << (c >= 32 && c < 127 ? static_cast<char>(c) : '?');
    *out << '"';
  }

 private:
  static constexpr long kLasting = -1;
  struct Block {
    std::atomic<long> holders;  // kLasting for a word nobody counts
    const std::wstring text;
  };

  static Block* Make(std::wstring text) {
    // An empty text needs no block: every empty one reads the same.
    return text.empty() ? nullptr : new Block{std::atomic<long>(1), std::move(text)};
  }
  static const std::wstring& Empty() {
    static const std::wstring empty;
    return empty;
  }
  static std::wstring Joined(std::wstring_view a, std::wstring_view b) {
    std::wstring joined;
    joined.reserve(a.size() + b.size());
    joined.append(a).append(b);
    return joined;
  }
  void Hold() {
    if (block_ && block_->holders.load(std::memory_order_relaxed) != kLasting)
      block_->holders.fetch_add(1, std::memory_order_relaxed);
  }
  void Release() {
    if (!block_ || block_->holders.load(std::memory_order_relaxed) == kLasting) return;
    if (block_->holders.fetch_sub(1, std::memory_order_acq_rel) == 1) delete block_;
    block_ = nullptr;
  }

  Block* block_ = nullptr;
};

}  // namespace quillet::analysis
