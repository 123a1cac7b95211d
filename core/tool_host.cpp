// Tools, bands and the text of a layout.
#include "core/tool_host.h"

#include <utility>

#include "core/runtime_failure.h"

namespace tess {
namespace {

constexpr std::string_view kLayoutHeading = "Tessimo layout 1";

[[noreturn]] void refuseSecond(const std::string& name) {
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, name, "The name is taken");
}

bool isKeptInLayout(const Band& band) {
  return band.kind == BandKind::ToolBar || band.kind == BandKind::Panel;
}

// The line up to the next line break, which is taken off `text` with it.
std::string_view takeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// The word before the first blank, which is taken off `text` with it.
std::string_view takeWord(std::string_view& text) {
  const std::size_t end = text.find(' ');
  const std::string_view word = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return word;
}

void appendFlagLine(std::string& text, const char* kind, const std::string& name, bool flag) {
  text.append(kind).append(" ").append(name).append(flag ? " 1\n" : " 0\n");
}

}  // namespace

void ToolHost::addTool(Tool tool) {
  std::string name = tool.name;
  if (!tools_.emplace(name, std::move(tool)).second) refuseSecond(name);
}

void ToolHost::addBand(Band band) {
  if (findBand(band.name) != nullptr) refuseSecond(band.name);
  bands_.push_back(std::move(band));
}

const Tool* ToolHost::tool(std::string_view name) const {
  const auto found = tools_.find(name);
  return found == tools_.end() ? nullptr : &found->second;
}

const Band* ToolHost::band(std::string_view name) const {
  for (const Band& band : bands_) {
    if (band.name == name) return &band;
  }
  return nullptr;
}

Tool* ToolHost::find(std::string_view name) {
  return const_cast<Tool*>(std::as_const(*this).tool(name));
}

Band* ToolHost::findBand(std::string_view name) {
  return const_cast<Band*>(std::as_const(*this).band(name));
}

std::vector<std::string> ToolHost::toolNames() const {
  std::vector<std::string> names;
  names.reserve(tools_.size());
  for (const auto& [name, tool] : tools_) names.push_back(name);
  return names;
}

bool ToolHost::isEnabled(std::string_view name) const {
  const Tool* found = tool(name);
  return found != nullptr && found->enabled;
}

bool ToolHost::isVisible(std::string_view name) const {
  const Tool* found = tool(name);
  return found != nullptr && found->visible;
}

bool ToolHost::isChecked(std::string_view name) const {
  const Tool* found = tool(name);
  return found != nullptr && found->checked;
}

void ToolHost::announce(const Tool& tool, ToolProperty property) {
  observers_.tell([&](ToolHostObserver& observer) { observer.toolChanged(tool, property); });
}

void ToolHost::announce(const Band& band, BandProperty property) {
  observers_.tell([&](ToolHostObserver& observer) { observer.bandChanged(band, property); });
}

void ToolHost::setCaption(std::string_view name, std::string caption) {
  Tool* found = find(name);
  if (found == nullptr || found->caption == caption) return;
  found->caption = std::move(caption);
  announce(*found, ToolProperty::Caption);
}

void ToolHost::setKey(std::string_view name, std::string key, std::string hint) {
  Tool* found = find(name);
  if (found == nullptr || (found->key == key && found->hint == hint)) return;
  found->key = std::move(key);
  found->hint = std::move(hint);
  announce(*found, ToolProperty::Key);
}

void ToolHost::setFlag(std::string_view name, bool Tool::*flag, bool value, ToolProperty property) {
  Tool* found = find(name);
  if (found == nullptr || std::exchange(found->*flag, value) == value) return;
  announce(*found, property);
}

void ToolHost::setEnabled(std::string_view name, bool enabled) {
  setFlag(name, &Tool::enabled, enabled, ToolProperty::Enabled);
}

void ToolHost::setVisible(std::string_view name, bool visible) {
  setFlag(name, &Tool::visible, visible, ToolProperty::Visible);
}

void ToolHost::setChecked(std::string_view name, bool checked) {
  setFlag(name, &Tool::checked, checked, ToolProperty::Checked);
}

void ToolHost::showArmed(std::string_view name) {
  if (armed_ == name) return;
  const std::string before = std::exchange(armed_, std::string(name));
  setFlag(before, &Tool::armed, false, ToolProperty::Armed);
  setFlag(name, &Tool::armed, true, ToolProperty::Armed);
}

bool ToolHost::click(std::string_view name) {
  const Tool* found = tool(name);
  if (found == nullptr || !found->enabled || !found->visible) return false;
  if (found->toggles) setChecked(name, !found->checked);
  if (const NameHandler handler = onToolClick) handler(found->name);
  return true;
}

bool ToolHost::openBand(std::string_view name) {
  Band* found = findBand(name);
  if (found == nullptr || found->open) return false;
  found->open = true;
  if (const NameHandler handler = onBandOpen) handler(found->name);
  if (found->open) announce(*found, BandProperty::Open);
  return true;
}

bool ToolHost::closeBand(std::string_view name) {
  Band* found = findBand(name);
  if (found == nullptr || !found->open) return false;
  found->open = false;
  announce(*found, BandProperty::Open);
  if (const NameHandler handler = onBandClose) handler(found->name);
  return true;
}

void ToolHost::setBandTools(std::string_view name, std::vector<std::string> tools) {
  Band* found = findBand(name);
  if (found == nullptr) return;
  found->tools = std::move(tools);
  announce(*found, BandProperty::Tools);
}

void ToolHost::setPanel(std::string_view name, DockedPanel* panel) {
  Band* found = findBand(name);
  if (found == nullptr || std::exchange(found->panel, panel) == panel) return;
  announce(*found, BandProperty::Panel);
}

void ToolHost::setClientArea(const Bounds& area) {
  if (std::exchange(clientArea_, area) == area) return;
  if (const auto handler = onClientAreaChanged) handler();
}

std::string ToolHost::layoutText() const {
  std::string text(kLayoutHeading);
  text += '\n';
  for (const auto& [name, tool] : tools_) {
    if (tool.toggles) appendFlagLine(text, "toggle", name, tool.checked);
  }
  for (const Band& band : bands_) {
    if (isKeptInLayout(band)) appendFlagLine(text, "band", band.name, band.open);
  }
  std::string arrangement;
  observers_.tell([&](ToolHostObserver& observer) { observer.keepArrangement(arrangement); });
  if (!arrangement.empty()) text.append("arrangement ").append(arrangement).append("\n");
  return text;
}

bool ToolHost::loadLayoutText(std::string_view text) {
  if (takeLine(text) != kLayoutHeading) return false;
  while (!text.empty()) loadLayoutLine(takeLine(text));
  return true;
}

void ToolHost::loadLayoutLine(std::string_view line) {
  const std::string_view kind = takeWord(line);
  if (kind == "arrangement") {
    const std::string arrangement(line);
    observers_.tell([&](ToolHostObserver& observer) { observer.restoreArrangement(arrangement); });
    return;
  }
  const std::string_view name = takeWord(line);
  const bool flag = line == "1";
  if (kind == "toggle") {
    const Tool* found = tool(name);
    if (found != nullptr && found->toggles) setChecked(name, flag);
  } else if (kind == "band" && flag) {
    openBand(name);
  } else if (kind == "band") {
    closeBand(name);
  }
}

}  // namespace tess
