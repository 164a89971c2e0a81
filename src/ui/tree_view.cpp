#include "ui/tree_view.h"

#include <algorithm>

#include "vba/encoding.h"
#include "vba/text.h"

namespace quillet::ui {

namespace {
bool TextLessThan(const Node* a, const Node* b) { return vba::CompareText(a->Text(), b->Text()) < 0; }

std::size_t PositionOf(const std::vector<Node*>& list, const Node* node) {
  return static_cast<std::size_t>(std::find(list.begin(), list.end(), node) - list.begin());
}
}  // namespace

// --- Node ---

std::vector<Node*>& Node::Siblings() const { return parent_ ? parent_->children_ : tree_.roots_; }

void Node::SetText(std::wstring text) {
  text_ = std::move(text);
  tree_.SortSiblings(Siblings());
}

void Node::SetExpanded(bool expanded) {
  if (expanded_ == expanded) return;
  expanded_ = expanded;
  if (expanded) tree_.Raise(tree_.OnExpand, *this);
  else tree_.Raise(tree_.OnCollapse, *this);
}

void Node::SetSorted(bool sorted) {
  sorted_ = sorted;
  if (sorted) tree_.SortSiblings(children_);
}

Node* Node::Next() const {
  const auto& list = Siblings();
  std::size_t i = PositionOf(list, this);
  return i + 1 < list.size() ? list[i + 1] : nullptr;
}

Node* Node::Previous() const {
  const auto& list = Siblings();
  std::size_t i = PositionOf(list, this);
  return i > 0 && i < list.size() ? list[i - 1] : nullptr;
}

Node* Node::FirstSibling() const { return Siblings().front(); }
Node* Node::LastSibling() const { return Siblings().back(); }

Node* Node::Root() const {
  const Node* n = this;
  while (n->parent_) n = n->parent_;
  return const_cast<Node*>(n);
}

int Node::Index() const { return tree_.nodes_.IndexOf(this); }

bool Node::Selected() const { return tree_.selected_ == this; }

void Node::SetSelected(bool selected) {
  if (selected) tree_.selected_ = this;
  else if (tree_.selected_ == this) tree_.selected_ = nullptr;
}

std::wstring Node::FullPath() const {
  std::wstring path = text_;
  for (const Node* p = parent_; p; p = p->parent_) path = p->text_ + tree_.pathSeparator_ + path;
  return path;
}

void Node::EnsureVisible() {
  std::vector<Node*> above;
  for (Node* p = parent_; p; p = p->parent_) above.push_back(p);
  for (auto it = above.rbegin(); it != above.rend(); ++it) (*it)->SetExpanded(true);
}

// --- TreeNodes ---

Node& TreeNodes::Add(std::wstring key, std::wstring text, std::wstring image) {
  return Add(nullptr, tvwLast, std::move(key), std::move(text), std::move(image));
}

Node& TreeNodes::Add(std::wstring_view relativeKey, int relationship, std::wstring key, std::wstring text,
                     std::wstring image) {
  return Add(&Item(relativeKey), relationship, std::move(key), std::move(text), std::move(image));
}

Node& TreeNodes::Add(Node* relative, int relationship, std::wstring key, std::wstring text, std::wstring image) {
  if (relative && &relative->tree_ != &tree_) RaiseElementNotFound(L"Nodes.Add");
  Node& node = items_.Insert(items_.All().size(),
                             std::make_unique<Node>(tree_, std::move(key), std::move(text), std::move(image)));
  std::vector<Node*>* list = &tree_.roots_;
  std::size_t at = list->size();
  if (relative && relationship == tvwChild) {
    node.parent_ = relative;
    list = &relative->children_;
    at = list->size();
  } else if (relative) {
    node.parent_ = relative->parent_;
    list = &relative->Siblings();
    std::size_t i = PositionOf(*list, relative);
    if (relationship == tvwFirst) at = 0;
    else if (relationship == tvwNext) at = i + 1;
    else if (relationship == tvwPrevious) at = i;
    else at = list->size();
  } else if (relationship == tvwFirst) {
    at = 0;
  }
  list->insert(list->begin() + static_cast<std::ptrdiff_t>(at), &node);
  tree_.SortSiblings(*list);
  return node;
}

void TreeNodes::Remove(Node& node) {
  // Everything below goes first, then the node leaves its siblings and the collection.
  while (!node.children_.empty()) Remove(*node.children_.back());
  if (tree_.selected_ == &node) tree_.selected_ = nullptr;
  auto& siblings = node.Siblings();
  siblings.erase(std::remove(siblings.begin(), siblings.end(), &node), siblings.end());
  items_.Take(&node);
}

void TreeNodes::Clear() {
  tree_.roots_.clear();
  tree_.selected_ = nullptr;
  items_.Clear();
}

// --- TreeView ---

TreeView::TreeView(Form& form, std::wstring name, Control* container, int index)
    : Control(form, std::move(name), container, index) {
  Move(0, 0, 2415, 1815);
}

void TreeView::SortSiblings(std::vector<Node*>& siblings) const {
  if (siblings.empty()) return;
  Node* parent = siblings.front()->parent_;
  bool sorted = parent ? parent->sorted_ : sorted_;
  if (sorted) std::stable_sort(siblings.begin(), siblings.end(), TextLessThan);
}

void TreeView::SetSorted(bool sorted) {
  sorted_ = sorted;
  SortSiblings(roots_);
}

void TreeView::UserSelect(Node& node) {
  selected_ = &node;
  Raise(OnNodeClick, node);
}

std::vector<Node*> TreeView::VisibleNodes() const {
  std::vector<Node*> out;
  std::vector<Node*> stack(roots_.rbegin(), roots_.rend());
  while (!stack.empty()) {
    Node* n = stack.back();
    stack.pop_back();
    out.push_back(n);
    if (n->expanded_) stack.insert(stack.end(), n->children_.rbegin(), n->children_.rend());
  }
  return out;
}

void TreeView::KeyDownDefault(int keyCode, int shift) {
  if (keyCode == vbKeyUp || keyCode == vbKeyDown) {
    std::vector<Node*> visible = VisibleNodes();
    if (visible.empty()) return;
    std::size_t i = selected_ ? PositionOf(visible, selected_) : visible.size();
    if (i >= visible.size()) UserSelect(*visible.front());
    else if (keyCode == vbKeyDown && i + 1 < visible.size()) UserSelect(*visible[i + 1]);
    else if (keyCode == vbKeyUp && i > 0) UserSelect(*visible[i - 1]);
  } else if (keyCode == vbKeyRight && selected_ && selected_->Children() > 0) {
    selected_->SetExpanded(true);
  } else if (keyCode == vbKeyLeft && selected_) {
    if (selected_->expanded_) selected_->SetExpanded(false);
    else if (selected_->parent_) UserSelect(*selected_->parent_);
  }
}

namespace {
nlohmann::json DescribeNode(const Node& n) {
  nlohmann::json j{{"key", vba::ToUtf8(n.Key())},          {"text", vba::ToUtf8(n.Text())},
                   {"tag", vba::ToUtf8(n.Tag())},          {"image", vba::ToUtf8(n.Image())},
                   {"expanded", n.Expanded()},             {"selected", n.Selected()}};
  if (n.ForeColor() != vbWindowText) j["foreColor"] = n.ForeColor();
  if (n.Bold()) j["bold"] = true;
  nlohmann::json children = nlohmann::json::array();
  for (const Node* c : n.ChildNodes()) children.push_back(DescribeNode(*c));
  j["children"] = std::move(children);
  return j;
}
}  // namespace

void TreeView::DescribeInto(nlohmann::json& out) const {
  nlohmann::json nodes = nlohmann::json::array();
  for (const Node* n : roots_) nodes.push_back(DescribeNode(*n));
  out["nodes"] = std::move(nodes);
}

void TreeView::SaveDesign() {
  Control::SaveDesign();
  designSorted_ = sorted_;
}

void TreeView::RestoreDesign() {
  Control::RestoreDesign();
  nodes_.Clear();
  sorted_ = designSorted_;
}

}  // namespace quillet::ui
