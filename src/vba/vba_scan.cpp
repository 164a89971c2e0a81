#include "vba/vba_scan.h"

#include <array>
#include <vector>

namespace quillet::vba {
namespace {

std::wstring Listed(std::initializer_list<const wchar_t*> words) {
  std::wstring list = L"*";
  for (const wchar_t* w : words) {
    list += w;
    list += L'*';
  }
  return list;
}

wchar_t Folded(wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; }

// The entries of both lists by their folded spelling, first spelling of each list kept,
// in an open-addressed table: the page of a long module looks up every word.
class KeywordTable {
 public:
  KeywordTable() {
    slots_.fill(-1);
    AddList(FunctionWords(), false);
    AddList(StatementWords(), true);
  }

  KeywordHit Find(std::wstring_view word) const {
    if (word.size() > kLongest) return {};
    for (std::size_t h = Hash(word);; h = (h + 1) % kSlots) {
      int e = slots_[h];
      if (e < 0) return {};
      const Entry& entry = entries_[static_cast<std::size_t>(e)];
      if (SameFolded(entry.folded, word))
        return {entry.inFunctions ? &entry.function : nullptr, entry.inStatements ? &entry.statement : nullptr};
    }
  }

 private:
  static constexpr std::size_t kSlots = 1024;
  static constexpr std::size_t kLongest = 24;
  struct Entry {
    std::wstring folded;
    std::wstring function, statement;  // the spelling of the first entry in each list
    bool inFunctions = false, inStatements = false;
  };

  static std::size_t Hash(std::wstring_view word) {
    std::size_t h = 2166136261u;
    for (wchar_t c : word) h = (h ^ static_cast<std::size_t>(Folded(c))) * 16777619u;
    return h % kSlots;
  }
  static bool SameFolded(const std::wstring& folded, std::wstring_view word) {
    if (folded.size() != word.size()) return false;
    for (std::size_t k = 0; k < word.size(); ++k)
      if (folded[k] != Folded(word[k])) return false;
    return true;
  }

  void AddList(const std::wstring& list, bool statements) {
    std::size_t start = 1;
    while (start < list.size()) {
      std::size_t end = list.find(L'*', start);
      std::wstring word = list.substr(start, end - start);
      start = end + 1;
      std::size_t h = Hash(word);
      while (slots_[h] >= 0 && !SameFolded(entries_[static_cast<std::size_t>(slots_[h])].folded, word))
        h = (h + 1) % kSlots;
      if (slots_[h] < 0) {
        slots_[h] = static_cast<int>(entries_.size());
        Entry e;
        for (wchar_t c : word) e.folded += Folded(c);
        entries_.push_back(std::move(e));
      }
      Entry& entry = entries_[static_cast<std::size_t>(slots_[h])];
      // A search finds the first entry of a list; repeats change nothing.
      bool& in = statements ? entry.inStatements : entry.inFunctions;
      if (!in) (statements ? entry.statement : entry.function) = word;
      in = true;
    }
  }

  std::array<int, kSlots> slots_;
  std::vector<Entry> entries_;
};

}  // namespace

const std::wstring& FunctionWords() {
  static const std::wstring list = Listed(
      {L"Abs", L"Add", L"AddItem", L"AppActivate", L"Array", L"Asc", L"Atn", L"Beep", L"Begin", L"BeginProperty",
       L"ChDir", L"ChDrive", L"Choose", L"Chr", L"Clear", L"Collection", L"Command", L"Cos", L"CreateObject",
       L"CurDir", L"DateAdd", L"DateDiff", L"DatePart", L"DateSerial", L"DateValue", L"Day", L"DDB",
       L"DeleteSetting", L"Dir", L"DoEvents", L"EndProperty", L"Environ", L"EOF", L"Err", L"Exp", L"FileAttr",
       L"FileCopy", L"FileDateTime", L"FileLen", L"Fix", L"Format", L"FV", L"GetAllSettings", L"GetAttr",
       L"GetObject", L"GetSetting", L"Hex", L"Hide", L"Hour", L"InputBox", L"InStr", L"Int", L"Int", L"IPmt",
       L"IRR", L"IsArray", L"IsDate", L"IsEmpty", L"IsError", L"IsMissing", L"IsNull", L"IsNumeric", L"IsObject",
       L"Item", L"Kill", L"LCase", L"Left", L"Len", L"Load", L"Loc", L"LOF", L"Log", L"LTrim", L"Me", L"Mid",
       L"Minute", L"MIRR", L"MkDir", L"Month", L"Now", L"NPer", L"NPV", L"Oct", L"Pmt", L"PPmt", L"PV",
       L"QBColor", L"Raise", L"Randomize", L"Rate", L"Remove", L"RemoveItem", L"Reset", L"RGB", L"Right",
       L"RmDir", L"Rnd", L"RTrim", L"SaveSetting", L"Second", L"SendKeys", L"SetAttr", L"Sgn", L"Shell", L"Sin",
       L"Sin", L"SLN", L"Space", L"Sqr", L"Str", L"StrComp", L"StrConv", L"Switch", L"SYD", L"Tan", L"Text",
       L"Time", L"Time", L"Timer", L"TimeSerial", L"TimeValue", L"Trim", L"TypeName", L"UCase", L"Unload", L"Val",
       L"VarType", L"WeekDay", L"Width", L"Year"});
  return list;
}

const std::wstring& StatementWords() {
  static const std::wstring list = Listed(
      {L"#Const", L"#Else", L"#ElseIf", L"#End If", L"#If", L"Alias", L"Alias", L"And", L"As", L"Base",
       L"Binary", L"Boolean", L"Byte", L"ByVal", L"Call", L"Case", L"CBool", L"CByte", L"CCur", L"CDate", L"CDbl",
       L"CDec", L"CInt", L"CLng", L"Close", L"Compare", L"Const", L"CSng", L"CStr", L"Currency", L"CVar",
       L"CVErr", L"Decimal", L"Declare", L"DefBool", L"DefByte", L"DefCur", L"DefDate", L"DefDbl", L"DefDec",
       L"DefInt", L"DefLng", L"DefObj", L"DefSng", L"DefStr", L"DefVar", L"Dim", L"Do", L"Double", L"Each",
       L"Else", L"ElseIf", L"End", L"Enum", L"Eqv", L"Erase", L"Error", L"Exit", L"Explicit", L"False", L"For",
       L"Function", L"Get", L"Global", L"GoSub", L"GoTo", L"If", L"Imp", L"In", L"Input", L"Input", L"Integer",
       L"Is", L"LBound", L"Let", L"Lib", L"Like", L"Line", L"Lock", L"Long", L"Loop", L"LSet", L"Name", L"New",
       L"Next", L"Not", L"Object", L"On", L"Open", L"Option", L"Or", L"Output", L"Print", L"Private",
       L"Property", L"Public", L"Put", L"Random", L"Read", L"ReDim", L"Resume", L"Return", L"RSet", L"Seek",
       L"Select", L"Set", L"Single", L"Spc", L"Static", L"String", L"Stop", L"Sub", L"Tab", L"Then", L"Then",
       L"True", L"Type", L"UBound", L"Unlock", L"Variant", L"Wend", L"While", L"With", L"Xor", L"Nothing",
       L"To"});
  return list;
}

KeywordHit LookUpKeyword(std::wstring_view word) {
  static const KeywordTable table;
  return table.Find(word);
}

bool IsRemWord(std::wstring_view word) {
  return word.size() == 3 && Folded(word[0]) == L'r' && Folded(word[1]) == L'e' && Folded(word[2]) == L'm';
}

}  // namespace quillet::vba
