#include "KvoOption_Parser/ConnectCommand.h"
#include "KvoOption_Parser/Descriptions.h"

#include <array>
#include <utility>

#include "KvoOption_Parser/Readers.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "facts/CurrentRecord.h"
#include "facts/Results.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

struct Head {
  std::string_view keyword;
  bool isVirtualPlatform; ///< no target word follows
  bool inOptionFile;
};

constexpr std::array<Head, 4> heads{{
    {connectHead, false, true},
    {"kconnect", false, false},
    {vpConnectHead, true, true},
    {"kvpconnect", true, false},
}};

struct Target {
  std::string_view keyword;
  Reader read;
  bool inOptionFile;
  DescribeTarget describe;
};

constexpr std::array<Target, 8> targets{{
    {lumacoreTarget, readLumacore, true, describeLumacore},
    {ppcTarget, readPpc, true, describePpc},
    {"arm", readArm, true, describeArm},
    {"r5", readArmR5, true, describeArm},
    {"hdu", readHdu, false, describeHdu},
    {"dap", readDap, false, describeArm},
    {"dcc", readDcc, false, describeDcc},
    {"kmtc", readKmtc, false, describeKmtc},
}};

// Room that most commands fit in. A longer one grows as strings do.
constexpr std::size_t bytesBesideChain = 256;
constexpr std::size_t bytesOfDevice = 80;

/// What no clause writes.
constexpr const Fields &neverWritten =
    fields<&ProcessorInfoImp::simMemSize, &ProcessorInfoImp::modelSimMode,
           &ProcessorInfoImp::modelSimHost, &ProcessorInfoImp::modelSimPort,
           &ProcessorInfoImp::uartOverHdu>;

/// What is said of a word that is no row of a table.
struct RowFaults {
  WordRole role;
  CommandFaultKind missing;
  CommandFaultKind unknown;
};

constexpr RowFaults headFaults{WordRole::head, CommandFaultKind::missingHead,
                               CommandFaultKind::unknownHead};
constexpr RowFaults targetFaults{WordRole::target,
                                 CommandFaultKind::missingTarget,
                                 CommandFaultKind::unknownTarget};

/// The row of the next word; null for a word that may not stand here.
template <class Row, std::size_t size>
const Row *readRow(const std::array<Row, size> &rows, WordCursor &cursor,
                   CommandSource source, const RowFaults &faults) {
  std::string_view word;
  if (cursor.next(word, faults.role) == code::end) {
    cursor.missing(faults.missing, rows);
    return nullptr;
  }
  const Row *const row = findRow(rows, word, cursor.characters);
  if (row == nullptr ||
      (source == CommandSource::optionFile && !row->inOptionFile)) {
    cursor.fault(faults.unknown, rows);
    return nullptr;
  }
  return row;
}

Reader readTargetReader(WordCursor &cursor, CommandSource source) {
  const Head *const head = readRow(heads, cursor, source, headFaults);
  if (head == nullptr)
    return nullptr;
  if (head->isVirtualPlatform)
    return readVirtualPlatform;
  const auto *const target = readRow(targets, cursor, source, targetFaults);
  return target == nullptr ? nullptr : target->read;
}

} // namespace

int readCommand(WordCursor &cursor, EngineImp &imp, CommandSource source) {
  const Reader read = readTargetReader(cursor, source);
  if (read == nullptr || read(cursor, imp) == code::refused)
    return result::notRead;
  return result::done;
}

bool composeCommand(std::string &command, const EngineImp &imp,
                    WriteRecorder *recorder) {
  const ProcessorInfoImp &record = currentRecord(imp);
  std::string text;
  text.reserve(bytesBesideChain + bytesOfDevice * imp.jtagChain.size());
  const CommandText out(text, recorder);
  out.begin(connectHead);
  int result = code::done;
  if (record.connectionType == Engine::CONNECT_VP)
    result = writeVirtualPlatform(out, imp);
  else if (record.procFamily == familyLumacore)
    result = writeLumacore(out, imp);
  else
    result = writePpc(out, imp);
  if (result == code::refused)
    return false;
  if (recorder != nullptr)
    recorder->leavesOut(neverWritten, OmissionReason::noWriter);
  command = std::move(text);
  return true;
}

int writeCommandString(EngineImp &imp, std::string &out,
                       WriteRecorder *recorder) {
  std::string command;
  if (!composeCommand(command, imp, recorder))
    return result::notSet;
  currentRecord(imp).connectCommand = command;
  out = std::move(command);
  return result::done;
}

std::vector<CommandHead> describeHeads() {
  std::vector<CommandTarget> all;
  for (const auto &row : targets) {
    all.push_back({std::string(row.keyword), row.inOptionFile, {}, {}});
    row.describe(all.back());
  }
  const CommandTarget platform{
      std::string(lumacoreTarget), true, {}, virtualPlatformOptions};
  std::vector<CommandHead> described;
  described.reserve(heads.size());
  for (const Head &head : heads)
    described.push_back({std::string(head.keyword), head.inOptionFile,
                         head.isVirtualPlatform ? std::vector{platform} : all});
  return described;
}

} // namespace kvo

int KvoOption_Parser::ReadKvoCommand(std::string command, EngineImp &imp) {
  currentRecord(imp).connectCommand = command;
  kvo::WordCursor cursor(command);
  return kvo::readCommand(cursor, imp, kvo::CommandSource::dialog);
}

int KvoOption_Parser::WriteKvoCmdString(EngineImp &imp, std::string &out) {
  return kvo::writeCommandString(imp, out);
}

} // namespace ZelDebugDialog
