// What an engine's state is to be after each operation: plain copies, changed
// by the rules that the headers state.
#ifndef FUZZ_OPERATIONS_MODEL_H
#define FUZZ_OPERATIONS_MODEL_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ZelDebugDialog/CableOption.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/ProcessorInfo.h"
#include "operations/AnsweredDesign.h"

namespace fuzz {

using ZelDebugDialog::CableOption;
using ZelDebugDialog::JtagOption;
using ZelDebugDialog::ProcessorInfoImp;

struct Model {
  /// Which record is current.
  enum class Current { none, listed, own };

  bool hasCurrent() const { return current != Current::none; }
  ProcessorInfoImp &record() {
    return current == Current::own ? own : list[place];
  }

  /// What a selection resets.
  void reset();
  /// The records of the processors that can be debugged.
  void discover(AnsweredDesign *found);
  /// Sets the FPU of the current record. @return the operation's result.
  int takeFpu();
  /// The stub connections over a serial line.
  std::uint32_t serialStub(const std::string &processor) const;
  /// The place of the first record of this name.
  std::optional<std::size_t> find(const std::string &name) const;

  AnsweredDesign *design = nullptr;
  std::vector<ProcessorInfoImp> list;
  Current current = Current::none;
  std::size_t place = 0; ///< In the list, of a current record that is listed.
  ProcessorInfoImp own;  ///< Made from a command.
  CableOption cable;
  std::uint32_t cpuJtag = 0;
  std::vector<JtagOption> chain;
  std::string error;
};

/// Ends the run unless the engine's state is the model's.
void requireSame(const ZelDebugDialog::EngineImp &found, const Model &wanted,
                 const char *operation);

} // namespace fuzz

#endif
