// Starting other programs, or not.
#include "cnc/other_programs.h"

#include "core/runtime_failure.h"
#include "core/start_program.h"

namespace tess {

void LocalPrograms::start(const std::string& program, const std::vector<std::string>& arguments) {
  startProgram(program, arguments);
}

void NoPrograms::start(const std::string& program, const std::vector<std::string>& /*arguments*/) {
  throw RuntimeFailure(FailureNumber::PermissionDenied, program,
                       "No other program is started here");
}

}  // namespace tess
