#include "common/Reading.h"

#include <strings.h>

#include <stdexcept>
#include <vector>

#include "HHSMHwManager.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "common/Require.h"

namespace fuzz {
namespace {

using support::RoundTripCase;
using ZelDebugDialog::KvoOption_Parser;

const std::string noError = "(no message)";
const std::string noOption = "(no option)";

/// Readers look whether there is a design, and no further.
class SilentDesign : public HHSMHwManager {
  using Names = std::vector<std::string>;

  void getProcessorInstances(Names & /*names*/, bool /*flag*/) override {
    refuse();
  }
  void getIpInstances(Names & /*names*/, HwIpType /*kind*/) override {
    refuse();
  }
  void getIpInstances(Names & /*names*/,
                      const std::string & /*typeName*/) override {
    refuse();
  }
  std::string getIpName(const std::string & /*instance*/) override {
    return refuse();
  }
  void getHduConnectedProcessorList(Names & /*names*/,
                                    const std::string & /*instance*/) override {
    refuse();
  }
  void getPeripherals(Names & /*names*/,
                      const std::string & /*processor*/) override {
    refuse();
  }
  std::string getParameterValue(const std::string & /*instance*/,
                                const std::string & /*parameter*/) override {
    return refuse();
  }

  static std::string refuse() {
    require(false, "a reader asks the design nothing");
    return "";
  }
};

RoundTripCase caseOf(const Owner &owner) {
  RoundTripCase made;
  made.underDesign = owner.inDesign;
  made.written.record.instanceName = "cpu";
  made.written.record.procFamily = owner.family;
  made.written.record.procType = owner.type;
  made.written.record.connectionMask = owner.mask;
  return made;
}

/// Messages are bounded, and what they are made of are texts.
void checkMessage(const std::string &message) {
  constexpr std::size_t longest = 2047;
  require(message.size() <= longest, "a message is bounded");
  require(message.find('\0') == std::string::npos,
          "a message ends at a null byte");
}

} // namespace

support::RoundTripDesk &desk() {
  static SilentDesign design;
  static support::RoundTripDesk only(design);
  return only;
}

Reading readFor(const Owner &owner, const std::string &text,
                const Reader &reader, support::RoundTripDesk &desk) {
  desk.prepare(caseOf(owner));
  desk.engine.SetErrorStr(noError);
  KvoOption_Parser::current_option = noOption;
  const HHSMHwManager *const design = desk.imp.hwManager;

  Reading reading;
  try {
    reading.code = reader(text, desk.imp);
  } catch (const std::out_of_range &error) {
    require(error.what() == std::string("basic_string::at: __n (which is 1) >= "
                                        "this->size() (which is 1)"),
            "only a lone '-' raises an error");
    reading.code = support::kLoneMinus;
  }
  require(desk.imp.hwManager == design, "a reader leaves the design alone");
  require(desk.imp.currentProcessor == &desk.record,
          "a reader leaves the selection alone");
  reading.settings = desk.configuration();
  reading.command = desk.record.connectCommand;
  desk.engine.GetErrorStr(reading.error);
  checkMessage(reading.error);
  reading.option = KvoOption_Parser::current_option;
  return reading;
}

void requireSame(const Reading &found, const Reading &wanted,
                 const char *what) {
  require(found.code == wanted.code, what);
  requireSame(found.error, wanted.error, what);
  requireSame(found.option, wanted.option, what);
  require(support::isSame(found.settings, wanted.settings), what);
}

void goAround(const Owner &owner, const Reading &reading) {
  RoundTripCase there{reading.settings, owner.inDesign,
                      reading.settings.record.debugDevice};
  support::Losses losses;
  for (const std::string &fault :
       support::goAround(desk(), there, losses).faults)
    require(false, fault);
}

int readUnknownInFiles(const std::string &line) {
  constexpr int notRead = 3;
  std::string rest = line;
  std::string word;
  KvoOption_Parser::get_token(rest, word);
  if (strcasecmp(word.c_str(), "connect") == 0)
    KvoOption_Parser::get_token(rest, word);
  return notRead;
}

bool hasLoneMinus(const std::string &text) {
  const std::string separators = " \t";
  const std::string space = " \t\n\v\f\r";
  for (std::size_t at = text.find('-'); at != std::string::npos;
       at = text.find('-', at + 1)) {
    const std::size_t begin = text.find_last_of(separators, at) + 1;
    const std::size_t end = text.find_first_of(separators, at);
    std::string word = text.substr(begin, end - begin);
    word.erase(0, word.find_first_not_of(space));
    word.resize(word.find_last_not_of(space) + 1);
    if (word == "-")
      return true;
  }
  return false;
}

} // namespace fuzz
