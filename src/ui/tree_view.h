#pragma once
// The tree view: nodes with key, text, tag, image, colour and expansion, added relative
// to one another as the classic Nodes.Add does, with the NodeClick, Expand and Collapse
// events.
#include <string>
#include <string_view>
#include <vector>

#include "ui/constants.h"
#include "ui/control.h"
#include "ui/keyed_items.h"

namespace quillet::ui {

class TreeView;

class Node {
 public:
  Node(TreeView& tree, std::wstring key, std::wstring text, std::wstring image)
      : tree_(tree), key_(std::move(key)), text_(std::move(text)), image_(std::move(image)) {}
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  TreeView& Owner() const { return tree_; }
  const std::wstring& Key() const { return key_; }
  const std::wstring& Text() const { return text_; }
  void SetText(std::wstring text);
  const std::wstring& Tag() const { return tag_; }
  void SetTag(std::wstring tag) { tag_ = std::move(tag); }
  // The image list key (or number) of the node's picture.
  const std::wstring& Image() const { return image_; }
  void SetImage(std::wstring image) { image_ = std::move(image); }
  long ForeColor() const { return foreColor_; }
  void SetForeColor(long color) { foreColor_ = color; }
  bool Bold() const { return bold_; }
  void SetBold(bool bold) { bold_ = bold; }

  // A change raises Expand or Collapse, whether code or the user makes it.
  bool Expanded() const { return expanded_; }
  void SetExpanded(bool expanded);
  // Children kept in text order, without regard to case.
  bool Sorted() const { return sorted_; }
  void SetSorted(bool sorted);

  // Navigation; nullptr where there is nothing.
  int Children() const { return static_cast<int>(children_.size()); }
  Node* Child() const { return children_.empty() ? nullptr : children_.front(); }
  Node* Parent() const { return parent_; }
  Node* Next() const;
  Node* Previous() const;
  Node* FirstSibling() const;
  Node* LastSibling() const;
  Node* Root() const;
  const std::vector<Node*>& ChildNodes() const { return children_; }

  // 1-based place in the tree's Nodes collection.
  int Index() const;
  // Selecting from code raises no NodeClick.
  bool Selected() const;
  void SetSelected(bool selected);
  // The texts from the root down, joined by the tree's PathSeparator.
  std::wstring FullPath() const;
  // Expands every node above it (raising Expand for each that opens).
  void EnsureVisible();

 private:
  friend class TreeNodes;
  friend class TreeView;
  // The list this node sits in: its parent's children or the tree's roots.
  std::vector<Node*>& Siblings() const;

  TreeView& tree_;
  std::wstring key_;
  std::wstring text_;
  std::wstring tag_;
  std::wstring image_;
  long foreColor_ = vbWindowText;
  bool bold_ = false;
  bool expanded_ = false;
  bool sorted_ = false;
  Node* parent_ = nullptr;
  std::vector<Node*> children_;
};

// The tree's Nodes collection, in the order the nodes were added.
class TreeNodes {
 public:
  explicit TreeNodes(TreeView& tree) : tree_(tree), items_(L"Nodes") {}

  // A new root node at the end.
  Node& Add(std::wstring key, std::wstring text, std::wstring image = {});
  // A node placed relative to another: tvwFirst, tvwLast, tvwNext, tvwPrevious among
  // its siblings, or tvwChild below it. Error 35601 when the relative is unknown, 35602
  // when the key is taken.
  Node& Add(Node* relative, int relationship, std::wstring key, std::wstring text, std::wstring image = {});
  Node& Add(std::wstring_view relativeKey, int relationship, std::wstring key, std::wstring text,
            std::wstring image = {});

  int Count() const { return items_.Count(); }
  Node& Item(int index) const { return items_.Item(index); }
  Node& Item(std::wstring_view key) const { return items_.Item(key); }
  Node* Find(std::wstring_view key) const { return items_.Find(key); }
  int IndexOf(const Node* node) const { return items_.IndexOf(node); }
  const std::vector<std::unique_ptr<Node>>& All() const { return items_.All(); }

  // Removes the node and everything below it.
  void Remove(int index) { Remove(Item(index)); }
  void Remove(std::wstring_view key) { Remove(Item(key)); }
  void Remove(Node& node);
  void Clear();

 private:
  friend class TreeView;
  TreeView& tree_;
  KeyedItems<Node> items_;
};

class TreeView : public Control {
 public:
  TreeView(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "TreeView"; }

  TreeNodes& Nodes() { return nodes_; }
  const TreeNodes& Nodes() const { return nodes_; }
  // The top-level nodes in display order.
  const std::vector<Node*>& Roots() const { return roots_; }

  // Setting it from code raises no NodeClick.
  Node* SelectedItem() const { return selected_; }
  void SetSelectedItem(Node* node) { selected_ = node; }

  // Top-level nodes kept in text order.
  bool Sorted() const { return sorted_; }
  void SetSorted(bool sorted);
  const std::wstring& PathSeparator() const { return pathSeparator_; }
  void SetPathSeparator(std::wstring separator) { pathSeparator_ = std::move(separator); }

  Event<Node&> OnNodeClick;
  Event<Node&> OnExpand;
  Event<Node&> OnCollapse;

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;  // no nodes: a tree gets them at run time
  // Up and Down move the selection over the visible nodes (NodeClick), Right expands,
  // Left collapses or goes to the parent.
  void KeyDownDefault(int keyCode, int shift) override;

 private:
  friend class Node;
  friend class TreeNodes;
  friend class UserInput;
  void SortSiblings(std::vector<Node*>& siblings) const;
  // The user picks a node: it becomes selected and NodeClick is raised.
  void UserSelect(Node& node);
  std::vector<Node*> VisibleNodes() const;

  TreeNodes nodes_{*this};
  std::vector<Node*> roots_;
  Node* selected_ = nullptr;
  bool sorted_ = false;
  bool designSorted_ = false;
  std::wstring pathSeparator_ = L"\\";
};

}  // namespace quillet::ui
