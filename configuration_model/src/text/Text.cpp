#include "ZelDebugDialog/ConfigurationModel/Text.h"

#include "text/NearestMatch.h"
#include "text/Printable.h"

namespace ZelDebugDialog {

std::string ShowText(std::string_view text) { return model::printable(text); }

std::string ShowOnOneLine(std::string_view text) {
  return model::printable(model::onOneLine(text));
}

std::string FindNearest(std::string_view word,
                        const std::vector<std::string> &candidates) {
  return model::nearestMatch(word, candidates);
}

} // namespace ZelDebugDialog
