#include "names/InstanceNames.h"

namespace ZelDebugDialog {
namespace {

/// No file system takes longer names.
constexpr std::size_t longestName = 1024;

} // namespace

std::string findNameFault(std::string_view name) {
  if (name.empty())
    return "it has no name";
  if (name == "." || name == "..")
    return "the name means a folder";
  if (name.find('/') != std::string_view::npos)
    return "the name holds a \"/\"";
  if (name.find('\0') != std::string_view::npos)
    return "the name holds a null byte";
  if (name.size() > longestName)
    return "the name is longer than " + std::to_string(longestName) + " bytes";
  return "";
}

} // namespace ZelDebugDialog
