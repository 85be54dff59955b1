// Changing settings: what was asked for stands, or nothing has changed.
#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;
using testing::IsEmpty;

class ChangeTest : public ModelTest {};

constexpr const char *withCable =
    "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 "
    "-debugdevice cpunr 1";

TEST_F(ChangeTest, StartsFromTheDefaults) {
  const Session session = open();
  EXPECT_EQ(session.Command(), "connect lc hdu -debugdevice cpunr 1");
  EXPECT_EQ(session.Problem(), "");
  EXPECT_FALSE(session.State().dirty);
  EXPECT_THAT(session.Losses(), IsEmpty());
}

TEST_F(ChangeTest, ACableBringsItsPortAndFrequency) {
  Session session = open();
  const char *const why = "choosing a cable brings its port and frequency";
  EXPECT_THAT(
      shown(session.Change({{"cable.cableType", "quorla_podusb"}})),
      ElementsAre(std::string("cable.frequency: 0 Hz -> 6 MHz (") + why + ")",
                  std::string("cable.port:  -> USB21 (") + why + ")"));
  EXPECT_EQ(session.Command(), withCable);
}

TEST_F(ChangeTest, TheCableThatIsChosenChangesNothing) {
  Session session = open();
  session.Change({{"cable.cableType", 3}, {"cable.port", "USB22"}});
  const auto before = shown(session.State());
  EXPECT_THAT(session.Change({{"cable.cableType", 3}}), IsEmpty());
  EXPECT_THAT(session.Change({{"cable.cableType", "quorla_podusb"},
                              {"cable.port", "USB22"}}),
              IsEmpty());
  EXPECT_EQ(shown(session.State()), before);
  session.Undo();
  EXPECT_FALSE(session.State().canUndo);
}

TEST_F(ChangeTest, AnotherCableStartsAnew) {
  Session session = open();
  session.Change({{"cable.cableType", "quorla_podusb"},
                  {"cable.frequency", "3 MHz"},
                  {"cable.esn", "E1"}});
  EXPECT_THAT(
      shown(session.Change({{"cable.cableType", "quorla_parallel3"}})),
      ElementsAre("cable.frequency: 3 MHz -> 200 kHz (choosing a cable brings "
                  "its port and frequency)",
                  "cable.port: USB21 -> LPT1 (choosing a cable brings its port "
                  "and frequency)",
                  "cable.esn: E1 ->  (choosing a cable brings its port and "
                  "frequency)"));
}

/// Every order of some settings makes the same of them.
void expectAnyOrder(const Board &board, const std::string &processor,
                    SettingValues values, const std::string &command) {
  std::sort(values.begin(), values.end(),
            [](const auto &a, const auto &b) { return a.first < b.first; });
  do {
    Session session(board, processor);
    session.Change(values);
    EXPECT_EQ(session.Command(), command) << values.front().first;
    for (const auto &[id, value] : values)
      EXPECT_EQ(shown(id, session.Get(id)), shown(id, value)) << id;
  } while (std::next_permutation(
      values.begin(), values.end(),
      [](const auto &a, const auto &b) { return a.first < b.first; }));
}

TEST_F(ChangeTest, TheOrderOfNamesDoesNotMatter) {
  expectAnyOrder(board, "lc",
                 {{"cable.frequency", 3000000},
                  {"cable.port", "USB9"},
                  {"cable.cableType", 3},
                  {"debugDevice", 2}},
                 "connect lc hdu -cable type quorla_podusb port USB9 frequency "
                 "3000000 -debugdevice deviceNr 2 cpunr 1");
  expectAnyOrder(board, "lc", {{"cable.esn", "E"}, {"cable.cableType", 2}},
                 "connect lc hdu -cable type quorla_parallel esn E "
                 "-debugdevice cpunr 1");
  expectAnyOrder(board, "lc",
                 {{"connection", "stub-serial"},
                  {"stubBaudRate", 9600},
                  {"stubSerialPort", "/dev/ttyS1"}},
                 "connect lc stub -comm serial -port /dev/ttyS1  -baud  9600 "
                 "-timeout 20000");
  expectAnyOrder(board, "ppc440",
                 {{"dcacheStartAdr", 0x30000},
                  {"icacheStartAdr", 0x10000},
                  {"debugAddressMap", 0x70000}},
                 "connect ppc hw -debugdevice cpunr 2 icacheStartAdr 0x10000 "
                 "dcacheStartAdr 0x30000 fpuType sp");
}

TEST_F(ChangeTest, TheInstructionCacheMovesTheBaseAndTheBaseNothing) {
  Session session = open("ppc440");
  EXPECT_THAT(
      shown(session.Change({{"icacheStartAdr", 0x10000}})),
      ElementsAre("debugAddressMap: not set -> 0x10000 (the "
                  "instruction cache's region is the base of the map)"));
  EXPECT_THAT(session.Change({{"debugAddressMap", 0x20000}}), IsEmpty());
  EXPECT_EQ(session.Get("icacheStartAdr"), Value(0x10000));
  EXPECT_EQ(session.Get("debugAddressMap"), Value(0x20000));
  session.Change({{"debugAddressMap", 0x50000}, {"icacheStartAdr", 0x40000}});
  EXPECT_EQ(session.Get("icacheStartAdr"), Value(0x40000));
  EXPECT_EQ(session.Get("debugAddressMap"), Value(0x50000));
}

TEST_F(ChangeTest, TheConnectionDecidesWhatFollowsFromIt) {
  Session session = open();
  const char *const why = "the kind of connection decides it";
  EXPECT_THAT(shown(session.Change({{"connection", "stub-serial"}})),
              ElementsAre(std::string("connectionType: 2 -> 4 (") + why + ")",
                          std::string("stubType: 0 -> 1 (") + why + ")"));
  EXPECT_THAT(shown(session.Change({{"connection", "hw"}})),
              ElementsAre(std::string("connectionType: 4 -> 2 (") + why + ")",
                          std::string("stubType: 1 -> 0 (") + why + ")"));
}

TEST_F(ChangeTest, NothingHasChangedWhereOneValueIsRefused) {
  Session session = open();
  session.Change({{"cable.cableType", 3}});
  session.Draft("stubTimeout", "soon");
  const auto before = shown(session.State());
  struct Row {
    SettingValues values;
    const char *refusal;
  } const rows[] = {
      {{{"debugDevice", 3}, {"cable.frequency", "fast"}},
       "bad-value: cable.frequency: 'fast' is no whole number of hertz "
       "(decimal "
       "or 0x, with Hz, kHz, MHz or nothing behind it), up to 4294967295 Hz"},
      {{{"cable.cableType", 2}, {"cable.port", "a b"}},
       "bad-value: cable.port: 'a b' is refused: it holds white space, and a "
       "command ends its words there"},
      {{{"debugDevice", 3}, {"debugDevices", 4}},
       "unknown-setting: 'debugDevices' is no setting; did you mean "
       "'debugDevice'?"},
      {{{"debugDevice", 3}, {"cpuNr", 4}},
       "not-settable: cpuNr: it says which processor it is, and cannot be set"},
      {{{"debugDevice", 3}, {"connection", "vp"}},
       "not-allowed: connection: 'vp': 'lc' does not allow it; it allows "
       "'sim', "
       "'hw', 'stub-serial', 'stub-jtag'"},
      {{{"debugDevice", 3}, {"debugDevice", 4}},
       "excluded: debugDevice: it is asked for twice, with different values"},
      {{{"cable.cableType", 2}, {"cable.cableType", "quorla_parallel3"}},
       "excluded: cable.cableType: it is asked for twice, with different "
       "values"},
  };
  for (const Row &row : rows) {
    EXPECT_EQ(refusalOf([&] { session.Change(row.values); }), row.refusal);
    EXPECT_EQ(shown(session.State()), before) << row.refusal;
  }
}

TEST_F(ChangeTest, TheSameValueTwiceIsNoContradiction) {
  Session session = open();
  session.Change({{"cable.cableType", 3},
                  {"cable.frequency", "3 MHz"},
                  {"cable.frequency", 3000000},
                  {"cable.cableType", "quorla_podusb"}});
  EXPECT_EQ(session.Get("cable.frequency"), Value(3000000));
}

TEST_F(ChangeTest, TheChainIsChangedWhole) {
  Session session = open();
  session.Change({{"chain", Value::Chain{{{"partname", "a"}, {"irlength", 6}},
                                         {{"partname", "b"}}}}});
  EXPECT_EQ(session.Command(),
            "connect lc hdu -configdevice devicenr 0 partname a irlength 6 "
            "idcode 0x0 -configdevice devicenr 0 partname b irlength 0 idcode "
            "0x0 -debugdevice cpunr 1");
  EXPECT_EQ(session.Get("chain[1].partname"), Value("b"));
  EXPECT_EQ(refusalOf([&] {
              session.Change({{"chain[0].partname", "c"}});
            }),
            "not-settable: chain[0].partname: the chain is changed as a whole, "
            "by 'chain'");
  session.Change({{"chain", Value::Chain{}}});
  EXPECT_EQ(session.Command(), "connect lc hdu -debugdevice cpunr 1");
}

TEST_F(ChangeTest, ADeviceWithANumberOutOfRangeIsChangedInAnotherField) {
  Session session = openWith("connect lc hdu -configdevice devicenr 200 "
                             "partname p irlength 4 -debugdevice cpunr 1");
  Value::Chain chain = session.Get("chain").Devices();
  const auto field = [&chain](const std::string &name) -> Value & {
    for (auto &[id, value] : chain.front())
      if (id == name)
        return value;
    throw std::out_of_range(name);
  };
  EXPECT_EQ(field("devicenr"), Value(-56));
  field("irlength") = 5;
  EXPECT_THAT(session.Change({{"chain", chain}}), IsEmpty());
  EXPECT_EQ(session.Get("chain[0].devicenr"), Value(-56));
  EXPECT_EQ(session.Get("chain[0].irlength"), Value(5));
  field("irlength") = 128;
  EXPECT_EQ(refusalOf([&] {
              session.Change({{"chain", chain}});
            }),
            "bad-value: chain[0].irlength: '128' is no number from 0 to 127 "
            "(decimal or 0x)");
  field("irlength") = 6;
  field("devicenr") = -55;
  EXPECT_EQ(refusalOf([&] {
              session.Change({{"chain", chain}});
            }),
            "bad-value: chain[0].devicenr: '-55' is no number from 0 to 127 "
            "(decimal or 0x)");
  EXPECT_EQ(session.Get("chain[0].irlength"), Value(5));
}

TEST_F(ChangeTest, ARequestStartsFromACommandAndValuesStandOverIt) {
  Session session = open();
  ChangeRequest request;
  request.command = "connect lc hdu -cable type quorla_podusb port USB7 "
                    "frequency 3000000 -debugdevice devicenr 5";
  request.values = {{"cable.port", "USB8"}};
  request.reset = {"debugDevice", "cable.port"};
  session.Change(request);
  EXPECT_EQ(session.Command(),
            "connect lc hdu -cable type quorla_podusb port USB8 frequency "
            "3000000 -debugdevice cpunr 1");
  const auto before = shown(session.State());
  request.command = "connect lc hdu -cabel";
  EXPECT_THAT(refusalOf([&] { session.Change(request); }),
              testing::StartsWith("bad-command: the command is refused: "));
  EXPECT_EQ(shown(session.State()), before);
}

TEST_F(ChangeTest, WhatACommandGaveAndAValueReplacedIsAnEffect) {
  const char *const why = "choosing a cable brings its port and frequency";
  Session session = open();
  ChangeRequest request;
  request.command = "connect lc hdu -cable type quorla_podusb port X "
                    "frequency 3000000 -debugdevice devicenr 5";
  request.values = {{"cable.cableType", "quorla_parallel"}};
  EXPECT_THAT(
      shown(session.Change(request)),
      ElementsAre("connectCommand:  -> " + *request.command +
                      " (the command says so)",
                  std::string("cable.frequency: 3 MHz -> 5 MHz (") + why + ")",
                  std::string("cable.port: X -> LPT1 (") + why + ")"));
  EXPECT_EQ(session.Command(),
            "connect lc hdu -cable type quorla_parallel port LPT1 frequency "
            "5000000 -debugdevice deviceNr 5 cpunr 1");

  // What is asked for as well is none, and what the command gave and stands.
  Session both = open();
  request.values.emplace_back("cable.port", "LPT2");
  EXPECT_THAT(
      shown(both.Change(request)),
      ElementsAre(
          "connectCommand:  -> " + *request.command + " (the command says so)",
          std::string("cable.frequency: 3 MHz -> 5 MHz (") + why + ")"));

  // A reset takes the rest of a cable along, too.
  Session reset = open();
  request.values = {};
  request.reset = {"cable.cableType"};
  EXPECT_THAT(
      shown(reset.Change(request)),
      ElementsAre("connectCommand:  -> " + *request.command +
                      " (the command says so)",
                  std::string("cable.frequency: 3 MHz -> 0 Hz (") + why + ")",
                  std::string("cable.port: X ->  (") + why + ")"));
}

TEST_F(ChangeTest, AResetBringsIdentityBack) {
  Session session = open();
  session.Edit("connect dap hw");
  ChangeRequest request;
  request.values = {{"debugDevice", 1}};
  session.Change(request);
  EXPECT_EQ(session.Get("procFamily"), Value(2)); // nothing is reset
  request.reset = {"bscanUserReg"};
  EXPECT_THAT(shown(session.Change(request)),
              testing::Contains("connectionMask: 0x200 -> 0x87 (it is the "
                                "default)"));
  EXPECT_EQ(session.Get("procFamily"), Value(0));
  EXPECT_EQ(settingIn(session.State(), "procFamily").origin, "design");
}

TEST_F(ChangeTest, ARequestStartsFromACopy) {
  Session other = open("ppc440");
  other.Change({{"cable.cableType", 3}, {"debugDevice", 4}});
  Session session = open();
  ChangeRequest request;
  request.copyFrom = &other;
  request.values = {{"cable.cableType", 2}};
  EXPECT_THAT(shown(session.Change(request)),
              ElementsAre("debugDevice: 0 -> 4 (it was copied)",
                          "cable.frequency: 0 Hz -> 5 MHz (choosing a cable "
                          "brings its port and frequency)",
                          "cable.port:  -> LPT1 (choosing a cable brings its "
                          "port and frequency)"));
  EXPECT_EQ(session.Get("instanceName"), Value("lc"));
}

TEST_F(ChangeTest, ARequestTellsWhatOfItsCopyIsNotAllowed) {
  Session other = open();
  other.Change({{"connection", "stub-serial"}});
  const std::string told =
      "connection: hw -> hw (this processor does not allow what was copied)";
  ChangeRequest request;
  request.copyFrom = &other;
  request.values = {{"debugDevice", 4}};
  Session session = open("ppc405");
  EXPECT_THAT(shown(session.Change(request)), testing::Contains(told));
  // What is asked for takes its place.
  request.values = {{"connection", "sim"}};
  Session asked = open("ppc405");
  for (const std::string &effect : shown(asked.Change(request)))
    EXPECT_THAT(effect, testing::Not(testing::HasSubstr("not allow")));
  EXPECT_EQ(asked.Get("connection"), Value("sim"));
  // So does a whole command.
  request.values = {};
  request.command = "connect ppc hw -debugdevice devicenr 4";
  Session commanded = open("ppc405");
  for (const std::string &effect : shown(commanded.Change(request)))
    EXPECT_THAT(effect, testing::Not(testing::HasSubstr("not allow")));
  EXPECT_EQ(commanded.Get("debugDevice"), Value(4));
}

TEST_F(ChangeTest, ACopyTakesAllButIdentityAndTellsWhatIsNotAllowed) {
  Session other = open();
  other.Change({{"connection", "stub-serial"},
                {"stubBaudRate", 9600},
                {"chain", Value::Chain{{{"partname", "p"}}}}});
  Session session = open("ppc405");
  const auto effects = shown(session.CopyFrom(other));
  EXPECT_THAT(effects, testing::Contains("stubBaudRate: 0 -> 9600 (it was "
                                         "copied)"));
  EXPECT_EQ(effects.back(), "connection: hw -> hw (this processor does not "
                            "allow what was copied)");
  EXPECT_EQ(session.Get("procType"), Value(1));
  EXPECT_EQ(session.Get("instanceName"), Value("ppc405"));
  EXPECT_EQ(session.Command(),
            "connect ppc hw -configdevice devicenr 0 partname p irlength 0 "
            "idcode 0x0 -debugdevice cpunr 1");
  Session same = open();
  EXPECT_THAT(same.CopyFrom(same), IsEmpty());
}

TEST_F(ChangeTest, SessionsOfOneProcessorAreIndependent) {
  Session first = open();
  Session second = open();
  first.Change({{"debugDevice", 3}});
  EXPECT_EQ(second.Get("debugDevice"), Value(0));
}

TEST_F(ChangeTest, ProcessorsThatAreNoneAreRefused) {
  EXPECT_THAT(refusalOf([&] { open("r5"); }),
              testing::StartsWith("not-debuggable: 'r5' cannot be debugged: "));
  EXPECT_EQ(refusalOf([&] { open("ppc404"); }),
            "unknown-processor: 'ppc404' is no processor of the design; there "
            "are 'lc', 'lc_sim', 'ppc405', 'ppc440', 'a9', 'r5'; did you mean "
            "'ppc405'?");
  EXPECT_THAT(refusalOf([&] { open(""); }),
              testing::StartsWith("unknown-processor: "));
  EXPECT_EQ(refusalOf([&] { open().Get("nothing"); }),
            "unknown-setting: 'nothing' is no setting");
}

TEST_F(ChangeTest, DiscoveryHappensOnceABoard) {
  design.log.clear();
  Session first = open("ppc440");
  Session second = open("ppc440");
  first.Change({{"debugDevice", 3}});
  EXPECT_THAT(design.log, testing::Not(testing::Contains(testing::HasSubstr(
                              "getHduConnectedProcessorList"))));
}

} // namespace
