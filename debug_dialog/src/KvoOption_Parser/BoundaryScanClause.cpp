// "-bscan": the boundary-scan user register of the debug module.
//
// All four registers are read; only USER1 is written, and USER2 is the default.
#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Parameters.h"
#include "KvoOption_Parser/Words.h"
#include "KvoOption_Parser/Writers.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

constexpr const NamedValue &user1 = boundaryScanRegisters[0];
constexpr const NamedValue &user2 = boundaryScanRegisters[1];
constexpr std::string_view user1Word = user1.keyword;

constexpr const Fields &registerField = fields<&ProcessorInfoImp::bscanUserReg>;
constexpr ValueForm registerForm = oneOf(boundaryScanRegisters, registerField);

} // namespace

int readBoundaryScan(WordCursor &cursor, EngineImp &imp) {
  std::string_view word;
  if (cursor.nextValue(word, boundaryScanRegisters) != code::value)
    return code::refused;
  cursor.reads(registerForm);
  const auto *const found =
      findRow(boundaryScanRegisters, word, cursor.characters);
  if (found == nullptr) {
    cursor.fault(CommandFaultKind::refusedValue, boundaryScanRegisters);
    return code::refused;
  }
  cursor.store(currentRecord(imp).bscanUserReg, found->value);
  return code::done;
}

void writeBoundaryScan(CommandText out, const EngineImp &imp) {
  const std::uint32_t used = currentRecord(imp).bscanUserReg;
  if (used == user1.value) {
    out.addKeyword<bscanOption>(WordRole::option);
    out.addKeyword<user1Word>(WordRole::value, registerField);
  } else if (out.recorder != nullptr) {
    if (used == user2.value)
      out.recorder->implies(registerField);
    else
      out.recorder->leavesOut(registerField,
                              OmissionReason::registerWithoutWord);
  }
}

void leaveOutBoundaryScan(WriteRecorder &recorder, const EngineImp &imp) {
  const std::uint32_t used = currentRecord(imp).bscanUserReg;
  if (used == user1.value || used == user2.value)
    recorder.leavesOut(registerField, OmissionReason::otherConnection,
                       connectionField);
  else
    recorder.leavesOut(registerField, OmissionReason::registerWithoutWord);
}

void describeBoundaryScan(CommandOption &option) {
  describeOptionValue(option, registerForm);
}

} // namespace kvo

unsigned KvoOption_Parser::parse_hdubscan(std::string &command,
                                          EngineImp &imp) {
  return static_cast<unsigned>(
      kvo::consume(command, imp, kvo::readBoundaryScan));
}

} // namespace ZelDebugDialog
