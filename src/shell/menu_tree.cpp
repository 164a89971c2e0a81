#include "shell/menu_tree.h"

#include "hostmodel/commandbars.h"

namespace quillet::shell {
namespace {

using N = MenuNode;
constexpr int B = host::kControlButton;
constexpr int P = host::kControlPopup;
constexpr int D = host::kControlDropdown;

N Button(int id, std::wstring handler, bool group = false, bool picture = false,
         N::Condition condition = N::kAlways) {
  return N{id, B, group, picture, std::move(handler), nullptr, condition, {}};
}
N Popup(int id, std::vector<N> children, bool group = false) { return N{id, P, group, false, {}, nullptr, N::kAlways, std::move(children)}; }
N Web(int id, const wchar_t* handler, const wchar_t* path) { return N{id, B, false, false, handler, path, N::kAlways, {}}; }

// The types of the Variable, Constant and Property menus (ids 127 on), with handler names
// made of the family and the type: "mnuhDimString".
std::vector<N> TypeEntries(const wchar_t* family, int last) {
  static const wchar_t* kTypes[] = {L"String", L"Byte",     L"Boolean", L"Integer", L"Long",   L"Single",
                                    L"Double", L"Currency", L"Date",    L"Variant", L"Object", L"Collection"};
  std::vector<N> out;
  for (int id = 127; id <= last; ++id) out.push_back(Button(id, std::wstring(family) + kTypes[id - 127]));
  return out;
}

std::vector<N> Append(std::vector<N> a, std::vector<N> b) {
  a.insert(a.end(), std::make_move_iterator(b.begin()), std::make_move_iterator(b.end()));
  return a;
}

std::vector<N> Build() {
  std::vector<N> tree;
  tree.push_back(Button(103, L"mnuhAddVariable", false, true));
  tree.push_back(Button(102, L"mnuhAddConstant", false, true));
  tree.push_back(Button(105, L"mnuhAddProperty", false, true));
  tree.push_back(Button(182, L"mnuhInsertVariable", false, true));
  tree.push_back(Button(101, L"mnuhAddProcedure", true, true));
  tree.push_back(Button(104, L"mnuhAddClass", false, true));
  tree.push_back(Button(106, L"mnuhCodeLines", true, true));
  tree.push_back(Button(181, L"mnuhFragmentAdd", false, true));
  tree.push_back(Button(194, L"mnuhDirectAccess", true, true));
  tree.push_back(Button(195, L"mnuhQLTCodeExplorer", false, true));

  std::vector<N> variable = Append(TypeEntries(L"mnuhDim", 138),
                                   {Button(145, L"mnuhType"), Button(146, L"mnuhTypeItem"),
                                    Button(103, L"mnuhDimAdd", true, true)});
  std::vector<N> constant = Append(TypeEntries(L"mnuhConst", 135),
                                   {Button(170, L"mnuhFilename"), Button(171, L"mnuhFolder"), Button(147, L"mnuhEnum"),
                                    Button(148, L"mnuhEnumItem"), Button(102, L"mnuhConstAdd", true, true),
                                    Button(172, L"mnuhObjectInventory", true, false, N::kAccessHost)});
  std::vector<N> property = Append(TypeEntries(L"mnuhProp", 138), {Button(105, L"mnuhPropAdd", true, true)});
  std::vector<N> error = {Button(150, L"mnuhErrorGotoLabel"),
                          Button(151, L"mnuhErrorResumeNext"),
                          Button(152, L"mnuhErrorGoto0"),
                          Button(168, L"mnuhErrorResume"),
                          N{167, D, true, false, L"mnuhErrorHandling", nullptr, N::kAlways, {}},
                          Popup(188, {Button(177, L"mnuhLineNumbersAdd"), Button(178, L"mnuhLineNumbersRemove")}, true),
                          Popup(189, {Button(177, L"mnuhCommentLinesAdd"), Button(178, L"mnuhCommentLinesRemove")}, true),
                          Button(190, L"mnuhDebugPrint", true)};
  std::vector<N> menu = {
      Popup(123, variable),
      Popup(124, constant),
      Popup(125, property),
      Button(182, L"mnuhQLTInsertVariable", true, true),
      Button(179, L"mnuhInsertObjectname", false, false, N::kObjectNameHost),
      Button(193, L"mnuhQLTExplicitArgument"),
      Button(139, L"mnuhWith"),
      Button(106, L"mnuhQLTCodeLines", true, true),
      Button(101, L"mnuhQLTAddProcedure", false, true),
      Button(104, L"mnuhQLTAddClass", false, true),
      Button(183, L"mnuhQLTAddControl", false, true, N::kTestingMode),
      Popup(140, {Button(154, L"mnuhIfThen"), Button(155, L"mnuhIfThenElse"), Button(156, L"mnuhIfThenElseIf"),
                  Button(157, L"mnuhIfThenElseIfElse")},
            true),
      Popup(141, {Button(158, L"mnuhSelectCase"), Button(159, L"mnuhSelectCaseElse"), Button(169, L"mnuhSelectCaseUcase"),
                  Button(160, L"mnuhSelectFromCustomEnum")}),
      Popup(142, {Button(163, L"mnuhForEachNext"), Button(164, L"mnuhForNext"), Button(143, L"mnuhWhile"),
                  Popup(144, {Button(161, L"mnuhDoLoopWhile"), Button(162, L"mnuhDoLoopUntil")})}),
      Button(153, L"mnuhGoto"),
      Popup(149, error),
      Button(166, L"mnuhExit"),
      Button(181, L"mnuhQLTAddFragment", true, true),
      Button(184, L"mnuhQLTImportFile"),
      Button(185, L"mnuhQLTExportFile"),
      Popup(186, {Button(194, L"mnuhShortcutsAndSearch", false, true), Button(195, L"mnuhCodeExplorer", false, true)}, true),
  };
  tree.push_back(Popup(122, menu, true));

  std::vector<N> help = {
      Button(111, L"mnuhHelpContents", false, true),
      Popup(196, {Button(197, L"mnuhTipOfTheDayQuilletStartup"), Button(198, L"mnuhTipOfTheDayVarBuilder"),
                  Button(199, L"mnuhTipOfTheDayCodelineBuilder"), Button(200, L"mnuhTipOfTheDayFragmentBuilder"),
                  Button(401, L"mnuhTipOfTheDayProcBuilder")}),
      Button(109, L"mnuhSetting"),
      Popup(115, {Web(117, L"mnuhWebSiteNewVersion", L"/download.htm"), Web(119, L"mnuhWebSiteSupport", L"/support.htm"),
                  Web(120, L"mnuhWebSiteDownloads", L"/download.htm"),
                  Web(121, L"mnuhWebSiteVBDir", L"/visual-basic-source-code/index.htm")},
            true),
      Button(116, L"mnuhAbout"),
  };
  tree.push_back(Popup(110, help, true));
  return tree;
}

}  // namespace

const std::vector<MenuNode>& CommandBarTree() {
  static const std::vector<MenuNode> tree = Build();
  return tree;
}

}  // namespace quillet::shell
