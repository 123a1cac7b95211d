// A list of named values as a control: rows in two orders under headings, each of which paints
// itself, with one selected whose value is edited in a text box over it.
// Owns: ListStyle, PropField, PropColors, PropCanvas, CPropListItem, CPropListItems, PropList.
#pragma once

#include <functional>
#include <ranges>
#include <string>
#include <string_view>
#include <vector>

#include "core/controls.h"
#include "display/palette.h"
#include "shell/c_segment.h"

namespace tess {

// By name; or under headings, in the order of adding.
enum class ListStyle : int { Alphabetic = 0, Categorized = 1 };

// What stands at a place of a row.
enum class PropField { None, Name, Value };

struct PropColors {
  Rgb ForeColor = 0x000000, BackColor = 0xFFFFFF;
  Rgb ForeColorSelected = 0xFFFFFF, BackColorSelected = 0x800000;
  Rgb ForeColorDisabled = 0x808080, BackColorCategory = 0xC0C0C0;
};

// Where rows are painted, in pixels from the corner of the list.
class PropCanvas {
 public:
  virtual ~PropCanvas() = default;
  virtual void fill(const Bounds& area, Rgb color) = 0;
  virtual void text(const Bounds& area, const std::string& text, Rgb color, bool heading) = 0;
};

struct CPropListItem {
  // What a row says, all at once.
  void QuickSet(std::string name, std::string value, std::string description, std::string category);

  std::string Name, Value, Description;
  std::string Category;
  bool IsCategory = false;  // a heading
  bool Enabled = true;      // its value may be changed
  bool Visible = true;      // in the present order
  bool Selected = false;
  int Top = 0, Height = 0, Width = 0;

  // The half of the row that belongs to the name, and the other.
  Bounds nameField() const;
  Bounds valueField() const;
  bool HitTest(int x, int y) const { return HitTestField(x, y) != PropField::None; }
  PropField HitTestField(int x, int y) const;
  void Paint(PropCanvas& canvas, const PropColors& colors) const;
  // Whether `text` is a new value that the row takes.
  bool Validate(std::string_view text) const { return !IsCategory && Enabled && text != Value; }
};

// The rows with their order, their places in a window of some height, and the selected one.
class CPropListItems {
 public:
  void Clear();
  // A row without a category gets "Misc". A heading comes with its first row.
  void Add(CPropListItem item);
  void AddCategory(const std::string& name);

  int Count() const { return static_cast<int>(items_.size()); }
  int VisibleCount() const { return static_cast<int>(shown_.size()); }
  // In the order of showing, from 0. Raises Invalid procedure call, "Invalid index".
  const CPropListItem& Item(int index) const;
  // All of them in the order of showing, to be walked.
  auto NewEnum() const {
    return std::views::transform(
        shown_, [this](std::size_t n) -> const CPropListItem& { return items_[n]; });
  }
  // The first row that is no heading and bears the name; null for none.
  const CPropListItem* find(std::string_view name) const;

  ListStyle listStyle() const { return style_; }
  void setListStyle(ListStyle style);

  // The place of the selected row, -1 for none. Selecting scrolls it into view.
  int SelectedItemIndex() const { return selected_; }
  void setSelectedItemIndex(int index);
  const CPropListItem* SelectedItem() const;
  // The place that the selection comes to, headings being passed over; -1 when there is no row.
  int SelectFirst() const { return nextRow(-1, 1); }
  int SelectNext() const;
  int SelectPrev() const;
  int SelectLast() const { return nextRow(VisibleCount(), -1); }

  // The window in pixels, and the height of a row.
  void setMetrics(int width, int height, int rowHeight);
  int TargetHeightInItems() const;
  int firstShown() const { return first_; }
  // Moves the rows by so many; the last stays in the window.
  void Scroll(int rows);
  // The place of the row at (x, y), -1 for none.
  int HitTest(int x, int y) const;
  PropField HitTestField(int x, int y) const;
  void Paint(PropCanvas& canvas, const PropColors& colors) const;
  // Order and places anew.
  void Refresh();

 private:
  CPropListItem& at(int index);
  void order();
  void place();
  int nextRow(int from, int step) const;

  std::vector<CPropListItem> items_;  // in the order of adding
  std::vector<std::size_t> shown_;
  ListStyle style_ = ListStyle::Alphabetic;
  int selected_ = -1;
  int first_ = 0;
  int width_ = 0, height_ = 0, rowHeight_ = 1;
};

// As a list its items are the names of the rows as they are shown, headings among them.
class PropList : public ListBox, public PropertyAdder {
 public:
  using ListBox::ListBox;

  // Without telling the view: NeedRefresh does.
  void Clear() { rows_.Clear(); }
  void AddProperty(const std::string& name, const PropertyContent& value,
                   const std::string& description, const std::string& category) override;
  // One that can only be read; those stand at the end of either order.
  void addTotal(const std::string& name, const std::string& value, const std::string& category);
  void AddCategory(const std::string& name) { rows_.AddCategory(name); }

  // What is painted and selected; setMetrics and Scroll are the view's.
  CPropListItems& PropListItems() { return rows_; }
  const CPropListItems& PropListItems() const { return rows_; }
  void setListStyle(ListStyle style);
  // The list shows its rows anew; the selected name stays selected, quietly.
  void NeedRefresh();

  // The operator gives up what was typed over a value.
  Handler onRestore;
  void restore() { fire(onRestore); }

  // The text box over the value of row `name` is left with this text: what the row takes as a new
  // value is told, once.
  std::function<void(const std::string& name, const std::string& value)> onChange;
  void leaveValue(const std::string& name, const std::string& text);

 protected:
  bool selectionChanged() override;

 private:
  CPropListItems rows_;
};

}  // namespace tess
