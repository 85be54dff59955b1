// The real program on a project: a board of its own in the folder of the test.
#ifndef TESTS_ZELDEBUG_PROJECTTEST_H
#define TESTS_ZELDEBUG_PROJECTTEST_H

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "ToolTest.h"

namespace tool {

/// A board in a folder of the test, and a project beside it. What does not
/// allow hardware says so.
class ProjectTest : public ToolTest {
protected:
  ProjectTest() {
    std::filesystem::copy(std::filesystem::path(board).parent_path(), "hw",
                          std::filesystem::copy_options::recursive);
    unsetenv("ZELDEBUG_PROBE");
    unsetenv("ZELDEBUG_PROFILE");
  }
  ~ProjectTest() override {
    unsetenv("ZELDEBUG_PROBE");
    unsetenv("ZELDEBUG_PROFILE");
  }
  ProjectTest(const ProjectTest &) = delete;
  ProjectTest &operator=(const ProjectTest &) = delete;

  /// Line 1 names the design; `text` begins in line 4.
  void project(const std::string &text,
               const std::string &file = "zeldebug.toml") {
    folder.write(file, "design = \"hw/board.xml\"\n[processor.lumacore_2]\n"
                       "connection = \"sim\"\n" +
                           text);
  }
  void local(const std::string &text) {
    folder.write("zeldebug.local.toml", text);
  }
  std::string text(const std::string &file) const { return folder.read(file); }
  nlohmann::json syncOne(std::vector<std::string> line = {}, int status = 0) {
    line.insert(line.begin(), {"sync", "lumacore_0"});
    return runJson(line, status)["results"][0];
  }
};

} // namespace tool

#endif
