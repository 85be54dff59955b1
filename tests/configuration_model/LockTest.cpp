// Programs that save one file at once: each has it alone.
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;

class LockTest : public ModelTest {
protected:
  /// A program of its own that gives one setting a value and saves.
  pid_t startSetting(const std::string &setting, const Value &value) const {
    const pid_t child = fork();
    if (child != 0)
      return child;
    int status = 1;
    try {
      Session session(board, "lc", Session::Hold::untilSaved);
      session.Change({{setting, value}});
      status = session.Save().written ? 0 : 2;
    } catch (const Refusal &refusal) {
      ADD_FAILURE() << refusal.what();
    }
    _exit(status);
  }
  static int statusOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

TEST_F(LockTest, TwoProgramsThatHoldTheLockBothCount) {
  for (int round = 1; round <= 10; ++round) {
    const pid_t first = startSetting("debugDevice", round);
    const pid_t second =
        startSetting("bscanUserReg", round % 2 == 0 ? "USER2" : "USER1");
    EXPECT_EQ(statusOf(first), 0) << round;
    EXPECT_EQ(statusOf(second), 0) << round;
    const Session session = open();
    EXPECT_EQ(session.Get("debugDevice"), Value(round));
    EXPECT_EQ(shown("bscanUserReg", session.Get("bscanUserReg")),
              round % 2 == 0 ? "USER2" : "USER1");
    EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
  }
}

TEST_F(LockTest, TheLockIsHeldUntilSavedOrClosed) {
  const std::vector<std::string> held{".kvo_lc.opt.lock"};
  {
    Session session(board, "lc", Session::Hold::untilSaved);
    EXPECT_EQ(names(), held);
    session.Change({{"simMemSize", 5}});
    SaveOptions dryRun;
    dryRun.dryRun = true;
    EXPECT_THAT(refusalOf([&] { session.Save(); }),
                testing::StartsWith("would-be-lost"));
    EXPECT_EQ(names(), held);
    session.Undo();
    session.Save(dryRun);
    EXPECT_EQ(names(), held);
    session.Save();
    EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
  }
  {
    const Session closed(board, "lc", Session::Hold::untilSaved);
    EXPECT_THAT(names(), ElementsAre(".kvo_lc.opt.lock", "kvo_lc.opt"));
  }
  EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
}

TEST_F(LockTest, AnotherProcessorsFileIsNotHeld) {
  const Session held(board, "lc", Session::Hold::untilSaved);
  Session other = open("a9");
  EXPECT_TRUE(other.Save().written);
}

TEST_F(LockTest, AMissingFolderIsRefused) {
  std::filesystem::remove(work.path() / "etc");
  const auto hold = [&] {
    const Session session(board, "lc", Session::Hold::untilSaved);
  };
  EXPECT_THAT(refusalOf(hold),
              testing::AllOf(testing::StartsWith("no-folder: "),
                             testing::EndsWith("there is no such folder")));
  work.write("etc", "");
  EXPECT_THAT(refusalOf(hold), testing::StartsWith("no-folder: "));
}

TEST_F(LockTest, AnotherThatSavesWaits) {
  const pid_t child = fork();
  if (child == 0) {
    Session session(board, "lc", Session::Hold::untilSaved);
    usleep(300000);
    session.Change({{"debugDevice", 7}});
    session.Save();
    _exit(0);
  }
  while (names().empty())
    usleep(1000);
  Session session = open(); // before the other has saved
  session.Change({{"debugDevice", 8}});
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::StartsWith("changed-on-disk"));
  EXPECT_EQ(statusOf(child), 0);
  EXPECT_EQ(open().Get("debugDevice"), Value(7));
}

} // namespace
