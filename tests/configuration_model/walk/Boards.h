// Boards of random processors: every family, with every mask of connections.
#ifndef TESTS_CONFIGURATION_MODEL_WALK_BOARDS_H
#define TESTS_CONFIGURATION_MODEL_WALK_BOARDS_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "support/FakeDesign.h"
#include "walk/Random.h"

namespace walk {

class RandomBoard {
public:
  RandomBoard(Random &random, const std::string &folder);

  const ZelDebugDialog::Board &board() const { return made; }
  const std::vector<std::string> &names() const { return design.processors; }
  HHSMHwManager &hardware() { return design; }

private:
  support::FakeDesign design;
  ZelDebugDialog::Board made;
};

} // namespace walk

#endif
