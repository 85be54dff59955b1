// A configuration through the configuration model alone, for a design of the
// program's own: opened, changed, refused. Ends with 0 when all of it came out
// right.
#include <cstdio>
#include <string>

#include "OneLumacore.h"
#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"

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
  expect(board.Processors().size() == 1, "one processor is listed");

  Session session(board, "cpu0");
  session.Change({{"cable.cableType", "quorla_podusb"}});
  std::printf("%s\n", session.Command().c_str());
  expect(session.Command() ==
             "connect lc hdu -cable type quorla_podusb port USB21 "
             "frequency 6000000 -debugdevice cpunr 1",
         "the command names cable and processor");
  expect(CheckCommand(session.Command()).accepted, "it is read again");

  try {
    session.Save();
    expect(false, "nothing is saved where no folder is");
  } catch (const Refusal &refusal) {
    expect(refusal.kind == RefusalKind::noFolder, "the folder is told");
  }
  return failures == 0 ? 0 : 1;
}
