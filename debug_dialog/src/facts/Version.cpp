#include "ZelDebugDialog/Version.h"

namespace ZelDebugDialog {

const char *GetLibraryVersion() noexcept {
  return ZELDEBUGDIALOG_VERSION_STRING;
}

} // namespace ZelDebugDialog
