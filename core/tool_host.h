// Menus and tool bars as a model: tools by name with their state, in bands that open and close. A
// name that is not known does nothing when it is set or clicked, and reads as absent.
// Owns: Tool, BandKind, DockedPanel, Band, ToolProperty, BandProperty, ToolHostObserver, ToolHost.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/control.h"
#include "core/observer_list.h"

namespace tess {

// A command as the operator sees it, wherever it stands: all its places share this one state.
struct Tool {
  std::string name;
  std::string caption;
  std::string hint;
  std::string key;       // the key that does the same, as a menu shows it; empty for none
  std::string icon;      // the tool whose icon it shows; empty for its own
  std::string tag;       // what a pop-up entry stands for
  std::string popUp;     // the band that drops down from a button; empty for none
  bool toggles = false;  // a click turns `checked` over before it is told
  bool enabled = true;
  bool visible = true;
  bool checked = false;
  bool armed = false;  // its action waits for a click: it shows pressed, and nothing else
};

enum class BandKind { Menu, ToolBar, PopUp, Panel };

// The sizes that a panel wants in pixels, lying at the top or bottom (Horz) or standing at a side
// (Vert), and its arrangement for either.
class DockedPanel {
 public:
  virtual ~DockedPanel() = default;
  virtual Form& form() = 0;
  virtual int DockedHorzWidth() const = 0;
  virtual int DockedHorzHeight() const = 0;
  virtual int DockedVertWidth() const = 0;
  virtual int DockedVertHeight() const = 0;
  virtual void LayoutHorizontally() = 0;
  virtual void LayoutVertically() = 0;
  // Which of the two arrangements it has.
  virtual bool liesDown() const { return false; }
};

struct Band {
  std::string name;
  std::string caption;
  BandKind kind = BandKind::ToolBar;
  std::vector<std::string> tools;  // names in order; an empty one is a separator
  bool open = false;
  DockedPanel* panel = nullptr;
};

enum class ToolProperty { Caption, Key, Enabled, Visible, Checked, Armed };
enum class BandProperty { Open, Panel, Tools };

// A view of the tools.
class ToolHostObserver {
 public:
  virtual ~ToolHostObserver() = default;
  virtual void toolChanged(const Tool& /*tool*/, ToolProperty /*property*/) {}
  virtual void bandChanged(const Band& /*band*/, BandProperty /*property*/) {}
  // The places of the bands as one line of the view's own, to be kept in a layout and given back.
  virtual void keepArrangement(std::string& /*arrangement*/) {}
  virtual void restoreArrangement(const std::string& /*arrangement*/) {}
};

class ToolHost {
 public:
  using NameHandler = std::function<void(const std::string&)>;

  // A name that is taken raises Invalid procedure call.
  void addTool(Tool tool);
  void addBand(Band band);

  const Tool* tool(std::string_view name) const;  // null when absent
  const Band* band(std::string_view name) const;  // null when absent
  const std::deque<Band>& bands() const { return bands_; }
  std::vector<std::string> toolNames() const;

  // False for an absent tool.
  bool isEnabled(std::string_view name) const;
  bool isVisible(std::string_view name) const;
  bool isChecked(std::string_view name) const;

  void setCaption(std::string_view name, std::string caption);
  // The key as menus show it, and the hint that tells of it.
  void setKey(std::string_view name, std::string key, std::string hint);
  void setEnabled(std::string_view name, bool enabled);
  void setVisible(std::string_view name, bool visible);
  void setChecked(std::string_view name, bool checked);
  // This one tool is armed and no other; "" for none.
  void showArmed(std::string_view name);

  // A click of the operator: turns a toggle over, then runs onToolClick. False when the tool is
  // absent, disabled or hidden.
  bool click(std::string_view name);

  // Opening runs onBandOpen first, so that entries can be set before they are seen; closing runs
  // onBandClose last. False when the band is absent or there already.
  bool openBand(std::string_view name);
  bool closeBand(std::string_view name);
  void setBandTools(std::string_view name, std::vector<std::string> tools);
  void setPanel(std::string_view name, DockedPanel* panel);

  // What the bands leave for the drawing surface, in pixels; told by the view.
  const Bounds& clientArea() const { return clientArea_; }
  void setClientArea(const Bounds& area);

  // Pressed toggles, open tool bars and panels, and the views' arrangement as text for a layout
  // file. Loading one skips names that are absent and closes or opens bands with their events,
  // but clicks nothing. False, with nothing changed, for a text that is no layout.
  std::string layoutText() const;
  bool loadLayoutText(std::string_view text);

  Subscription observe(ToolHostObserver& observer) { return observers_.add(observer); }

  NameHandler onToolClick;
  NameHandler onBandOpen;
  NameHandler onBandClose;
  std::function<void()> onClientAreaChanged;

 private:
  Tool* find(std::string_view name);
  Band* findBand(std::string_view name);
  void announce(const Tool& tool, ToolProperty property);
  void announce(const Band& band, BandProperty property);
  void setFlag(std::string_view name, bool Tool::*flag, bool value, ToolProperty property);
  void loadLayoutLine(std::string_view line);

  std::map<std::string, Tool, std::less<>> tools_;
  std::string armed_;  // the name of the tool that is
  std::deque<Band> bands_;
  Bounds clientArea_;
  ObserverList<ToolHostObserver> observers_;
};

}  // namespace tess
