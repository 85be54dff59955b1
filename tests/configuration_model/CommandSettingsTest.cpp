// What one command makes of every setting: of any file, without a design.
#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Codes.h"
#include "ZelDebugDialog/ConfigurationModel/CommandSettings.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::EndsWith;
using testing::StartsWith;

class CommandSettingsTest : public ModelTest {
protected:
  std::string path() const { return (work.path() / "some.opt").string(); }
  CommandSettings readOf(const std::string &content) const {
    work.write("some.opt", content);
    return ReadCommandFile(path());
  }
  std::string refusalFor(const std::string &content) const {
    return refusalOf([&] { readOf(content); });
  }
};

const CommandSetting &settingIn(const std::vector<CommandSetting> &settings,
                                const std::string &id) {
  const auto found = std::find_if(
      settings.begin(), settings.end(),
      [&id](const CommandSetting &setting) { return setting.id == id; });
  if (found == settings.end())
    throw std::logic_error("no setting " + id);
  return *found;
}

TEST_F(CommandSettingsTest, TellTheFirstLineThatIsNotEmpty) {
  const CommandSettings read =
      readOf("\n\nconnect ppc hw -configdevice partname p irlength 4 "
             "-debugdevice devicenr 3\nconnect lc sim\n");
  EXPECT_EQ(read.line, 3);
  EXPECT_EQ(read.text, "connect ppc hw -configdevice partname p irlength 4 "
                       "-debugdevice devicenr 3");
  EXPECT_EQ(read.result, 0);
  EXPECT_EQ(read.error, "");
  EXPECT_EQ(read.refusal, "");
  EXPECT_EQ(read.doubt, "");
  const CommandSetting &device = settingIn(read.settings, "debugDevice");
  EXPECT_EQ(device.value, Value(3));
  EXPECT_EQ(device.origin, "file:74");
  EXPECT_EQ(settingIn(read.settings, "connection").value, Value("hw"));
  EXPECT_EQ(settingIn(read.settings, "connection").origin, "file:13");
  EXPECT_EQ(settingIn(read.settings, "nCpu").origin, "default");
  EXPECT_EQ(settingIn(read.settings, "procFamily").origin, "file:9");
  EXPECT_EQ(settingIn(read.settings, "connectCommand").origin, "file:1");
  ASSERT_EQ(read.chain.size(), 1U);
  const CommandSetting &part = settingIn(read.chain[0], "chain[0].partname");
  EXPECT_EQ(part.value, Value("p"));
  EXPECT_EQ(part.origin, "file:39");
  EXPECT_EQ(settingIn(read.chain[0], "chain[0].idcode").origin, "default");
}

/// The line of a stub is a part of how to connect: the last word decides.
TEST_F(CommandSettingsTest, AConnectionComesFromTheWordThatDecidesIt) {
  const std::string command = "connect lc stub -baud 9600 -comm serial";
  const CommandSettings read = readOf(command);
  EXPECT_EQ(settingIn(read.settings, "connection").value, Value("stub-serial"));
  EXPECT_EQ(settingIn(read.settings, "connectionType").origin, "file:12");
  EXPECT_EQ(settingIn(read.settings, "stubType").origin, "file:34");
  EXPECT_EQ(settingIn(read.settings, "connection").origin, "file:34");
  const SessionState state = openWith(command).State();
  EXPECT_EQ(model_test::settingIn(state, "connectionType").origin, "file:12");
  EXPECT_EQ(model_test::settingIn(state, "connection").origin, "file:34");
}

TEST_F(CommandSettingsTest, AChainComesFromTheWordThatBeginsIt) {
  const SessionState state =
      openWith("connect lc hdu -configdevice partname p irlength 4 "
               "-configdevice partname q")
          .State();
  EXPECT_EQ(model_test::settingIn(state, "chain").origin,
            state.chain[0][0].origin);
  EXPECT_EQ(state.chain[0][0].origin, "file:39");
  EXPECT_EQ(state.chain[0][1].origin, "default");
  EXPECT_EQ(state.chain[1][0].origin, "file:75");
}

TEST_F(CommandSettingsTest, OfARefusedCommandGoUpToItsFault) {
  const CommandSettings read =
      readOf("connect lc hdu -debugdevice devicenr 5 -foo");
  EXPECT_NE(read.result, 0);
  EXPECT_THAT(read.refusal,
              StartsWith("the command is refused: column 40: '-foo'"));
  EXPECT_EQ(settingIn(read.settings, "debugDevice").value, Value(5));
}

TEST_F(CommandSettingsTest, ACommandThatIsCutIsDoubted) {
  const std::string front = "connect lc hdu -cable port ";
  const std::string fits(1023 - front.size(), 'x');
  EXPECT_EQ(readOf(front + fits).doubt, "");
  EXPECT_EQ(readOf(front + fits + "x").doubt,
            "the command has 1024 characters, but only 1023 of a line of an "
            "option file are read");
}

TEST_F(CommandSettingsTest, AFileWithoutACommandIsRefused) {
  EXPECT_THAT(refusalFor(""), EndsWith("there is no command in it"));
  EXPECT_THAT(refusalFor("\n\n"), EndsWith("there is no command in it"));
  EXPECT_EQ(refusalFor("connect lc"), "accepted");
  EXPECT_EQ(refusalOf([] { ReadCommandFile(""); }),
            "unreadable: '': there is no such file");
  EXPECT_THAT(
      refusalOf([&] { ReadCommandFile((work.path() / "no").string()); }),
      EndsWith("there is no such file"));
  EXPECT_THAT(
      refusalOf([&] { ReadCommandFile((work.path() / "etc").string()); }),
      StartsWith("unreadable: "));
  try {
    ReadCommandFile("nowhere.opt");
  } catch (const Refusal &refusal) {
    EXPECT_EQ(refusal.file, "nowhere.opt");
  }
}

TEST_F(CommandSettingsTest, ASessionTellsThoseOfItsFile) {
  Session session = openWith("\nconnect lc sim -memsize 0x40");
  EXPECT_EQ(session.Loaded().line, 2);
  EXPECT_EQ(settingIn(session.Loaded().settings, "simMemSize").value,
            Value(0x40));
  EXPECT_EQ(settingIn(session.Loaded().settings, "cpuNr").origin, "design");
  EXPECT_EQ(open("a9").Loaded().line, 0);
}

TEST(Texts, AreShownAndCompared) {
  EXPECT_EQ(ShowText("a\tb\xff"), "a\\x09b\\xff");
  EXPECT_EQ(FindNearest("quorla_podusp", {"quorla_podusb", "quorla_plugin"}),
            "quorla_podusb");
  EXPECT_EQ(FindNearest("frobnicate", {"quorla_podusb"}), "");
  EXPECT_EQ(FindNearest("frobnicate", {}), "");
}

TEST(Texts, MemoriesHaveAClass) {
  EXPECT_EQ(MemoryClassOf("OCM_ctl_cedar"), "BRAM");
  EXPECT_EQ(MemoryClassOf("my_ddr3"), "EXT_DRAM");
  EXPECT_EQ(MemoryClassOf("emc_ctl_birch"), "EXT_SRAM_FLASH");
  EXPECT_EQ(MemoryClassOf("ocm_ctl_cedar2"), "OTHER");
}

} // namespace
