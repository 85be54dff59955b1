// The option clauses of a whole command, and the line of a debug stub.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;

const Reader kParseOptions = KvoOption_Parser::parse_options;

const std::vector<std::string> kOptions = {
    "-debugdevice",  "-pfsl", "-quiet", "-noattach", "-writeonly",
    "-cable",        "-comm", "-port",  "-baud",     "-timeout",
    "-configdevice", "-sim",  "-bscan"};

const std::string kPodusb =
    "cable.cableType=3 cable.port=USB21 cable.frequency=6000000";

std::string unknownOption(const std::string &word) {
  return "UNKNOWN Option '" + word + "'";
}

TEST(Options, ReadsEachClauseToTheEndOfTheText) {
  std::vector<Row> rows = {{"", 0}, {" \t\n", 0}};
  const auto add = [&rows](const std::string &option, const std::string &rest,
                           const std::string &changes) {
    rows.push_back({option + rest, 0, kQuiet, changes, "", option});
    rows.push_back(
        {upper(option) + rest, 0, kQuiet, changes, "", upper(option)});
  };
  add("-debugdevice", "", "");
  add("-debugdevice", " devicenr 2", "debugDevice=2");
  add("-pfsl", "", "");
  add("-pfsl", " port 1 type ms", "");
  add("-quiet", "", "");
  add("-noattach", "", "");
  add("-writeonly", "", "");
  add("-cable", "", "cable.frequency=0");
  add("-cable", " type quorla_podusb", kPodusb);
  add("-comm", " jtag", "stubType=0");
  add("-comm", " serial", "stubType=1");
  add("-port", " COM1", "stubSerialPort=COM1");
  add("-baud", " 115200", "stubBaudRate=115200");
  add("-timeout", " 5", "stubTimeout=5");
  add("-configdevice", "", "chain[0]=UNKNOWN,0,0,0,0,0,0");
  add("-configdevice", " devicenr 2", "chain[0]=UNKNOWN,0,0,2,0,0,0");
  add("-sim", "", "modelSimMode=1");
  add("-bscan", " USER1", "bscanUserReg=2");
  expectRows(kParseOptions, rows);
}

TEST(Options, GoesOnAfterEachClause) {
  expectRows(
      kParseOptions,
      {
          {"-quiet -noattach -writeonly", 0, kQuiet, "", "", "-writeonly"},
          {"-debugdevice devicenr 2 -quiet", 0, kQuiet, "debugDevice=2", "",
           "-quiet"},
          {"-pfsl port 1 -quiet", 0, kQuiet, "", "", "-quiet"},
          {"-cable port p -quiet", 0, kQuiet, "cable.port=p", "", "-quiet"},
          {"-comm jtag -quiet", 0, kQuiet, "stubType=0", "", "-quiet"},
          {"-port p -quiet", 0, kQuiet, "stubSerialPort=p", "", "-quiet"},
          {"-baud 5 -quiet", 0, kQuiet, "stubBaudRate=5", "", "-quiet"},
          {"-timeout 5 -quiet", 0, kQuiet, "stubTimeout=5", "", "-quiet"},
          {"-configdevice nppc 1 -quiet", 0, kQuiet,
           "chain[0]=UNKNOWN,0,0,0,0,0,1", "", "-quiet"},
          {"-bscan USER1 -quiet", 0, kQuiet, "bscanUserReg=2", "", "-quiet"},
          {"-quiet -debugdevice devicenr 2 -noattach -cable port p "
           "-configdevice -writeonly -bscan USER2 -comm serial -port q -baud "
           "1 -timeout 2 -pfsl -sim -ipcport h:1 ",
           0, kQuiet,
           "debugDevice=2 cable.port=p chain[0]=UNKNOWN,0,0,0,0,0,0 "
           "bscanUserReg=3 stubType=1 stubSerialPort=q stubBaudRate=1 "
           "stubTimeout=2 modelSimMode=1 modelSimHost=h modelSimPort=1",
           "", "-ipcport"},
          {"-quiet -quiet -comm jtag -comm serial", 0, kQuiet, "stubType=1", "",
           "-comm"},
      });
}

TEST(Options, RefusesAValueWhereAnOptionBelongs) {
  expectRows(kParseOptions,
             {
                 {"x", 2},
                 {"-5", 2},
                 {"quiet -quiet ", 2, kQuiet, "", " -quiet"},
                 {"-quiet x", 2, kQuiet, "", "", "-quiet"},
                 {"-noattach x -quiet", 2, kQuiet, "", " -quiet", "-noattach"},
                 {"-writeonly 1", 2, kQuiet, "", "", "-writeonly"},
                 {"-comm jtag x", 2, kQuiet, "stubType=0", "", "-comm"},
                 {"-port p x y", 2, kQuiet, "stubSerialPort=p", " y", "-port"},
                 {"-baud 5 x", 2, kQuiet, "stubBaudRate=5", "", "-baud"},
                 {"-timeout 5 -6", 2, kQuiet, "stubTimeout=5", "", "-timeout"},
                 {"-bscan USER1 x", 2, kQuiet, "bscanUserReg=2", "", "-bscan"},
             });
}

TEST(Options, QuotesAnUnknownOption) {
  expectRows(
      kParseOptions,
      {
          {"-foo", 2, unknownOption("-foo"), "", "", "-foo"},
          {"-Foo x ", 2, unknownOption("-Foo"), "", " x", "-Foo"},
          {"-quiet -foo -quiet", 2, unknownOption("-foo"), "", " -quiet",
           "-foo"},
          {"-debugdevice -foo", 2, unknownOption("-foo"), "", "", "-foo"},
          {"-pfsl -foo", 2, unknownOption("-foo"), "", "", "-foo"},
          {"-cable port p -foo", 2, unknownOption("-foo"), "cable.port=p", "",
           "-foo"},
          {"-configdevice -foo", 2, unknownOption("-foo"),
           "chain[0]=UNKNOWN,0,0,0,0,0,0", "", "-foo"},
          {"-comm jtag -foo", 2, unknownOption("-foo"), "stubType=0", "",
           "-foo"},
          {"-bscan USER1 -foo", 2, unknownOption("-foo"), "bscanUserReg=2", "",
           "-foo"},
          {"--", 2, unknownOption("--"), "", "", "--"},
      });
  std::vector<std::string> others = {"-uart",    "-memsize", "-icf",
                                     "-ipcport", "-config",  "-esn"};
  for (const std::string &option : kOptions)
    for (const std::string &miss : nearMisses(option, kOptions))
      others.push_back(miss);
  for (const std::string &other : others)
    expectRows(kParseOptions, {{other + " jtag", 2, unknownOption(other), "",
                                " jtag", other}});
}

TEST(Options, RefusesWhatAClauseRefuses) {
  expectRows(
      kParseOptions,
      {
          {"-debugdevice devicenr", 2, kQuiet, "", "", "-debugdevice"},
          {"-debugdevice devicenr -quiet", 2, kQuiet, "", "", "-quiet"},
          {"-debugdevice foo 1 -quiet", 2,
           "UNKNOWN Parameter 'foo' for  option '-debugDevice'", "", " -quiet",
           "-debugdevice"},
          {"-pfsl type x", 2, "UNKNOWN Parameter 'x' for  option 'type'", "",
           "", "-pfsl"},
          {"-pfsl port", 2, kQuiet, "", "", "-pfsl"},
          {"-cable type foo", 2, kQuiet, "", "", "-cable"},
          {"-cable type quorla_podusb frequency 625000", 2,
           "UnSupported Quorla PodUSB Cable Frequency - 625000\nSupported "
           "Frequencies: 750000, 1500000, 3000000, 6000000, 12000000, "
           "24000000",
           "cable.cableType=3 cable.port=USB21 cable.frequency=625000", "",
           "-cable"},
          {"-configdevice jtagpin cpujtag", 2,
           "UNKNOWN Parameter 'jtagpin' for option '-configDevice'", "", "",
           "-configdevice"},
          {"-configdevice devicenr", 2, kQuiet, "chain[0]=UNKNOWN,0,0,0,0,0,0",
           "", "-configdevice"},
          {"-bscan", 2, kQuiet, "", "", "-bscan"},
          {"-bscan USER5 -quiet", 2, kQuiet, "", " -quiet", "-bscan"},
          {"-bscan -quiet", 2, kQuiet, "", "", "-quiet"},
          {"-sim x", 2, kQuiet, "modelSimMode=1", "", "-sim"},
          {"-sim -quiet", 2, "UNKNOWN  ModelSim Option ''", "modelSimMode=1",
           "", "-quiet"},
          // The simulator clause goes to the end of the text.
          {"-sim -configdevice devicenr 2 -quiet", 0, kQuiet,
           "modelSimMode=1 chain[0]=UNKNOWN,0,0,2,0,0,0", "", "-quiet"},
      });
}

// The option word behind a stub option is read in its value's place and lost.
TEST(Options, LosesTheOptionBehindAStubOptionWithoutAValue) {
  std::vector<Row> rows;
  for (const std::string option : {"-comm", "-port", "-baud", "-timeout"}) {
    rows.push_back({option, 0, kQuiet, "", "", option});
    rows.push_back({option + " ", 0, kQuiet, "", "", option});
    rows.push_back({"-quiet " + option, 0, kQuiet, "", "", option});
    rows.push_back({option + " -noattach", 0, kQuiet, "", "", "-noattach"});
    rows.push_back({option + " -foo", 0, kQuiet, "", "", "-foo"});
    rows.push_back({option + " -port COM1", 2, kQuiet, "", "", "-port"});
    rows.push_back(
        {option + " -port COM1 -quiet", 2, kQuiet, "", " -quiet", "-port"});
    rows.push_back({option + " -port -bscan USER1", 0, kQuiet, "bscanUserReg=2",
                    "", "-bscan"});
    rows.push_back(
        {option + " -foo -bar", 2, unknownOption("-bar"), "", "", "-bar"});
  }
  expectRows(kParseOptions, rows);
}

TEST(Options, RefusesAnotherStubLine) {
  std::vector<Row> rows = {
      {"-comm usb -quiet", 2, kQuiet, "", " -quiet", "-comm"},
      {"-comm 0", 2, kQuiet, "", "", "-comm"},
      {"-comm JTAG", 0, kQuiet, "stubType=0", "", "-comm"},
      {"-comm Serial", 0, kQuiet, "stubType=1", "", "-comm"},
      {"-comm jtag -comm foo", 2, kQuiet, "stubType=0", "", "-comm"},
  };
  const std::vector<std::string> lines = {"jtag", "serial"};
  for (const std::string &line : lines)
    for (const std::string &miss : nearMisses(line, lines))
      rows.push_back({"-comm " + miss, 2, kQuiet, "", "", "-comm"});
  expectRows(kParseOptions, rows);
}

TEST(Options, FailsAtALoneMinus) {
  std::vector<Row> rows = {
      {"-", kThrows},
      {"- -quiet", kThrows, kQuiet, "", " -quiet"},
      {"-bscan -", kThrows, kQuiet, "", "", "-bscan"},
      {"-bscan USER1 -", kThrows, kQuiet, "bscanUserReg=2", "", "-bscan"},
      {"-cable port p -", kThrows, kQuiet, "cable.port=p", "", "-cable"},
      {"-pfsl port -", kThrows, kQuiet, "", "", "-pfsl"},
      {"-sim -", kThrows, kQuiet, "modelSimMode=1", "", "-sim"},
      {"-comm jtag - x", kThrows, kQuiet, "stubType=0", " x", "-comm"},
      {"-port -quiet - x", kThrows, kQuiet, "", " x", "-quiet"},
  };
  for (const std::string option :
       {"-quiet", "-noattach", "-writeonly", "-comm", "-port", "-baud",
        "-timeout", "-debugdevice"})
    rows.push_back(
        {option + " - -quiet", kThrows, kQuiet, "", " -quiet", option});
  expectRows(kParseOptions, rows);
}

// --- The stub's line on its own ---------------------------------------------

Reader stubLine(const std::string &option) {
  return [option](std::string &text, EngineImp &imp) {
    std::string word = option;
    const int code = KvoOption_Parser::parse_commoptions(text, word, imp);
    EXPECT_EQ(word, option) << "(the option word)";
    return code;
  };
}

TEST(StubLine, ReadsTheValueOfItsOption) {
  expectRows(stubLine("-comm"), {{"jtag", 0, kQuiet, "stubType=0"},
                                 {"serial x ", 0, kQuiet, "stubType=1", " x"},
                                 {"SERIAL", 0, kQuiet, "stubType=1"},
                                 {"usb x", 2, kQuiet, "", " x"}});
  expectRows(stubLine("-COMM"), {{"Jtag", 0, kQuiet, "stubType=0"}});
  expectRows(stubLine("-port"),
             {{"/dev/ttyS1 x", 0, kQuiet, "stubSerialPort=/dev/ttyS1", " x"},
              {"Com1", 0, kQuiet, "stubSerialPort=Com1"},
              {"-5", 0, kQuiet, "stubSerialPort=-5"},
              {"a\0b"s, 0, kQuiet, "stubSerialPort=a\\x00b"}});
  expectRows(stubLine("-Port"), {{"p", 0, kQuiet, "stubSerialPort=p"}});
  expectRows(stubLine("-baud"), {{"0x1C200", 0, kQuiet, "stubBaudRate=115200"},
                                 {"fast", 0, kQuiet, "stubBaudRate=0"}});
  expectRows(stubLine("-BAUD"), {{"5", 0, kQuiet, "stubBaudRate=5"}});
  expectRows(stubLine("-timeout"), {{"010", 0, kQuiet, "stubTimeout=8"}});
  expectRows(stubLine("-TimeOut"), {{"5", 0, kQuiet, "stubTimeout=5"}});
}

TEST(StubLine, PassesOnThatTheValueIsMissing) {
  for (const std::string option :
       {"-comm", "-port", "-baud", "-timeout", "-foo"})
    expectRows(stubLine(option),
               {
                   {"", 3},
                   {" \t", 3},
                   {"-quiet x", 1, kQuiet, "", " x", "-quiet"},
                   {"- x", kThrows, kQuiet, "", " x"},
               });
}

TEST(StubLine, QuotesAnyOtherOptionBeforeItsValue) {
  std::vector<std::string> others = {"-foo", "-quiet", "", "port"};
  const std::vector<std::string> known = {"-comm", "-port", "-baud",
                                          "-timeout"};
  for (const std::string &option : known)
    for (const std::string &miss : nearMisses(option, known))
      others.push_back(miss);
  for (const std::string &other : others)
    expectRows(
        stubLine(other),
        {{"Val x", 2, "UNKNOWN Parameter '" + other + "' for  option 'Val'", "",
          " x"}});
}

} // namespace
