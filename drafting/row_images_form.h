// What the forms of mirroring and turning have in common: which rows, whether they stay, and how
// their images hover until OK.
// Owns: RowImagesForm.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/controls.h"
#include "core/form.h"
#include "drafting/row_images.h"
#include "geometry/float_points.h"

namespace tess {

struct DraftingContext;

class RowImagesForm : public Form {
 public:
  // Shows the form until it is closed.
  void ask();
  // Adds the images of the rows chosen and shows them.
  void addImages(const RowImage& image);

 protected:
  RowImagesForm(DraftingContext& context, std::string name, std::string caption);

  // The controls that all of them have. The boxes of the point open at the marker, and every
  // control that is given here lets the images hover anew.
  struct Parts {
    TextBox* x = nullptr;
    TextBox* y = nullptr;
    Label* marker = nullptr;
    Option* move = nullptr;
    Option* copy = nullptr;
    CheckBox* selectedOnly = nullptr;
    Button* ok = nullptr;
    Button* cancel = nullptr;
  };
  void wire(const Parts& parts);
  void hoversWith(TextBox& box);
  void hoversWith(Option& option);

  // The image that the fields tell of; nothing while they do not.
  virtual std::optional<RowImage> image() const = 0;
  // Takes the fields over, or complains about one and returns false.
  virtual bool takeOver() = 0;

  // The point; nothing while one of its boxes is no number. The other one complains then.
  std::optional<Point> point() const;
  void refusePoint(const std::string& text);

  DraftingContext& context_;

 private:
  void load();
  std::vector<SegmentRow> images() const;
  void hover();
  bool selectedOnly() const;

  Parts parts_;
  bool loaded_ = false;
};

}  // namespace tess
