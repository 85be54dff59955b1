#include "reading/Names.h"

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Keys.h"

namespace ZelDebugDialog::project {

bool isName(const std::string &name) {
  return name != noChoice && !name.empty() &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                  (c >= '0' && c <= '9') || c == '_' || c == '-';
         });
}

std::string shownNoName(const std::string &name, const std::string &what) {
  return fmt::format("'{}' is no name of a {}: it has letters, digits, '_' and "
                     "'-', and is not '{}'",
                     ShowText(name), what, noChoice);
}

void expectProfileName(const std::string &profile) {
  if (isName(profile))
    return;
  Refusal refusal(RefusalKind::badValue, "", shownNoName(profile, "profile"));
  refusal.value = profile;
  throw refusal;
}

} // namespace ZelDebugDialog::project
