// What is wrong with one file, at its places.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_FAULTS_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_FAULTS_H

#include <cstddef>
#include <string>
#include <vector>

#include "ZelDebugDialog/ProjectFile/Project.h"
#include "toml/Document.h"

namespace ZelDebugDialog::project {

/// "'a', 'b', 'c'"
std::string quotedList(const std::vector<std::string> &words);

/// A fault with the severity of its code.
/// @throws std::logic_error for a code that is in no row.
ProjectFault faultOf(const std::string &code, const ProjectPlace &place,
                     const std::string &message);

/// A name that is none of these, with the nearest of them.
ProjectFault unknownName(const std::string &code, const ProjectPlace &place,
                         const std::string &name, const std::string &what,
                         std::vector<std::string> accepted);

/// The project file's first, by line and column.
void sortFaults(std::vector<ProjectFault> &faults,
                const std::string &projectFile);

class Faults {
public:
  Faults(std::string ofFile, const std::string &text,
         std::vector<ProjectFault> &into)
      : file(std::move(ofFile)), lines(text), list(into) {}

  ProjectPlace placeOf(std::size_t offset) const {
    return {file, lines.lineOf(offset), lines.columnOf(offset)};
  }
  ProjectFault &add(const std::string &code, std::size_t offset,
                    const std::string &message);
  /// A name that is none of these.
  void addUnknown(const std::string &code, std::size_t offset,
                  const std::string &name, const std::string &what,
                  std::vector<std::string> accepted);
  /// A value of another type.
  void addWrongType(const TomlNode &node, const std::string &name,
                    const std::string &wanted);

private:
  std::string file;
  Lines lines;
  std::vector<ProjectFault> &list;
};

} // namespace ZelDebugDialog::project

#endif
