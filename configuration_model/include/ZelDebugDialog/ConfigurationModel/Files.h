// Writing a file so that it is there wholly or not at all, and having it alone
// meanwhile.
//
// Usable from any thread, and by several programs at once.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_H

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "ZelDebugDialog/ConfigurationModel/Export.h"
#include "ZelDebugDialog/ConfigurationModel/Refusal.h"

namespace ZelDebugDialog {

/// What becomes of a file that is there.
enum class ExistingFile : std::uint8_t {
  refuse,  ///< it stays
  replace, ///< it is replaced, with its permissions
};

/// Who has the lock of a file writes it alone, across programs. It is a file of
/// its own beside it, hidden, `.NAME.lock`, held from its making to its end and
/// gone again afterwards; one that a killed program left behind is in nobody's
/// way. Behind links, it is that of the file that they lead to.
class ZELDEBUGDIALOG_CONFIGURATIONMODEL_API FileLock {
public:
  /// Waits for whoever has it.
  /// @param file      may be missing, its folder may not
  /// @param patience  how long: who takes longer has been stopped
  /// @throws Refusal (noFolder; noRegularFile for what is there and no file;
  ///   fileSystem, also after that time)
  explicit FileLock(const std::string &file,
                    std::chrono::seconds patience = std::chrono::seconds(20));
  ~FileLock();
  FileLock(const FileLock &) = delete;
  FileLock &operator=(const FileLock &) = delete;

private:
  struct Held;
  std::unique_ptr<Held> held;

  friend ZELDEBUGDIALOG_CONFIGURATIONMODEL_API bool
  WriteWholeFile(const FileLock &lock, const std::string &text,
                 ExistingFile existing);
};

/// Writes `text` beside the file and moves it into its place, which nobody else
/// does meanwhile. Nothing but a regular file is ever replaced, also behind a
/// link. After a refusal, or in a program that is killed, what was there is
/// there.
/// @return false where the file holds just this text; it is left alone then.
/// @throws Refusal (fileExists with `refuse`, noRegularFile, noFolder,
///   fileSystem)
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API bool
WriteWholeFile(const std::string &path, const std::string &text,
               ExistingFile existing);

/// The same for who has the lock of the file already.
ZELDEBUGDIALOG_CONFIGURATIONMODEL_API bool
WriteWholeFile(const FileLock &lock, const std::string &text,
               ExistingFile existing);

} // namespace ZelDebugDialog

#endif
