// Option files that follow from the files of a project.
#include <filesystem>

#include "ZelDebugDialog/ProjectFile/Sync.h"
#include "project_file/ProjectTest.h"
#include "syncing/Remembered.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

constexpr const char *allowed = "[processor.lc_sim]\nconnection = \"sim\"\n";
constexpr const char *byDefault = "connect lc hdu -debugdevice cpunr 1";
constexpr const char *third = "connect lc hdu -debugdevice deviceNr 3 cpunr 1";
constexpr const char *fourth = "connect lc hdu -debugdevice deviceNr 4 cpunr 1";

class Syncing : public ProjectTest {
protected:
  SyncRun sync(const std::string &project, const SyncOptions &options = {}) {
    const Project files = read(allowed + project);
    EXPECT_FALSE(files.HasErrors());
    return SyncProject(files, ChooseProject(files, {}), board, options);
  }
  /// Of one processor: "created", with what it holds afterwards.
  std::string outcome(const std::string &project, SyncOptions options = {}) {
    options.processors = {"lc"};
    const SyncRun run = sync(project, options);
    EXPECT_EQ(run.results.size(), 1U);
    return std::string(ShowOutcome(run.results.front().outcome)) +
           (run.isRefused ? ", refused: " : ": ") + saved();
  }
  static SyncOptions with(bool SyncOptions::*flag) {
    SyncOptions options;
    options.*flag = true;
    return options;
  }
  std::string remembered() const {
    return work.exists("etc/.zeldebug-sync") ? work.read("etc/.zeldebug-sync")
                                             : "none";
  }
};

const std::string device3 = "[processor.lc]\ndebugDevice = 3\n";
const std::string device4 = "[processor.lc]\ndebugDevice = 4\n";

TEST_F(Syncing, CreatesUpdatesAndLeavesTheSame) {
  EXPECT_EQ(outcome(""), std::string("created: ") + byDefault);
  EXPECT_EQ(outcome(""), std::string("same: ") + byDefault);
  EXPECT_EQ(outcome(device3), std::string("updated: ") + third);
  EXPECT_EQ(outcome(device3), std::string("same: ") + third);
  EXPECT_EQ(remembered(), std::string("lc\t") + third + "\n");
  EXPECT_THAT(names(), ElementsAre(".zeldebug-sync", "kvo_lc.opt"));
}

TEST_F(Syncing, WhatSomebodyHasChangedIsAConflict) {
  EXPECT_EQ(outcome(device3), std::string("created: ") + third);
  save(fourth);
  EXPECT_EQ(outcome(""), std::string("conflict, refused: ") + fourth);
  EXPECT_EQ(outcome("", with(&SyncOptions::dryRun)),
            std::string("conflict, refused: ") + fourth);
  EXPECT_EQ(outcome("", with(&SyncOptions::force)),
            std::string("updated: ") + byDefault);
  EXPECT_EQ(outcome(device3), std::string("updated: ") + third);
}

TEST_F(Syncing, ComparesBytes) {
  save(std::string(third) + "\n");
  EXPECT_EQ(outcome(device3),
            std::string("conflict, refused: ") + third + "\n");
  EXPECT_EQ(outcome(device3, with(&SyncOptions::force)),
            std::string("updated: ") + third);
}

TEST_F(Syncing, WhatWasWrittenByAKilledRunIsTheSame) {
  save(third);
  EXPECT_EQ(outcome(device3), std::string("same: ") + third);
  EXPECT_EQ(outcome(device4), std::string("updated: ") + fourth);
}

TEST_F(Syncing, AFileThatIsNotRememberedIsAConflict) {
  save(fourth);
  EXPECT_EQ(outcome(device3), std::string("conflict, refused: ") + fourth);
  save("no command");
  EXPECT_EQ(outcome(device3), "conflict, refused: no command");
  EXPECT_EQ(outcome(device3, with(&SyncOptions::force)),
            std::string("updated: ") + third);
}

TEST_F(Syncing, TellsWhatDiffers) {
  save(fourth);
  SyncOptions options;
  options.processors = {"lc"};
  const SyncRun run = sync(device3, options);
  EXPECT_THAT(model_test::shown(run.results.front().differences),
              ElementsAre("debugDevice: 4 -> 3"));
}

TEST_F(Syncing, ADryRunAndACheckWriteNothing) {
  EXPECT_EQ(outcome(device3, with(&SyncOptions::dryRun)), "created: none");
  EXPECT_EQ(outcome(device3, with(&SyncOptions::check)),
            "created, refused: none");
  EXPECT_THAT(names(), IsEmpty());
  fs::remove(work.path() / "etc");
  EXPECT_EQ(outcome(device3, with(&SyncOptions::dryRun)), "created: none");
  EXPECT_FALSE(work.exists("etc"));
  outcome(device3);
  EXPECT_EQ(outcome(device3, with(&SyncOptions::check)),
            std::string("same: ") + third);
}

TEST_F(Syncing, ADryRunIsRefusedWhereTheRunWouldBe) {
  fs::create_symlink("nowhere", work.path() / "etc/kvo_lc.opt");
  const std::string refused = "refused, refused: none";
  EXPECT_EQ(outcome(device3, with(&SyncOptions::dryRun)), refused);
  EXPECT_EQ(outcome(device3, with(&SyncOptions::check)), refused);
  EXPECT_EQ(outcome(device3), refused);
  EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
  // A folder that is missing is made by the run.
  const Board other = boardIn("a/b/etc");
  const Project files = read(allowed);
  const auto created = [&](const SyncRun &run) {
    return !run.isRefused && run.results[0].outcome == SyncOutcome::created;
  };
  EXPECT_TRUE(
      created(SyncProject(files, {}, other, with(&SyncOptions::dryRun))));
  EXPECT_FALSE(work.exists("a"));
  EXPECT_TRUE(created(SyncProject(files, {}, other)));
}

TEST_F(Syncing, MakesTheFolderAndLeavesNoneBehindForNothing) {
  fs::remove(work.path() / "etc");
  EXPECT_EQ(outcome("[processor.lc]\nconnection = \"vp\"\n"),
            "refused, refused: none");
  EXPECT_FALSE(work.exists("etc"));
  EXPECT_EQ(outcome(device3), std::string("created: ") + third);
}

TEST_F(Syncing, OneRefusalOrLossKeepsAllFromBeingWritten) {
  const std::string lost = "[processor.a9]\n"
                           "cable.cableType = \"quorla_podusb\"\n"
                           "cable.frequency = \"3MHz\"\ncable.esn = \"7\"\n";
  const SyncRun run = sync(lost);
  EXPECT_TRUE(run.isRefused);
  EXPECT_FALSE(run.isDone);
  EXPECT_THAT(names(), IsEmpty());
  for (const SyncResult &result : run.results)
    EXPECT_EQ(result.outcome, result.processor == "a9" ? SyncOutcome::refused
                                                       : SyncOutcome::created)
        << result.processor << " " << result.message;
  const SyncRun forced = sync(lost, with(&SyncOptions::force));
  EXPECT_FALSE(forced.isRefused);
  EXPECT_EQ(names().size(), run.results.size() + 1);
}

TEST_F(Syncing, WarnsOfFilesOfProcessorsThatAreNoMore) {
  save(third, "gone");
  const SyncRun run = sync("");
  ASSERT_EQ(run.warnings.size(), 1U);
  EXPECT_EQ(run.warnings[0].code, "stale-option-file");
  EXPECT_EQ(saved("gone"), third);
}

TEST_F(Syncing, TakesAMemoryThatCannotBeReadForNone) {
  outcome(device3);
  work.write("etc/.zeldebug-sync", "lc\n");
  SyncOptions options;
  options.processors = {"lc"};
  const SyncRun run = sync(device4, options);
  ASSERT_EQ(run.warnings.size(), 1U);
  EXPECT_EQ(run.warnings[0].code, "sync-unreadable");
  EXPECT_EQ(run.results[0].outcome, SyncOutcome::conflict);
  EXPECT_EQ(outcome(device3), std::string("same: ") + third);
  EXPECT_EQ(remembered(), std::string("lc\t") + third + "\n");
}

TEST_F(Syncing, RefusesAProcessorThatIsNone) {
  SyncOptions options;
  options.processors = {"dsp"};
  EXPECT_EQ(model_test::refusalOf([&] { sync("", options); }),
            "unknown-processor: 'dsp' is no processor that can be debugged; "
            "accepted are 'lc', 'ppc405', 'ppc440', 'lc_sim', 'a9'");
  options.processors = {"lc", "r5"};
  EXPECT_THAT(model_test::refusalOf([&] { sync("", options); }),
              testing::StartsWith("not-debuggable: 'r5' cannot be debugged: "));
}

TEST(Remembering, ReadsWhatItWrites) {
  using namespace ZelDebugDialog::project;
  const Remembered texts{{"a.b", "connect x\ty"}, {"c", ""}};
  EXPECT_EQ(writtenRemembered(texts), "a.b\tconnect x\ty\nc\t\n");
  EXPECT_EQ(readRemembered(writtenRemembered(texts)).texts, texts);
  EXPECT_THAT(readRemembered("").problem, IsEmpty());
  for (const char *const text : {"a", "a\tb", "\tb\n", "a\n", "a\tb\na\tc\n",
                                 "\n", "a\t\t\\x\n", "a\t\t\\\n"})
    EXPECT_FALSE(readRemembered(text).problem.empty()) << text;
  EXPECT_EQ(writtenRemembered({{"a\tb", "c"}, {"d\n", "e"}, {"", "f"}}), "");
}

TEST(Remembering, ATextThatIsNoLineIsMadeOne) {
  using namespace ZelDebugDialog::project;
  struct Row {
    std::string text;
    const char *line;
  };
  for (const Row &row :
       {Row{"connect\n", "\tconnect\\n"}, Row{"a\r\n", "\ta\r\\n"},
        Row{"a\nb\\c\n", "\ta\\nb\\\\c\\n"}, Row{"\ta", "\t\ta"},
        Row{std::string("a\0b", 3), "\ta\\0b"},
        // As it stands: "a backslash is no escape" and a tab further back.
        Row{"a\\nb", "a\\nb"}, Row{"a\tb", "a\tb"}}) {
    const Remembered texts{{"lc", row.text}};
    EXPECT_EQ(writtenRemembered(texts), std::string("lc\t") + row.line + "\n");
    EXPECT_EQ(readRemembered(writtenRemembered(texts)).texts, texts)
        << row.line;
  }
}

TEST_F(Syncing, WhatIsTakenForWrittenMayEndItsLine) {
  outcome(device3);
  // As an editor leaves it.
  save(std::string(fourth) + "\n");
  EXPECT_EQ(outcome(device3),
            "conflict, refused: " + std::string(fourth) + "\n");
  RememberOptionFiles(board, {"lc"});
  EXPECT_EQ(outcome(device4), std::string("updated: ") + fourth);
  EXPECT_EQ(outcome(device4), std::string("same: ") + fourth);
}

TEST_F(Syncing, OfAFileThatCannotBeReadNobodyKnowsWhatDiffers) {
  save("connect nowhere");
  SyncOptions options;
  options.processors = {"lc"};
  const SyncRun run = sync(device3, options);
  EXPECT_EQ(run.results[0].outcome, SyncOutcome::conflict);
  EXPECT_THAT(run.results[0].differences, IsEmpty());
  EXPECT_EQ(run.results[0].message, open().Problem());
  EXPECT_FALSE(run.results[0].message.empty());
  EXPECT_EQ(saved(), "connect nowhere");
  EXPECT_EQ(outcome(device3, with(&SyncOptions::force)),
            std::string("updated: ") + third);
}

} // namespace
