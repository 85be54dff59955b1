// Several processes that synchronize one folder, and some that are killed.
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

#include "ZelDebugDialog/ProjectFile/Sync.h"
#include "project_file/ProjectTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace project_test;

const std::string device3 = "[processor.lc]\ndebugDevice = 3\n";
const std::string device4 = "[processor.lc]\ndebugDevice = 4\n";

class Processes : public ProjectTest {
protected:
  SyncRun sync(const std::string &project, const SyncOptions &options = {}) {
    const Project files =
        read("[processor.lc_sim]\nconnection = \"sim\"\n" + project);
    return SyncProject(files, ChooseProject(files, {}), board, options);
  }
  static SyncOptions with(bool SyncOptions::*flag) {
    SyncOptions options;
    options.*flag = true;
    return options;
  }
};

TEST_F(Processes, TwoAtOnceLeaveEveryFileWhole) {
  std::vector<pid_t> children;
  for (int at = 0; at < 4; ++at) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      bool isGood = true;
      for (int round = 0; round < 5; ++round)
        isGood = !sync(device3).isRefused && isGood;
      _exit(isGood ? 0 : 1);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  EXPECT_FALSE(sync(device3, with(&SyncOptions::check)).isRefused);
  EXPECT_EQ(names().size(), board.Processors().size() + 1);
}

TEST_F(Processes, AKilledRunIsMendedByTheNext) {
  for (int delay = 1; delay <= 10; ++delay) {
    const std::string wanted = delay % 2 == 0 ? device3 : device4;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (;;)
        sync(wanted);
    }
    usleep(static_cast<useconds_t>(delay) * 2000);
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    const SyncRun run = sync(wanted);
    EXPECT_FALSE(run.isRefused) << delay;
    EXPECT_FALSE(sync(wanted, with(&SyncOptions::check)).isRefused) << delay;
  }
}

} // namespace
