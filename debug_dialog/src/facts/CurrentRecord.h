// The record that the settings go to. That there is one is a precondition.
#pragma once

#include <cassert>

#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog {

inline ProcessorInfoImp &currentRecord(const EngineImp &imp) {
  assert(imp.currentProcessor != nullptr && "no processor is selected");
  return *imp.currentProcessor;
}

} // namespace ZelDebugDialog
