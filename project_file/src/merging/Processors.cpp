#include "merging/Processors.h"

#include <utility>
#include <vector>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Refusal.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Faults.h"

namespace ZelDebugDialog::project {

namespace {

Refusal whyNone(const Board &board, const std::string &name) {
  for (const UndebuggableProcessor &other : board.Undebuggable())
    if (other.name == name) {
      Refusal refusal(RefusalKind::notDebuggable, "",
                      fmt::format("'{}' cannot be debugged: {}", ShowText(name),
                                  ShowText(other.reason)));
      refusal.value = name;
      return refusal;
    }
  std::vector<std::string> names;
  for (const BoardProcessor &processor : board.Processors())
    names.push_back(processor.name);
  const std::string nearest = FindNearest(name, names);
  Refusal refusal(
      RefusalKind::unknownProcessor, "",
      fmt::format("'{}' is no processor that can be debugged; {}",
                  ShowText(name),
                  nearest.empty()
                      ? fmt::format("accepted are {}", quotedList(names))
                      : fmt::format("did you mean '{}'?", ShowText(nearest))));
  refusal.value = name;
  refusal.suggestion = nearest;
  refusal.accepted = std::move(names);
  return refusal;
}

} // namespace

const BoardProcessor *findProcessor(const Board &board,
                                    const std::string &name) {
  for (const BoardProcessor &processor : board.Processors())
    if (processor.name == name)
      return &processor;
  return nullptr;
}

const BoardProcessor &expectProcessor(const Board &board,
                                      const std::string &name) {
  const BoardProcessor *const processor = findProcessor(board, name);
  if (processor == nullptr)
    throw whyNone(board, name);
  return *processor;
}

} // namespace ZelDebugDialog::project
