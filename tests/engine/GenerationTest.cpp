// `Generate` and `GenerateCmdString` hand the writers' results through.
#include <gtest/gtest.h>

#include <string>

#include "support/EngineFixture.h"
#include "support/RecordText.h"
#include "support/TemporaryDirectory.h"

using namespace ZelDebugDialog;
using support::textOf;

namespace {

class Generation : public support::RecordFixture {
protected:
  Generation() {
    record.instanceName = "cpu0";
    record.connectCommand = "the command before";
    engine.SetErrorStr("an old message");
  }
};

TEST_F(Generation, GivesTheCommandAndStoresIt) {
  std::string command = "what stood there";
  EXPECT_EQ(engine.GenerateCmdString(command), 0);
  EXPECT_EQ(command, "connect lc hdu -debugdevice cpunr 1");
  EXPECT_EQ(record.connectCommand, command);
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(Generation, LeavesBothTextsWhenThereIsNoCommand) {
  record.connectionType = 0x84;
  const std::string before = textOf(record);
  std::string command = "what stood there";
  EXPECT_EQ(engine.GenerateCmdString(command), 1);
  EXPECT_EQ(command, "what stood there");
  EXPECT_EQ(textOf(record), before);
  EXPECT_EQ(errorText(), "Invalid Connect Type for Lumacore Target");
}

TEST_F(Generation, SavesTheCommandInTheOptionFile) {
  const support::TemporaryDirectory folder;
  folder.write("etc/kvo_cpu0.opt", "a longer command that was saved before\n");
  EXPECT_EQ(engine.Generate(), 0);
  EXPECT_EQ(folder.read("etc/kvo_cpu0.opt"),
            "connect lc hdu -debugdevice cpunr 1");
  EXPECT_EQ(record.connectCommand, "connect lc hdu -debugdevice cpunr 1");
  EXPECT_EQ(errorText(), "an old message");
}

TEST_F(Generation, LeavesTheOptionFileWhenThereIsNoCommand) {
  const support::TemporaryDirectory folder;
  folder.write("etc/kvo_cpu0.opt", "saved before");
  record.connectionType = 0x84;
  EXPECT_EQ(engine.Generate(), 1);
  EXPECT_EQ(folder.read("etc/kvo_cpu0.opt"), "saved before");
  EXPECT_EQ(record.connectCommand, "the command before");
  EXPECT_EQ(errorText(), "Invalid Connect Type for Lumacore Target");
}

TEST_F(Generation, ReportsAFileThatCannotBeOpened) {
  const support::TemporaryDirectory folder;
  EXPECT_EQ(engine.Generate(), 4);
  EXPECT_FALSE(folder.exists("etc"));
  EXPECT_EQ(record.connectCommand, "connect lc hdu -debugdevice cpunr 1");
  EXPECT_EQ(errorText(), "Error Opening File");
}

} // namespace
