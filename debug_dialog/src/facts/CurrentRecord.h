// The record that the settings go to. That there is one is a precondition.
#ifndef ZELDEBUGDIALOG_FACTS_CURRENTRECORD_H
#define ZELDEBUGDIALOG_FACTS_CURRENTRECORD_H

#include <cassert>

#include "ZelDebugDialog/EngineImp.h"

namespace ZelDebugDialog {

inline ProcessorInfoImp &currentRecord(const EngineImp &imp) {
  assert(imp.currentProcessor != nullptr && "no processor is selected");
  return *imp.currentProcessor;
}

} // namespace ZelDebugDialog

#endif
