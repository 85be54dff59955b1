// Runs the commands of the pages and compares what they print.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ToolTest.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

struct Example {
  int line;
  std::string command;
  std::string output;
};

/// The lines behind "$ " in blocks marked as console, with what stands below
/// each.
std::vector<Example> examplesOf(const std::string &document) {
  std::ifstream stream(document);
  std::vector<Example> examples;
  std::string line;
  bool inBlock = false;
  for (int number = 1; std::getline(stream, line); ++number) {
    if (line.rfind("```", 0) == 0)
      inBlock = line == "```console";
    else if (inBlock && line.rfind("$ ", 0) == 0)
      examples.push_back({number, line.substr(2), ""});
    else if (inBlock)
      examples.back().output += line + "\n";
  }
  return examples;
}

class DocumentTest : public ToolTest {
protected:
  /// Standard error and output together, as on a terminal.
  std::string outputOf(const std::string &command) {
    folder.write("line.sh", command + "\n");
    const fs::path program = ZELDEBUG_PROGRAM;
    const std::string shell = "PATH=\"" + program.parent_path().string() +
                              ":$PATH\" LC_ALL=C bash line.sh > output 2>&1";
    static_cast<void>(std::system(shell.c_str()));
    return folder.read("output");
  }
};

TEST_F(DocumentTest, EveryExamplePrintsWhatThePageSays) {
  const fs::path source = fs::path(board).parent_path().parent_path();
  fs::create_directory_symlink(source, "examples");
  for (const char *const page :
       {ZELDEBUG_DOCUMENT, ZELDEBUG_DESIGN_FILES, ZELDEBUG_PROJECT_PAGE}) {
    const std::vector<Example> examples = examplesOf(page);
    EXPECT_GT(examples.size(), 10U) << page;
    for (const Example &example : examples) {
      const std::string output = outputOf(example.command);
      EXPECT_EQ(output, example.output)
          << page << ":" << example.line << ": " << example.command;
      if (example.command.find(" --json") != std::string::npos)
        keepDocument(output);
    }
    fs::remove_all("etc");
  }
}

} // namespace
} // namespace tool
