// Discovery, selection, and the text of a whole configuration.
#include <functional>
#include <stdexcept>
#include <string>

#include "common/Reading.h"
#include "common/Require.h"
#include "common/ScratchFolder.h"
#include "operations/Session.h"
#include "support/MessageLog.h"
#include "support/OptionFileText.h"

namespace fuzz {
namespace {

using ZelDebugDialog::ProcessorInfo;

constexpr int notRead = 3;
constexpr int noFile = 4;

/// As a formatted message takes it.
std::string message(const std::string &before, const std::string &name,
                    const std::string &behind) {
  const std::string whole = (before + name + behind).substr(0, 2047);
  return whole.substr(0, whole.find('\0'));
}

int attempt(const std::function<int()> &operation) {
  try {
    return operation();
  } catch (const std::out_of_range &) {
    return support::kLoneMinus;
  }
}

void getProcessorList(Session &s) {
  const std::size_t which = s.bytes.below(3);
  AnsweredDesign *const design = which == 2 ? nullptr : s.designs[which].get();
  std::vector<std::string> names = {"before"};
  std::vector<std::string> wanted = names;
  if (design != nullptr)
    design->getProcessorInstances(wanted, false);
  if (s.bytes.below(2) == 0)
    require(s.engine.GetProcessorList(design) == &s.imp, "GetProcessorList");
  else
    require(s.engine.GetProcessorList(design, names) == 0 && names == wanted,
            "GetProcessorList");
  s.model.discover(design);
}

void getProcessorNr(Session &s) {
  const std::string name = s.someName();
  const auto found = s.model.find(name);
  require(s.engine.GetProcessorNr(name) ==
              (found ? s.model.list[*found].cpuNr : -1),
          "GetProcessorNr");
  if (!found)
    s.model.error =
        message("Processor Instance ", name, " cannot be debugged!!\n");
}

/// A desk that is ready to read for a processor, as a selection leaves it.
support::RoundTripDesk &deskFor(const ProcessorInfoImp &identity,
                                AnsweredDesign *design) {
  support::RoundTripDesk &other = desk();
  other.load({identity, {}, {}, 0});
  other.record.ProcessorInfoImpInit();
  other.imp.hwManager = design;
  return other;
}

/// What a reader has stored on a desk becomes that of the current record.
void takeOver(Model &model, const support::RoundTripDesk &from) {
  model.record() = from.record;
  model.cable = *from.imp.cableOption;
  model.cpuJtag = from.imp.cpuJtag;
  model.chain = from.configuration().chain;
  model.error = from.imp.errorStr;
}

/// What a selection makes of it: a refusal resets all but the message.
void finishSelection(Model &model, int code) {
  if (code == 0 || code == noFile) {
    model.takeFpu();
  } else if (code != support::kLoneMinus) {
    const std::string error = model.error;
    model.reset();
    model.error = error;
  }
}

void requireSummary(const ProcessorInfo &info, const Model &model, int code) {
  ProcessorInfo wanted;
  if (code != support::kLoneMinus) {
    const ProcessorInfoImp &record = model.list[model.place];
    wanted.procType = record.procType;
    wanted.procFamily = record.procFamily;
    wanted.connectionMask = record.connectionMask;
  }
  require(info.procType == wanted.procType &&
              info.procFamily == wanted.procFamily &&
              info.connectionMask == wanted.connectionMask,
          "the summary is the record's");
}

using Select = std::function<int(const std::string &name, ProcessorInfo &info)>;
using Read = std::function<int(support::RoundTripDesk &)>;

/// A selection by `select`, which is to read as `read` does.
void selectBy(Session &s, const Select &select, const Read &read,
              const std::string &unknown) {
  const std::string name = s.someName();
  const auto found = s.model.find(name);
  ProcessorInfo info;
  if (!found) {
    require(select(name, info) == 2, "an unknown processor");
    s.model.error = message("Processor Instance ", name,
                            unknown + " !!, Please check \t\t\t\t\tProcessor "
                                      "Connection in your HWD file\n");
    return;
  }
  s.keepChain();
  s.keepOwnRecord();
  support::RoundTripDesk &other = deskFor(s.model.list[*found], s.model.design);
  const int wanted = read(other);
  const int code = attempt([&] { return select(name, info); });
  requireSame(std::to_string(code) + other.record.connectCommand,
              std::to_string(wanted) + other.record.connectCommand,
              "a selection reads as its reader does");
  s.model.current = Model::Current::listed;
  s.model.place = *found;
  takeOver(s.model, other);
  finishSelection(s.model, code);
  requireSummary(info, s.model, code);
}

void parseProcessorInfo(Session &s) {
  const std::string command = s.bytes.text();
  selectBy(
      s,
      [&](const std::string &name, ProcessorInfo &info) {
        return s.engine.ParseProcessorInfo(name, info, command);
      },
      [&](support::RoundTripDesk &other) { return other.read(command); },
      " not Found");
}

void setProcessor(Session &s) {
  selectBy(
      s,
      [&](const std::string &name, ProcessorInfo &info) {
        return s.engine.SetProcessor(name, info);
      },
      [&](support::RoundTripDesk &other) {
        const std::string &name = other.record.instanceName;
        const std::string line =
            name.find('\0') != std::string::npos
                ? ""
                : support::lineOf(contentOf(s.optionFile(name)));
        if (line.empty())
          return noFile;
        if (support::isKnownInFiles(line))
          return other.read(line);
        other.record.connectCommand = line;
        return attempt([&] { return readUnknownInFiles(line); });
      },
      " cannot be Debugged");
}

/// Puts a text where the option file of a processor belongs.
void saveText(Session &s) {
  const std::string name = s.someName();
  const std::string content = s.bytes.text();
  constexpr std::size_t longestName = 200;
  const bool isFileName = name.find('/') == std::string::npos &&
                          name.find('\0') == std::string::npos &&
                          name.size() < longestName;
  if (isFileName)
    fill(s.optionFile(name), content);
}

void generateCommand(Session &s) {
  std::string command = "before";
  const int code = s.engine.GenerateCmdString(command);
  ProcessorInfoImp &record = s.model.record();
  if (code == 0)
    record.connectCommand = command;
  require(code == 0 || (code == 1 && command == "before"), "GenerateCmdString");
  const bool isSilent = record.connectionType == 8;
  if (code == 1 && !isSilent) {
    require(s.imp.errorStr == "Invalid Connect Type for Lumacore Target" ||
                s.imp.errorStr == "Invalid Connect Type for PowerPC Target" ||
                s.imp.errorStr == "Invalid Cable Type",
            "GenerateCmdString says why");
    s.model.error = s.imp.errorStr;
  }
}

void generate(Session &s) {
  ProcessorInfoImp &record = s.model.record();
  const std::string file = s.optionFile(record.instanceName);
  const int code = s.engine.Generate();
  require(code == 0 || code == 1 || code == noFile, "Generate");
  if (code != 0 && s.imp.errorStr != s.model.error)
    s.model.error = s.imp.errorStr;
  if (code == noFile)
    require(s.model.error == "Error Opening File", "Generate says why");
  if (code == 1)
    return;
  record.connectCommand = s.imp.currentProcessor->connectCommand;
  if (code == 0)
    requireSame(contentOf(file), record.connectCommand,
                "the file holds the command");
}

void checkLog(bool isRefused, const std::string &error) {
  const auto messages = support::takeMessages();
  require(messages.size() == (isRefused ? 1 : 0), "a refusal is logged");
  if (isRefused)
    requireSame(messages[0].formatted, error + "\n", "the message is logged");
}

void getProcessorInfo(Session &s) {
  const std::string command = s.bytes.text();
  s.keepChain();
  s.keepOwnRecord();
  support::RoundTripDesk &other = deskFor(ProcessorInfoImp(), nullptr);
  const int wanted = other.read(command);
  ProcessorInfoImp *made = nullptr;
  const int code = attempt([&] {
    made = s.imp.GetProcessorInfo(command);
    return made == nullptr ? notRead : 0;
  });
  require(code == wanted && made == s.imp.currentProcessor, "GetProcessorInfo");
  checkLog(code == notRead, other.imp.errorStr);
  s.model.current = Model::Current::none;
  s.model.reset();
  if (code != 0)
    return;
  s.model.current = Model::Current::own;
  takeOver(s.model, other);
  ProcessorInfoImp &own = s.model.own;
  const std::uint32_t mask = own.connectionMask;
  if (mask == 16 || mask == 32 || mask == 256 || mask == 512)
    return;
  for (const ProcessorInfoImp &listed : s.model.list)
    if (listed.procFamily == own.procFamily && listed.cpuNr == own.cpuNr) {
      own.instanceName = listed.instanceName;
      own.connectionMask = listed.connectionMask;
      break;
    }
  if (s.model.design != nullptr && !own.instanceName.empty())
    s.model.takeFpu();
}

void getFpuType(Session &s) {
  require(s.imp.GetFPUType() == s.model.takeFpu(), "GetFPUType");
}

void askForStubs(Session &s) {
  const std::string name = s.someName();
  require(s.imp.IsStubSerialConnect(name) == s.model.serialStub(name) &&
              s.imp.IsStubJtagConnect(name) == 0,
          "a stub needs a UART");
}

void classifyMemory(Session &s) {
  std::string type = s.bytes.text();
  const std::string kind = s.imp.ClassifyMemory(type);
  require(kind == "BRAM" || kind == "EXT_DRAM" || kind == "EXT_SRAM_FLASH" ||
              kind == "OTHER",
          "ClassifyMemory");
  for (char &letter : type)
    if (letter >= 'a' && letter <= 'z')
      letter = static_cast<char>(letter - 'a' + 'A');
  require(s.imp.ClassifyMemory(type) == kind, "letter case is no difference");
}

void setErrorStr(Session &s) {
  const std::string text = s.bytes.text();
  if (s.bytes.below(2) == 0) {
    s.engine.SetErrorStr(text);
    s.model.error = text;
  } else {
    s.engine.SetErrorStr(text.c_str());
    s.model.error = text.substr(0, text.find('\0'));
  }
  std::string got;
  s.engine.GetErrorStr(got);
  requireSame(got, s.model.error, "GetErrorStr");
}

void resetAll(Session &s) {
  s.keepChain();
  s.imp.EngineImpInit();
  s.model.reset();
}

void releaseProcessors(Session &s) {
  ReleaseProcessorRecords(s.imp);
  s.model.list.clear();
  s.model.current = Model::Current::none;
}

} // namespace

const std::vector<Operation> selectionOperations = {
    {"GetProcessorList", false, getProcessorList},
    {"GetProcessorNr", false, getProcessorNr},
    {"ParseProcessorInfo", false, parseProcessorInfo},
    {"SetProcessor", false, setProcessor},
    {"an option file", false, saveText},
    {"GenerateCmdString", true, generateCommand},
    {"Generate", true, generate},
    {"GetProcessorInfo", false, getProcessorInfo},
    {"GetFPUType", true, getFpuType},
    {"IsStub...Connect", false, askForStubs},
    {"ClassifyMemory", false, classifyMemory},
    {"SetErrorStr", false, setErrorStr},
    {"EngineImpInit", false, resetAll},
    {"ReleaseProcessorRecords", false, releaseProcessors},
};

} // namespace fuzz
