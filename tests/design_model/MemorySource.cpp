#include "MemorySource.h"

namespace ZelDebugDialog {

DocumentSource::Kind MemorySource::kindOf(const std::string &path) const {
  if (files.count(path) != 0)
    return Kind::file;
  std::vector<std::string> found;
  list(path, found);
  return found.empty() ? Kind::missing : Kind::folder;
}

std::string MemorySource::read(const std::string &path, std::size_t most,
                               std::string &text) const {
  const auto file = files.find(path);
  if (file == files.end())
    return "there is no such file";
  text = file->second.substr(0, most);
  return "";
}

std::vector<FolderFault>
MemorySource::list(const std::string &folder,
                   std::vector<std::string> &found) const {
  const std::string start = folder == "." ? "" : folder + "/";
  const std::string end = ".xml";
  for (const auto &[name, text] : files)
    if (name.compare(0, start.size(), start) == 0 &&
        name.size() >= end.size() &&
        name.compare(name.size() - end.size(), end.size(), end) == 0)
      found.push_back(name);
  return {};
}

std::string MemorySource::identify(const std::string &path) const {
  return path;
}

} // namespace ZelDebugDialog
