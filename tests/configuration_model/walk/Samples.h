// Values of settings, good and bad, from what is documented of each: not from
// what the library itself tries.
#ifndef TESTS_CONFIGURATION_MODEL_WALK_SAMPLES_H
#define TESTS_CONFIGURATION_MODEL_WALK_SAMPLES_H

#include <string>
#include <vector>

#include "ZelDebugDialog/ConfigurationModel/Session.h"
#include "configuration_model/walk/Boards.h"

namespace walk {

/// A value, and a way to ask for it.
struct Sample {
  ZelDebugDialog::Value value;
  ZelDebugDialog::Value asked;
};

/// Values that a change takes: the limits of a range, the choices that the
/// processor allows, texts of all kinds. The same for the same setting.
std::vector<Sample> goodSamples(const ZelDebugDialog::SettingState &setting);
/// Values that no change takes, unless one of them is there already.
std::vector<ZelDebugDialog::Value>
badSamples(const ZelDebugDialog::SettingState &setting);

/// A command: one that was written, a special one, or one of them changed.
std::string randomCommand(Random &random,
                          const std::vector<std::string> &written);

} // namespace walk

#endif
