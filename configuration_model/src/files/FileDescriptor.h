// A file that is open, and closed at the end of its scope.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_FILEDESCRIPTOR_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_FILES_FILEDESCRIPTOR_H

#include <filesystem>

#include <sys/types.h>

namespace ZelDebugDialog::model {

class FileDescriptor {
public:
  /// Other programs that are started do not get it. What keeps it from being
  /// opened stands in `errno`.
  /// @param flags  as of open(2)
  /// @param mode   of a file that is made
  FileDescriptor(const std::filesystem::path &file, int flags, mode_t mode = 0);
  ~FileDescriptor();
  FileDescriptor(const FileDescriptor &) = delete;
  FileDescriptor &operator=(const FileDescriptor &) = delete;

  bool isOpen() const { return descriptor != -1; }
  int number() const { return descriptor; }

private:
  int descriptor;
};

} // namespace ZelDebugDialog::model

#endif
