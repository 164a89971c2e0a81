#pragma once
// The program's string table: captions of the command bar, keywords of generated
// statements and the texts of the name checks, by id.
#include <string>

namespace quillet::kernel {

// Ids of the keywords the statement commands write.
namespace res {
inline constexpr int kIfThen = 301, kElse = 302, kElseIfThen = 303, kEndIf = 304;
inline constexpr int kSelectCase = 305, kCase = 306, kCaseElse = 307, kEndSelect = 308;
inline constexpr int kDoWhile = 309, kDoUntil = 310, kLoop = 311;
inline constexpr int kForEachIn = 312, kForTo = 313, kNext = 314, kWhile = 315, kWend = 316;
}  // namespace res

// The string of an id; empty for an id the table does not hold.
const std::wstring& ResString(int id);

}  // namespace quillet::kernel
