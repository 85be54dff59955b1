// What the tables list is accepted, and what they don't list is refused.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>

#include "ZelDebugDialog/CableCatalogue.h"
#include "ZelDebugDialog/CommandTables.h"
#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/KvoOption_Parser.h"
#include "support/Cables.h"
#include "support/Targets.h"

namespace ZelDebugDialog::test {

namespace {

int read(const std::string &command) {
  Engine engine;
  EngineImp &imp = *engine.GetProcessorList(nullptr);
  ProcessorInfoImp record;
  imp.currentProcessor = &record;
  const int result = KvoOption_Parser::ReadKvoCommand(command, imp);
  ReleaseChainRecords(imp.jtagChain);
  return result;
}

/// A value that every parameter without a list of words takes; a region's
/// address has to be aligned.
std::string anyValue(const CommandValue &value) {
  return value.words.empty() ? "0x10000" : value.words.front();
}

/// Calls `visit` with a command up to the place where the options of each set
/// begin.
void eachOptionSet(const CommandTables &tables,
                   const std::function<void(const std::string &,
                                            const std::string &)> &visit) {
  for (const CommandHead &head : tables.heads)
    for (const CommandTarget &target : head.targets) {
      const std::string begin = head.keyword + " " + target.keyword;
      if (target.connections.empty())
        visit(begin, target.optionSet);
      for (const CommandConnection &connection : target.connections)
        visit(begin + " " + connection.keyword, connection.optionSet);
    }
}

const CommandOptionSet &setNamed(const CommandTables &tables,
                                 const std::string &name) {
  for (const CommandOptionSet &set : tables.optionSets)
    if (set.name == name)
      return set;
  ADD_FAILURE() << "no option set " << name;
  static const CommandOptionSet none;
  return none;
}

bool lists(const std::vector<std::string> &words, const std::string &word) {
  for (const std::string &listed : words)
    if (listed == word)
      return true;
  return false;
}

} // namespace

TEST(CommandTables, ListTheWordsThatBeginACommand) {
  std::vector<std::string> heads;
  std::vector<std::string> inFiles;
  for (const CommandHead &head : GetCommandTables().heads) {
    heads.push_back(head.keyword);
    if (head.inOptionFile)
      inFiles.push_back(head.keyword);
  }
  EXPECT_EQ(heads, (std::vector<std::string>{"connect", "kconnect", "vpconnect",
                                             "kvpconnect"}));
  EXPECT_EQ(inFiles, (std::vector<std::string>{"connect", "vpconnect"}));
}

TEST(CommandTables, ListTheTargets) {
  const CommandTables tables = GetCommandTables();
  std::vector<std::string> targets;
  std::vector<std::string> inFiles;
  for (const CommandTarget &target : tables.heads[0].targets) {
    targets.push_back(target.keyword);
    if (target.inOptionFile)
      inFiles.push_back(target.keyword);
  }
  EXPECT_EQ(targets, support::targets);
  EXPECT_EQ(inFiles, support::targetsInFiles);
  ASSERT_EQ(tables.heads[2].targets.size(), 1U);
  EXPECT_EQ(tables.heads[2].targets[0].keyword, "lc");
}

TEST(CommandTables, EveryWayToConnectIsAcceptedAndItsNearMissRefused) {
  int ways = 0;
  const CommandTables tables = GetCommandTables();
  eachOptionSet(tables, [&](const std::string &begin, const std::string &set) {
    SCOPED_TRACE(begin);
    EXPECT_EQ(read(begin), 0);
    EXPECT_EQ(read(begin + "x"), 3);
    EXPECT_FALSE(setNamed(tables, set).options.empty());
    ++ways;
  });
  // lc 3, ppc 2, arm, r5, dap, hdu, dcc, kmtc for two heads, lc for two others
  EXPECT_EQ(ways, 2 * 11 + 2);
}

TEST(CommandTables, EveryOptionIsAcceptedAndWhatNoSetListsIsRefused) {
  const CommandTables tables = GetCommandTables();
  eachOptionSet(tables, [&](const std::string &begin, const std::string &name) {
    const CommandOptionSet &set = setNamed(tables, name);
    std::vector<std::string> keywords;
    for (const CommandOption &option : set.options) {
      keywords.push_back(option.keyword);
      std::string command = begin + " " + option.keyword;
      if (option.takesValue)
        command += " " + anyValue(option.value);
      SCOPED_TRACE(command);
      EXPECT_EQ(read(command), 0);
      EXPECT_EQ(read(begin + " " + option.keyword + "x 1"), 3);
    }
    for (const CommandOptionSet &other : tables.optionSets)
      for (const CommandOption &option : other.options)
        if (!lists(keywords, option.keyword)) {
          SCOPED_TRACE(begin + " " + option.keyword);
          EXPECT_EQ(read(begin + " " + option.keyword + " 1"), 3);
        }
  });
}

TEST(CommandTables, EveryParameterAndNamedValueIsAcceptedAndNearMissesRefused) {
  const CommandTables tables = GetCommandTables();
  int parameters = 0;
  eachOptionSet(tables, [&](const std::string &begin, const std::string &name) {
    if (name == "PowerPC simulator")
      return; // does not examine its clauses
    for (const CommandOption &option : setNamed(tables, name).options)
      for (const CommandParameter &parameter : option.parameters) {
        const std::string clause =
            begin + " " + option.keyword + " " + parameter.keyword;
        SCOPED_TRACE(clause);
        const bool isFrequency = parameter.keyword == "frequency";
        const bool isCableType =
            option.keyword == "-cable" && parameter.keyword == "type";
        if (!isFrequency) {
          EXPECT_EQ(read(clause + " " + anyValue(parameter.value)), 0);
        }
        EXPECT_EQ(read(clause + "x 1"), 3);
        EXPECT_EQ(read(clause), 3);
        for (const std::string &word : parameter.value.words) {
          const std::string module =
              isCableType && word == "quorla_plugin" ? " modulename m" : "";
          EXPECT_EQ(read(clause + " " + word + module), 0) << word;
          EXPECT_EQ(read(clause + " " + word + "x"), 3) << word;
        }
        ++parameters;
      }
  });
  // processor: 18 + 2 + 8 + 8, for six ways to connect of two heads; hdu 34,
  // dcc 26, kmtc 34
  EXPECT_EQ(parameters, 2 * (6 * 36 + 34 + 26 + 34));
}

TEST(CommandTables, OptionsWithNamedValuesRefuseOthers) {
  const CommandTables tables = GetCommandTables();
  eachOptionSet(tables, [&](const std::string &begin, const std::string &name) {
    for (const CommandOption &option : setNamed(tables, name).options) {
      for (const std::string &word : option.value.words) {
        const std::string clause = begin + " " + option.keyword + " " + word;
        SCOPED_TRACE(clause);
        EXPECT_EQ(read(clause), 0);
        EXPECT_EQ(read(clause + "x"), 3);
      }
    }
  });
}

TEST(CommandTables, CablesAgreeWithTheCatalogueAndTheReader) {
  const CommandTables tables = GetCommandTables();
  ASSERT_EQ(tables.cables.size(), support::cables().size());
  for (const CommandCable &cable : tables.cables) {
    SCOPED_TRACE(cable.type);
    EXPECT_EQ(cable.defaultFrequency, setcable_default_frequency(cable.type));
    EXPECT_EQ(cable.defaultPort, setcable_default_port(cable.type));
    std::string offered;
    EXPECT_EQ(std::count(cable.offeredFrequencies.begin(),
                         cable.offeredFrequencies.end(), 0U),
              0);
    for (const std::uint32_t frequency : cable.offeredFrequencies)
      offered += (offered.empty() ? "" : " ") + std::to_string(frequency);
    EXPECT_EQ(offered.empty() ? "0" : offered,
              getcable_supported_frequency(cable.type));
    for (const std::string &keyword : cable.keywords)
      for (const std::uint32_t frequency : cable.acceptedFrequencies) {
        const std::string clause =
            "connect lc hdu -cable type " + keyword + " frequency ";
        EXPECT_EQ(read(clause + std::to_string(frequency)), 0);
        EXPECT_EQ(read(clause + std::to_string(frequency + 1)), 3);
      }
  }
}

std::vector<std::string> carriedBy(support::CableForm form) {
  switch (form) {
  case support::CableForm::line:
    return {"cable.port", "cable.frequency", "cable.esn"};
  case support::CableForm::module:
    return {"cable.moduleName", "cable.moduleArgs"};
  case support::CableForm::none:
  case support::CableForm::bare:
    break;
  }
  return {};
}

TEST(CommandTables, SayWhichCablesAreReadAndWritten) {
  const CommandTables tables = GetCommandTables();
  ASSERT_EQ(tables.cables.size(), support::cables().size());
  for (std::size_t i = 0; i < tables.cables.size(); ++i) {
    SCOPED_TRACE(i);
    const support::Cable &known = support::cables()[i];
    EXPECT_EQ(tables.cables[i].type, known.number);
    EXPECT_EQ(tables.cables[i].keywords, known.words);
    EXPECT_EQ(tables.cables[i].written, known.written);
    EXPECT_EQ(tables.cables[i].carried, carriedBy(known.form));
    EXPECT_EQ(tables.cables[i].acceptedFrequencies, known.accepted);
    EXPECT_EQ(tables.cables[i].offeredFrequencies, known.offered);
  }
}

TEST(CommandTables, NameTheSettingsOfOptionsAndTheSetsBehindThem) {
  const CommandTables tables = GetCommandTables();
  for (const CommandOption &option : setNamed(tables, "processor").options)
    if (option.keyword == "-sim") {
      EXPECT_EQ(option.optionSet, "ModelSim");
      EXPECT_EQ(option.changes, std::vector<std::string>{"modelSimMode"});
    } else {
      EXPECT_EQ(option.optionSet, "") << option.keyword;
    }
  EXPECT_EQ(setNamed(tables, "hdu").options[0].changes,
            std::vector<std::string>{"uartOverHdu"});
  EXPECT_EQ(setNamed(tables, "kmtc").options[2].parameters[2].value.fields,
            std::vector<std::string>{"chain[n].idcode"});
}

TEST(CommandTables, TellTheSettingsAndTheConversionOfEveryValueInOrder) {
  using Conversion = ValueConversion;
  struct Row {
    const char *option;
    const char *parameter; ///< Empty for the value of the option itself.
    Conversion conversion;
    std::vector<std::string> fields;
    std::vector<std::string> words;
  };
  const CommandTables tables = GetCommandTables();
  const std::vector<std::string> registers{"USER1", "USER2", "USER3", "USER4"};
  const std::vector<Row> rows{
      {"-debugdevice", "devicenr", Conversion::lowByte, {"debugDevice"}, {}},
      {"-debugdevice", "cpunr", Conversion::lowByte, {"cpuNr"}, {}},
      {"-debugdevice",
       "proctype",
       Conversion::namedValue,
       {"procType"},
       {"ppc405", "ppc440"}},
      {"-debugdevice",
       "romemStartAdr",
       Conversion::number,
       {"romemStartAdr"},
       {}},
      {"-debugdevice", "romemSize", Conversion::number, {"romemSize"}, {}},
      {"-debugdevice",
       "icacheStartAdr",
       Conversion::number,
       {"icacheStartAdr", "debugAddressMap"},
       {}},
      {"-debugdevice",
       "dcacheStartAdr",
       Conversion::number,
       {"dcacheStartAdr"},
       {}},
      {"-debugdevice",
       "itagStartAdr",
       Conversion::number,
       {"itagStartAdr"},
       {}},
      {"-debugdevice",
       "dtagStartAdr",
       Conversion::number,
       {"dtagStartAdr"},
       {}},
      {"-debugdevice",
       "isocmStartAdr",
       Conversion::number,
       {"isocmStartAdr"},
       {}},
      {"-debugdevice", "isocmSize", Conversion::number, {"isocmSize"}, {}},
      {"-debugdevice",
       "isocmDcrStartAdr",
       Conversion::number,
       {"isocmDcrStartAdr"},
       {}},
      {"-debugdevice", "tlbStartAdr", Conversion::number, {"tlbStartAdr"}, {}},
      {"-debugdevice", "dcrStartAdr", Conversion::number, {"dcrStartAdr"}, {}},
      {"-debugdevice", "cpu_version", Conversion::text, {"cpu_version"}, {}},
      {"-debugdevice", "hdu_version", Conversion::text, {"hdu_version"}, {}},
      {"-debugdevice", "nCpu", Conversion::signedNumber, {"nCpu"}, {}},
      {"-debugdevice",
       "fpuType",
       Conversion::namedValue,
       {"fpuType"},
       {"sp", "dp"}},
      {"-pfsl", "port", Conversion::none, {}, {}},
      {"-pfsl", "type", Conversion::namedValue, {}, {"m", "s", "ms"}},
      {"-cable",
       "type",
       Conversion::namedValue,
       {"cable.cableType", "cable.port"},
       support::cableWords()},
      {"-cable", "port", Conversion::text, {"cable.port"}, {}},
      {"-cable", "esn", Conversion::text, {"cable.esn"}, {}},
      {"-cable", "url", Conversion::text, {"cable.url"}, {}},
      {"-cable", "frequency", Conversion::number, {"cable.frequency"}, {}},
      {"-cable",
       "fname",
       Conversion::text,
       {"cable.svfFile", "svfFileFlag"},
       {}},
      {"-cable", "modulename", Conversion::text, {"cable.moduleName"}, {}},
      {"-cable", "modulearg", Conversion::text, {"cable.moduleArgs"}, {}},
      {"-comm", "", Conversion::namedValue, {"stubType"}, {"jtag", "serial"}},
      {"-port", "", Conversion::text, {"stubSerialPort"}, {}},
      {"-baud", "", Conversion::number, {"stubBaudRate"}, {}},
      {"-timeout", "", Conversion::number, {"stubTimeout"}, {}},
      {"-configdevice",
       "jtagport",
       Conversion::namedValue,
       {"cpuJtag"},
       {"cpu"}},
      {"-configdevice",
       "devicenr",
       Conversion::lowByte,
       {"chain[n].devicenr"},
       {}},
      {"-configdevice", "idcode", Conversion::number, {"chain[n].idcode"}, {}},
      {"-configdevice",
       "irlength",
       Conversion::lowByte,
       {"chain[n].irlength"},
       {}},
      {"-configdevice",
       "partname",
       Conversion::text,
       {"chain[n].partname"},
       {}},
      {"-configdevice", "isfpga", Conversion::lowByte, {"chain[n].isfpga"}, {}},
      {"-configdevice",
       "hardppc",
       Conversion::namedValue,
       {"chain[n].hardppc"},
       {}},
      {"-configdevice", "nppc", Conversion::lowByte, {"chain[n].nppc"}, {}},
      {"-bscan", "", Conversion::namedValue, {"bscanUserReg"}, registers},
      {"-memsize", "", Conversion::number, {"simMemSize"}, {}},
      {"-icf", "", Conversion::text, {"ppcSimConfigFile"}, {}},
      {"-config",
       "",
       Conversion::namedValue,
       {"vpConfigMode", "cycleApproximate"},
       {"cycle_approximate"}},
  };
  const auto expectRow = [](const CommandValue &value, const Row &row) {
    SCOPED_TRACE(std::string(row.option) + " " + row.parameter);
    EXPECT_EQ(value.conversion, row.conversion);
    EXPECT_EQ(value.fields, row.fields);
    EXPECT_EQ(value.words, row.words);
  };
  for (const CommandOptionSet &set : tables.optionSets)
    for (const CommandOption &option : set.options) {
      SCOPED_TRACE(set.name + ": " + option.keyword);
      if (option.keyword == "-ipcport") {
        EXPECT_EQ(option.value.conversion, Conversion::hostAndPort);
        EXPECT_EQ(
            option.value.fields,
            set.name == "ModelSim"
                ? (std::vector<std::string>{"modelSimHost", "modelSimPort"})
                : (std::vector<std::string>{"simIpcHost", "simIpcPort"}));
        continue;
      }
      std::vector<Row> expected;
      std::copy_if(
          rows.begin(), rows.end(), std::back_inserter(expected),
          [&option](const Row &row) { return option.keyword == row.option; });
      if (option.takesValue) {
        ASSERT_EQ(expected.size(), 1U);
        expectRow(option.value, expected.front());
        continue;
      }
      ASSERT_EQ(option.parameters.size(), expected.size());
      for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(option.parameters[i].keyword, expected[i].parameter);
        expectRow(option.parameters[i].value, expected[i]);
      }
    }
}

} // namespace ZelDebugDialog::test
