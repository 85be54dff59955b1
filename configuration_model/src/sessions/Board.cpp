#include "ZelDebugDialog/ConfigurationModel/Board.h"

#include <algorithm>
#include <system_error>
#include <unordered_set>

#include <fmt/format.h>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/ConfigurationModel/ProcessorTypes.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/TypeNames.h"
#include "commands/Desk.h"
#include "commands/Discovery.h"
#include "commands/EngineLock.h"
#include "commands/WhyNoProcessor.h"
#include "files/LockFile.h"
#include "files/OptionFile.h"
#include "sessions/BoardState.h"
#include "settings/ConnectionKinds.h"

namespace ZelDebugDialog {

namespace fs = std::filesystem;

namespace {

std::string shownFpu(std::uint32_t fpuType) {
  for (const auto &row : fpuTypes)
    if (row.value == fpuType)
      return std::string(row.keyword);
  return "-";
}

BoardProcessor processorOf(const ProcessorInfoImp &record,
                           HHSMHwManager &design) {
  return {record.instanceName,
          design.getIpName(record.instanceName),
          record.procFamily,
          record.procType,
          record.connectionMask,
          record.cpuNr,
          record.fpuType,
          shownFpu(record.fpuType),
          model::allowedKinds(record.connectionMask)};
}

/// The modules that say a processor is on them. Asked once for all processors,
/// since each question costs a walk.
class Attachments {
public:
  explicit Attachments(HHSMHwManager &design) {
    std::vector<std::string> names;
    design.getIpInstances(names, HW_IP_DEBUG);
    for (const std::string &name : names) {
      modules.push_back({name, design.getIpName(name)});
      std::vector<std::string> attached;
      design.getHduConnectedProcessorList(attached, name);
      processors.emplace_back(attached.begin(), attached.end());
    }
  }

  std::vector<BoardModule> modulesOf(const std::string &processor) const {
    std::vector<BoardModule> found;
    for (std::size_t i = 0; i < modules.size(); ++i)
      if (processors[i].count(processor) != 0)
        found.push_back(modules[i]);
    return found;
  }

private:
  std::vector<BoardModule> modules;
  std::vector<std::unordered_set<std::string>> processors;
};

std::string whyNotDebuggable(const UndebuggableProcessor &processor) {
  if (processor.modules.empty())
    return fmt::format("no debug module or controller is connected to it, and "
                       "processors of type '{}' need one",
                       processor.type);
  std::string shown;
  for (const BoardModule &module : processor.modules)
    shown += fmt::format("{}{} of type '{}'", shown.empty() ? "" : ", ",
                         module.name, module.type);
  std::string types;
  for (auto type = debugModuleTypes.rbegin(); type != debugModuleTypes.rend();
       ++type)
    types += fmt::format("{}'{}'", types.empty() ? "" : " or ", *type);
  return fmt::format("it is connected to {}, and only modules of type {} and "
                     "controllers of type '{}' lead to a processor",
                     shown, types, ppcControllerType);
}

void findUndebuggable(BoardState &state) {
  std::unordered_set<std::string> debuggable;
  for (const BoardProcessor &processor : state.processors)
    debuggable.insert(processor.name);
  std::vector<std::string> others;
  for (const std::string &name : state.names)
    if (debuggable.count(name) == 0)
      others.push_back(name);
  if (others.empty())
    return;
  const Attachments attachments(*state.design);
  for (const std::string &name : others) {
    UndebuggableProcessor found{name, state.design->getIpName(name),
                                attachments.modulesOf(name), ""};
    found.reason = whyNotDebuggable(found);
    state.undebuggable.push_back(std::move(found));
  }
}

} // namespace

const ProcessorInfoImp &
BoardState::expectProcessor(const std::string &name) const {
  for (std::size_t i = 0; i < processors.size(); ++i)
    if (processors[i].name == name)
      return records[i];
  throw model::whyNoProcessor(name, names, undebuggable);
}

const std::vector<std::string> &GetProcessorTypes() {
  static const std::vector<std::string> names(processorTypeNames.begin(),
                                              processorTypeNames.end());
  return names;
}

std::string MemoryClassOf(const std::string &typeName) {
  model::Desk desk;
  const model::EngineLock lock;
  return desk.state().ClassifyMemory(typeName);
}

Board::Board(HHSMHwManager &design, const std::string &folder) {
  model::DiscoveredProcessors discovered = model::discoverProcessors(design);
  const auto made = std::make_shared<BoardState>();
  made->design = &design;
  made->folder = folder;
  std::error_code error;
  made->absolute = fs::absolute(folder.empty() ? "." : folder, error);
  if (error)
    model::refuseFile(folder, error.message());
  const model::EngineLock lock;
  design.getProcessorInstances(made->names, false);
  for (const ProcessorInfoImp &record : discovered.debuggable)
    made->processors.push_back(processorOf(record, design));
  made->records = std::move(discovered.debuggable);
  findUndebuggable(*made);
  state = made;
}

Board::Board(const Board &other) = default;
Board &Board::operator=(const Board &other) = default;
Board::~Board() = default;

const std::vector<std::string> &Board::Names() const { return state->names; }

const std::vector<BoardProcessor> &Board::Processors() const {
  return state->processors;
}

const std::vector<UndebuggableProcessor> &Board::Undebuggable() const {
  return state->undebuggable;
}

const std::string &Board::Folder() const { return state->folder; }

std::string Board::FileOf(const std::string &processor) const {
  return model::optionFilePath(state->folder, processor).string();
}

} // namespace ZelDebugDialog
