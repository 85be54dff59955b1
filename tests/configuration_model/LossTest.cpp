// What a saved command would not bring back, and which of it stops saving.
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Codes.h"
#include "configuration_model/ModelTest.h"
#include "losses/Analysis.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class LossTest : public ModelTest {};

/// Each once, explained by a code that is known and an entry of the page.
void expectExplained(const std::vector<Loss> &losses) {
  std::ifstream file(ROUND_TRIP_PAGE);
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::string> fields;
  for (const Loss &loss : losses) {
    EXPECT_THAT(fields, testing::Not(Contains(loss.field)));
    EXPECT_NE(FindSetting(loss.field), nullptr) << loss.field;
    if (!loss.displacedBy.empty()) {
      EXPECT_NE(FindSetting(loss.displacedBy), nullptr) << loss.displacedBy;
    }
    fields.push_back(loss.field);
    EXPECT_NE(FindCode(loss.code), nullptr) << loss.code;
    EXPECT_THAT(page, testing::HasSubstr("<a id=\"" + loss.anchor + "\">"));
    EXPECT_NE(loss.reason, "") << loss.field;
    EXPECT_NE(loss.reason.back(), '.') << loss.field;
  }
}

struct Row {
  const char *processor;
  SettingValues values;
  std::vector<std::string> losses;
};

TEST_F(LossTest, EachIsToldWithItsReasonOnce) {
  const Row rows[] = {
      {"lc", {{"debugDevice", 3}, {"cable.cableType", 3}}, {}},
      {"lc",
       {{"connection", "sim"}, {"cable.cableType", 3}, {"debugDevice", 1}},
       {"debugDevice: 1 -> 0 [other-connections by connection], blocking",
        "cable.cableType: quorla_podusb -> none [other-connections by "
        "connection], blocking",
        "cable.frequency: 6 MHz -> 0 Hz [other-connections by connection]",
        "cable.port: USB21 ->  [other-connections by connection]"}},
      {"lc",
       {{"cable.cableType", 3}, {"cable.frequency", 3000000}, {"cable.esn", 7}},
       {}}, // refused: a serial number is a text
      {"lc",
       {{"cable.cableType", 3},
        {"cable.frequency", 3000000},
        {"cable.esn", "7"}},
       {"cable.frequency: 3 MHz -> 0 Hz [serial-number by cable.esn], "
        "blocking"}},
      // A default that comes back as another value, asked for and not.
      {"lc",
       {{"cable.cableType", 3}, {"cable.esn", "7"}},
       {"cable.frequency: 6 MHz -> 0 Hz [serial-number by cable.esn]"}},
      {"lc",
       {{"cable.cableType", 3},
        {"cable.frequency", "6 MHz"},
        {"cable.esn", "7"}},
       {"cable.frequency: 6 MHz -> 0 Hz [serial-number by cable.esn], "
        "blocking"}},
      {"lc",
       {{"simMemSize", 32}, {"modelSimMode", true}, {"bscanUserReg", "USER3"}},
       {"simMemSize: 32 -> 16 [never-written], blocking",
        "modelSimMode: yes -> no [never-written], blocking",
        "bscanUserReg: USER3 -> USER2 [never-written], blocking"}},
      {"lc",
       {{"romemStartAdr", 0x1000}},
       {"romemStartAdr: 0x1000 -> not set [rom-range], blocking"}},
      {"lc",
       {{"icacheStartAdr", 0x10000}},
       {"debugAddressMap: 0x10000 -> not set [other-processors], blocking",
        "icacheStartAdr: 0x10000 -> not set [other-processors], blocking"}},
      {"ppc440",
       {{"icacheStartAdr", 0x10000}, {"debugAddressMap", 0x20000}},
       {"debugAddressMap: 0x20000 -> 0x10000 [address-map-base], blocking"}},
      {"ppc440",
       {{"isocmStartAdr", 0}},
       {"isocmStartAdr: 0x0 -> not set [isocm], blocking"}},
      {"ppc405", {{"isocmSize", 5}}, {"isocmSize: 5 -> 0 [isocm], blocking"}},
      {"ppc405", {{"isocmSize", 5}, {"isocmStartAdr", 0}}, {}},
      {"ppc405",
       {{"connection", "sim"}, {"simIpcPort", 5}},
       {"simIpcPort: 5 -> 0 [port-without-host], blocking"}},
      {"ppc405",
       {{"connection", "sim"}, {"ppcSimConfigFile", "f"}, {"simIpcHost", "h"}},
       {"simIpcHost: h ->  [simulator-file by ppcSimConfigFile], blocking"}},
      {"lc",
       {{"chain",
         Value::Chain{{{"partname", "p"}, {"isfpga", 1}, {"nppc", 2}}}}},
       {"chain: p -> p [never-written], blocking"}},
      // What the reader refuses: one, of the setting at fault.
      {"lc",
       {{"cpuJtag", 1}},
       {"cpuJtag: yes -> nothing [cpu-jtag-marker], "
        "blocking"}},
      {"lc",
       {{"cpuJtag", 1}, {"nCpu", 2}},
       {"cpuJtag: yes -> nothing [cpu-jtag-marker], blocking",
        "nCpu: 2 -> nothing [never-written], blocking"}},
      {"lc",
       {{"cable.cableType", "quorla_plugin"}},
       {"cable.moduleName:  -> nothing [empty-text], blocking"}},
      {"lc",
       {{"connection", "stub-jtag"},
        {"cable.cableType", 3},
        {"cable.frequency", 625000}},
       {"cable.frequency: 625 kHz -> nothing [frequency], blocking"}},
      {"lc_sim", {}, {"connection: hw -> nothing [connection-mask], blocking"}},
      {"lc_sim", {{"connection", "sim"}}, {}},
      {"a9", {}, {}},
  };
  for (const Row &row : rows) {
    Session session = open(row.processor);
    const std::string refusal = refusalOf([&] { session.Change(row.values); });
    if (refusal != "accepted") {
      EXPECT_THAT(row.losses, IsEmpty()) << refusal;
      continue;
    }
    EXPECT_EQ(shown(session.Losses()), row.losses)
        << row.processor << ": " << session.Command();
    expectExplained(session.Losses());
  }
}

TEST_F(LossTest, WhatALaterChangeDisplacesDoesNotStopSaving) {
  Session session = open();
  session.Change({{"cable.cableType", 3}, {"cable.frequency", 3000000}});
  session.Change({{"connection", "sim"}});
  EXPECT_THAT(
      shown(session.Losses()),
      ElementsAre("cable.cableType: quorla_podusb -> none "
                  "[other-connections by connection]",
                  "cable.frequency: 3 MHz -> 0 Hz [other-connections by "
                  "connection]",
                  "cable.port: USB21 ->  [other-connections by "
                  "connection]"));
  // Nor after the next one.
  session.Change({{"stubTimeout", 5}});
  EXPECT_THAT(shown(session.Losses()),
              Contains("cable.frequency: 3 MHz -> 0 Hz [other-connections by "
                       "connection]"));
  // It does where it is asked for once more.
  session.Change({{"cable.frequency", 12000000}});
  EXPECT_THAT(shown(session.Losses()),
              Contains("cable.frequency: 12 MHz -> 0 Hz [other-connections by "
                       "connection], blocking"));
}

/// Dropping a draft is a step, and asks for nothing.
TEST_F(LossTest, AStepThatChangesNoValueLeavesThemAsTheyAre) {
  Session session = open();
  session.Change({{"cable.cableType", 3}, {"cable.frequency", 3000000}});
  session.Change(
      {{"cable.esn", "7"}, {"cable.port", "USB7"}, {"debugDevice", 1}});
  const std::vector<std::string> losses{
      "cable.frequency: 3 MHz -> 0 Hz [serial-number by cable.esn]",
      "cable.port: USB7 -> USB21 [serial-number by cable.esn], blocking"};
  EXPECT_EQ(shown(session.Losses()), losses);
  session.Draft("debugDevice", "one");
  EXPECT_EQ(shown(session.Losses()), losses);
  session.Change({{"debugDevice", 1}});
  EXPECT_FALSE(settingIn(session.State(), "debugDevice").draft);
  EXPECT_EQ(shown(session.Losses()), losses);
}

TEST_F(LossTest, WhatIsDisplacedIsSoAlsoBehindAConfigurationWithoutACommand) {
  Session session = open();
  session.Change({{"debugDevice", 3}});
  session.Change({{"cable.cableType", "quorla_tcf"}});
  EXPECT_FALSE(session.State().command);
  session.Change({{"connection", "sim"}});
  EXPECT_THAT(
      shown(session.Losses()),
      Contains("debugDevice: 3 -> 0 [other-connections by connection]"));
}

TEST_F(LossTest, WhatNeverCameBackIsNotDisplaced) {
  Session session = open();
  session.Change({{"simMemSize", 32}});
  session.Change({{"debugDevice", 3}});
  EXPECT_THAT(shown(session.Losses()),
              ElementsAre("simMemSize: 32 -> 16 [never-written], blocking"));
}

TEST_F(LossTest, WhatACommandAsksForIsNotDisplaced) {
  Session session = open();
  session.Edit("connect lc sim -memsize 5");
  EXPECT_THAT(shown(session.Losses()),
              ElementsAre("simMemSize: 5 -> 16 [never-written], blocking"));
  session.Edit("connect lc hdu -cable type quorla_podusb frequency 6000000 esn "
               "E -debugdevice devicenr 1");
  EXPECT_THAT(shown(session.Losses()),
              ElementsAre("cable.frequency: 6 MHz -> 0 Hz [serial-number by "
                          "cable.esn]"));
}

TEST_F(LossTest, TheOneCableThatCarriesASettingIsNamed) {
  Session session = open();
  session.Change({{"cable.moduleName", "m"}, {"cable.esn", "E"}});
  std::vector<std::string> reasons;
  for (const Loss &loss : session.Losses())
    reasons.push_back(loss.field + ": " + loss.reason);
  EXPECT_THAT(reasons,
              UnorderedElementsAre(
                  "cable.moduleName: a command does not carry it for this "
                  "cable, only for 'quorla_plugin'",
                  "cable.esn: a command does not carry it for this cable"));
}

TEST_F(LossTest, WhatIsCopiedIsNotDisplaced) {
  Session other = open();
  other.Change({{"cable.cableType", 3}});
  other.Change({{"connection", "sim"}});
  Session session = open("lc_sim");
  session.CopyFrom(other);
  EXPECT_THAT(shown(session.Losses()),
              Contains("cable.cableType: quorla_podusb -> none "
                       "[other-connections by connection]"));
  Session hardware = open();
  hardware.Change({{"cable.cableType", 3}});
  Session simulated = open("lc_sim");
  simulated.Change({{"connection", "sim"}});
  simulated.CopyFrom(hardware);
  EXPECT_THAT(shown(simulated.Losses()),
              Contains("cable.cableType: quorla_podusb -> none "
                       "[other-connections by connection], blocking"));
}

TEST_F(LossTest, ALineThatIsCutIsTold) {
  Session session = open();
  const std::string name(1100, 'p');
  session.Change({{"chain", Value::Chain{{{"partname", name}}}}});
  const std::vector<Loss> losses = session.Losses();
  ASSERT_FALSE(losses.empty());
  EXPECT_EQ(losses[0].field, "connectCommand");
  EXPECT_EQ(losses[0].code, "long-file");
  EXPECT_TRUE(losses[0].blocking);
  expectExplained(losses);
}

TEST_F(LossTest, ALineThatIsReadWholeIsNotCut) {
  Session session = open();
  const auto takePort = [&session](std::size_t size) {
    session.Change(
        {{"cable.cableType", 3}, {"cable.port", std::string(size, 'p')}});
    return session.Command().size();
  };
  const std::size_t around = takePort(1) - 1;
  EXPECT_EQ(takePort(1023 - around), 1023U);
  EXPECT_THAT(session.Losses(), IsEmpty());
  EXPECT_EQ(takePort(1024 - around), 1024U);
  EXPECT_EQ(session.Losses().at(0).code, "long-file");
}

/// The cut is told, not what the reader makes of half a word.
TEST_F(LossTest, ALineThatIsCutInAnOptionIsToldOnce) {
  Session session = open();
  const auto takePort = [&session](std::size_t size) {
    session.Change({{"cable.cableType", 3},
                    {"cable.port", std::string(size, 'p')},
                    {"debugDevice", 1}});
    return session.Command().find("-debugdevice");
  };
  const std::size_t front = takePort(1) - 1;
  EXPECT_EQ(takePort(1018 - front), 1018U); // five letters of it are read
  EXPECT_THAT(session.Losses(), testing::SizeIs(1));
  EXPECT_EQ(session.Losses()[0].field, "connectCommand");
  EXPECT_EQ(session.Losses()[0].code, "long-file");
}

TEST_F(LossTest, ALineThatEndsInATextIsTold) {
  Session session = open();
  session.Edit("connect lc hdu -cable type quorla_podusb port a\nb -quiet");
  EXPECT_THAT(shown(session.Losses()),
              ElementsAre("cable.frequency: 0 Hz -> 6 MHz [lines-in-file], "
                          "blocking",
                          "cable.port: a\nb -> a [lines-in-file], blocking"));
  expectExplained(session.Losses());
}

TEST_F(LossTest, ReasonsSayWhatIsAllowed) {
  const Session session = open("lc_sim");
  ASSERT_EQ(session.Losses().size(), 1U);
  EXPECT_EQ(session.Losses()[0].reason,
            "the processor does not allow this kind of connection; it allows "
            "'sim'");
}

/// Its number and its stub are told with it, and on their own where it is the
/// same.
TEST_F(LossTest, AConnectionIsOneLoss) {
  const auto lostBetween = [](std::uint32_t connection, std::uint32_t stub,
                              std::uint32_t other, std::uint32_t otherStub) {
    model::Snapshot wanted;
    wanted.record.connectionType = connection;
    wanted.record.stubType = stub;
    model::Snapshot back = wanted;
    back.record.connectionType = other;
    back.record.stubType = otherStub;
    std::vector<std::string> settings;
    for (const model::RawLoss &loss :
         model::lossesOf(wanted, "connect", {}, &back, ""))
      settings.push_back(loss.setting);
    return settings;
  };
  const auto jtag = Engine::STUB_JTAG;
  const auto serial = Engine::STUB_SERIAL;
  const auto hardware = Engine::CONNECT_HW;
  const auto stub = Engine::CONNECT_STUB;
  EXPECT_THAT(lostBetween(stub, jtag, stub, jtag), IsEmpty());
  EXPECT_THAT(lostBetween(stub, jtag, stub, serial), ElementsAre("connection"));
  EXPECT_THAT(lostBetween(stub, jtag, hardware, jtag),
              ElementsAre("connection"));
  EXPECT_THAT(lostBetween(stub, jtag, hardware, serial),
              ElementsAre("connection"));
  EXPECT_THAT(lostBetween(hardware, jtag, hardware, serial),
              ElementsAre("stubType"));
  EXPECT_THAT(lostBetween(stub, 2, stub, serial), ElementsAre("stubType"));
}

/// A PowerPC has no stub.
TEST_F(LossTest, AConnectionWithoutACommandIsToldAsASetting) {
  model::Desk desk;
  ASSERT_TRUE(desk.readCommand("connect ppc hw").accepted());
  model::Snapshot wanted = desk.snapshot();
  EXPECT_TRUE(model::analyse(desk, wanted).command);
  wanted.record.connectionType = Engine::CONNECT_STUB;
  const model::Analysis analysis = model::analyse(desk, wanted);
  EXPECT_FALSE(analysis.command);
  EXPECT_EQ(model::noCommandOf(analysis).setting, "connection");
}

TEST_F(LossTest, NothingCameBackOfACommandThatIsRefusedAgain) {
  const auto isFrequencyBlocking = [](const Session &session) {
    for (const Loss &loss : session.Losses())
      if (loss.field == "cable.frequency")
        return loss.blocking;
    ADD_FAILURE() << "the frequency is no loss";
    return false;
  };
  const SettingValues cable{{"cable.cableType", 3},
                            {"cable.frequency", 3000000}};
  Session never = open();
  SettingValues refused = cable;
  refused.emplace_back("cpuJtag", 1); // written, and read by nobody
  never.Change(refused);
  never.Change({{"connection", "sim"}});
  EXPECT_TRUE(isFrequencyBlocking(never));

  Session once = open();
  once.Change(cable);
  once.Change({{"connection", "sim"}});
  EXPECT_FALSE(isFrequencyBlocking(once));

  // It came back before the command was one that is refused.
  Session before = open();
  before.Change(cable);
  before.Change({{"cpuJtag", 1}});
  before.Change({{"connection", "sim"}});
  EXPECT_FALSE(isFrequencyBlocking(before));
}

} // namespace
