#pragma once
// Character tables behind vba/text.h: which code points are letters and the simple
// upper and lower case mappings. Internal to the vba layer.
#include <cstdint>
#include <span>

namespace quillet::vba::unicode {

// An inclusive range of code points, sorted and disjoint within a table.
struct Range {
  char32_t lo, hi;
};

// A run of code points that map by the same offset: every code point of [lo, hi] when
// step is 1, every second one starting at lo when step is 2 (the alternating upper and
// lower case blocks). Runs are sorted by lo and do not overlap.
struct CaseRun {
  char32_t lo, hi;
  int32_t delta;
  uint8_t step;
};

extern const std::span<const Range> kLetterRanges;
extern const std::span<const CaseRun> kUpperRuns;
extern const std::span<const CaseRun> kLowerRuns;

}  // namespace quillet::vba::unicode
