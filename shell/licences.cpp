// The licences as text.
#include "shell/licences.h"

namespace tess {

std::string licenceText() {
  std::string text;
  for (const Licence& licence : kLicences) {
    text += std::string(licence.name) + ": " + licence.terms + " (" + licence.use + ")\n";
  }
  return text;
}

}  // namespace tess
