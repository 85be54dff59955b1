// The "-cable", "-bscan" and "-configdevice" text of a connect command.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/Cables.h"
#include "support/EngineFixture.h"
#include "support/RecordText.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

class CableClauseWriter : public support::RecordFixture {
protected:
  CableClauseWriter() { engine.SetErrorStr("an old message"); }

  /// What `write_jtagoptions` appends; nothing of the engine changes by it.
  void expectJtagOptions(const std::string &text) {
    const std::string before = textOf(state);
    std::string out = "before";
    EXPECT_EQ(KvoOption_Parser::write_jtagoptions(out, state), 0);
    EXPECT_EQ(out, "before" + text);
    EXPECT_EQ(textOf(state), before);
  }

  void giveCable(const CableOption &cable) { *state.cableOption = cable; }
};

JtagOption makeDevice(std::int8_t number, const std::string &part,
                      std::int8_t irLength, std::uint32_t idCode) {
  JtagOption device;
  device.devicenr = number;
  device.partname = part;
  device.irlength = irLength;
  device.idcode = idCode;
  return device;
}

TEST_F(CableClauseWriter, WritesPortAndFrequencyOfAQuorlaCable) {
  const struct {
    std::string port;
    std::uint32_t frequency;
    std::string text;
  } rows[] = {
      {"USB21", 6000000, " port USB21 frequency 6000000"},
      {"LPT1", 0, " port LPT1 frequency 0"},
      {"", 0, " port  frequency 0"},
      {"p q", 0x7FFFFFFF, " port p q frequency 2147483647"},
      {"%s%d", 0x80000000, " port %s%d frequency -2147483648"},
      {"p", 0xFFFFFFFF, " port p frequency -1"},
      {std::string("a\0b", 3), 1, std::string(" port a\0b frequency 1", 21)},
      {std::string(5000, 'p'), 1,
       " port " + std::string(5000, 'p') + " frequency 1"},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.text);
    CableOption cable = support::unusualCable();
    cable.esn = "";
    cable.port = row.port;
    cable.frequency = row.frequency;
    std::string out = "before";
    EXPECT_EQ(KvoOption_Parser::write_quorla_cableoptions(out, cable), 0);
    EXPECT_EQ(out, "before" + row.text);
  }
}

TEST_F(CableClauseWriter, WritesTheSerialNumberInPlaceOfPortAndFrequency) {
  for (const std::string &esn :
       {std::string("E123"), std::string("%s"), std::string("a\0b", 3),
        std::string(5000, 'e')}) {
    SCOPED_TRACE(esn);
    CableOption cable = support::unusualCable();
    cable.esn = esn;
    std::string out = "before";
    EXPECT_EQ(KvoOption_Parser::write_quorla_cableoptions(out, cable), 0);
    EXPECT_EQ(out, "before esn " + esn);
  }
}

TEST_F(CableClauseWriter, WritesModuleAndEachArgumentOfAPlugin) {
  const struct {
    std::string moduleName;
    std::string moduleArgs;
    std::string text;
  } rows[] = {
      {"m", "", " modulename m"},
      {"", "", " modulename "},
      {"m", "a", " modulename m modulearg a"},
      {"m", "a;b", " modulename m modulearg a modulearg b"},
      {"m", "b;a;b", " modulename m modulearg b modulearg a modulearg b"},
      {"m", "a=1,b=2 c", " modulename m modulearg a=1,b=2 c"},
      {"m", ";", " modulename m modulearg  modulearg "},
      {"m", ";a", " modulename m modulearg  modulearg a"},
      {"m", "a;", " modulename m modulearg a modulearg "},
      {"m", "a;;b", " modulename m modulearg a modulearg  modulearg b"},
      {"", "a", " modulename  modulearg a"},
      {"%s", "%d;%n", " modulename %s modulearg %d modulearg %n"},
      {std::string(3000, 'm'), std::string(3000, 'a'),
       " modulename " + std::string(3000, 'm') + " modulearg " +
           std::string(3000, 'a')},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.text);
    CableOption cable = support::unusualCable();
    cable.moduleName = row.moduleName;
    cable.moduleArgs = row.moduleArgs;
    std::string out = "before";
    EXPECT_EQ(KvoOption_Parser::write_plugin_cableoptions(out, cable), 0);
    EXPECT_EQ(out, "before" + row.text);
  }
}

TEST_F(CableClauseWriter, WritesNothingForADigilentCable) {
  std::string out = "before";
  EXPECT_EQ(KvoOption_Parser::write_digilent_cableoptions(
                out, support::unusualCable()),
            0);
  EXPECT_EQ(out, "before");
}

TEST_F(CableClauseWriter, WritesTheClauseOfEachCable) {
  const std::string module = " modulename m modulearg a modulearg b";
  for (const std::uint32_t number : support::cableNumbers()) {
    const support::Cable &row = support::cableOf(number);
    if (number != 0 && row.form == support::CableForm::none)
      continue;
    SCOPED_TRACE(number);
    CableOption cable;
    cable.cableType = static_cast<Engine::CableType>(number);
    cable.frequency = 7;
    cable.port = "p";
    cable.svfFile = "f";
    cable.moduleName = "m";
    cable.moduleArgs = "a;b";
    cable.url = "u";
    giveCable(cable);
    expectJtagOptions(support::clauseOf(row, " port p frequency 7", module));
    cable.esn = "e";
    giveCable(cable);
    expectJtagOptions(support::clauseOf(row, " esn e", module));
  }
}

TEST_F(CableClauseWriter, RefusesCablesThatHaveNoWrittenForm) {
  JtagOption device;
  record.bscanUserReg = 2;
  state.cpuJtag = 1;
  state.jtagChain = {&device};
  for (const std::uint32_t type : support::unwritableCableNumbers()) {
    SCOPED_TRACE(type);
    giveCable(support::unusualCable());
    state.cableOption->cableType = static_cast<Engine::CableType>(type);
    engine.SetErrorStr("an old message");
    std::string out = "before";
    EXPECT_EQ(KvoOption_Parser::write_jtagoptions(out, state), 2);
    EXPECT_EQ(out, "before -cable");
    EXPECT_EQ(errorText(), "Invalid Cable Type");
  }
}

TEST_F(CableClauseWriter, WritesTheFirstUserRegisterOnly) {
  for (const std::uint32_t code :
       {0U, 1U, 2U, 3U, 0x22U, 0x23U, 0x102U, 0xFFFFFFFFU}) {
    SCOPED_TRACE(code);
    record.bscanUserReg = code;
    expectJtagOptions(code == 2 ? " -bscan USER1" : "");
  }
}

TEST_F(CableClauseWriter, WritesTheMarkOfTheProcessorsJtagPins) {
  for (const std::uint32_t mark : {0U, 1U, 2U, 3U, 0x101U, 0xFFFFFFFFU}) {
    SCOPED_TRACE(mark);
    state.cpuJtag = mark;
    expectJtagOptions(mark == 1 ? " -configdevice jtagpin cpujtag" : "");
  }
}

TEST_F(CableClauseWriter, WritesADeviceOfTheChain) {
  const struct {
    JtagOption device;
    std::string text;
  } rows[] = {
      {makeDevice(2, "pk9ab100", 6, 0x1234093),
       " -configdevice devicenr 2 partname pk9ab100 irlength 6 idcode "
       "0x1234093"},
      {makeDevice(0, "UNKNOWN", 0, 0),
       " -configdevice devicenr 0 partname UNKNOWN irlength 0 idcode 0x0"},
      {makeDevice(-128, "p", 127, 0xABCDEF01),
       " -configdevice devicenr -128 partname p irlength 127 idcode "
       "0xabcdef01"},
      {makeDevice(127, "p", -128, 0xFFFFFFFF),
       " -configdevice devicenr 127 partname p irlength -128 idcode "
       "0xffffffff"},
      {makeDevice(-1, "", -1, 0x0A),
       " -configdevice devicenr -1 partname  irlength -1 idcode 0xa"},
      {makeDevice(1, "%s %d", 1, 1),
       " -configdevice devicenr 1 partname %s %d irlength 1 idcode 0x1"},
      {makeDevice(1, std::string("a\0b", 3), 1, 1),
       " -configdevice devicenr 1 partname " + std::string("a\0b", 3) +
           " irlength 1 idcode 0x1"},
      {makeDevice(1, std::string(5000, 'n'), 1, 1),
       " -configdevice devicenr 1 partname " + std::string(5000, 'n') +
           " irlength 1 idcode 0x1"},
  };
  for (const auto &row : rows) {
    SCOPED_TRACE(row.text);
    JtagOption device = row.device;
    device.isfpga = 1;
    device.hardppc = 2;
    device.nppc = 3;
    const std::string before = textOf(device);
    state.jtagChain = {&device};
    expectJtagOptions(row.text);
    EXPECT_EQ(textOf(device), before);
  }
  state.jtagChain.clear();
}

TEST_F(CableClauseWriter, WritesCableRegisterMarkAndChainInThisOrder) {
  JtagOption first = makeDevice(1, "a", 4, 0x10);
  JtagOption second = makeDevice(2, "b", 5, 0x20);
  state.cableOption->CableOptionInit(Engine::QUORLA_PARALLEL3);
  record.bscanUserReg = 2;
  record.debugDevice = 9;
  state.cpuJtag = 1;
  state.jtagChain = {&second, &first, &second};
  expectJtagOptions(
      " -cable type quorla_parallel3 port LPT1 frequency 200000"
      " -bscan USER1"
      " -configdevice jtagpin cpujtag"
      " -configdevice devicenr 2 partname b irlength 5 idcode 0x20"
      " -configdevice devicenr 1 partname a irlength 4 idcode 0x10"
      " -configdevice devicenr 2 partname b irlength 5 idcode 0x20");
}

TEST_F(CableClauseWriter, AddsTheDebugDeviceUnlessItIsZero) {
  constexpr struct {
    std::int8_t device;
    const char *text;
  } rows[] = {
      {0, ""},
      {1, " -debugdevice deviceNr 1"},
      {127, " -debugdevice deviceNr 127"},
      {-128, " -debugdevice deviceNr -128"},
      {-56, " -debugdevice deviceNr -56"},
  };
  state.cableOption->CableOptionInit(Engine::DIGILENT_PLUGIN);
  for (const auto &row : rows) {
    SCOPED_TRACE(int{row.device});
    record.debugDevice = row.device;
    const std::string before = textOf(state);
    std::string out = "before";
    EXPECT_EQ(KvoOption_Parser::WriteJtagCableOptionsString(state, out), 0);
    EXPECT_EQ(out,
              std::string("before -cable type digilent_plugin") + row.text);
    EXPECT_EQ(textOf(state), before);
  }
}

TEST_F(CableClauseWriter, AddsNoDebugDeviceToACableThatIsRefused) {
  record.debugDevice = 1;
  for (const std::uint32_t type : support::unwritableCableNumbers()) {
    SCOPED_TRACE(type);
    state.cableOption->cableType = static_cast<Engine::CableType>(type);
    engine.SetErrorStr("an old message");
    std::string out = "before";
    EXPECT_EQ(KvoOption_Parser::WriteJtagCableOptionsString(state, out), 1);
    EXPECT_EQ(out, "before -cable");
    EXPECT_EQ(errorText(), "Invalid Cable Type");
  }
}

} // namespace
