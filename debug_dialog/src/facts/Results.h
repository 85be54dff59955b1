// Which results of a reader count as success for those who call it.
#ifndef ZELDEBUGDIALOG_FACTS_RESULTS_H
#define ZELDEBUGDIALOG_FACTS_RESULTS_H

#include "ZelDebugDialog/Result.h"

namespace ZelDebugDialog::result {

constexpr bool isSuccess(int result) {
  return result == done || result == noOptionFile;
}

} // namespace ZelDebugDialog::result

#endif
