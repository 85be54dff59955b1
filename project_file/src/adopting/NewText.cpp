#include "adopting/NewText.h"

#include <fmt/format.h>

#include "ZelDebugDialog/ProjectFile/Project.h"
#include "editing/WrittenValue.h"

namespace ZelDebugDialog::project {

std::string newHead(const ProjectSources &sources) {
  std::string text = fmt::format(
      "# The debug configuration of this design, for everybody who works on "
      "it.\n# What belongs to one desk (serial numbers, ports, hosts, the "
      "probe "
      "in use)\n# stands in {}, which is not shared.\n\n"
      "design = {}\n",
      LocalFileOf(projectFileName), writtenText(sources.design));
  if (!sources.view.empty())
    text += fmt::format("view = {}\n", writtenText(sources.view));
  if (!sources.kinds.empty())
    text += fmt::format("kinds = {}\n", writtenText(sources.kinds));
  if (!sources.library.empty()) {
    std::string list;
    for (const std::string &path : sources.library)
      list += (list.empty() ? "" : ", ") + writtenText(path);
    text += fmt::format("library = [{}]\n", list);
  }
  return text;
}

std::string newLocalHead() {
  return fmt::format("# What belongs to this desk; it stands over {}.\n",
                     projectFileName);
}

std::string newTable(const Path &table, const SettingValues &values) {
  std::string text = fmt::format("\n[{}]\n", writtenPath(table));
  for (const auto &[setting, value] : values)
    text += fmt::format("{} = {}\n", setting,
                        writtenValue(*FindSetting(setting), value, "", "\n"));
  return text;
}

} // namespace ZelDebugDialog::project
