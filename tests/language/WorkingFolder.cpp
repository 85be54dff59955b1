#include "language/WorkingFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace LanguageTest {
namespace {

namespace fs = std::filesystem;

fs::path newFolder() {
  std::string name = (fs::temp_directory_path() / "language-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::runtime_error("no temporary folder " + name);
  return fs::canonical(name);
}

} // namespace

WorkingFolder::WorkingFolder()
    : before(fs::current_path()), folder(newFolder()) {
  fs::create_directory(folder / "etc");
  fs::current_path(folder);
}

WorkingFolder::~WorkingFolder() {
  fs::current_path(before);
  fs::remove_all(folder);
}

fs::path WorkingFolder::optionFile(const std::string &processor) const {
  return folder / "etc" / ("kvo_" + processor + ".opt");
}

std::string WorkingFolder::contentOf(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream)
    return "(none)";
  return {std::istreambuf_iterator<char>(stream), {}};
}

void WorkingFolder::fill(const fs::path &file, const std::string &content) {
  std::ofstream stream(file, std::ios::binary);
  stream << content;
  stream.close();
  if (!stream)
    throw std::runtime_error("cannot fill " + file.string());
}

} // namespace LanguageTest
