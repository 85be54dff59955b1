// A dialog: operations of an engine in any order, each compared with a model of
// its rules.
//
// An input is two designs, three chain devices, and then operations, a byte for
// which and their arguments behind it (common/Bytes.h).
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/Bytes.h"
#include "common/Require.h"
#include "common/ScratchFolder.h"
#include "operations/Model.h"
#include "operations/Session.h"

namespace {

using fuzz::Operation;

/// Enough for every way through a dialog, and little enough to go fast.
constexpr int mostOperations = 60;

std::vector<Operation> allOperations() {
  std::vector<Operation> all;
  for (const auto *some : {&fuzz::selectionOperations, &fuzz::targetOperations,
                           &fuzz::cableOperations})
    all.insert(all.end(), some->begin(), some->end());
  return all;
}

const fuzz::ScratchFolder &workingFolder() {
  static const fuzz::ScratchFolder once;
  static const int made = mkdir((once.path() + "/etc").c_str(), 0700);
  fuzz::require(made == 0, "the folder of the option files can be made");
  return once;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data,
                                      std::size_t size) {
  static const std::vector<Operation> operations = allOperations();
  const fuzz::Visit visit(workingFolder());
  fuzz::Bytes bytes(data, size);
  fuzz::Session session(bytes);
  for (int count = 0; count < mostOperations && !bytes.atEnd(); ++count) {
    const Operation &operation = operations[bytes.below(operations.size())];
    if (operation.needsCurrent && !session.model.hasCurrent())
      continue;
    operation.run(session);
    fuzz::requireSame(session.imp, session.model, operation.name);
  }
  return 0;
}
