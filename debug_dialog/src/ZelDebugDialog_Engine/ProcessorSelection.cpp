#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ComMsgMgr.h"
#include "HHSMHwManager.h"
#include "KvoOption_Parser/Message.h"
#include "KvoOption_Parser/Numbers.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "ZelDebugDialog/TypeNames.h"
#include "facts/CurrentRecord.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace {

// What is said of a name that is in no list. The tabs are part of the messages.
constexpr std::string_view notFound =
    "Processor Instance %s not Found !!, Please check \t\t\t\t\tProcessor "
    "Connection in your HWD file\n";
constexpr std::string_view notDebuggable =
    "Processor Instance %s cannot be Debugged !!, Please check "
    "\t\t\t\t\tProcessor Connection in your HWD file\n";
constexpr std::string_view noNumber =
    "Processor Instance %s cannot be debugged!!\n";

constexpr std::array<std::uint32_t, 4> masksOfOtherTargets{maskHdu, maskKmtc,
                                                           maskDcc, maskDap};

ProcessorInfoImp *findByName(const EngineImp &imp, std::string_view name) {
  const auto found =
      std::find_if(imp.processorList.begin(), imp.processorList.end(),
                   [name](const ProcessorInfoImp *record) {
                     return record->instanceName == name;
                   });
  return found == imp.processorList.end() ? nullptr : *found;
}

const ProcessorInfoImp *findByNumber(const EngineImp &imp,
                                     const ProcessorInfoImp &like) {
  const auto found =
      std::find_if(imp.processorList.begin(), imp.processorList.end(),
                   [&like](const ProcessorInfoImp *record) {
                     return record->procFamily == like.procFamily &&
                            record->cpuNr == like.cpuNr;
                   });
  return found == imp.processorList.end() ? nullptr : *found;
}

bool isOtherTarget(const ProcessorInfoImp &record) {
  return std::find(masksOfOtherTargets.begin(), masksOfOtherTargets.end(),
                   record.connectionMask) != masksOfOtherTargets.end();
}

/// Forgets what a refused command left behind. The chain records in it are the
/// reader's: the chain was empty before it, and nobody has seen them.
void dropRefusedSettings(EngineImp &imp) {
  ReleaseChainRecords(imp.jtagChain);
  imp.EngineImpInit();
}

/// Selects a processor of the list and fills its record with what `read` reads.
template <class Read>
int select(EngineImp &imp, const std::string &name, std::string_view unknown,
           ProcessorInfo &info, const Read &read) {
  ProcessorInfoImp *const record = findByName(imp, name);
  if (record == nullptr) {
    kvo::setMessage(imp, unknown, {name});
    return result::unknownProcessor;
  }
  imp.currentProcessor = record;
  imp.EngineImpInit();
  const int code = read();
  if (result::isSuccess(code)) {
    imp.GetFPUType();
  } else {
    // The reset shall not take the reader's message with it.
    std::string message = std::move(imp.errorStr);
    dropRefusedSettings(imp);
    imp.errorStr = std::move(message);
  }
  info.procType = record->procType;
  info.procFamily = record->procFamily;
  info.connectionMask = record->connectionMask;
  return code;
}

/// Sets the design aside while a command is read that shall decide alone.
class DesignAside {
public:
  explicit DesignAside(EngineImp &state)
      : imp(state), design(std::exchange(state.hwManager, nullptr)) {}
  ~DesignAside() { imp.hwManager = design; }
  DesignAside(const DesignAside &) = delete;
  DesignAside &operator=(const DesignAside &) = delete;

private:
  EngineImp &imp;
  HHSMHwManager *design;
};

/// Holds the record of `GetProcessorInfo` until it is handed out. If that never
/// happens, nothing of what it was filled with stays.
class NewRecord {
public:
  explicit NewRecord(EngineImp &state)
      : imp(state), record(std::make_unique<ProcessorInfoImp>()) {
    imp.currentProcessor = record.get();
    imp.EngineImpInit();
  }
  ~NewRecord() {
    if (record == nullptr)
      return;
    if (!isRefused)
      ReleaseChainRecords(imp.jtagChain);
    imp.EngineImpInit();
    imp.currentProcessor = nullptr;
  }
  NewRecord(const NewRecord &) = delete;
  NewRecord &operator=(const NewRecord &) = delete;

  ProcessorInfoImp &operator*() { return *record; }
  ProcessorInfoImp *handOut() { return record.release(); }

  /// The reader's chain records go at once: what is told of the refusal may
  /// look at the engine, and keeps what it puts there.
  void refuse() {
    ReleaseChainRecords(imp.jtagChain);
    isRefused = true;
  }

private:
  EngineImp &imp;
  std::unique_ptr<ProcessorInfoImp> record;
  bool isRefused = false;
};

/// Sends the message of the engine that the reader reported to.
void sendRefusal(const EngineImp &imp) {
  std::string message;
  if (imp.engine != nullptr)
    imp.engine->GetErrorStr(message);
  ComMsgMgr::sendMsg::eval(1, "debug_dialog/src/ZelDebugDialog_Engine", 1037,
                           "zel", 0x20000000, "%s\n", message.c_str());
}

} // namespace

ProcessorInfoImp *EngineImp::GetProcessorInfo(std::string command) {
  NewRecord holder(*this);
  ProcessorInfoImp &record = *holder;
  int code = result::notRead;
  {
    const DesignAside aside(*this);
    code = KvoOption_Parser::ReadKvoCommand(std::move(command), *this);
  }
  if (!result::isSuccess(code)) {
    holder.refuse();
    sendRefusal(*this);
    return nullptr;
  }
  if (isOtherTarget(record))
    return holder.handOut();
  if (const ProcessorInfoImp *const listed = findByNumber(*this, record)) {
    record.instanceName = listed->instanceName;
    record.connectionMask = listed->connectionMask;
  }
  if (hwManager != nullptr && !record.instanceName.empty())
    GetFPUType();
  return holder.handOut();
}

int EngineImp::GetFPUType() {
  ProcessorInfoImp &record = currentRecord(*this);
  record.fpuType = fpuNone;
  if (record.procFamily != familyPowerPc)
    return result::done;
  if (hwManager == nullptr)
    return result::notSet;
  std::vector<std::string> peripherals;
  hwManager->getPeripherals(peripherals, record.instanceName);
  for (const std::string &peripheral : peripherals) {
    const std::string type = hwManager->getIpName(peripheral);
    if (type == fpuTypeName) {
      record.fpuType = fpuSingle;
      return result::done;
    }
    if (type == gen5FpuTypeName) {
      const std::string precision =
          hwManager->getParameterValue(peripheral, "C_DOUBLE_PRECISION");
      record.fpuType = kvo::toSigned(precision, 0) == 1 ? fpuDouble : fpuSingle;
      return result::done;
    }
  }
  return result::notSet;
}

int Engine::ParseProcessorInfo(std::string name, ProcessorInfo &info,
                               std::string command) {
  return select(*imp, name, notFound, info, [&] {
    return KvoOption_Parser::ReadKvoCommand(std::move(command), *imp);
  });
}

int Engine::SetProcessor(std::string name, ProcessorInfo &info) {
  return select(*imp, name, notDebuggable, info,
                [&] { return KvoOption_Parser::ReadKvoOptFile(name, *imp); });
}

int Engine::SetProcessorFrom(std::string name, ProcessorInfo &info,
                             const std::string &path) {
  return select(*imp, name, notDebuggable, info, [&] {
    return KvoOption_Parser::ReadKvoOptFileFrom(path, *imp);
  });
}

int Engine::GetProcessorNr(std::string name) {
  const ProcessorInfoImp *const record = findByName(*imp, name);
  if (record == nullptr) {
    kvo::setMessage(*imp, noNumber, {name});
    return -1;
  }
  return record->cpuNr;
}

} // namespace ZelDebugDialog
