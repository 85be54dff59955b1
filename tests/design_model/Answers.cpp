#include "Answers.h"

#include <fstream>
#include <sstream>
#include <string_view>

#include <gtest/gtest.h>

namespace ZelDebugDialog {
namespace {

bool begins(const std::string &text, const std::string &start) {
  return text.compare(0, start.size(), start) == 0;
}

std::string locate(const std::string &path) {
  if (begins(path, "ipxact/"))
    return IPXACT_LIBRARIES + path.substr(6);
  if (begins(path, "build/"))
    return BUILD_FOLDER + path.substr(5);
  return SOURCE_FOLDER "/" + path;
}

std::string trim(const std::string &line) {
  const std::size_t first = line.find_first_not_of(' ');
  if (first == std::string::npos || line[first] == '#')
    return "";
  const std::string text = line.substr(first, line.find("  #") - first);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

const char *wordOf(DesignDiagnostic::Severity severity) {
  switch (severity) {
  case DesignDiagnostic::Severity::error:
    return "error";
  case DesignDiagnostic::Severity::warning:
    return "warning";
  case DesignDiagnostic::Severity::note:
    return "note";
  }
  return "";
}

void take(const std::string &line, ExpectedAnswers &expected) {
  std::istringstream words(line);
  std::string key;
  std::string value;
  words >> key >> value;
  if (key == "design")
    expected.bySearch.designFile = locate(value);
  else if (key == "library")
    expected.bySearch.libraryFolders.push_back(locate(value));
  else if (key == "catalog")
    expected.byCatalog.libraryFolders.push_back(locate(value));
  else if (key == "kinds")
    expected.bySearch.kindsFile = locate(value);
  else if (key == "view")
    expected.bySearch.view = value;
  else
    expected.answers.push_back(line);
}

void check(const DesignSources &sources, const Names &answers) {
  DesignModel model;
  EXPECT_TRUE(ReadDesign(sources, model));
  EXPECT_EQ(answersOf(model), answers);
}

} // namespace

ExpectedAnswers readExpectedAnswers(const std::string &file,
                                    const std::string &edition) {
  constexpr std::string_view placeholder = "EDITION";
  ExpectedAnswers expected;
  std::ifstream lines(SOURCE_FOLDER "/tests/design_model/expected/" + file);
  expected.isRead = static_cast<bool>(lines);
  for (std::string line; std::getline(lines, line);) {
    line = trim(line);
    const std::size_t at = line.find(placeholder);
    if (at != std::string::npos)
      line.replace(at, placeholder.size(), edition);
    if (!line.empty())
      take(line, expected);
  }
  expected.byCatalog.designFile = expected.bySearch.designFile;
  expected.byCatalog.kindsFile = expected.bySearch.kindsFile;
  expected.byCatalog.view = expected.bySearch.view;
  return expected;
}

Names answersOf(DesignModel &model) {
  Names lines;
  const auto add = [&](const std::string &what, const Names &names) {
    for (const std::string &name : names)
      lines.push_back(what + " " + name);
  };
  for (const DesignInstance &instance : model.Instances()) {
    lines.push_back("instance " + instance.name + " " + instance.typeName);
    for (const DesignParameter &parameter : instance.parameters)
      lines.push_back(parameter.name + " = " + parameter.value);
  }
  Names processors;
  model.getProcessorInstances(processors, false);
  for (const std::string &processor : processors) {
    lines.push_back("processor " + processor);
    Names peripherals;
    model.getPeripherals(peripherals, processor);
    add("peripheral", peripherals);
  }
  for (const std::string &module : model.DebugModules()) {
    lines.push_back("debug-module " + module + " " + model.getIpName(module));
    Names attached;
    model.getHduConnectedProcessorList(attached, module);
    add("processor", attached);
  }
  for (const DesignDiagnostic &found : model.Diagnostics())
    lines.push_back(std::string("diagnostic ") + wordOf(found.severity) + " " +
                    found.file.substr(found.file.rfind('/') + 1) + ":" +
                    std::to_string(found.line));
  return lines;
}

void checkAnswers(const std::string &file, const std::string &edition) {
  SCOPED_TRACE(file + " " + edition);
  const ExpectedAnswers expected = readExpectedAnswers(file, edition);
  ASSERT_TRUE(expected.isRead);
  ASSERT_FALSE(expected.answers.empty());
  check(expected.bySearch, expected.answers);
  if (expected.byCatalog.libraryFolders.empty())
    return;
  SCOPED_TRACE("by catalog");
  check(expected.byCatalog, expected.answers);
}

} // namespace ZelDebugDialog
