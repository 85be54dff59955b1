// What is written and read again: the same, but for the losses that
// docs/round-trip.md names, each of which is met here.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "language/Bench.h"
#include "language/RoundTripMaker.h"
#include "language/SmallDesign.h"
#include "language/WorkingFolder.h"
#include "support/ManyOrFew.h"
#include "support/OptionFileText.h"
#include "support/RoundTripDesk.h"

namespace {

using namespace std::string_literals;
using namespace LanguageTest;
using support::kLossIds;
using support::Loss;
using support::Losses;
using support::RoundTripDesk;
using ZelDebugDialog::Engine;
using ZelDebugDialog::EngineImp;
using ZelDebugDialog::KvoOption_Parser;
using ZelDebugDialog::ProcessorInfo;

constexpr std::uint64_t kSeed = 20260419;
// Who runs the tests a thousand times, to try changes of the engine, says so.
const auto kCases = support::manyOrFew<std::size_t>(100000, 10000);
constexpr std::size_t kFileCases = 2000;
constexpr std::size_t kWholeFiles = 20;
constexpr int kShownFailures = 10;

/// Everything is run once; each test looks at a part of what came of it.
class RoundTrips {
public:
  static const RoundTrips &all() {
    static const RoundTrips once;
    return once;
  }

  Losses losses;
  std::map<std::string, std::vector<std::size_t>> limits;
  std::size_t same = 0; ///< Read back, with or without losses.
  std::vector<std::string> faults;

private:
  RoundTrips() {
    CaseMaker maker(kSeed);
    for (std::size_t number = 0; number < kCases; ++number)
      goAround(number, maker.next());
    limits = maker.limits();
    goThroughFiles();
    takeFpuFromDesign();
    comeBackAsOtherTargets();
    startOnHardwareThatIsNotAllowed();
  }

  void fault(const std::string &text) { faults.push_back(text); }
  void expect(bool holds, const std::string &text) {
    if (!holds)
      fault(text);
  }

  void goAround(std::size_t number, const RoundTripCase &roundTrip) {
    const support::RoundTripOutcome outcome =
        support::goAround(desk, roundTrip, losses);
    same += outcome.isSame ? 1 : 0;
    for (const std::string &found : outcome.faults)
      fault("case " + std::to_string(number) + " " + printable(found));
  }

  /// A file is read as the command on its line.
  void goThroughFiles() {
    const WorkingFolder folder;
    CaseMaker maker(kSeed + 1);
    RoundTripDesk fileDesk(*silentDesign());
    for (std::size_t number = 0; number < kFileCases; ++number) {
      RoundTripCase roundTrip = maker.next();
      roundTrip.written.record.instanceName = "cpu";
      desk.load(roundTrip.written);
      std::string text;
      if (desk.engine.GenerateCmdString(text) != 0)
        continue;
      // Files are slow: those that are read whole are not all tried.
      if (support::lineOf(text) == text && number % kWholeFiles != 0)
        continue;
      expect(desk.engine.Generate() == 0, "no file");
      const std::string where =
          "file " + std::to_string(number) + " \"" + printable(text) + "\": ";
      expect(WorkingFolder::contentOf(folder.optionFile("cpu")) == text,
             where + "another text in the file");
      const std::string line = support::lineOf(text);
      desk.prepare(roundTrip);
      const int code = desk.read(line);
      fileDesk.prepare(roundTrip);
      int fileCode = support::kLoneMinus;
      try {
        fileCode = KvoOption_Parser::ReadKvoOptFile("cpu", fileDesk.imp);
      } catch (const std::out_of_range &) {
        fileCode = support::kLoneMinus;
      }
      expect(fileCode == code && fileDesk.record.connectCommand == line,
             where + "read differently");
      expect(settingsOf(fileDesk.imp) == settingsOf(desk.imp),
             where + "other settings from the file");
      if (line != text)
        losses.count(line.size() == 1023 ? Loss::LongFile : Loss::LinesInFile);
    }
  }

  void takeFpuFromDesign() {
    const WorkingFolder folder;
    SmallDesign design;
    design.processor("ppc", "ppc405_core")
        .module("link", "ppc_jtag_link", {"ppc"});
    Engine engine;
    EngineImp &imp = *engine.GetProcessorList(&design);
    ProcessorInfo info;
    expect(engine.SetProcessor("ppc", info) == 4, "a file from nowhere");
    imp.currentProcessor->fpuType = 2;
    expect(engine.Generate() == 0, "the PowerPC is not saved");
    expect(imp.currentProcessor->connectCommand ==
               "connect ppc hw -debugdevice cpunr 1 fpuType dp",
           "the FPU is not written");
    expect(engine.SetProcessor("ppc", info) == 0, "the PowerPC is not read");
    if (imp.currentProcessor->fpuType == 0)
      losses.count(Loss::Fpu);
    ReleaseProcessorRecords(imp);
  }

  void comeBackAsOtherTargets() {
    struct Return {
      std::string read;
      std::string written;
    };
    const std::string number = " -debugdevice cpunr 1";
    for (const Return &row : std::vector<Return>{
             {"connect arm hw", "connect ppc hw" + number},
             {"connect r5 hw", "connect ppc hw" + number},
             {"connect dap hw", "connect ppc hw" + number},
             {"connect dcc", "connect ppc hw" + number},
             {"connect hdu", "connect lc hdu" + number},
             {"connect kmtc", "connect lc hdu" + number},
             {"kconnect lc sim", "connect lc sim"},
         }) {
      desk.clear();
      std::string written;
      expect(desk.read(row.read) == 0, row.read + ": not read");
      KvoOption_Parser::WriteKvoCmdString(desk.imp, written);
      expect(written == row.written, row.read + ": written as " + written);
    }
  }

  /// Records start on hardware, also those that only allow the simulator.
  void startOnHardwareThatIsNotAllowed() {
    const WorkingFolder folder;
    SmallDesign design;
    design.processor("lc", "lumacore");
    Engine engine;
    EngineImp &imp = *engine.GetProcessorList(&design);
    ProcessorInfo info;
    expect(engine.SetProcessor("lc", info) == 4, "a file from nowhere");
    expect(info.connectionMask == 1, "more than the simulator");
    expect(engine.Generate() == 0, "the Lumacore is not saved");
    expect(imp.currentProcessor->connectCommand ==
               "connect lc hdu -debugdevice cpunr 1",
           "no hardware to start with");
    expect(engine.SetProcessor("lc", info) == 3, "hardware in spite of all");
    expect(engine.SetConnectionType(Engine::CONNECT_SIM) == 0, "no simulator");
    expect(engine.Generate() == 0, "the simulator is not saved");
    expect(engine.SetProcessor("lc", info) == 0, "the simulator is not read");
    ReleaseProcessorRecords(imp);
  }

  RoundTripDesk desk{*silentDesign()};
};

TEST(RoundTrip, GivesBackAllButTheKnownLosses) {
  const RoundTrips &trips = RoundTrips::all();
  EXPECT_EQ(trips.faults.size(), 0U);
  for (int i = 0; i < kShownFailures && i < int(trips.faults.size()); ++i)
    ADD_FAILURE() << trips.faults[static_cast<std::size_t>(i)];
  // Most records come back, or the losses would hide everything else.
  RecordProperty("same", std::to_string(trips.same));
  EXPECT_GT(trips.same, kCases / 2);
}

TEST(RoundTrip, StandsAtEachLimitOfEachField) {
  const auto &limits = RoundTrips::all().limits;
  for (const auto &[field, counts] : limits) {
    EXPECT_FALSE(counts.empty()) << field;
    for (std::size_t i = 0; i < counts.size(); ++i)
      EXPECT_GT(counts[i], 0U) << field << ", limit " << i;
  }
  // Every setting that there is, apart from single chain devices.
  Bench bench;
  for (const auto &[name, value] : settingsOf(bench.imp)) {
    const std::string field =
        name.rfind("cable.", 0) == 0 ? name.substr(6) : name;
    const bool isText = limits.count(field + " (frail)") != 0;
    EXPECT_TRUE(limits.count(field) != 0 || isText || field == "moduleArgs")
        << field;
  }
  for (const std::string field :
       {"chain", "partname", "idcode", "irlength", "devicenr", "isfpga",
        "hardppc", "nppc", "modulearg"})
    EXPECT_EQ(limits.count(field), 1U) << field;
}

TEST(RoundTrip, MeetsEachLoss) {
  for (std::size_t i = 0; i < kLossIds.size(); ++i) {
    const std::size_t met = RoundTrips::all().losses.of(static_cast<Loss>(i));
    RecordProperty(kLossIds[i], std::to_string(met));
    EXPECT_GT(met, 0U) << kLossIds[i];
  }
}

TEST(RoundTrip, IsAsThePageTellsUsers) {
  std::ifstream file(ROUND_TRIP_PAGE);
  ASSERT_TRUE(file) << ROUND_TRIP_PAGE;
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  const std::string mark = "<a id=\"";
  std::vector<std::string> onThePage;
  for (std::size_t at = page.find(mark); at != std::string::npos;
       at = page.find(mark, at + 1)) {
    const std::size_t begin = at + mark.size();
    onThePage.push_back(page.substr(begin, page.find('"', begin) - begin));
  }
  std::vector<std::string> known(kLossIds.begin(), kLossIds.end());
  // Of commands that others have written, and what is told where no other
  // reason holds.
  known.insert(known.end(), {"no-number", "read-differently", "refused-again"});
  std::sort(onThePage.begin(), onThePage.end());
  std::sort(known.begin(), known.end());
  EXPECT_EQ(onThePage, known);
}

} // namespace
