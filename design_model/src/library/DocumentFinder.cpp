#include "library/DocumentFinder.h"

#include <algorithm>
#include <deque>

#include "xml/Identity.h"
#include "xml/ListFolder.h"
#include "xml/XmlDocument.h"
#include "xml/XmlNames.h"

namespace ZelDebugDialog {
namespace {

namespace fs = std::filesystem;

/// The identity stands at the beginning. A file in which it does not is none
/// that a library would be made of.
constexpr std::size_t headSize = std::size_t{16} << 10;

bool isHidden(const fs::path &path) {
  return path.filename().string().rfind('.', 0) == 0;
}

} // namespace

void DocumentFinder::search(const fs::path &folder, const fs::path &but) {
  std::deque<fs::path> pending{folder};
  while (!pending.empty() && !cut) {
    const fs::path current = std::move(pending.front());
    pending.pop_front();
    std::vector<fs::path> names;
    // Where one can't be listed, there is nothing to be found.
    listFolder(current, limits.entries - entries, names);
    entries += names.size();
    cut = entries >= limits.entries;
    // The order of a folder is nobody's.
    std::sort(names.begin(), names.end());
    for (fs::path &name : names) {
      if (!isOwnFolder(name)) {
        if (IsLibraryDocument(name.string()))
          look(name);
      } else if (!isHidden(name) && name != but) {
        pending.push_back(std::move(name));
      }
    }
  }
}

void DocumentFinder::look(const fs::path &file) {
  cut = cut || read >= limits.documents;
  if (cut)
    return;
  ++read;
  std::string text;
  if (!source.read(file.string(), headSize, text).empty())
    return;
  if (text.size() == headSize)
    text.resize(text.rfind('>') + 1);
  XmlDocument document;
  document.parse(std::move(text));
  const Identity identity = readIdentity(document.root());
  if (identity.isComplete())
    files.emplace(
        keyOf(findDocumentType(localNameOf(document.root())), identity),
        file.string());
}

std::string DocumentFinder::find(const MissingDocument &document) const {
  const auto at = files.find(document.type + "\n" + [&] {
    std::string lines = document.identity;
    std::replace(lines.begin(), lines.end(), ':', '\n');
    return lines;
  }());
  return at == files.end() ? "" : at->second;
}

} // namespace ZelDebugDialog
