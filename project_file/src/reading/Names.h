// The names that probes and profiles have in the files of a project.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_NAMES_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_NAMES_H

#include <algorithm>
#include <string>
#include <vector>

namespace ZelDebugDialog::project {

/// Adds those that are not there yet.
template <class Named>
void addNames(const std::vector<Named> &list, std::vector<std::string> &names) {
  for (const Named &one : list)
    if (std::find(names.begin(), names.end(), one.name) == names.end())
      names.push_back(one.name);
}

} // namespace ZelDebugDialog::project

#endif
