#include "kernel/strings.h"

#include <unordered_map>

namespace quillet::kernel {

const std::wstring& ResString(int id) {
  static const std::unordered_map<int, std::wstring> table = {
      // Captions of the command bar.
      {101, L"Add P&rocedure..."}, {102, L"&Add Constant..."}, {103, L"&Add Variable..."},
      {104, L"Add Cl&ass..."}, {105, L"&Add Property..."}, {106, L"Insert &Line Of Code..."},
      {109, L"&Settings..."}, {110, L"Hel&p"}, {111, L"&Contents..."}, {115, L"&Website"},
      {116, L"&About..."}, {117, L"&Check for New Version..."}, {119, L"&Technical Support..."},
      {120, L"&Downloads..."}, {121, L"&VB Directory..."}, {122, L"&Quillet"}, {123, L"&Variable"},
      {124, L"&Constant"}, {125, L"&Property"}, {127, L"&String..."}, {128, L"B&yte..."},
      {129, L"&Boolean..."}, {130, L"&Integer..."}, {131, L"&Long..."}, {132, L"Sin&gle..."},
      {133, L"&Double..."}, {134, L"&Currency..."}, {135, L"Da&te..."}, {136, L"&Variant..."},
      {137, L"&Object..."}, {138, L"Collectio&n..."}, {139, L"&With..."}, {140, L"&If"},
      {141, L"&Select"}, {142, L"&For/While"}, {143, L"W&hile"}, {144, L"D&o"},
      {145, L"New &User-Defined Data Type..."}, {146, L"Add Item to User-Defined Data Ty&pe..."},
      {147, L"New &Enum..."}, {148, L"Add Constant to En&um..."}, {149, L"&Error"},
      {150, L"On &Error GoTo..."}, {151, L"On Error Resume &Next"}, {152, L"On Error GoTo &0"},
      {153, L"&GoTo..."}, {154, L"&Then"}, {155, L"Then &Else"}, {156, L"Then Else&If..."},
      {157, L"Then ElseIf El&se..."}, {158, L"Ca&se..."}, {159, L"Case &Else..."}, {160, L"&From Enum..."},
      {161, L"Loop &While"}, {162, L"Loop &Until"}, {163, L"&Each Next"}, {164, L"&Next"},
      {166, L"E&xit Procedure"}, {167, L"&Add Error Handling"}, {168, L"&Resume..."},
      {169, L"Case &UCase..."}, {170, L"&Filename..."}, {171, L"F&older..."}, {172, L"Object In&ventory"},
      {177, L"&Add"}, {178, L"&Remove"}, {179, L"Insert &Objectname..."}, {181, L"Insert Fragme&nt..."},
      {182, L"Insert Varia&ble..."}, {183, L"Add C&ontrol..."}, {184, L"I&mport File..."},
      {185, L"Export File..."}, {186, L"&Tools"}, {188, L"&Line Numbers"}, {189, L"&Comment Lines"},
      {190, L"&Debug.Print... "}, {193, L"Explicit Arg&ument..."},
      {194, L"View &Shortcuts and Search\u2026"}, {195, L"View Code &Explorer\u2026"},
      {196, L"&Tip of the Day"}, {197, L"&Quillet..."}, {198, L"&Variable Builder..."},
      {199, L"&Line of Code Builder..."}, {200, L"&Fragment Builder..."}, {401, L"&Procedure Builder..."},
      // Keywords of the statements the commands write.
      {301, L"If Then"}, {302, L"Else"}, {303, L"ElseIf Then"}, {304, L"End If"}, {305, L"Select Case"},
      {306, L"Case"}, {307, L"Case Else"}, {308, L"End Select"}, {309, L"Do While"}, {310, L"Do Until"},
      {311, L"Loop"}, {312, L"For Each In"}, {313, L"For To"}, {314, L"Next"}, {315, L"While"},
      {316, L"Wend"},
      // Warnings of the name checks.
      {1001, L"Name is invalid."}, {1002, L"Name is already used."}, {1003, L"Name coincides with VB keyword."},
      {1004, L"Using it again will give a compile error."},
      {1005, L"To use this name choose Yes, to change name select No."},
  };
  static const std::wstring none;
  auto it = table.find(id);
  return it == table.end() ? none : it->second;
}

}  // namespace quillet::kernel
