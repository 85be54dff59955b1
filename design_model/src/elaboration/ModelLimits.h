// How large a model may become: a few small files can describe a hierarchy
// without end.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_MODELLIMITS_H
#define ZELDEBUGDIALOG_DESIGNMODEL_MODELLIMITS_H

#include <algorithm>
#include <cstddef>

namespace ZelDebugDialog {

struct ModelLimits {
  std::size_t instances = 0;
  /// In memory, roughly: what hangs on an instance may be as large as its text.
  std::size_t bytes = 0;
};

/// No more can be counted, with what hangs on them.
constexpr std::size_t mostInstances = 100000000;

/// For a model of so many instances.
constexpr ModelLimits limitsOf(std::size_t instances) {
  constexpr std::size_t bytesOfEach = std::size_t{1} << 10;
  constexpr std::size_t leastBytes = std::size_t{1} << 30;
  const std::size_t count = std::min(instances, mostInstances);
  return {count, std::max(count * bytesOfEach, leastBytes)};
}

} // namespace ZelDebugDialog

#endif
