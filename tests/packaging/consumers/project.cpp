// What the files of a project make of a processor, through the project file's
// library alone, for a design of the program's own. Ends with 0 when all of it
// came out right.
#include <cstdio>
#include <string>

#include "OneLumacore.h"
#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/ProjectFile/Merge.h"
#include "ZelDebugDialog/ProjectFile/Project.h"

using namespace ZelDebugDialog;

namespace {

int failures = 0;

void expect(bool held, const char *what) {
  if (held)
    return;
  std::fprintf(stderr, "not so: %s\n", what);
  ++failures;
}

} // namespace

int main() {
  const Board board(oneLumacore(), "no-such-folder");
  const Project project =
      ReadProjectTexts("zeldebug.toml",
                       "design = \"board.xml\"\n"
                       "[settings]\n"
                       "cable.cableType = \"quorla_podusb\"\n",
                       "[processor.cpu0]\n"
                       "cable.frequency = \"3 MHz\"\n");
  expect(project.faults.empty(), "nothing is wrong with the files");
  expect(CheckProject(project, board).empty(), "they fit the design");

  Session session(board, "cpu0");
  const MergedProcessor merged = MergeProject(
      project, ChooseProject(project, {}), board.Processors().front());
  const AppliedProject applied = ApplyProject(project, merged, board, session);
  std::printf("%s\n", applied.command.value_or("").c_str());
  expect(applied.command == "connect lc hdu -cable type quorla_podusb port "
                            "USB21 frequency 3000000 -debugdevice cpunr 1",
         "both files say what the command holds");

  const Project faulty = ReadProjectTexts(
      "zeldebug.toml", "design = \"board.xml\"\ndesing = 1\n", {});
  expect(faulty.HasErrors() && faulty.faults.front().place.line == 2,
         "a fault has its place");
  return failures == 0 ? 0 : 1;
}
