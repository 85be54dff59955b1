#include "files/FileDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace ZelDebugDialog::model {

FileDescriptor::FileDescriptor(const std::filesystem::path &file, int flags,
                               mode_t mode)
    : descriptor(open(file.c_str(), flags | O_CLOEXEC, mode)) {}

FileDescriptor::~FileDescriptor() {
  if (isOpen())
    close(descriptor);
}

} // namespace ZelDebugDialog::model
