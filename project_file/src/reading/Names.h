// The names that probes and profiles have in the files of a project.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_READING_NAMES_H
#define ZELDEBUGDIALOG_PROJECTFILE_READING_NAMES_H

#include <algorithm>
#include <string>
#include <vector>

namespace ZelDebugDialog::project {

/// Whether a probe or a profile can have it.
bool isName(const std::string &name);
/// What there is to say of one that is none.
/// @param what  "probe" or "profile"
std::string shownNoName(const std::string &name, const std::string &what);
/// @throws Refusal (badValue) for what is no name of a profile
void expectProfileName(const std::string &profile);

/// Adds those that are not there yet.
template <class Named>
void addNames(const std::vector<Named> &list, std::vector<std::string> &names) {
  for (const Named &one : list)
    if (std::find(names.begin(), names.end(), one.name) == names.end())
      names.push_back(one.name);
}

} // namespace ZelDebugDialog::project

#endif
