// What discovery finds on a board.
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "configuration_model/ModelTest.h"

namespace {

using namespace ZelDebugDialog;
using namespace model_test;
using testing::ElementsAre;

class BoardTest : public ModelTest {};

/// "name type family procType mask number fpu fpuText: connections"
std::string shown(const BoardProcessor &processor) {
  std::string text = processor.name + " " + processor.type;
  for (const auto number :
       {processor.family, processor.procType, processor.mask,
        static_cast<std::uint32_t>(processor.number), processor.fpu})
    text += " " + std::to_string(number);
  text += " " + processor.fpuText + ":";
  for (const std::string &connection : processor.connections)
    text += " " + connection;
  return text;
}

TEST_F(BoardTest, ProcessorsAreToldInFull) {
  std::vector<std::string> lines;
  for (const BoardProcessor &processor : board.Processors())
    lines.push_back(shown(processor));
  EXPECT_THAT(
      lines,
      ElementsAre("lc lumacore 0 0 135 1 0 -: sim hw stub-serial stub-jtag",
                  "ppc405 ppc405_core 1 1 3 1 0 -: sim hw",
                  "ppc440 ppc440_core 1 2 3 2 1 sp: sim hw",
                  "lc_sim lumacore 0 0 1 2 0 -: sim",
                  "a9 soc_cortexa9 2 4 2 1 0 -: hw"));
}

TEST_F(BoardTest, OthersAreToldWithWhatTheyAreConnectedTo) {
  design.addDebugModule("more", "thing", {"r5"});
  const Board found(design, "etc");
  ASSERT_EQ(found.Undebuggable().size(), 1U);
  const UndebuggableProcessor &other = found.Undebuggable()[0];
  EXPECT_EQ(other.name, "r5");
  EXPECT_EQ(other.type, "soc_cortexr5");
  ASSERT_EQ(other.modules.size(), 2U);
  EXPECT_EQ(other.modules[0].name, "other0");
  EXPECT_EQ(other.modules[0].type, "probe");
  EXPECT_EQ(other.modules[1].name, "more");
  EXPECT_EQ(other.modules[1].type, "thing");
}

TEST_F(BoardTest, KeepsTheFolderAsItWasGiven) {
  const struct {
    const char *folder;
    const char *file;
  } rows[] = {
      {"etc", "etc/kvo_lc.opt"},
      {"a/../b/", "a/../b/kvo_lc.opt"},
      {"", "kvo_lc.opt"},
  };
  for (const auto &row : rows) {
    const Board found(design, row.folder);
    EXPECT_EQ(found.Folder(), row.folder);
    EXPECT_EQ(found.FileOf("lc"), row.file);
    EXPECT_THAT(found.Names(),
                ElementsAre("lc", "lc_sim", "ppc405", "ppc440", "a9", "r5"));
    EXPECT_EQ(Session(found, "lc").File(), row.file);
  }
}

/// A relative one has no place then.
TEST_F(BoardTest, NeedsTheFolderThatTheProcessIsIn) {
  namespace fs = std::filesystem;
  const fs::path before = fs::current_path();
  const fs::path gone = work.path() / "gone";
  fs::create_directory(gone);
  fs::current_path(gone);
  fs::remove(gone);
  EXPECT_EQ(refusalOf([&] { Board(design, "etc"); }),
            "file-system: etc: No such file or directory");
  EXPECT_EQ(refusalOf([&] { Board(design, "/etc"); }), "accepted");
  fs::current_path(before);
}

} // namespace
