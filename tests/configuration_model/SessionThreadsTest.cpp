// Sessions in several threads: of boards with different designs, each thread
// with its own, and one session that two threads share.
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "configuration_model/ModelTest.h"
#include "support/EndChild.h"
#include "support/ManyOrFew.h"

namespace {

using namespace ZelDebugDialog;

// Under valgrind, where one thread runs at a time, a few show what it looks
// for.
const int rounds = support::manyOrFew(50, 10);

/// Another design than that of the other tests, with names of its own.
void fillOther(support::FakeDesign &design) {
  design.processors = {"core0", "core1"};
  design.typeOf = {{"core0", "ppc405_core"}, {"core1", "ppc440_core"}};
  design.addDebugModule("link", "ppc_jtag_link", {"core0", "core1"});
  design.addPeripheral("core1", "fpu", "aux_fpu_gen5");
  design.parameterOf[{"fpu", "C_DOUBLE_PRECISION"}] = "1";
}

class SessionThreadsTest : public model_test::ModelTest {
protected:
  SessionThreadsTest() : other(otherBoard()) {}

  Board otherBoard() {
    fillOther(otherDesign);
    return {otherDesign, (work.path() / "etc").string()};
  }

  support::FakeDesign otherDesign;
  Board other;
};

/// A dialog's life: each step answers as if it were alone.
int livesIn(const Board &board, const std::string &processor) {
  int good = 0;
  for (int round = 1; round <= rounds; ++round) {
    Session session(board, processor);
    session.Change({{"debugDevice", round}, {"cable.cableType", 3}});
    session.Draft("stubTimeout", "soon");
    const std::string command = session.Command();
    const SessionState state = session.State();
    session.DropDraft("stubTimeout");
    session.Edit(command + " -quiet");
    session.Undo();
    const bool isSaved = !SaveSessions({&session}).front().refusal;
    const Session anew(board, processor);
    const bool isSame = anew.Command() == command && state.command == command;
    good += isSaved && isSame && CheckCommand(command).accepted ? 1 : 0;
  }
  return good;
}

TEST_F(SessionThreadsTest, FourWithSessionsOfTheirOwn) {
  struct Place {
    const Board *board;
    const char *processor;
  } const places[] = {
      {&board, "lc"}, {&board, "ppc440"}, {&other, "core0"}, {&other, "core1"}};
  std::vector<int> good(std::size(places));
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < good.size(); ++i)
    threads.emplace_back([&good, &places, i] {
      good[i] = livesIn(*places[i].board, places[i].processor);
    });
  for (std::thread &thread : threads)
    thread.join();
  for (const int count : good)
    EXPECT_EQ(count, rounds);
}

TEST_F(SessionThreadsTest, TwoWithOneSession) {
  Session session = open();
  Session source = open("ppc405");
  std::atomic<int> answers{0};
  const auto use = [&](const char *setting) {
    for (int round = 1; round <= rounds; ++round) {
      session.Change({{setting, round}});
      session.State();
      session.Losses();
      session.Get(setting);
      session.ChangedOnDisk();
      source.CopyFrom(session);
      session.CopyFrom(source);
      SaveSessions({&session, &source});
      SaveSessions({&source, &session});
      ++answers;
    }
  };
  std::thread first(use, "debugDevice");
  std::thread second(use, "stubTimeout");
  first.join();
  second.join();
  EXPECT_EQ(answers, 2 * rounds);
  EXPECT_TRUE(session.State().canUndo);
}

/// Whether it ends well in a process of its own.
bool endsWell(pid_t child) {
  int status = -1;
  return waitpid(child, &status, 0) == child && status == 0;
}

TEST_F(SessionThreadsTest, OneThatForksWhileAnotherWorks) {
  livesIn(other, "core1"); // what is made on first use is there
  std::atomic<bool> isDone{false};
  std::thread working([&] {
    while (!isDone)
      livesIn(board, "ppc440");
  });
  const auto start = [this] {
    const pid_t child = fork();
    if (child != 0)
      return child;
    alarm(60); // where it would wait for ever
    bool isChanged = false;
    {
      Session session(other, "core0");
      session.Change({{"debugDevice", 3}});
      isChanged = session.Get("debugDevice") == Value(3);
    }
    support::endChild(isChanged);
  };
  int good = 0;
  while (good < rounds && endsWell(start()))
    ++good;
  isDone = true;
  working.join();
  EXPECT_EQ(good, rounds);
}

/// Starts another program for each answer.
class ForkingDesign : public support::FakeDesign {
public:
  std::string getIpName(const std::string &instance) override {
    const pid_t child = fork();
    if (child == 0)
      support::endChild(true);
    areAllWell = endsWell(child) && areAllWell;
    ++programs;
    return FakeDesign::getIpName(instance);
  }

  bool areAllWell = true;
  int programs = 0;
};

TEST_F(SessionThreadsTest, ADesignThatForksWhereItIsAsked) {
  ForkingDesign asked;
  fillOther(asked);
  alarm(60); // where it would wait for itself
  const Board forking(asked, (work.path() / "etc").string());
  Session session(forking, "core0");
  session.Change({{"debugDevice", 3}});
  EXPECT_EQ(session.Get("debugDevice"), Value(3));
  alarm(0);
  EXPECT_GT(asked.programs, 0);
  EXPECT_TRUE(asked.areAllWell);
}

} // namespace
