#include "commands/WhyNoProcessor.h"

#include <fmt/format.h>

#include "text/NearestMatch.h"
#include "text/Printable.h"

namespace ZelDebugDialog::model {

Refusal whyNoProcessor(const std::string &name,
                       const std::vector<std::string> &names,
                       const std::vector<UndebuggableProcessor> &undebuggable) {
  for (const UndebuggableProcessor &other : undebuggable)
    if (other.name == name) {
      Refusal refusal(RefusalKind::notDebuggable, "",
                      fmt::format("'{}' cannot be debugged: {}",
                                  printable(name), printable(other.reason)));
      refusal.value = name;
      return refusal;
    }
  Refusal refusal(RefusalKind::unknownProcessor, "",
                  fmt::format("'{}' is no processor of the design; there are "
                              "{}{}",
                              printable(name), quotedList(names),
                              didYouMean(name, names)));
  refusal.value = name;
  refusal.accepted = names;
  refusal.suggestion = nearestMatch(name, names);
  return refusal;
}

} // namespace ZelDebugDialog::model
