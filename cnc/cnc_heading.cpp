// The comment block that opens a program, as a table of its items.
#include "cnc/cnc_heading.h"

#include <array>
#include <cmath>

#include "core/date_text.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/text.h"
#include "core/version.h"

namespace tess {
namespace {

struct Heading {
  ProgramText& text;
  const Session& session;
  const DrawingStore& store;
  const PostDefinition& definition;
  const std::string& cncfilename;
  NumberPattern pattern;

  std::string number(float value) const {
    std::string digits;
    pattern.append(digits, value);
    return digits;
  }
};

void customHeader(Heading& h) {
  h.text.line(h.definition.cncheadertext);
}

void starBar(Heading& h) {
  h.text.bar('*');
}

void product(Heading& h) {
  h.text.remark("*   " + h.session.productname + " (tm)  Version " + kVersionText);
  h.text.remark("*        RS 274-D CNC CODE");
}

void titleBlock(Heading& h) {
  const DrawingStore& store = h.store;
  h.text.remark("*  {File Name}:  " + h.cncfilename);
  h.text.remark("*  {Drawing Title}:  " + store.drawingtitle +
                "    {Rev}: " + store.drawingrevision);
  h.text.remark("*  {Designer}:  " + store.designername);
}

void workpiece(Heading& h) {
  const DrawingStore& store = h.store;
  const std::string holding = store.usingchuck != 0 ? "CHUCK  " : "CLAMPS ";
  h.text.remark("*  {Material}:  " + store.partmaterial);
  h.text.remark(std::string("*  {Material Shape}:  ") +
                (store.roundstock ? "Round" : "Rectangular"));
  h.text.remark("*  {Fixture}:  " + holding + "  {Units}:  " + (isMetric(store) ? "MM  " : "INCH"));
}

void millStock(Heading& h) {
  const DrawingStore& store = h.store;
  std::string line = "*  {SLENGTH}: " + h.number(store.partdimx) +
                     "  {SWIDTH}: " + h.number(store.partdimy) +
                     "  {SHEIGHT}: " + h.number(partHeightOr(store.partdimz));
  if (store.roundstock) line += "  {Diameter}:  " + h.number(store.partdimx);
  h.text.remark(line);
}

int signOf(float value) {
  return value > 0 ? 1 : value < 0 ? -1 : 0;
}

void latheStock(Heading& h) {
  const DrawingStore& store = h.store;
  h.text.remark("*  {PART LENGTH}: " + h.number(std::abs(store.partdimx)) +
                "  {O.D.}: " + h.number(2 * store.partdimy) + "  {I.D.}:  " + h.number(0));
  // Fixed: the first brace is doubled; the control program has always been given it so.
  h.text.remark("*  {{Z ORIGIN ZERO}: " + signBlankText(signOf(store.partdimx)));
}

void millSetup(Heading& h) {
  const DrawingStore& store = h.store;
  h.text.remark("*  Setup==>  {X Start}: " + h.number(store.xstartpos) + "   {Y Start}: " +
                h.number(store.ystartpos) + "   {Z Start}: " + h.number(store.zstartpos));
  h.text.remark("*            {X Origin Zero}:  " + signBlankText(int{store.xorigin}));
  h.text.remark("*            {Y Origin Zero}:  " + signBlankText(int{store.yorigin}));
  h.text.remark("*            {Z Origin Zero}:  " + signBlankText(int{store.zorigin}));
}

void latheSetup(Heading& h) {
  h.text.remark("*  Setup==>  {X Start}: " + h.number(h.store.partdimy) +
                "   {Z Start}: " + h.number(h.store.xstartpos));
}

void creation(Heading& h) {
  const DateTime now = h.session.host.clock.now();
  h.text.remark("*  {Creation Date}: " + dateText(now) + "   {Creation Time}: " + timeText(now));
}

// Fixed: maker and year stay; viewer and control programs know their files by this line.
void millProgram(Heading& h) {
  h.text.remark("*  Created for GantrixPro (tm) 2012");
}

void latheProgram(Heading& h) {
  h.text.remark("*  Created for Lathrix Pro (tm) 2012");
}

void toolLine(Heading& h, int index) {
  h.text.remark("*  {Tool}:  #" + std::to_string(index + 1) + ", " +
                std::string(trimmed(h.store.toolname[index])) +
                ", Diameter = " + plainText(2 * h.store.toolradius[index]));
}

// Fixed: a number counts as listed anywhere in the list's text; tool 1 is left out after tool 12.
void millTools(Heading& h) {
  h.text.remark("*  Tool Setup");
  std::string listed;
  for (int ps = 1, last = -1; ps <= h.store.NumPathSegments; ++ps) {
    const int index = toolIndex(h.store.pscode[ps]);
    if (index == last) continue;
    last = index;
    const std::string number = " " + std::to_string(index + 1);
    if (listed.find(number) != std::string::npos) continue;
    toolLine(h, index);
    listed += number + ",";
  }
  starBar(h);
}

using Item = void (*)(Heading&);

constexpr std::array kMillItems{starBar,   product,  titleBlock,  workpiece, millStock,
                                millSetup, creation, millProgram, starBar,   millTools};
constexpr std::array kLatheItems{starBar,    product,  titleBlock,   workpiece, latheStock,
                                 latheSetup, creation, latheProgram, starBar};

}  // namespace

void writeHeading(ProgramText& text, const Session& session, const PostDefinition& definition,
                  CncMode mode, const std::string& cncfilename) {
  Heading heading{text,       session,     session.store,
                  definition, cncfilename, NumberPattern(session.formats.cncfmt)};
  customHeader(heading);
  if (!definition.dialect.heading) return;
  const auto write = [&heading](const auto& items) {
    for (const Item item : items) item(heading);
  };
  if (mode == CncMode::Mill) {
    write(kMillItems);
  } else {
    write(kLatheItems);
  }
}

}  // namespace tess
