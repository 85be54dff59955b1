#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "ZelDebugDialog/DesignModel/Libraries.h"
#include "library/DocumentFinder.h"

namespace ZelDebugDialog {
namespace {

namespace fs = std::filesystem;

/// What is found may lack more, a level of the hierarchy at a time.
constexpr int mostReadings = 10;
/// More neighbours are named by the folder that they are in.
constexpr std::size_t mostNeighbours = 2;

bool operator==(const MissingDocument &a, const MissingDocument &b) {
  return a.type == b.type && a.identity == b.identity;
}

bool isBelow(const fs::path &inner, const fs::path &outer) {
  const auto ends =
      std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end());
  return ends.first == outer.end();
}

/// The innermost folder that holds both.
fs::path around(const fs::path &a, const fs::path &b) {
  fs::path common;
  auto other = b.begin();
  for (const fs::path &part : a) {
    if (other == b.end() || *other != part)
      break;
    common /= part;
    ++other;
  }
  return common;
}

class Search {
public:
  Search(const DesignSources &read, const DesignModel &model,
         const LibrarySearchLimits &searchLimits)
      : sources(read), wanted(model.Missing()), limits(searchLimits),
        finder(searchLimits) {
    std::error_code error;
    const fs::path file = fs::absolute(sources.designFile, error);
    start = file.lexically_normal().parent_path();
    isRelative = fs::path(sources.designFile).is_relative();
    current = fs::current_path(error);
  }

  LibrarySearch run() {
    // Without library folders that of the design has been searched.
    fs::path searched;
    fs::path level = start;
    if (!sources.libraryFolders.empty())
      finder.search(level, searched);
    searched = level;
    int readings = 0;
    for (std::size_t up = 0; up <= limits.levels; ++up) {
      while (foundAll() && !wanted.empty() && readings < mostReadings) {
        ++readings;
        readAgain();
      }
      const fs::path above = level.parent_path();
      if (wanted.empty() || finder.isCut() || up == limits.levels ||
          above == level || above == above.root_path())
        break;
      finder.search(above, level);
      level = above;
    }
    result.outermost = shown(level);
    if (!wanted.empty() && readings < mostReadings)
      readAgain();
    result.missing = wanted;
    result.documents = finder.documents();
    result.isCut = finder.isCut();
    return std::move(result);
  }

private:
  bool foundAll() const {
    return std::none_of(wanted.begin(), wanted.end(),
                        [this](const MissingDocument &document) {
                          return fileOf(document).empty();
                        });
  }

  /// The form of 2009 does not tell a design from a configuration.
  fs::path fileOf(const MissingDocument &document) const {
    std::string file = finder.find(document);
    if (file.empty() && document.type == "design")
      file = finder.find({"designConfiguration", document.identity});
    return file;
  }

  /// With the folders of what has been found; `wanted` is what is missing then.
  void readAgain() {
    const std::size_t before = files.size();
    for (const MissingDocument &document : wanted) {
      const fs::path file = fileOf(document);
      if (file.empty())
        continue;
      files.insert(file.parent_path());
      if (std::find_if(result.found.begin(), result.found.end(),
                       [&](const MissingDocument &each) {
                         return each == document;
                       }) == result.found.end())
        result.found.push_back(document);
    }
    if (files.size() == before)
      return;
    result.folders = suggest();
    DesignSources more = sources;
    more.libraryFolders = result.folders;
    DesignModel model;
    ReadDesign(more, model);
    wanted = model.Missing();
  }

  /// The folders of the sources, and those of what was found: the one that all
  /// of it is in, unless the design is in there as well and a few do.
  std::vector<std::string> suggest() const {
    fs::path base = *files.begin();
    for (const fs::path &folder : files)
      base = around(base, folder);
    std::vector<fs::path> branches;
    for (const fs::path &folder : files)
      join(base, folder, branches);
    if (!isBelow(start, base) || branches.size() > mostNeighbours)
      branches = {base};
    if (sources.libraryFolders.empty() && !isCovered(start, branches))
      branches.insert(branches.begin(), start);
    std::vector<std::string> folders;
    for (const std::string &given : sources.libraryFolders)
      if (!isCovered(absolute(given), branches))
        folders.push_back(given);
    for (const fs::path &branch : branches)
      folders.push_back(shown(branch));
    return folders;
  }

  /// Into the branch of `base` that the folder is in, if there is one.
  static void join(const fs::path &base, const fs::path &folder,
                   std::vector<fs::path> &branches) {
    for (fs::path &branch : branches) {
      fs::path both = around(branch, folder);
      if (both != base) {
        branch = std::move(both);
        return;
      }
    }
    branches.push_back(folder);
  }

  static bool isCovered(const fs::path &inner,
                        const std::vector<fs::path> &others) {
    return std::any_of(
        others.begin(), others.end(),
        [&inner](const fs::path &outer) { return isBelow(inner, outer); });
  }

  static fs::path absolute(const std::string &path) {
    std::error_code error;
    fs::path whole = fs::absolute(path, error).lexically_normal();
    return whole.has_filename() ? whole : whole.parent_path();
  }

  std::string shown(const fs::path &folder) const {
    return isRelative ? folder.lexically_proximate(current).string()
                      : folder.string();
  }

  const DesignSources &sources;
  std::vector<MissingDocument> wanted;
  LibrarySearchLimits limits;
  DocumentFinder finder;
  fs::path start;
  fs::path current;
  bool isRelative = false;
  std::set<fs::path> files; ///< Folders of what was found.
  LibrarySearch result;
};

} // namespace

LibrarySearch FindLibraries(const DesignSources &sources,
                            const DesignModel &model,
                            const LibrarySearchLimits &limits) {
  if (model.Missing().empty())
    return {};
  return Search(sources, model, limits).run();
}

} // namespace ZelDebugDialog
