#include "support/RoundTripDesk.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/Fields.h"
#include "support/StateText.h"

namespace support {
namespace {

using ZelDebugDialog::JtagOption;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfoImp;

/// `text` without its ISOCM piece.
std::string withoutIsocm(const std::string &text,
                         const ProcessorInfoImp &record) {
  std::array<char, 200> piece{};
  std::snprintf(piece.data(), piece.size(),
                " isocmStartAdr 0x%x isocmSize %d  isocmDcrStartAdr 0x%x",
                record.isocmStartAdr, static_cast<int>(record.isocmSize),
                record.isocmDcrStartAdr);
  std::string rest = text;
  rest.erase(rest.find(piece.data()), std::string(piece.data()).size());
  const std::string option = " -debugdevice";
  if (rest.size() >= option.size() &&
      rest.compare(rest.size() - option.size(), option.size(), option) == 0)
    rest.erase(rest.size() - option.size());
  return rest;
}

/// One case on its way, with what went wrong so far.
class Journey {
public:
  Journey(RoundTripDesk &where, const RoundTripCase &what, Losses &met)
      : desk(where), roundTrip(what), losses(met) {}

  RoundTripOutcome run() {
    const Prediction prediction = predict(roundTrip, losses);
    expect(!prediction.countsFieldTwice, "a field with two entries");
    if (!write(prediction))
      return outcome;
    desk.prepare(roundTrip);
    const int code = desk.read(text);
    expect(desk.record.connectCommand == text, "not stored");
    switch (prediction.kind) {
    case Prediction::Kind::Refused:
      losses.count(prediction.cause);
      expect(code == 3,
             std::string("read, in spite of ") +
                 kLossIds[static_cast<std::size_t>(prediction.cause)]);
      break;
    case Prediction::Kind::Unsettled:
      if (code != 0 || !desk.holds(roundTrip.written))
        losses.count(prediction.cause);
      break;
    default:
      outcome.isSame = code == 0;
      if (expect(code == 0, "not read"))
        compare(prediction);
    }
    return outcome;
  }

private:
  bool expect(bool holds, const std::string &fault) {
    if (!holds)
      outcome.faults.push_back("\"" + text + "\": " + fault);
    return holds;
  }

  /// @return whether there is anything to read back.
  bool write(const Prediction &prediction) {
    desk.load(roundTrip.written);
    desk.record.connectCommand = "before";
    text = "before";
    const int written = KvoOption_Parser::WriteKvoCmdString(desk.imp, text);
    if (prediction.kind == Prediction::Kind::NoCommand) {
      losses.count(prediction.cause);
      expect(written == 1 && text == "before" &&
                 desk.record.connectCommand == "before",
             "a command where there is none");
      return false;
    }
    expect(desk.record.connectCommand == text, "no command");
    expect(desk.holds(roundTrip.written), "changed by writing");
    return expect(written == 0, "not written");
  }

  void compare(const Prediction &prediction) {
    if (!expect(desk.holds(prediction.result), "something else came back"))
      return listDifferences(prediction.result);
    std::string again;
    expect(KvoOption_Parser::WriteKvoCmdString(desk.imp, again) == 0,
           "not written again");
    const std::string stable =
        prediction.dropsIsocm ? withoutIsocm(text, roundTrip.written.record)
                              : text;
    expect(again == stable, "written again as \"" + again + "\"");
  }

  void listDifferences(const Configuration &expected) {
    const auto found = ZelDebugDialog::test::settingsOf(desk.imp);
    desk.load(expected);
    auto wanted = ZelDebugDialog::test::settingsOf(desk.imp);
    for (const auto &[name, value] : found)
      expect(wanted[name] == value,
             name + " is " + value + " and not " + wanted[name]);
  }

  RoundTripDesk &desk;
  const RoundTripCase &roundTrip;
  Losses &losses;
  std::string text;
  RoundTripOutcome outcome;
};

} // namespace

bool isSame(const Configuration &left, const Configuration &right) {
  return haveSameFields(left.record, right.record) &&
         haveSameFields(left.cable, right.cable) &&
         left.cpuJtag == right.cpuJtag &&
         std::equal(left.chain.begin(), left.chain.end(), right.chain.begin(),
                    right.chain.end(),
                    [](const JtagOption &one, const JtagOption &other) {
                      return haveSameFields(one, other);
                    });
}

RoundTripDesk::RoundTripDesk(HHSMHwManager &known)
    : imp(*engine.GetProcessorList(nullptr)), design(known) {
  imp.currentProcessor = &record;
}

void RoundTripDesk::clear() {
  ReleaseChainRecords(imp.jtagChain);
  record = ProcessorInfoImp();
  imp.EngineImpInit();
  imp.hwManager = nullptr;
}

void RoundTripDesk::load(const Configuration &configuration) {
  clear();
  record = configuration.record;
  *imp.cableOption = configuration.cable;
  imp.cpuJtag = configuration.cpuJtag;
  for (const JtagOption &device : configuration.chain)
    imp.jtagChain.push_back(new JtagOption(device));
}

void RoundTripDesk::prepare(const RoundTripCase &roundTrip) {
  clear();
  if (!roundTrip.underDesign)
    return;
  const ProcessorInfoImp &same = roundTrip.written.record;
  record.instanceName = same.instanceName;
  record.procFamily = same.procFamily;
  record.procType = same.procType;
  record.connectionMask = same.connectionMask;
  record.cpuNr = same.cpuNr;
  imp.hwManager = &design;
}

bool RoundTripDesk::holds(const Configuration &configuration) const {
  return haveSameFields(record, configuration.record) &&
         haveSameFields(*imp.cableOption, configuration.cable) &&
         imp.cpuJtag == configuration.cpuJtag &&
         std::equal(imp.jtagChain.begin(), imp.jtagChain.end(),
                    configuration.chain.begin(), configuration.chain.end(),
                    [](const JtagOption *left, const JtagOption &right) {
                      return haveSameFields(*left, right);
                    });
}

Configuration RoundTripDesk::configuration() const {
  Configuration all{record, *imp.cableOption, {}, imp.cpuJtag};
  for (const JtagOption *device : imp.jtagChain)
    all.chain.push_back(*device);
  return all;
}

int RoundTripDesk::read(const std::string &text) {
  try {
    return KvoOption_Parser::ReadKvoCommand(text, imp);
  } catch (const std::out_of_range &) {
    return kLoneMinus;
  }
}

RoundTripOutcome goAround(RoundTripDesk &desk, const RoundTripCase &roundTrip,
                          Losses &losses) {
  return Journey(desk, roundTrip, losses).run();
}

} // namespace support
