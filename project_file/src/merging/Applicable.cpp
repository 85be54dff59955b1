#include "merging/Applicable.h"

#include "reading/Keys.h"

namespace ZelDebugDialog::project {

std::set<std::string> applicableIn(const Session &session) {
  std::set<std::string> names{"chain", connection};
  for (const SettingState &setting : session.State().settings)
    if (setting.applicable)
      names.insert(setting.id);
  return names;
}

} // namespace ZelDebugDialog::project
