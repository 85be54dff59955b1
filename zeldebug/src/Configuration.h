// One whole configuration by value, and the settings in which two of them
// differ.
#ifndef ZELDEBUG_CONFIGURATION_H
#define ZELDEBUG_CONFIGURATION_H

#include <cstdint>
#include <string>
#include <vector>

#include <ZelDebugDialog/EngineImp.h>

#include "Fields.h"
#include "output/Json.h"

namespace zeldebug {

struct Configuration {
  ZelDebugDialog::ProcessorInfoImp record;
  ZelDebugDialog::CableOption cable;
  std::uint32_t cpuJtag = 0;
  std::vector<ZelDebugDialog::JtagOption> chain;
};

/// What the engine holds for its current processor.
Configuration configurationOf(const ZelDebugDialog::EngineImp &state);

/// The processor of `identity` with nothing set: no cable, but frequency and
/// port that the cable's type brings along, and a chain of the same length, so
/// that `settingsOf` of both stand side by side.
Configuration defaultsBeside(const Configuration &configuration,
                             const ZelDebugDialog::ProcessorInfoImp &identity);

/// "record", "cable", "cpuJtag" and "chain".
Json toJson(const Configuration &configuration);

/// One setting by its full name, such as "debugDevice", "cable.port" or
/// "chain[0].partname".
struct Setting {
  std::string name;
  FieldKind kind;
  Json value;
};

/// Every setting, in the order of the records; the command text is none.
std::vector<Setting> settingsOf(const Configuration &configuration);

/// One of them by its name; its value is null for a chain device that is not
/// there.
Setting settingNamed(const Configuration &configuration,
                     const std::string &name);

/// A setting that two configurations do not share. A chain device that only one
/// of them has stands for itself, with null on the other side.
struct Difference {
  std::string name;
  FieldKind kind;
  Json before;
  Json after;
};

std::vector<Difference> differencesBetween(const Configuration &before,
                                           const Configuration &after);

/// A value as the text "null" stands for: nothing there.
std::string shownSide(const Json &value, FieldKind kind);

/// [{"name", "before", "after"}]
Json toJson(const std::vector<Difference> &differences);

} // namespace zeldebug

#endif
