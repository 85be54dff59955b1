// The "-cable" clause: its names, cable types and frequency checks.
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"
#include "support/Cables.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;

const Reader kParseCable = KvoOption_Parser::parse_cable;

const std::vector<std::string> kNames = {"type",       "port",      "esn",
                                         "url",        "frequency", "fname",
                                         "modulename", "modulearg"};
/// Those that are read, and the one that is known and refused.
std::vector<std::string> allTypes() {
  std::vector<std::string> types = support::cableWords();
  types.emplace_back("quorla_svffile");
  return types;
}
const std::vector<std::string> kTypes = allTypes();

const std::string kSvfRefused =
    "Cable Type quorla_svffile is not supported in this release\n";
const std::string kSvfFileMissing =
    "SVF File NOT specified for Cable Type quorla_svffile";
const std::string kModuleMissing =
    "Plug-in Module NOT specified for Cable Type quorla_plugin";

std::string refused(const std::string &word, std::uint32_t frequency) {
  for (const support::Cable &cable : support::cables())
    if (cable.written == word || cable.words == std::vector{word})
      return support::refusalOf(cable, frequency);
  ADD_FAILURE() << word << " is no cable";
  return "";
}

/// What a type changes beside the number: the port of a cable that has one.
std::string portOf(const support::Cable &cable) {
  return cable.port.empty() ? "" : " cable.port=" + cable.port;
}

TEST(CableClause, ReadsEachTypeToTheEndOfTheText) {
  for (const support::Cable &cable : support::cables())
    for (const std::string &word : cable.words) {
      // Without its module, a cable that needs one has no frequency yet.
      const bool needsModule = cable.form == support::CableForm::module;
      const std::string type =
          "cable.cableType=" + std::to_string(cable.number) + portOf(cable);
      const std::string frequency =
          " cable.frequency=" + std::to_string(cable.frequency);
      std::string mixed = word;
      mixed[0] = upper(word)[0];
      mixed[word.size() / 2] = upper(word)[word.size() / 2];
      // Letter case does not matter.
      for (const std::string &text :
           {"type " + word, "TYPE " + upper(word), "tYPE " + mixed})
        if (needsModule)
          expectRows(kParseCable, {{text, 2, kModuleMissing, type},
                                   {text + " modulename m", 3, kQuiet,
                                    type + " cable.moduleName=m" + frequency}});
        else
          expectRows(kParseCable, {{text, 3, kQuiet, type + frequency}});
    }
  expectRows(
      kParseCable,
      {
          {"type quorla_podusb", 3, kQuiet,
           "cable.cableType=3 cable.port=USB21 cable.frequency=6000000"},
          {"type quorla_svffile", 2, kSvfRefused},
          {"type QUORLA_SVFFILE", 2, kSvfRefused},
          // What follows a refused type is not read.
          {"type quorla_svffile fname f", 2, kSvfRefused, "", " fname f"},
          {"type quorla_usb port x ", 2, kQuiet, "", " port x"},
          {"type quorla_parallel5", 2},
          {"type quorla", 2},
          {"type 3", 2},
          {"type -3", 2},
          {"type type", 2},
          {"type quorla_podusb\0"s, 2},
          {"type quorla_podusb type digilent_plugin", 3, kQuiet,
           "cable.cableType=6 cable.port=USB21 cable.frequency=0"},
          {"type quorla_podusb type foo port p", 2, kQuiet,
           "cable.cableType=3 cable.port=USB21", " port p"},
      });
}

TEST(CableClause, RefusesNearMissesOfATypeWithoutAMessage) {
  for (const std::string &type : kTypes)
    for (const std::string &miss : nearMisses(type, kTypes))
      expectRows(kParseCable, {{"port p type " + miss + " port q", 2, kQuiet,
                                "cable.port=p", " port q"}});
}

TEST(CableClause, ReadsEachName) {
  expectRows(
      kParseCable,
      {
          {"", 3, kQuiet, "cable.frequency=0"},
          {"  \t ", 3, kQuiet, "cable.frequency=0"},
          {"port COM1", 3, kQuiet, "cable.port=COM1 cable.frequency=0"},
          {"esn 0012:aB", 3, kQuiet, "cable.esn=0012:aB cable.frequency=0"},
          {"url http://h:1/p", 3, kQuiet,
           "cable.url=http://h:1/p cable.frequency=0"},
          {"fname a.svf", 3, kQuiet,
           "cable.svfFile=a.svf svfFileFlag=1 cable.frequency=0"},
          {"modulename lib.so", 3, kQuiet,
           "cable.moduleName=lib.so cable.frequency=0"},
          {"modulearg a", 3, kQuiet, "cable.moduleArgs=a cable.frequency=0"},
          {"modulearg a modulearg b modulearg c", 3, kQuiet,
           "cable.moduleArgs=a;b;c cable.frequency=0"},
          {"modulearg a modulearg a", 3, kQuiet,
           "cable.moduleArgs=a;a cable.frequency=0"},
          {"modulearg ; modulearg b;c", 3, kQuiet,
           "cable.moduleArgs=;;b;c cable.frequency=0"},
          // Letter case of names; values keep theirs.
          {"PORT Com1 ESN eS URL uR FNAME fN MODULENAME mN MODULEARG mA", 3,
           kQuiet,
           "cable.port=Com1 cable.esn=eS cable.url=uR cable.svfFile=fN "
           "svfFileFlag=1 cable.moduleName=mN cable.moduleArgs=mA "
           "cable.frequency=0"},
          // The last one counts; a type sets its port anew, or none.
          {"port a port b", 3, kQuiet, "cable.port=b cable.frequency=0"},
          {"modulename a modulename b", 3, kQuiet,
           "cable.moduleName=b cable.frequency=0"},
          {"port a type quorla_podusb", 3, kQuiet,
           "cable.cableType=3 cable.port=USB21 cable.frequency=6000000"},
          {"port a type quorla_parallel", 3, kQuiet,
           "cable.cableType=2 cable.port=LPT1 cable.frequency=5000000"},
          {"port a type digilent_plugin", 3, kQuiet,
           "cable.cableType=6 cable.port=a cable.frequency=0"},
          {"port a type quorla_tcf", 3, kQuiet,
           "cable.cableType=7 cable.port=a cable.frequency=0"},
          {"type quorla_parallel3 port a esn 7", 3, kQuiet,
           "cable.cableType=4 cable.port=a cable.esn=7 "
           "cable.frequency=200000"},
          // Any value word serves, also one that looks like a name.
          {"port type esn -5 url port", 3, kQuiet,
           "cable.port=type cable.esn=-5 cable.url=port cable.frequency=0"},
          {"port a\0b esn c\nd"s, 3, kQuiet,
           "cable.port=a\\x00b cable.esn=c\\x0ad cable.frequency=0"},
      });
}

TEST(CableClause, QuotesAnUnknownName) {
  expectRows(
      kParseCable,
      {
          {"foo bar", 2, "UNKNOWN Parameter 'foo' for  option '-cable'"},
          {"Foo -5 port x ", 2, "UNKNOWN Parameter 'Foo' for  option '-cable'",
           "", " port x"},
          {"port a speed 5 esn b", 2,
           "UNKNOWN Parameter 'speed' for  option '-cable'", "cable.port=a",
           " esn b"},
          {"quorla_podusb x", 2,
           "UNKNOWN Parameter 'quorla_podusb' for  option '-cable'"},
          {"-5 x", 2, "UNKNOWN Parameter '-5' for  option '-cable'"},
          {"frequency 5 freq 6", 2,
           "UNKNOWN Parameter 'freq' for  option '-cable'",
           "cable.frequency=5"},
      });
  for (const std::string &name : kNames)
    for (const std::string &miss : nearMisses(name, kNames))
      expectRows(kParseCable,
                 {{miss + " v port q", 2,
                   "UNKNOWN Parameter '" + miss + "' for  option '-cable'", "",
                   " port q"}});
}

TEST(CableClause, NeedsAValueForEachName) {
  std::vector<Row> rows;
  for (const std::string &name : kNames) {
    rows.push_back({name, 2});
    rows.push_back({name + " ", 2});
    rows.push_back({name + " -quiet 5", 2, kQuiet, "", " 5", "-quiet"});
    rows.push_back({"port p " + name, 2, kQuiet, "cable.port=p"});
  }
  // A name need not be known to lack its value.
  rows.push_back({"foo", 2});
  rows.push_back({"foo -bar", 2, kQuiet, "", "", "-bar"});
  expectRows(kParseCable, rows);
}

TEST(CableClause, StopsAtTheNextOptionWithoutLookingAtTheFrequency) {
  expectRows(
      kParseCable,
      {
          {"-quiet", 1, kQuiet, "", "", "-quiet"},
          {"-Quiet x ", 1, kQuiet, "", " x", "-Quiet"},
          {"type quorla_podusb -configdevice devicenr 1", 1, kQuiet,
           "cable.cableType=3 cable.port=USB21", " devicenr 1",
           "-configdevice"},
          {"type quorla_podusb frequency 625000 -quiet", 1, kQuiet,
           "cable.cableType=3 cable.port=USB21 cable.frequency=625000", "",
           "-quiet"},
          {"type quorla_parallel frequency 1 -quiet", 1, kQuiet,
           "cable.cableType=2 cable.port=LPT1 cable.frequency=1", "", "-quiet"},
          {"type quorla_tcf frequency 20000000 -quiet", 1, kQuiet,
           "cable.cableType=7 cable.frequency=20000000", "", "-quiet"},
          {"type quorla_plugin -quiet", 1, kQuiet, "cable.cableType=5", "",
           "-quiet"},
          {"type digilent_plugin frequency 5 -quiet", 1, kQuiet,
           "cable.cableType=6 cable.frequency=5", "", "-quiet"},
          // Nor is it looked at when a value is missing.
          {"type quorla_podusb frequency 625000 port", 2, kQuiet,
           "cable.cableType=3 cable.port=USB21 cable.frequency=625000"},
          {"type quorla_plugin port", 2, kQuiet, "cable.cableType=5"},
      });
}

TEST(CableClause, ChecksAFrequencyAtTheEndOfTheText) {
  expectRows(
      kParseCable,
      {
          {"type quorla_podusb frequency 625000", 2,
           refused("quorla_podusb", 625000),
           "cable.cableType=3 cable.port=USB21 cable.frequency=625000"},
          {"frequency 625000 type quorla_podusb", 2,
           refused("quorla_podusb", 625000),
           "cable.cableType=3 cable.port=USB21 cable.frequency=625000"},
          {"frequency 0x1E8480 type quorla_tcf", 3, kQuiet,
           "cable.cableType=7 cable.frequency=2000000"},
          {"type quorla_tcf frequency 20000000", 2,
           refused("quorla_tcf", 20000000),
           "cable.cableType=7 cable.frequency=20000000"},
          {"frequency 5 frequency 12000000 type quorla_podusb", 3, kQuiet,
           "cable.cableType=3 cable.port=USB21 cable.frequency=12000000"},
          // The message shows the frequency as a signed number.
          {"type quorla_parallel3 frequency 4294967295", 2,
           refused("quorla_parallel3", 4294967295),
           "cable.cableType=4 cable.port=LPT1 cable.frequency=4294967295"},
          {"type quorla_parallel frequency 0x80000000", 2,
           refused("quorla_parallel", 0x80000000),
           "cable.cableType=2 cable.port=LPT1 cable.frequency=2147483648"},
          {"type quorla_podusb frequency fast", 2, refused("quorla_podusb", 0),
           "cable.cableType=3 cable.port=USB21 cable.frequency=0"},
          {"type quorla_tcf frequency 0", 2, refused("quorla_tcf", 0),
           "cable.cableType=7 cable.frequency=0"},
          // 2^32 + 6000000 is cut to what is accepted.
          {"type quorla_podusb frequency 4300967296", 3, kQuiet,
           "cable.cableType=3 cable.port=USB21 cable.frequency=6000000"},
          // Cables without frequencies refuse any, in silence.
          {"frequency 5", 2, kQuiet, "cable.frequency=5"},
          {"frequency 0", 2, kQuiet, "cable.frequency=0"},
          {"type digilent_plugin frequency 0", 2, kQuiet,
           "cable.cableType=6 cable.frequency=0"},
          {"type quorla_plugin modulename m frequency 6000000", 2, kQuiet,
           "cable.cableType=5 cable.moduleName=m cable.frequency=6000000"},
          // A missing module is found before the frequency.
          {"type quorla_plugin frequency 5", 2, kModuleMissing,
           "cable.cableType=5 cable.frequency=5"},
          {"type quorla_plugin modulearg a", 2, kModuleMissing,
           "cable.cableType=5 cable.moduleArgs=a"},
      });
}

TEST(CableClause, AcceptsEachFrequencyOfACableAndNoneBeside) {
  for (const support::Cable &cable : support::cables())
    for (const std::string &word : cable.words) {
      if (cable.accepted.empty())
        continue;
      std::vector<Row> rows;
      for (const std::uint32_t frequency : support::frequenciesToTry()) {
        const std::string number = std::to_string(frequency);
        const bool accepted = support::isAccepted(cable, frequency);
        rows.push_back(
            {"type " + word + " frequency " + number, accepted ? 3 : 2,
             accepted ? kQuiet : support::refusalOf(cable, frequency),
             "cable.cableType=" + std::to_string(cable.number) + portOf(cable) +
                 " cable.frequency=" + number});
      }
      expectRows(kParseCable, rows);
    }
}

TEST(CableClause, NeedsAFileForAnSvfCable) {
  const Prepare svfCable = [](EngineImp &imp) {
    imp.cableOption->cableType = Engine::QUORLA_SVFFILE;
  };
  expectRows(kParseCable,
             {
                 {"", 2, kSvfFileMissing},
                 {"frequency 5", 2, kSvfFileMissing, "cable.frequency=5"},
                 {"port p", 2, kSvfFileMissing, "cable.port=p"},
                 {"fname f", 3, kQuiet,
                  "cable.svfFile=f svfFileFlag=1 cable.frequency=0"},
                 {"fname f frequency 5", 2, kQuiet,
                  "cable.svfFile=f svfFileFlag=1 cable.frequency=5"},
                 {"port p -quiet", 1, kQuiet, "cable.port=p", "", "-quiet"},
             },
             svfCable);
}

TEST(CableClause, TakesAModuleFromBefore) {
  const Prepare pluginCable = [](EngineImp &imp) {
    imp.cableOption->cableType = Engine::QUORLA_PLUGIN;
    imp.cableOption->moduleName = "old";
    imp.cableOption->moduleArgs = "a;b";
  };
  expectRows(kParseCable,
             {
                 {"", 3, kQuiet, "cable.frequency=0"},
                 {"modulearg c", 3, kQuiet,
                  "cable.moduleArgs=a;b;c cable.frequency=0"},
                 {"type quorla_plugin modulename new", 3, kQuiet,
                  "cable.moduleName=new cable.frequency=0"},
             },
             pluginCable);
}

TEST(CableClause, ChecksTheTypeThatItStartedWith) {
  const Prepare podusb = [](EngineImp &imp) {
    imp.cableOption->cableType = Engine::QUORLA_PODUSB;
  };
  const Prepare unknown = [](EngineImp &imp) {
    imp.cableOption->cableType = static_cast<Engine::CableType>(99);
  };
  expectRows(
      kParseCable,
      {
          {"", 3, kQuiet, "cable.frequency=6000000"},
          {"port p", 3, kQuiet, "cable.port=p cable.frequency=6000000"},
          {"frequency 5", 2, refused("quorla_podusb", 5), "cable.frequency=5"},
      },
      podusb);
  expectRows(kParseCable,
             {
                 {"", 3, kQuiet, "cable.frequency=0"},
                 {"frequency 5", 2, kQuiet, "cable.frequency=5"},
             },
             unknown);
}

TEST(CableClause, FailsAtALoneMinus) {
  expectRows(
      kParseCable,
      {
          {"-", kThrows},
          {"- type quorla_podusb", kThrows, kQuiet, "", " type quorla_podusb"},
          {"type -", kThrows},
          {"type - port x", kThrows, kQuiet, "", " port x"},
          {"type quorla_podusb frequency 625000 -", kThrows, kQuiet,
           "cable.cableType=3 cable.port=USB21 cable.frequency=625000"},
          {"port p esn -", kThrows, kQuiet, "cable.port=p"},
          {"fname f -", kThrows, kQuiet, "cable.svfFile=f svfFileFlag=1"},
          {"foo - x", kThrows, kQuiet, "", " x"},
      });
}

} // namespace
