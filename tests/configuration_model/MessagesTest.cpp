// Sentences that other tests look at in part, or by their codes, in full.
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "configuration_model/ModelTest.h"
#include "files/LockFile.h"
#include "settings/SettingTable.h"
#include "settings/Values.h"
#include "support/Cables.h"
#include "text/Words.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;

std::vector<std::string> messagesFor(const std::string &command,
                                     bool ofFile = false) {
  CheckOptions options;
  options.ofFile = ofFile;
  std::vector<std::string> messages;
  for (const CommandDiagnostic &found :
       CheckCommand(command, options).diagnostics)
    messages.push_back(found.message);
  return messages;
}

TEST(Messages, OfACommand) {
  const std::string lumacore = "connect lc hdu ";
  const struct {
    std::string command;
    std::vector<std::string> messages;
  } rows[] = {
      {"", {"the command is empty"}},
      {lumacore + "-cable port -cable esn 1 -quiet",
       {"a value is missing here, in front of '-cable'",
        "'-cable' is given twice"}},
      {lumacore + "-debugdevice devicenr two",
       {"'two' is no number: it gives 0"}},
      {lumacore + "-debugdevice devicenr 2nd",
       {"'2nd' is no number: it is read as '2'"}},
      {lumacore + "-debugdevice devicenr 010",
       {"'010' is read as an octal number: its value is 8"}},
      // The largest and the least digit behind the 0, and what is no digit.
      {lumacore + "-debugdevice devicenr 07",
       {"'07' is read as an octal number: its value is 7"}},
      {lumacore + "-debugdevice devicenr 00",
       {"'00' is read as an octal number: its value is 0"}},
      {lumacore + "-debugdevice devicenr 08",
       {"'08' is no number: it is read as '0'"}},
      {lumacore + "-debugdevice devicenr 200",
       {"'200' does not fit: debugDevice becomes -56"}},
      {"connect ppc hw -debugdevice icacheStartAdr 0x100010000",
       {"'0x100010000' does not fit: icacheStartAdr becomes 0x10000"}},
      {"vpconnect lc -ipcport h:abc", {"'abc' is no number: it gives 0"}},
      // Behind a colon numbers are decimal.
      {"vpconnect lc -ipcport h:010", {}},
  };
  for (const auto &row : rows)
    EXPECT_EQ(messagesFor(row.command), row.messages) << row.command;
}

TEST(Messages, OfALineOfAFile) {
  EXPECT_THAT(messagesFor("kconnect lc hdu", true),
              ElementsAre("'kconnect' is not taken in an option file"));
  const std::string front = "connect lc hdu -cable port ";
  EXPECT_THAT(messagesFor(front + std::string(1025 - front.size(), 'x'), true),
              ElementsAre("the line is longer than what is read of it: 1025 "
                          "characters, of which 1023 are read"));
}

TEST(Messages, OfATextThatIsNoWord) {
  using model::WordPlace;
  const auto reasonOf = [](std::string_view text, WordPlace place) {
    return std::string(model::whyNoWord(text, place)->text());
  };
  EXPECT_EQ(reasonOf("", WordPlace::command),
            "it is empty, and a command cannot carry an empty value");
  EXPECT_EQ(reasonOf("a b", WordPlace::command),
            "it holds white space, and a command ends its words there");
  EXPECT_EQ(reasonOf("-a", WordPlace::command),
            "it begins with '-', and a command takes it for an option word");
  EXPECT_EQ(reasonOf("a\nb", WordPlace::optionFile),
            "it holds a line break, and the line of an option file ends there");
  EXPECT_EQ(reasonOf(std::string_view("a\0b", 3), WordPlace::optionFile),
            "it holds a null byte, and the line of an option file ends there");
}

TEST(Messages, OfAFolderThatCannotBeWritten) {
  EXPECT_EQ(refusalOf([] { model::refuseToWriteIn("/etc", EACCES); }),
            "file-system: /etc: cannot write there: Permission denied");
  EXPECT_EQ(refusalOf([] { model::refuseToWriteIn("/no", ENOENT); }),
            "no-folder: /no: there is no such folder");
  EXPECT_EQ(refusalOf([] { model::refuseToWriteIn("/no", ENOTDIR); }),
            "no-folder: /no: is a file, no folder");
}

std::string writableCableWords() {
  std::string text = "'none'";
  for (const support::Cable &cable : support::cables())
    for (const std::string &word : cable.words)
      text += cable.written.empty() ? "" : ", '" + word + "'";
  return text;
}

TEST(Messages, OfAValue) {
  const std::string port = "bad-value: cable.port: ";
  const struct {
    const char *setting;
    Value asked;
    std::string refusal;
  } rows[] = {
      {"cable.port", 5, port + "'5' is no text"},
      {"cable.port", true, port + "'true' is no text"},
      {"cable.port", false, port + "'false' is no text"},
      {"cable.port", Value(), port + "'nothing' is no text"},
      {"cable.port", Value::Chain{}, port + "'a chain' is no text"},
      {"cable.port", "a b",
       port + "'a b' is refused: it holds white space, and a command ends its "
              "words there"},
      {"chain", "x", "bad-value: chain: 'x' is no list of devices"},
      {"cable.frequency", "3 MHx",
       "bad-value: cable.frequency: '3 MHx' is no whole number of hertz "
       "(decimal or 0x, with Hz, kHz, MHz or nothing behind it), up to "
       "4294967295 Hz"},
      {"uartOverHdu", "yess",
       "bad-value: uartOverHdu: 'yess' is neither yes nor no; did you mean "
       "'yes'?"},
      {"bscanUserReg", "USER5",
       "bad-value: bscanUserReg: 'USER5' is unknown; accepted are 'USER1', "
       "'USER2', 'USER3', 'USER4'; did you mean 'USER1'?"},
      // A cable that no command can be written with is not offered.
      {"cable.cableType", "ftdi_cable",
       "bad-value: cable.cableType: 'ftdi_cable' is unknown; accepted are " +
           writableCableWords()},
  };
  model::Snapshot current;
  for (const auto &row : rows)
    EXPECT_EQ(refusalOf([&] {
                model::expectValue(model::expectSettable(row.setting),
                                   row.asked, current, current);
              }),
              row.refusal);
}

TEST(Messages, OfAFlagAreSixWords) {
  for (const char *word : {"yes", "on", "true", "True", "1"})
    EXPECT_EQ(ReadSetting("uartOverHdu", word), Value(true)) << word;
  for (const char *word : {"no", "off", "false", "OFF", "0"})
    EXPECT_EQ(ReadSetting("uartOverHdu", word), Value(false)) << word;
}

TEST(Messages, OfAStoredValue) {
  const SettingInfo &chain = *FindSetting("chain");
  EXPECT_EQ(ShowStored(*FindSetting("cable.port"), "a b"), "\"a b\"");
  EXPECT_EQ(ShowStored(*FindSetting("uartOverHdu"), true), "yes");
  EXPECT_EQ(ShowStored(chain, Value::Chain{}), "no devices");
  EXPECT_EQ(ShowStored(chain, Value::Chain{{{"partname", "p"}}}), "a device");
  const Value two = Value::Chain{{{"partname", "p"}}, {}};
  EXPECT_EQ(ShowStored(chain, two), "p, a device");
  EXPECT_EQ(ShowValue(chain, Value()), "nothing");
}

class MessagesTest : public ModelTest {};

TEST_F(MessagesTest, OfAProcessorThatCannotBeDebugged) {
  const std::string others = ", and only modules of type 'hdu' or 'hdu_cedar' "
                             "and controllers of type 'ppc_jtag_link' lead to "
                             "a processor";
  EXPECT_EQ(refusalOf([&] { open("r5"); }),
            "not-debuggable: 'r5' cannot be debugged: it is connected to "
            "other0 of type 'probe'" +
                others);
  design.addDebugModule("more", "thing", {"r5"});
  design.processors.emplace_back("alone");
  design.typeOf["alone"] = "soc_cortexr5";
  const Board other(design, "etc");
  ASSERT_EQ(other.Undebuggable().size(), 2U);
  EXPECT_EQ(other.Undebuggable()[0].reason,
            "it is connected to other0 of type 'probe', more of type 'thing'" +
                others);
  EXPECT_EQ(other.Undebuggable()[1].reason,
            "no debug module or controller is connected to it, and processors "
            "of type 'soc_cortexr5' need one");
  CheckOptions options;
  options.board = &other;
  options.processor = "alone";
  EXPECT_EQ(refusalOf([&] { CheckCommand("connect lc hdu", options); }),
            "not-debuggable: 'alone' cannot be debugged: no debug module or "
            "controller is connected to it, and processors of type "
            "'soc_cortexr5' need one");
}

TEST_F(MessagesTest, OfAProcessorThatIsNone) {
  const std::string message =
      "unknown-processor: 'lx' is no processor of the design; there are 'lc', "
      "'lc_sim', 'ppc405', 'ppc440', 'a9', 'r5'; did you mean 'lc'?";
  EXPECT_EQ(refusalOf([&] { open("lx"); }), message);
  CheckOptions options;
  options.board = &board;
  options.processor = "lx";
  EXPECT_EQ(refusalOf([&] { CheckCommand("connect lc hdu", options); }),
            message);
  options.processor = "esc\x1B";
  EXPECT_EQ(refusalOf([&] { CheckCommand("connect lc hdu", options); }),
            "unknown-processor: 'esc\\x1b' is no processor of the design; "
            "there are 'lc', 'lc_sim', 'ppc405', 'ppc440', 'a9', 'r5'");
}

TEST_F(MessagesTest, OfTheNumberOfAnotherProcessor) {
  CheckOptions options;
  options.board = &board;
  options.processor = "lc";
  const CheckedCommand checked =
      CheckCommand("connect lc hdu -debugdevice cpunr 7", options);
  ASSERT_EQ(checked.diagnostics.size(), 1U);
  EXPECT_EQ(checked.diagnostics[0].message,
            "'7' is the number of another processor: this one has number 1");
  EXPECT_THAT(checked.diagnostics[0].accepted, ElementsAre("1"));
}

TEST_F(MessagesTest, OfWhatIsSaved) {
  Session session = openWith("nonsense");
  EXPECT_EQ(session.Problem(),
            "the command is refused: column 1: 'nonsense' is no head word");
  EXPECT_EQ(refusalOf([&] { session.Save(); }),
            "unreadable: " + session.File() +
                ": the command is refused: column 1: 'nonsense' is no head "
                "word; it stays as it is");
  const std::string front = "connect lc hdu -cable type quorla_podusb port ";
  EXPECT_EQ(openWith(front + std::string(1024 - front.size(), 'p')).Problem(),
            "the command has 1024 characters, but only 1023 of a line are "
            "read");
}

TEST_F(MessagesTest, OfLosses) {
  Session several = open();
  several.Change({{"simMemSize", 32}, {"modelSimMode", true}});
  EXPECT_EQ(refusalOf([&] { several.Save(); }),
            "would-be-lost: " + several.File() +
                ": nothing is saved, because it would not survive: simMemSize, "
                "modelSimMode");

  Session cut = open();
  cut.Change({{"cable.cableType", 3}, {"cable.port", std::string(1100, 'p')}});
  const std::size_t length = cut.Command().size();
  ASSERT_FALSE(cut.Losses().empty());
  EXPECT_EQ(cut.Losses()[0].reason,
            "it has " + std::to_string(length) +
                " characters, and only 1023 of a line are read");

  Session ended = open();
  ended.Edit("connect lc hdu -cable type quorla_podusb port a\nb -quiet");
  ASSERT_EQ(ended.Losses().size(), 2U);
  EXPECT_EQ(ended.Losses()[0].reason,
            "it stands behind a line break or a null byte, and the line of an "
            "option file ends there");
  EXPECT_EQ(ended.Losses()[1].reason,
            "it holds a line break, and the line of an option file ends there");

  Session chain = open();
  chain.Change({{"chain", Value::Chain{{{"partname", "p"}, {"nppc", 2}}}}});
  ASSERT_EQ(chain.Losses().size(), 1U);
  EXPECT_EQ(chain.Losses()[0].reason,
            "nppc: no command can be written that carries it");
}

TEST_F(MessagesTest, OfASettingWithoutACommand) {
  Session session = open();
  session.Change({{"cable.cableType", "quorla_tcf"}});
  const SessionState state = session.State();
  ASSERT_FALSE(state.command);
  ASSERT_NE(state.commandError, "");
  EXPECT_EQ(settingIn(state, "stubBaudRate").reason,
            "no command can be written: " + state.commandError);
  EXPECT_EQ(refusalOf([&] { session.Save(); }),
            "no-command: no command can be written: " + state.commandError);
}

TEST_F(MessagesTest, OfADeviceThatIsNotThere) {
  Session session = open();
  EXPECT_EQ(refusalOf([&] { session.Get("chain[0].idcode"); }),
            "unknown-setting: 'chain[0].idcode' is no setting: the chain has 0 "
            "devices");
  session.Change({{"chain", Value::Chain{{{"partname", "a"}}}}});
  EXPECT_EQ(refusalOf([&] { session.Get("chain[1].idcode"); }),
            "unknown-setting: 'chain[1].idcode' is no setting: the chain has 1 "
            "device");
}

} // namespace
