// The long part of a command that places paths: the operator may end it, and then all is as it was.
// Owns: unlessCancelled.
#pragma once

#include <string>

#include "core/cancellable_work.h"
#include "toolpath/cam_context.h"

namespace tess {

// Does the work, which changes nothing that an operator sees; `stage` with the time it has
// taken stands in the status line once that is long. False when the operator has ended it.
bool unlessCancelled(CamContext& cam, const std::string& stage,
                     const std::function<void(const Breathing&)>& work);

}  // namespace tess
