#include "shell/command_bar.h"

#include "settings/error_handlers.h"
#include "shell/connect.h"
#include "kernel/errors.h"
#include "shell/global.h"
#include "shell/menu_tree.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "kernel/strings.h"
#include "vba/encoding.h"
#include "vba/numbers.h"
#include "vba/text.h"

namespace quillet::shell {
namespace {

constexpr int kAddErrorHandlingProcedure = 29;

long StoredLong(kernel::Session& s, std::wstring_view key, std::wstring_view suffix, long defaultValue) {
  std::wstring text = s.platform.GetSetting(kernel::kAppName, L"Quillet", std::wstring(key) + std::wstring(suffix),
                                            std::to_wstring(defaultValue));
  return vba::IsNumeric(text) ? static_cast<long>(vba::Val(text)) : defaultValue;
}

bool Wanted(kernel::Session& s, const MenuNode& node) {
  switch (node.condition) {
    case MenuNode::kAlways: return true;
    case MenuNode::kTestingMode: return s.testingMode;
    case MenuNode::kAccessHost: return s.hostAccess && vba::EqualsText(s.hostAccess->Name(), L"Microsoft Access");
    case MenuNode::kObjectNameHost:
      return (!s.hostAccess && (s.hostExcel || s.hostWord)) ||
             (s.hostAccess && vba::EqualsText(s.hostAccess->Name(), L"Microsoft Access"));
  }
  return true;
}

void AddNodes(kernel::Session& s, Connect& connect, host::CommandBar& bar, const std::vector<MenuNode>& nodes,
              const host::Ptr<host::CommandBarControl>& parent) {
  for (const MenuNode& node : nodes) {
    if (!Wanted(s, node)) continue;
    std::wstring tooltip = node.webPath ? std::wstring(kernel::kWebSite) + node.webPath : std::wstring();
    auto control = ToolBarControlAdd(s, bar, {.captionId = node.captionId, .controlType = node.type,
                                              .beginGroup = node.beginGroup, .faceId = node.picture ? node.captionId : 0,
                                              .parent = parent, .tooltip = tooltip});
    if (node.type == host::kControlPopup) {
      AddNodes(s, connect, bar, node.children, control);
    } else {
      if (node.type == host::kControlDropdown) ErrorHandlerList(s, *control);
      connect.Hook(node.handler, control);
    }
  }
}

// The caption id the builder kept with a control, 0 for a control of someone else.
int CaptionId(const host::Ptr<host::CommandBarControl>& c) {
  std::wstring p = c->Parameter();
  return vba::IsNumeric(p) ? static_cast<int>(vba::Val(p)) : 0;
}

// Writes only what changes, so the bar does not repaint at every tick.
void Show(const host::Ptr<host::CommandBarControl>& c, bool visible) {
  if (c->Visible() != visible) c->SetVisible(visible);
}
void Enable(const host::Ptr<host::CommandBarControl>& c, bool enabled) {
  if (c->Enabled() != enabled) c->SetEnabled(enabled);
}

bool OneOf(int id, std::initializer_list<int> ids) {
  for (int i : ids)
    if (i == id) return true;
  return false;
}

}  // namespace

host::Ptr<host::CommandBar> ToolBarCreate(kernel::Session& s, host::CommandBars& bars, std::wstring_view suffix) {
  host::Ptr<host::CommandBar> bar;
  try {
    bar = bars.Item(L"Quillet");
  } catch (const vba::Error&) {
  }
  long position = StoredLong(s, L"ToolbarPos", suffix, host::kBarTop);
  long rowIndex = StoredLong(s, L"ToolbarIndex", suffix, 0);
  long left = StoredLong(s, L"ToolbarLeft", suffix, 0);
  long top = StoredLong(s, L"ToolbarTop", suffix, 0);
  // The bar is temporary: the host keeps nothing of it, the add-in keeps its place.
  if (!bar) bar = bars.Add(L"Quillet", position, false, true);
  bar->SetPosition(position);
  if (position == host::kBarLeft || position == host::kBarRight) {
    bar->SetRowIndex(rowIndex);
    bar->SetTop(top);
  } else if (position == host::kBarTop || position == host::kBarBottom) {
    bar->SetRowIndex(rowIndex);
    bar->SetLeft(left);
  } else {
    bar->SetTop(top);
    bar->SetLeft(left);
  }
  bar->SetVisible(true);
  return bar;
}

void ToolBarDelete(kernel::Session& s, host::CommandBars& bars, std::wstring_view suffix) {
  host::Ptr<host::CommandBar> bar = bars.Item(L"Quillet");
  auto store = [&](const wchar_t* key, long value) {
    s.platform.SaveSetting(kernel::kAppName, L"Quillet", std::wstring(key) + std::wstring(suffix), std::to_wstring(value));
  };
  store(L"ToolbarPos", bar->Position());
  store(L"ToolbarIndex", bar->RowIndex());
  store(L"ToolbarLeft", bar->Left());
  store(L"ToolbarTop", bar->Top());
  bar->SetVisible(false);
  bar->Delete();
  try {
    bars.Item(L"CodeExplorerPopUp")->Delete();
  } catch (const vba::Error&) {
  }
}

host::Ptr<host::CommandBarControl> ToolBarControlAdd(kernel::Session& s, host::CommandBar& bar, const ControlDescription& described) {
  const auto& [captionId, controlType, beginGroup, faceId, parent, tooltip, forceCaption, copyFaceId] = described;
  kernel::DoEvents(s);
  const std::wstring& caption = kernel::ResString(captionId);
  host::CommandBarControls& container = parent ? *parent->Controls() : bar.Controls();
  host::Ptr<host::CommandBarControl> control = container.Add(controlType);
  control->SetParameter(std::to_wstring(captionId));
  if (faceId != 0) {
    // Some hosts' controls have no picture property: their face comes through the clipboard.
    try {
      if (!control->HasPictureProperty()) vba::Raise(438);
      control->SetPicture(std::to_wstring(faceId), std::to_wstring(faceId) + L"m");
    } catch (const vba::Error&) {
      try {
        s.platform.ClipboardClear();
        s.platform.ClipboardSetData(host::kCfBitmap, vba::ToUtf8(std::to_wstring(faceId)));
        control->PasteFace();
      } catch (const vba::Error&) {
      }
    }
  }
  if (copyFaceId != 0) {
    s.platform.ClipboardClear();
    if (auto source = s.vbe->CommandBars().FindControl(static_cast<int>(copyFaceId))) source->CopyFace();
    control->PasteFace();
  }
  control->SetBeginGroup(beginGroup);
  control->SetCaption(caption);
  bool hasFace = faceId != 0 || copyFaceId != 0;
  if ((parent || forceCaption) && hasFace) {
    control->SetStyle(host::kStyleIconAndCaption);
  } else if (!(parent && forceCaption) && faceId != 0) {
    control->SetStyle(host::kStyleIcon);
  }
  control->SetTag(parent ? parent->Tag() + L" " + caption : caption);
  if (!tooltip.empty()) {
    bool numeric = vba::IsNumeric(tooltip);
    control->SetTooltipText(numeric ? kernel::ResString(static_cast<int>(vba::Val(tooltip))) : std::wstring(tooltip));
  }
  return control;
}

void CommandBarBuild(kernel::Session& s, Connect& connect) {
  kernel::Trap(s, L"Connect.ToolBarCreate", [&] {
    host::Ptr<host::CommandBar> bar = ToolBarCreate(s, s.vbe->CommandBars(), L"");
    AddNodes(s, connect, *bar, CommandBarTree(), nullptr);
  });
}

void CommandBarRemove(kernel::Session& s) {
  if (Connect* c = ConnectOf(s)) c->Unhook();
  kernel::Trap(s, L"Connect.ToolBarDelete", [&] { ToolBarDelete(s, s.vbe->CommandBars(), L""); });
}

bool AccessToolBarCreate(kernel::Session& s) {
  bool made = false;
  kernel::Trap(s, L"Connect.AccessToolBarCreate", [&] {
    host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
    if (!project || project->References()->Item(2)->Name() != L"Access") return;
    if (!s.hostAccess || !s.hostAccess->CommandBars() || !ConnectOf(s)) return;
    host::Ptr<host::CommandBar> bar = ToolBarCreate(s, *s.hostAccess->CommandBars(), s.hostAccess->Name());
    auto button = ToolBarControlAdd(s, *bar, {.captionId = 183, .faceId = 183});
    ConnectOf(s)->Hook(L"mnuhControlAdd", button);
    made = true;
  });
  return made;
}

void ErrorHandlerList(kernel::Session& s, host::CommandBarControl& combo) {
  kernel::Trap(s, L"Connect.ErrorHandlerList", [&] {
    std::wstring wanted = s.settings[kAddErrorHandlingProcedure].ToString();
    for (const std::wstring& name : settings::ErrorHandlersList(s)) {
      combo.AddItem(name);
      if (vba::EqualsText(name, wanted)) combo.SetListIndex(combo.ListCount());
    }
    combo.SetWidth(377);
    combo.SetDropDownWidth(240);
  });
}

void MenuItemsUpdate(kernel::Session& s) {
  if (!s.vbe) return;
  host::Ptr<host::CommandBar> bar;
  try {
    bar = s.vbe->CommandBars().Item(L"Quillet");
  } catch (const vba::Error&) {
    return;  // the bar is not built yet
  }
  std::wstring name;
  long body = 0;
  bool inProc = kernel::CurrentProcGet(s, true, name, body);
  host::Ptr<host::Window> window = s.vbe->ActiveWindow();
  bool codeWindow = window && window->Type() == host::kCodeWindow;

  host::Ptr<host::CommandBarControl> menu, error;
  host::CommandBarControls& top = bar->Controls();
  for (long i = 1; i <= top.Count(); ++i) {
    auto c = top.Item(i);
    int id = CaptionId(c);
    if (id == 122) menu = c;
    if (OneOf(id, {122, 183, 104, 110})) continue;
    if (codeWindow) Show(c, OneOf(id, {106, 181, 182}) ? inProc : true);
    else if (!OneOf(id, {194, 195})) Show(c, false);
  }
  if (!menu || !menu->Controls()) return;
  host::CommandBarControls& items = *menu->Controls();
  for (long i = 1; i <= items.Count(); ++i) {
    auto c = items.Item(i);
    int id = CaptionId(c);
    if (id == 149) error = c;
    if (codeWindow) {
      bool always = OneOf(id, {183, 101, 104, 149, 179, 184, 185, 186}) || c->Index() < 4;
      Show(c, always || inProc);
    } else if (id == 185) {
      Show(c, s.vbe->SelectedVBComponent() != nullptr);
    } else {
      Show(c, OneOf(id, {104, 183, 184, 186}));
    }
  }
  if (!codeWindow || !error || !error->Controls()) return;
  host::CommandBarControls& errorItems = *error->Controls();
  for (long i = 1; i <= errorItems.Count(); ++i) {
    auto c = errorItems.Item(i);
    Enable(c, CaptionId(c) == 189 ? true : inProc);
  }
}

}  // namespace quillet::shell
