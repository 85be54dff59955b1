// Saving an option file so that the one that is there is either wholly replaced
// or untouched.
#ifndef ZELDEBUG_OPTIONFILESAVER_H
#define ZELDEBUG_OPTIONFILESAVER_H

#include <filesystem>
#include <memory>
#include <string>

#include "Loss.h"
#include "ScratchFolder.h"
#include "Session.h"

namespace zeldebug {

/// The engine writes its file in a scratch folder; a fresh engine reads it
/// there; then it is moved into place.
class OptionFileSaver {
public:
  /// Writes the file of the session's current processor.
  /// @param folder  where the scratch folder is made: beside the file that is
  /// to
  ///   be replaced, so that moving it there takes one step.
  /// @throws Failure (refused) if it cannot be written whole.
  OptionFileSaver(Session &session, const std::filesystem::path &folder);

  const std::string &command() const { return text; }

  /// Selects the processor as a dialog would tomorrow.
  ReadBack readBack(HHSMHwManager *design) const;

  /// Puts the file in the place of `target`, with the permissions of the file
  /// that is there. @throws Failure (refused)
  void moveTo(const std::filesystem::path &target) const;

private:
  std::string processor;
  std::string text;
  std::unique_ptr<ScratchFolder> scratch;
  std::filesystem::path written;
};

/// @throws Failure (refused) for what no file can take the place of.
void expectReplaceable(const std::filesystem::path &target);

/// The file that a path leads to, behind links; the path itself for what is not
/// there.
std::filesystem::path behindLinks(const std::filesystem::path &path);

} // namespace zeldebug

#endif
