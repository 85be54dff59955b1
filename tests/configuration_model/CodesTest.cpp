// Every word that is ever shown in brackets.
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ZelDebugDialog/ConfigurationModel/Codes.h"
#include "ZelDebugDialog/EngineFacts.h"
#include "codes/CodeRows.h"
#include "losses/Analysis.h"
#include "losses/Reasons.h"

namespace {

using namespace ZelDebugDialog;

std::vector<std::string> anchorsOfThePage() {
  const std::string front = "<a id=\"";
  std::ifstream page(ROUND_TRIP_PAGE);
  std::vector<std::string> anchors;
  for (std::string line; std::getline(page, line);)
    if (line.compare(0, front.size(), front) == 0)
      anchors.push_back(line.substr(front.size(), line.find('"', front.size()) -
                                                      front.size()));
  return anchors;
}

TEST(Codes, OfLossesAreTheAnchorsOfTheRoundTripPage) {
  std::vector<std::string> codes;
  for (const Code &row : GetCodes())
    if (row.severity == CodeSeverity::loss)
      codes.push_back(row.code);
  EXPECT_EQ(codes.size(), 32U);
  EXPECT_EQ(codes, anchorsOfThePage());
}

TEST(Codes, AreUniqueAndSayEverything) {
  std::set<std::string> codes;
  bool isLoss = false;
  for (const Code &row : GetCodes()) {
    EXPECT_TRUE(codes.insert(row.code).second) << row.code;
    EXPECT_NE(row.summary, "") << row.code;
    EXPECT_EQ(row.meaning.back(), '.') << row.code;
    EXPECT_EQ(row.advice.back(), '.') << row.code;
    EXPECT_NE(row.example, "") << row.code;
    const bool isDiagnostic = row.severity != CodeSeverity::loss;
    EXPECT_FALSE(isDiagnostic && isLoss) << "diagnostics come first";
    isLoss = !isDiagnostic;
  }
}

TEST(Codes, AreFoundByTheirWholeName) {
  ASSERT_NE(FindCode("value-cut"), nullptr);
  EXPECT_EQ(FindCode("value-cut")->code, "value-cut");
  EXPECT_EQ(FindCode("frequency")->severity, CodeSeverity::loss);
  for (const char *unknown : {"", "value-cu", "value-cutt", "VALUE-CUT", " "})
    EXPECT_EQ(FindCode(unknown), nullptr) << unknown;
}

TEST(Codes, HaveOneForEachFaultOfTheReader) {
  std::set<std::string> codes;
  const int last = static_cast<int>(CommandFaultKind::loneDash);
  for (int kind = 0; kind <= last; ++kind) {
    const Code &code = model::codeOf(static_cast<CommandFaultKind>(kind));
    EXPECT_EQ(code.severity, CodeSeverity::error) << code.code;
    EXPECT_TRUE(codes.insert(code.code).second) << code.code;
  }
  EXPECT_EQ(codes.size(), 16U);
}

TEST(Codes, SayHowMuchTheyMatter) {
  EXPECT_STREQ(ShowSeverity(CodeSeverity::error), "error");
  EXPECT_STREQ(ShowSeverity(CodeSeverity::warning), "warning");
  EXPECT_STREQ(ShowSeverity(CodeSeverity::loss), "loss");
}

// --- The examples that are written for settings ------------------------------

model::Snapshot lumacore() {
  model::Snapshot wanted;
  wanted.record.connectionMask = Engine::CONNECT_SIM | Engine::CONNECT_HW;
  wanted.record.cpuNr = 1;
  return wanted;
}

model::Snapshot lumacoreWithPort(const std::string &port) {
  model::Snapshot wanted = lumacore();
  wanted.cable.cableType = Engine::QUORLA_PODUSB;
  wanted.cable.port = port;
  wanted.cable.frequency = 6000000;
  return wanted;
}

model::Snapshot powerPc() {
  model::Snapshot wanted = lumacore();
  wanted.record.procFamily = familyPowerPc;
  wanted.record.procType = typePpc405;
  return wanted;
}

/// The settings that do not come back for this reason.
std::vector<std::string> lostFor(const char *code,
                                 const std::vector<model::RawLoss> &losses) {
  std::vector<std::string> settings;
  for (const model::RawLoss &loss : losses)
    if (loss.code == code)
      settings.push_back(loss.setting);
  return settings;
}

TEST(Codes, OfASettingHaveTheCommandThatIsWrittenForItAsAnExample) {
  model::Snapshot misaligned = powerPc();
  misaligned.record.icacheStartAdr = 0x18000;
  model::Snapshot address = powerPc();
  address.record.connectionType = Engine::CONNECT_SIM;
  address.record.simIpcHost = "a:b";
  address.record.simIpcPort = 5;
  model::Snapshot odd = powerPc();
  odd.record.fpuType = 3;
  model::Snapshot based = powerPc();
  based.record.icacheStartAdr = 0x10000;
  based.record.debugAddressMap = 0x20000;
  const struct {
    const char *code;
    const model::Snapshot wanted;
    std::vector<std::string> lost;
  } rows[] = {
      {"misaligned-region", misaligned, {"icacheStartAdr"}},
      {"white-space", lumacoreWithPort("my port"), {"cable.port"}},
      {"colon-in-host", address, {"simIpcHost", "simIpcPort"}},
      {"odd-values", odd, {"fpuType"}},
      {"address-map-base", based, {"debugAddressMap"}},
  };
  for (const auto &row : rows) {
    model::Desk desk(nullptr, row.wanted.record);
    const model::Analysis found = model::analyse(desk, row.wanted);
    EXPECT_EQ(found.command, FindCode(row.code)->example);
    EXPECT_EQ(lostFor(row.code, found.losses), row.lost) << row.code;
  }
}

TEST(Codes, OfALineHaveWhatIsReadOfItAsAnExample) {
  const struct {
    const char *code;
    const std::string port;
    std::vector<std::string> lost;
  } rows[] = {
      {"refused-again", std::string("\0b", 2), {"connectCommand"}},
      {"lines-in-file", "a\nb", {"cable.port"}},
  };
  for (const auto &row : rows) {
    const model::Snapshot wanted = lumacoreWithPort(row.port);
    model::Desk desk(nullptr, wanted.record);
    const model::Analysis found = model::analyse(desk, wanted);
    ASSERT_TRUE(found.command) << row.code;
    std::string line = model::lineOfFile(*found.command);
    line.resize(line.find_last_not_of(' ') + 1);
    EXPECT_EQ(line, FindCode(row.code)->example);
    EXPECT_EQ(lostFor(row.code, found.losses), row.lost) << row.code;
  }
}

TEST(Codes, OfTheIdentityHaveACommandWithoutItAsAnExample) {
  model::Snapshot wanted = lumacore();
  wanted.record.instanceName = "cpu1";
  wanted.record.cpuNr = 2;
  model::Desk desk(nullptr, wanted.record);
  const model::Written written = model::writeSnapshot(desk, wanted);
  EXPECT_EQ(written.command, FindCode("identity")->example);
  std::vector<std::string> fields;
  for (const Omission &omission : written.writing.omissions)
    if (std::string("identity") == model::reasonRow(omission.reason).why.code)
      fields.push_back(omission.field);
  EXPECT_THAT(fields,
              testing::UnorderedElementsAre("instanceName", "connectionMask"));
}

TEST(Codes, OfAnUnknownDifferenceHaveACommandThatIsReadDifferently) {
  model::Snapshot wanted = lumacore();
  wanted.record.debugDevice = 2;
  model::Desk desk(nullptr, wanted.record);
  const model::Written written = model::writeSnapshot(desk, wanted);
  EXPECT_EQ(written.command, FindCode("read-differently")->example);
  const auto lostIn = [&](const model::Snapshot &back) {
    return lostFor(
        "read-differently",
        model::lossesOf(wanted, *written.command, written.writing, &back, ""));
  };
  EXPECT_THAT(lostIn(wanted), testing::IsEmpty());
  model::Snapshot other = wanted;
  other.record.debugDevice = 3;
  EXPECT_THAT(lostIn(other), testing::ElementsAre("debugDevice"));
}

} // namespace
