// A file system that cannot keep what was written: nothing takes the place of
// what is there.
#include <cerrno>
#include <string>

#include <sys/syscall.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"

namespace {

bool isFailing = false;

int flush(long call, int descriptor) {
  if (!isFailing)
    return static_cast<int>(syscall(call, descriptor));
  errno = EIO;
  return -1;
}

} // namespace

// In the place of those of the C library.
extern "C" int fsync(int descriptor) { return flush(SYS_fsync, descriptor); }
extern "C" int syncfs(int descriptor) noexcept {
  return flush(SYS_syncfs, descriptor);
}

namespace {

using namespace ZelDebugDialog;
using namespace model_test;

constexpr const char *before = "connect lc sim";

class FlushTest : public ModelTest {
protected:
  void SetUp() override {
    save(before);
    isFailing = true;
  }
  void TearDown() override { isFailing = false; }
};

TEST_F(FlushTest, WhatIsNotKeptIsRefused) {
  Session session = open();
  session.Change({{"connection", "hw"}});
  EXPECT_THAT(refusalOf([&] { session.Save(); }),
              testing::AllOf(testing::StartsWith("file-system: "),
                             testing::EndsWith(": Input/output error")));
  EXPECT_EQ(saved(), before);
  EXPECT_THAT(names(), testing::ElementsAre("kvo_lc.opt"));
  EXPECT_TRUE(session.State().dirty);
  isFailing = false;
  EXPECT_TRUE(session.Save().written);
}

TEST_F(FlushTest, OfSeveralAllAreRefused) {
  Session session = open();
  session.Change({{"connection", "hw"}});
  Session other = open("a9");
  for (const SaveOutcome &outcome : SaveSessions({&session, &other})) {
    EXPECT_FALSE(outcome.written);
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->kind, RefusalKind::fileSystem);
  }
  EXPECT_EQ(saved(), before);
  EXPECT_THAT(names(), testing::ElementsAre("kvo_lc.opt"));
  isFailing = false;
  for (const SaveOutcome &outcome : SaveSessions({&session, &other}))
    EXPECT_TRUE(outcome.written);
}

} // namespace
