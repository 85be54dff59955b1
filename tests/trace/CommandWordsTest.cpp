// Every word has its place, its role and the settings that it changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "ZelDebugDialog/CommandTrace.h"
#include "ZelDebugDialog/Engine.h"
#include "support/StateText.h"
#include "trace/Corpus.h"

namespace ZelDebugDialog::test {

namespace {

struct Traced {
  int result;
  CommandTrace trace;
  std::map<std::string, std::string> settings;
};

Traced trace(const std::string &command,
             AfterFault afterFault = AfterFault::stop) {
  Engine engine;
  EngineImp &imp = *engine.GetProcessorList(nullptr);
  ProcessorInfoImp record;
  imp.currentProcessor = &record;
  Traced traced;
  traced.result = TraceKvoCommand(command, imp, traced.trace, afterFault);
  traced.settings = settingsOf(imp);
  ReleaseChainRecords(imp.jtagChain);
  return traced;
}

const char *nameOf(WordRole role) {
  switch (role) {
  case WordRole::head:
    return "head";
  case WordRole::target:
    return "target";
  case WordRole::connection:
    return "connection";
  case WordRole::option:
    return "option";
  case WordRole::name:
    return "name";
  case WordRole::value:
    return "value";
  case WordRole::ignored:
    return "ignored";
  case WordRole::lost:
    return "lost";
  }
  return "?";
}

/// "word=role(fields)" for each word.
std::string picture(const std::string &command,
                    AfterFault afterFault = AfterFault::stop) {
  std::string text;
  for (const CommandWord &word : trace(command, afterFault).trace.words) {
    text += text.empty() ? "" : " ";
    text += command.substr(word.offset, word.length);
    text += "=";
    text += nameOf(word.role);
    if (word.fields.empty())
      continue;
    text += "(";
    for (const std::string &field : word.fields)
      text += (&field == word.fields.data() ? "" : ",") + field;
    text += ")";
  }
  return text;
}

} // namespace

TEST(CommandWords, HaveTheirRolesAndSettings) {
  struct Row {
    const char *command;
    const char *picture;
  };
  const std::vector<Row> rows{
      {"  connect\tlc   hdu -quiet ",
       "connect=head lc=target(procFamily,procType) "
       "hdu=connection(connectionType,connectionMask) -quiet=option"},
      {"connect lc sim -memsize 5 more -words -",
       "connect=head lc=target(procFamily,procType) "
       "sim=connection(connectionType,connectionMask) -memsize=option "
       "5=value(simMemSize) more=ignored -words=ignored -=ignored"},
      {"connect lc sim word", "connect=head lc=target(procFamily,procType) "
                              "sim=connection(connectionType,connectionMask) "
                              "word=ignored"},
      {"connect foo bar -x", "connect=head foo=target bar=ignored -x=ignored"},
      {"connect lc stub -port -baud -comm serial",
       "connect=head lc=target(procFamily,procType) "
       "stub=connection(connectionType,connectionMask) -port=option "
       "-baud=lost -comm=option serial=value(stubType)"},
      {"connect lc hdu -bscan -quiet", "connect=head lc=target hdu=connection "
                                       "-bscan=option -quiet=lost"},
      {"connect lc hdu -cable type quorla_tcf port p fname f",
       "connect=head lc=target(procFamily,procType) "
       "hdu=connection(connectionType,connectionMask) -cable=option type=name "
       "quorla_tcf=value(cable.cableType) port=name "
       "p=value(cable.port) fname=name f=value(cable.svfFile,svfFileFlag)"},
      {"connect lc hdu -configdevice idcode 1 -configdevice idcode 2",
       "connect=head lc=target(procFamily,procType) "
       "hdu=connection(connectionType,connectionMask) -configdevice=option "
       "idcode=name 1=value(chain[0].idcode) -configdevice=option idcode=name "
       "2=value(chain[1].idcode)"},
      {"connect ppc sim -icf -ipcport", // the option word is the file
       "connect=head ppc=target(procFamily,procType) "
       "sim=connection(connectionType,connectionMask) -icf=option "
       "-ipcport=value(ppcSimConfigFile)"},
      {"connect ppc sim -debugdevice cpunr 3 -icf -ipcport h:1",
       "connect=head ppc=target(procFamily,procType) "
       "sim=connection(connectionType,connectionMask) -debugdevice=option "
       "cpunr=name 3=value(cpuNr) -icf=lost -ipcport=option "
       "h:1=value(simIpcHost,simIpcPort)"},
      {"connect lc hdu -sim -ipcport h:1",
       "connect=head lc=target(procFamily,procType) "
       "hdu=connection(connectionType,connectionMask) -sim=option(modelSimMode)"
       " -ipcport=option h:1=value(modelSimHost,modelSimPort)"},
      {"connect dap hw", "connect=head "
                         "dap=target(connectionMask,procFamily,procType) "
                         "hw=connection(connectionType)"},
      {"connect dcc -uart", "connect=head "
                            "dcc=target(connectionMask,procFamily,procType) "
                            "-uart=option(uartOverHdu)"},
      {"connect hdu -uart -bscan USER2",
       "connect=head hdu=target(connectionMask) -uart=option(uartOverHdu) "
       "-bscan=option USER2=value(bscanUserReg)"},
      {"kconnect kmtc", "kconnect=head kmtc=target(connectionMask)"},
      {"vpconnect lc -config cycle_approximate",
       "vpconnect=head lc=target(connectionType,connectionMask,procType) "
       "-config=option "
       "cycle_approximate=value(vpConfigMode,cycleApproximate)"},
      {"kvpconnect lc -ipcport h:1",
       "kvpconnect=head lc=target(connectionType,connectionMask,procType) "
       "-ipcport=option h:1=value(simIpcHost,simIpcPort)"},
      {"", ""},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.command);
    EXPECT_EQ(picture(row.command), row.picture);
  }
}

TEST(CommandWords, HaveTheirRolesBehindAFault) {
  const std::string command = "connect lc hdu word more 5 -quiet";
  // The connection is made when its options are read.
  EXPECT_EQ(picture(command),
            "connect=head lc=target hdu=connection word=value more=ignored "
            "5=ignored -quiet=ignored");
  EXPECT_EQ(picture(command, AfterFault::goOn),
            "connect=head lc=target(procFamily,procType) "
            "hdu=connection(connectionType,connectionMask) word=value "
            "more=ignored 5=ignored -quiet=option");
}

TEST(CommandWords, HaveTheirRolesBehindAMissingValue) {
  const std::string command = "connect lc stub -port -baud 9600 -timeout 5";
  EXPECT_EQ(picture(command), "connect=head lc=target stub=connection "
                              "-port=option -baud=lost 9600=value "
                              "-timeout=ignored 5=ignored");
  EXPECT_EQ(picture(command, AfterFault::goOn),
            "connect=head lc=target(procFamily,procType) "
            "stub=connection(connectionType,connectionMask) -port=option "
            "-baud=option 9600=value(stubBaudRate) -timeout=option "
            "5=value(stubTimeout)");
}

TEST(CommandWords, NameNoSettingThatARefusedConnectionDoesNotMake) {
  struct Row {
    const char *command;
    const char *picture;
  };
  const std::vector<Row> rows{
      {"connect lc hw", "connect=head lc=target hw=connection"},
      {"connect arm hw -foo",
       "connect=head arm=target hw=connection -foo=option"},
      {"connect dap hw -foo",
       "connect=head dap=target hw=connection -foo=option"},
      // Made before the options are read.
      {"connect ppc hw -foo",
       "connect=head ppc=target(procFamily,procType) hw=connection "
       "-foo=option"},
      {"connect lc sim -foo",
       "connect=head lc=target sim=connection(connectionType) -foo=option"},
      {"vpconnect lc -foo",
       "vpconnect=head lc=target(connectionType,connectionMask,procType) "
       "-foo=option"},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.command);
    EXPECT_EQ(picture(row.command), row.picture);
  }
}

TEST(CommandWords, LoseSettingsThatAreReplacedLater) {
  // By the default frequency of the clause that ends the command.
  EXPECT_EQ(picture("connect ppc hw -cable type quorla_podusb frequency 1 "
                    "-cable port p"),
            "connect=head ppc=target(procFamily,procType) "
            "hw=connection(connectionType,connectionMask) -cable=option "
            "type=name quorla_podusb=value(cable.cableType,cable.port) "
            "frequency=name 1=value -cable=option port=name "
            "p=value(cable.port)");
  // By the target, which tells the type once more; that of a PowerPC does not.
  EXPECT_EQ(picture("connect lc hdu -debugdevice proctype ppc440"),
            "connect=head lc=target(procFamily,procType) "
            "hdu=connection(connectionType,connectionMask) "
            "-debugdevice=option proctype=name ppc440=value");
  EXPECT_EQ(picture("connect ppc hw -debugdevice proctype ppc440"),
            "connect=head ppc=target(procFamily,procType) "
            "hw=connection(connectionType,connectionMask) "
            "-debugdevice=option proctype=name ppc440=value(procType)");
}

TEST(CommandWords, SayHowValuesAreConverted) {
  struct Row {
    const char *command; // its last word is the value
    ValueConversion conversion;
  };
  const std::vector<Row> rows{
      {"connect lc hdu -debugdevice devicenr 1", ValueConversion::lowByte},
      {"connect lc hdu -debugdevice romemSize 1", ValueConversion::number},
      {"connect lc hdu -debugdevice nCpu 1", ValueConversion::signedNumber},
      {"connect lc hdu -debugdevice cpu_version 1", ValueConversion::text},
      {"connect lc hdu -debugdevice fpuType sp", ValueConversion::namedValue},
      {"connect lc hdu -sim -ipcport h:1", ValueConversion::hostAndPort},
      {"connect lc hdu -pfsl port 1", ValueConversion::none},
  };
  for (const Row &row : rows) {
    SCOPED_TRACE(row.command);
    EXPECT_EQ(trace(row.command).trace.words.back().conversion, row.conversion);
  }
}

TEST(CommandWords, CoverEveryWordOfACommandInOrder) {
  for (const std::string &command : acceptedCommands) {
    SCOPED_TRACE(command);
    std::string joined;
    std::size_t end = 0;
    for (const CommandWord &word : trace(command).trace.words) {
      EXPECT_GE(word.offset, end);
      end = word.offset + word.length;
      joined += command.substr(word.offset, word.length);
    }
    std::string expected = command;
    expected.erase(std::remove(expected.begin(), expected.end(), ' '),
                   expected.end());
    EXPECT_EQ(joined, expected);
  }
}

TEST(CommandWords, NameExactlyTheSettingsThatTheirValueChanges) {
  // Another value for each conversion, different from all in the corpus.
  const auto otherValue = [](const CommandWord &word, const std::string &old) {
    switch (word.conversion) {
    case ValueConversion::text:
      return old + "x";
    case ValueConversion::hostAndPort:
      return std::string("otherhost:4711");
    case ValueConversion::namedValue: {
      const std::vector<std::vector<std::string>> pairs{{"ppc405", "ppc440"},
                                                        {"sp", "DP"},
                                                        {"jtag", "serial"},
                                                        {"USER1", "user3"},
                                                        {"USER2", "USER4"}};
      for (const auto &pair : pairs) {
        if (old == pair[0])
          return pair[1];
        if (old == pair[1])
          return pair[0];
      }
      return std::string();
    }
    case ValueConversion::number:
    case ValueConversion::signedNumber:
      return std::string("0x70000");
    case ValueConversion::lowByte:
      return std::string("77");
    case ValueConversion::none:
      return std::string();
    }
    return std::string();
  };
  int changed = 0;
  for (const std::string &command : acceptedCommands) {
    const Traced before = trace(command);
    for (std::size_t i = 0; i < before.trace.words.size(); ++i) {
      const CommandWord &word = before.trace.words[i];
      if (word.role != WordRole::value || word.fields.empty())
        continue;
      const std::string old = command.substr(word.offset, word.length);
      const std::string value = otherValue(word, old);
      if (value.empty() || old[0] == '-')
        continue;
      std::string other = command;
      other.replace(word.offset, word.length, value);
      SCOPED_TRACE(other);
      const Traced after = trace(other);
      std::set<std::string> differing;
      for (const auto &[name, text] : after.settings)
        if (before.settings.at(name) != text)
          differing.insert(name);
      const bool isFrequencyAtTheEnd =
          word.fields[0] == "cable.frequency" && after.result != 0;
      if (isFrequencyAtTheEnd) // refused, and the connection with it
        continue;
      EXPECT_FALSE(differing.empty());
      // The other value may decide more: a host, where there was a port only.
      std::set<std::string> decided(word.fields.begin(), word.fields.end());
      const std::vector<std::string> &fields = after.trace.words.at(i).fields;
      decided.insert(fields.begin(), fields.end());
      for (const std::string &name : differing)
        EXPECT_EQ(decided.count(name), 1U) << name;
      ++changed;
    }
  }
  EXPECT_GE(changed, 45);
}

} // namespace ZelDebugDialog::test
