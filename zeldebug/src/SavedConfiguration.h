// What is saved for a processor, selected in a session.
#ifndef ZELDEBUG_SAVEDCONFIGURATION_H
#define ZELDEBUG_SAVEDCONFIGURATION_H

#include <filesystem>
#include <string>

#include "OptionFile.h"
#include "Session.h"

namespace zeldebug {

struct SavedConfiguration {
  std::filesystem::path path;
  CommandFile file;
  Reading reading{};
  std::string refusal; ///< why the engine refused it; empty when it did not

  /// Something is there, and the engine took all of it.
  bool isWhole() const { return problem().empty(); }
  /// Why what is there is not (or not wholly) what was read; empty for nothing
  /// wrong. With the place.
  std::string problem() const;
};

/// Selects `processor` from its option file below the current folder.
SavedConfiguration selectSaved(Session &session, const std::string &processor);

} // namespace zeldebug

#endif
