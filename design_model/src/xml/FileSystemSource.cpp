#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "ZelDebugDialog/DesignModel/Libraries.h"
#include "xml/DocumentSource.h"
#include "xml/ListFolder.h"

namespace ZelDebugDialog {
namespace {

namespace fs = std::filesystem;

/// A library may hold anything; this much of one file is a mistake.
constexpr std::uintmax_t largestFile = std::uintmax_t{1} << 30;

constexpr const char *unreadable = "it can not be read";

} // namespace

bool IsLibraryDocument(const std::string &path) {
  std::string extension = fs::path(path).extension().string();
  std::transform(
      extension.begin(), extension.end(), extension.begin(),
      [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension == ".xml";
}

DocumentSource::Kind FileSystemSource::kindOf(const std::string &path) const {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::is_directory(status))
    return Kind::folder;
  // The status of what is missing is known.
  if (!fs::status_known(status))
    return Kind::unreadable;
  return fs::is_regular_file(status) ? Kind::file : Kind::missing;
}

std::string FileSystemSource::read(const std::string &path, std::size_t most,
                                   std::string &text) const {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::status_known(status))
    return unreadable + (": " + error.message());
  if (!fs::exists(status))
    return "there is no such file";
  if (!fs::is_regular_file(status))
    return "it is no regular file";
  const std::uintmax_t size = fs::file_size(path, error);
  if (error)
    return unreadable + (": " + error.message());
  if (size > largestFile)
    return "it is larger than " + std::to_string(largestFile >> 20) + " MiB";
  std::ifstream file(path, std::ios::binary);
  text.resize(static_cast<std::size_t>(
      std::min<std::uintmax_t>(size, static_cast<std::uintmax_t>(most))));
  if (!text.empty())
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
  return file ? "" : unreadable;
}

std::vector<FolderFault>
FileSystemSource::list(const std::string &folder,
                       std::vector<std::string> &files) const {
  std::vector<FolderFault> faults;
  std::vector<fs::path> pending{folder};
  while (!pending.empty()) {
    std::vector<fs::path> entries;
    const std::error_code error = listFolder(pending.back(), whole, entries);
    if (error)
      faults.push_back({pending.back().string(),
                        "it can not be searched: " + error.message(), false});
    pending.pop_back();
    for (fs::path &entry : entries) {
      const Kind kind = kindOf(entry);
      if (kind == Kind::file && IsLibraryDocument(entry.string()))
        files.push_back(entry.lexically_normal().string());
      else if (kind == Kind::folder && isOwnFolder(entry))
        pending.push_back(std::move(entry));
      else if (kind == Kind::folder)
        faults.push_back({entry.lexically_normal().string(),
                          "it is a link to a folder, and not followed", true});
      else if (kind == Kind::unreadable)
        faults.push_back(
            {entry.lexically_normal().string(), unreadable, false});
    }
  }
  return faults;
}

std::string FileSystemSource::identify(const std::string &path) const {
  std::error_code error;
  const fs::path canonical = fs::weakly_canonical(path, error);
  return error ? path : canonical.string();
}

std::string folderOf(const std::string &path) {
  const std::string folder = fs::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

std::string resolvePath(const std::string &folder, const std::string &path) {
  return (fs::path(folder) / path).lexically_normal().string();
}

} // namespace ZelDebugDialog
