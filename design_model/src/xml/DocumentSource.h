// Where the text of documents comes from: the file system, or what takes its
// place.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_DOCUMENTSOURCE_H
#define ZELDEBUGDIALOG_DESIGNMODEL_DOCUMENTSOURCE_H

#include <cstddef>
#include <string>
#include <vector>

namespace ZelDebugDialog {

/// A folder that is not searched, or what may be one or a file; and why.
struct FolderFault {
  std::string folder;
  std::string reason;
  bool isLink = false; ///< To one; nothing is wrong with it.
};

class DocumentSource {
public:
  enum class Kind {
    missing,
    unreadable, ///< What is there may not be looked at.
    file,
    folder,
  };
  static constexpr std::size_t whole = static_cast<std::size_t>(-1);

  DocumentSource() = default;
  DocumentSource(const DocumentSource &) = default;
  DocumentSource &operator=(const DocumentSource &) = default;
  virtual ~DocumentSource() = default;

  virtual Kind kindOf(const std::string &path) const = 0;
  /// Reads the first `most` bytes. Empty when done, else why it can't be read.
  virtual std::string read(const std::string &path, std::size_t most,
                           std::string &text) const = 0;
  /// Appends every file below the folder whose name ends in ".xml", in no
  /// order. What can't be searched is left out and told.
  virtual std::vector<FolderFault>
  list(const std::string &folder, std::vector<std::string> &files) const = 0;
  /// The same text for two paths of one file.
  virtual std::string identify(const std::string &path) const = 0;
};

/// Regular files only: a fifo or device would make the reader wait.
class FileSystemSource : public DocumentSource {
public:
  Kind kindOf(const std::string &path) const override;
  std::string read(const std::string &path, std::size_t most,
                   std::string &text) const override;
  std::vector<FolderFault> list(const std::string &folder,
                                std::vector<std::string> &files) const override;
  std::string identify(const std::string &path) const override;
};

/// The folder that a file is in; "." for a bare name.
std::string folderOf(const std::string &path);

/// `path` as seen from `folder`, without "." and "..".
std::string resolvePath(const std::string &folder, const std::string &path);

} // namespace ZelDebugDialog

#endif
