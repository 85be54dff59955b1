// A configuration from open to saved: changed, drafted, checked for what would
// not survive, and saved. Prints what a dialog would show.
//
//   session board.xml
#include <cstdio>
#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Board.h"
#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "ZelDebugDialog/DesignModel/DesignModel.h"

using namespace ZelDebugDialog;

namespace {

void tell(const std::vector<Effect> &effects) {
  for (const Effect &effect : effects)
    std::printf("  %s is another: %s\n", effect.setting.c_str(),
                effect.why.c_str());
}

} // namespace

int main(int count, char **arguments) {
  DesignModel design;
  if (count != 2 || !ReadDesign({arguments[1], {}, "", ""}, design))
    return 2;
  const Board board(design, "etc"); // discovers, once
  Session session(board, "lumacore_0");

  std::puts("choose a cable, with a frequency of its own");
  tell(session.Change(
      {{"cable.cableType", "quorla_podusb"}, {"cable.frequency", "3 MHz"}}));
  std::puts("type a frequency that is none: kept as a draft, sets nothing");
  session.Draft("cable.frequency", "fast");
  try {
    session.Save();
  } catch (const Refusal &refusal) {
    std::printf("  refused: %s\n", refusal.what());
  }
  session.DropDraft("cable.frequency");

  std::puts("a serial number takes the place of port and frequency");
  session.Change({{"cable.esn", "0042"}});
  for (const Loss &loss : session.Losses())
    std::printf("  lost: %s, for %s\n", loss.field.c_str(),
                loss.reason.c_str());
  tell(session.Undo());

  const SaveOutcome saved = session.Save();
  std::printf("saved %s\n", saved.command.c_str());
  return 0;
}
