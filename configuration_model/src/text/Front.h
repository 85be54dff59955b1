// What a text begins with.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_FRONT_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_TEXT_FRONT_H

#include <string_view>

namespace ZelDebugDialog::model {

constexpr bool startsWith(std::string_view text, std::string_view front) {
  return text.substr(0, front.size()) == front;
}

} // namespace ZelDebugDialog::model

#endif
