// The list of named values: its orders, its places, and what its rows paint.
#include "shell/prop_list.h"

#include "gtest/gtest.h"

#include "core/form.h"

namespace tess {
namespace {

using Texts = std::vector<std::string>;

struct ListForm : Form {
  ListForm() : Form("frmList") {}
  PropList list{*this, "list"};
};

class Rows : public ::testing::Test {
 protected:
  Rows() {
    list.AddProperty("Start X", std::string("1.0000"), "Where it starts.", "Geometry");
    list.AddProperty("bearing", std::string("45."), "", "Geometry");
    list.AddProperty("Length", 2.5F, "", "Geometry");
    list.AddProperty("Layer", std::string("cut"), "", "");
    list.addTotal("Area", "9", "Totals");
    list.NeedRefresh();
    items().setMetrics(200, 100, 20);
  }
  CPropListItems& items() { return list.PropListItems(); }
  const Texts& names() { return list.items(); }

  ListForm form;
  PropList& list = form.list;
};

TEST_F(Rows, StandByTheirNamesAndTotalsAtTheEnd) {
  EXPECT_EQ(names(), (Texts{"bearing", "Layer", "Length", "Start X", "Area"}));
  EXPECT_EQ(items().VisibleCount(), 5);
  EXPECT_EQ(items().Count(), 8) << "three headings are out of sight";
}

TEST_F(Rows, StandUnderHeadingsInTheOrderOfAdding) {
  list.setListStyle(ListStyle::Categorized);
  EXPECT_EQ(names(),
            (Texts{"Geometry", "Start X", "bearing", "Length", "Misc", "Layer", "Totals", "Area"}));
  EXPECT_TRUE(items().Item(0).IsCategory);
  list.AddProperty("Width", 1.0F, "", "Geometry");
  list.NeedRefresh();
  EXPECT_EQ(names()[4], "Width") << "a later row joins its heading";
}

TEST_F(Rows, ARowWithoutACategoryIsMisc) {
  EXPECT_EQ(items().find("Layer")->Category, "Misc");
}

TEST_F(Rows, AreWalkedInTheOrderOfShowing) {
  Texts walked;
  for (const CPropListItem& item : items().NewEnum()) walked.push_back(item.Name);
  EXPECT_EQ(walked, names());
}

TEST_F(Rows, AreSetAllAtOnce) {
  CPropListItem item;
  item.QuickSet("Length", "2.5", "From end to end.", "Geometry");
  EXPECT_EQ(item.Name, "Length");
  EXPECT_EQ(item.Value, "2.5");
  EXPECT_EQ(item.Description, "From end to end.");
  EXPECT_EQ(item.Category, "Geometry");
  EXPECT_TRUE(item.Enabled && item.Visible && !item.IsCategory && !item.Selected);
}

TEST_F(Rows, AreHitInTheirWholeWidthAndNotBeside) {
  const CPropListItem& second = items().Item(1);
  for (const int x : {0, 99, 100, 199}) {
    EXPECT_TRUE(second.HitTest(x, 20)) << x;
    EXPECT_TRUE(second.HitTest(x, 39)) << x;
    EXPECT_FALSE(second.HitTest(x, 19)) << x;
    EXPECT_FALSE(second.HitTest(x, 40)) << x;
  }
  EXPECT_FALSE(second.HitTest(-1, 30));
  EXPECT_FALSE(second.HitTest(200, 30));
}

TEST_F(Rows, TakeANewTextUnlessTheyAreHeadingsOrReadOnly) {
  EXPECT_TRUE(items().find("Length")->Validate("3"));
  EXPECT_TRUE(items().find("Length")->Validate(""));
  EXPECT_FALSE(items().find("Length")->Validate("2.5"));
  EXPECT_FALSE(items().find("Area")->Validate("10"));
  list.setListStyle(ListStyle::Categorized);
  EXPECT_FALSE(items().Item(0).Validate("Shape"));
}

TEST_F(Rows, TellOfANewTextAsTheirValueIsLeft) {
  Texts told;
  list.onChange = [&told](const std::string& name, const std::string& value) {
    told.push_back(name + "=" + value);
  };
  list.leaveValue("Length", "2.5");
  list.leaveValue("Area", "10");
  list.leaveValue("Nothing", "1");
  list.leaveValue("Geometry", "1");
  EXPECT_EQ(told, Texts{});
  list.leaveValue("Length", "3");
  EXPECT_EQ(told, Texts{"Length=3"});
  EXPECT_EQ(items().find("Length")->Value, "2.5") << "whoever heard of it fills the rows anew";
}

TEST_F(Rows, NumbersAreTheShortestText) {
  EXPECT_EQ(items().find("Length")->Value, "2.5");
}

TEST_F(Rows, ABadIndexIsInvalid) {
  for (const int index : {-1, 5, 1000}) {
    try {
      items().Item(index);
      FAIL() << index;
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.description(), "Invalid index");
    }
  }
}

TEST_F(Rows, TheChosenNameStaysChosen) {
  list.setText("Length");
  int clicks = 0;
  list.onClick = [&] { ++clicks; };
  list.setListStyle(ListStyle::Categorized);
  EXPECT_EQ(list.text(), "Length");
  EXPECT_EQ(items().SelectedItem()->Name, "Length");
  list.Clear();
  list.NeedRefresh();
  EXPECT_EQ(list.index(), -1);
  EXPECT_EQ(items().SelectedItem(), nullptr);
  EXPECT_EQ(clicks, 0);
}

TEST_F(Rows, KeysPassOverHeadings) {
  list.setListStyle(ListStyle::Categorized);
  EXPECT_EQ(items().SelectFirst(), 1);
  EXPECT_EQ(items().SelectLast(), 7);
  list.setIndex(3);
  EXPECT_EQ(items().SelectNext(), 5);
  list.setIndex(5);
  EXPECT_EQ(items().SelectPrev(), 3);
  list.setIndex(1);
  EXPECT_EQ(items().SelectPrev(), 1) << "the first stays";
  list.setIndex(7);
  EXPECT_EQ(items().SelectNext(), 7) << "the last stays";
  list.setIndex(-1);
  EXPECT_EQ(items().SelectNext(), 1);
  EXPECT_EQ(items().SelectPrev(), 7);
}

TEST_F(Rows, AnEmptyListHasNothingToChoose) {
  list.Clear();
  list.NeedRefresh();
  EXPECT_EQ(items().SelectFirst(), -1);
  EXPECT_EQ(items().SelectLast(), -1);
  EXPECT_EQ(items().SelectNext(), -1);
  EXPECT_EQ(items().HitTest(5, 5), -1);
}

TEST_F(Rows, HaveTheirPlaces) {
  EXPECT_EQ(items().TargetHeightInItems(), 5);
  EXPECT_EQ(items().HitTest(10, 0), 0);
  EXPECT_EQ(items().HitTest(199, 45), 2);
  EXPECT_EQ(items().HitTest(200, 45), -1);
  EXPECT_EQ(items().HitTest(10, 100), -1);
  EXPECT_EQ(items().HitTestField(99, 45), PropField::Name);
  EXPECT_EQ(items().HitTestField(100, 45), PropField::Value);
  EXPECT_EQ(items().HitTestField(-1, 45), PropField::None);
}

TEST_F(Rows, ScrollAsFarAsTheLastOne) {
  items().setMetrics(200, 60, 20);
  items().Scroll(1);
  EXPECT_EQ(items().HitTest(10, 0), 1);
  items().Scroll(100);
  EXPECT_EQ(items().firstShown(), 2);
  items().Scroll(-100);
  EXPECT_EQ(items().firstShown(), 0);
}

TEST_F(Rows, AChosenRowComesIntoTheWindow) {
  items().setMetrics(200, 60, 20);
  list.setIndex(4);
  EXPECT_EQ(items().firstShown(), 2);
  EXPECT_EQ(items().Item(4).Top, 40);
  list.setIndex(0);
  EXPECT_EQ(items().Item(0).Top, 0);
}

TEST_F(Rows, AWindowWithoutRoomDoesNoHarm) {
  items().setMetrics(0, 0, 0);
  list.setIndex(4);
  EXPECT_EQ(items().HitTest(0, 0), -1);
}

// What was painted, as "fill COLOR" and "TEXT COLOR".
struct Painted : PropCanvas {
  void fill(const Bounds& area, Rgb color) override {
    calls.push_back("fill " + std::to_string(area.top) + " " + std::to_string(area.width) + " " +
                    std::to_string(color));
  }
  void text(const Bounds& area, const std::string& text, Rgb color, bool heading) override {
    calls.push_back(text + " " + std::to_string(area.left) + " " + std::to_string(color) +
                    (heading ? " heading" : ""));
  }
  Texts calls;
};

constexpr PropColors kColors{.ForeColor = 1,
                             .BackColor = 2,
                             .ForeColorSelected = 3,
                             .BackColorSelected = 4,
                             .ForeColorDisabled = 5,
                             .BackColorCategory = 6};

TEST_F(Rows, PaintThemselvesInTheirColors) {
  list.setListStyle(ListStyle::Categorized);
  list.setText("Start X");
  Painted painted;
  items().setMetrics(200, 40, 20);
  items().Paint(painted, kColors);
  EXPECT_EQ(painted.calls, (Texts{"fill 0 200 6", "Geometry 0 1 heading", "fill 20 200 2",
                                  "fill 20 100 4", "Start X 0 3", "1.0000 100 1"}));
}

TEST_F(Rows, AValueThatCanOnlyBeReadIsGrey) {
  Painted painted;
  items().find("Area")->Paint(painted, kColors);
  EXPECT_EQ(painted.calls.back(), "9 100 5");
}

}  // namespace
}  // namespace tess
