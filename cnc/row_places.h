// Where in a program's text each path row has left its lines.
// Owns: RowPlaces.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tess {

// Told in the order of the rows, which count from 1. A row may have left nothing.
class RowPlaces {
 public:
  void clear() { begins_.clear(); }
  // What the next row writes begins at this byte.
  void rowBegins(std::size_t place) { begins_.push_back(place); }
  // Behind the last row.
  void rowsEnd(std::size_t place) { begins_.push_back(place); }

  int rows() const { return begins_.empty() ? 0 : static_cast<int>(begins_.size()) - 1; }
  // Raises std::out_of_range for a row that there is not.
  std::size_t begin(int row) const { return begins_.at(static_cast<std::size_t>(row) - 1); }
  std::size_t end(int row) const { return begins_.at(static_cast<std::size_t>(row)); }
  // The row that has left the byte at this place; 0 for none.
  int rowAt(std::size_t place) const {
    const auto behind = std::upper_bound(begins_.begin(), begins_.end(), place);
    return behind == begins_.end() ? 0 : static_cast<int>(behind - begins_.begin());
  }

 private:
  std::vector<std::size_t> begins_;
};

}  // namespace tess
