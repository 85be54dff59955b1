// Programs that save one file at once: each has it alone.
#include <filesystem>
#include <future>
#include <string>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"
#include "files/LockFile.h"
#include "support/EndChild.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;

class LockTest : public ModelTest {
protected:
  /// A program of its own that gives one setting a value and saves.
  static pid_t startSetting(const Board &board, const std::string &setting,
                            const Value &value) {
    const pid_t child = fork();
    if (child != 0)
      return child;
    bool written = false;
    try {
      Session session(board, "lc", Session::Hold::untilSaved);
      session.Change({{setting, value}});
      written = session.Save().written;
    } catch (const Refusal &refusal) {
      ADD_FAILURE() << refusal.what();
    }
    support::endChild(written);
  }
  /// A folder whose option file is a link to that of the first.
  Board linkedBoard() {
    std::filesystem::create_directory(work.path() / "linked");
    std::filesystem::create_symlink("../" + fileOf(),
                                    work.path() / "linked" / "kvo_lc.opt");
    return boardIn("linked");
  }
  static int statusOf(pid_t child) {
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

TEST_F(LockTest, TwoProgramsThatHoldTheLockBothCount) {
  for (int round = 1; round <= 10; ++round) {
    const pid_t first = startSetting(board, "debugDevice", round);
    const pid_t second =
        startSetting(board, "bscanUserReg", round % 2 == 0 ? "USER2" : "USER1");
    EXPECT_EQ(statusOf(first), 0) << round;
    EXPECT_EQ(statusOf(second), 0) << round;
    const Session session = open();
    EXPECT_EQ(session.Get("debugDevice"), Value(round));
    EXPECT_EQ(model_test::shown("bscanUserReg", session.Get("bscanUserReg")),
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

TEST_F(LockTest, NewFilesHaveTheRightsThatTheUserLeaves) {
  namespace fs = std::filesystem;
  const mode_t usual = umask(0027);
  Session session(board, "lc", Session::Hold::untilSaved);
  const fs::perms ofLock =
      fs::status(work.path() / "etc" / ".kvo_lc.opt.lock").permissions();
  session.Save();
  umask(usual);
  const fs::perms left =
      fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
  EXPECT_EQ(ofLock, left);
  EXPECT_EQ(fs::status(work.path() / fileOf()).permissions(), left);
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
    {
      Session session(board, "lc", Session::Hold::untilSaved);
      usleep(300000);
      session.Change({{"debugDevice", 7}});
      session.Save();
    }
    support::endChild(true);
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

/// No file system takes a name of more than 255 bytes.
TEST_F(LockTest, WhatLiesBesideAFileHasAShortName) {
  for (const std::size_t size : {1U, 239U, 240U}) {
    const std::string name(size, 'a');
    EXPECT_EQ(model::besideFile("x/" + name, ".lock"), "x/." + name + ".lock");
  }
  const std::string front = "b" + std::string(219, 'a');
  const std::string long1 = front + std::string(20, 'a') + "b";
  const std::string long2 = front + std::string(20, 'a') + "c";
  const std::string name = model::besideFile("x/" + long1, ".lock").filename();
  EXPECT_EQ(name.substr(0, 222), "." + front + "~");
  EXPECT_LE(name.size(), 255U);
  EXPECT_EQ(name.substr(name.size() - 5), ".lock");
  EXPECT_NE(name, model::besideFile("x/" + long2, ".lock").filename());
}

/// How many descriptors of this program lead to a file.
int descriptorsOf(const std::filesystem::path &file) {
  int count = 0;
  for (const auto &entry :
       std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    if (std::filesystem::read_symlink(entry.path(), gone) == file)
      ++count;
  }
  return count;
}

/// Whoever has waited holds what lies under the name then, not what has been
/// taken away meanwhile.
TEST_F(LockTest, WhoHasWaitedTakesALockThatLiesThere) {
  const std::string name = ".kvo_lc.opt.lock";
  const std::filesystem::path file =
      std::filesystem::canonical(work.path() / "etc") / name;
  const int held = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_GE(held, 0);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  std::future<std::vector<std::string>> waiting =
      std::async(std::launch::async, [this] {
        const Session session(board, "lc", Session::Hold::untilSaved);
        return names();
      });
  for (int count = 0; count < 2; count = descriptorsOf(file))
    usleep(1000);
  EXPECT_EQ(unlink(file.c_str()), 0);
  EXPECT_EQ(close(held), 0);
  EXPECT_THAT(waiting.get(), ElementsAre(name));
  EXPECT_THAT(names(), testing::IsEmpty());
}

TEST_F(LockTest, FoldersThatLinkToOneFileHaveOneLock) {
  save("connect lc hdu");
  const Board linked = linkedBoard();
  for (int round = 1; round <= 10; ++round) {
    const pid_t first = startSetting(board, "debugDevice", round);
    const pid_t second = startSetting(linked, "bscanUserReg",
                                      round % 2 == 0 ? "USER2" : "USER1");
    EXPECT_EQ(statusOf(first), 0) << round;
    EXPECT_EQ(statusOf(second), 0) << round;
    const Session session = open();
    EXPECT_EQ(session.Get("debugDevice"), Value(round));
    EXPECT_EQ(model_test::shown("bscanUserReg", session.Get("bscanUserReg")),
              round % 2 == 0 ? "USER2" : "USER1");
  }
  EXPECT_THAT(names(), ElementsAre("kvo_lc.opt"));
}

TEST_F(LockTest, TheLockLiesBesideTheFileThatIsReplaced) {
  save("connect lc hdu");
  const Board linked = linkedBoard();
  const Session held(linked, "lc", Session::Hold::untilSaved);
  EXPECT_THAT(names(), ElementsAre(".kvo_lc.opt.lock", "kvo_lc.opt"));
  EXPECT_FALSE(work.exists("linked/.kvo_lc.opt.lock"));
  // A file of its own is no link.
  const Session other(linked, "a9", Session::Hold::untilSaved);
  EXPECT_TRUE(work.exists("linked/.kvo_a9.opt.lock"));
}

TEST_F(LockTest, SessionsOfOneFileByTwoNamesDoNotWaitForEachOther) {
  std::filesystem::create_directory_symlink("etc", work.path() / "same");
  const Board same = boardIn("same");
  for (const bool exists : {false, true}) {
    Session first = open();
    Session second(same, "lc", Session::Hold::untilSaved);
    first.Change({{"debugDevice", exists ? 5 : 3}});
    second.Change({{"debugDevice", exists ? 6 : 4}});
    const auto outcomes = SaveSessions({&first, &second});
    ASSERT_TRUE(outcomes[0].refusal) << exists;
    EXPECT_EQ(outcomes[0].refusal->kind, RefusalKind::changedOnDisk);
    EXPECT_TRUE(outcomes[1].written) << exists; // it holds the lock
  }
}

} // namespace
