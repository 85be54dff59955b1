#include "reading/SyntaxFault.h"

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Settings.h"
#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Keys.h"
#include "toml/Statements.h"

namespace ZelDebugDialog::project {

namespace {

/// How many parts of a path lead to a table of settings: `settings`, `type.T`,
/// `processor.N`, `probe.N`, with `profile.N` in front or not; 0 for no such
/// table.
std::size_t partsOfTable(const Path &path) {
  const std::size_t front =
      path.size() > 2 && path.front() == "profile" ? 2 : 0;
  if (path.size() <= front)
    return 0;
  const std::string &key = path[front];
  if (key == "settings")
    return front + 1;
  const bool isNamed =
      key == "type" || key == "processor" || (key == "probe" && front == 0);
  return isNamed && path.size() > front + 1 ? front + 2 : 0;
}

/// The setting that a whole path means, if it is a text.
bool isTextSetting(const Path &path) {
  const std::size_t parts = partsOfTable(path);
  if (parts == 0)
    return false;
  std::string id = path.front() == "probe" ? std::string(cableFront) : "";
  for (std::size_t at = parts; at < path.size(); ++at)
    id += (at == parts ? "" : ".") + path[at];
  const SettingInfo *const setting = findAccepted(id);
  return setting != nullptr && (setting->kind == SettingKind::text ||
                                setting->kind == SettingKind::file);
}

/// The text that lacks its quotes, or nothing.
const Statement *findBareText(const std::vector<Statement> &statements,
                              const std::string &text, const TomlError &error) {
  for (const Statement &statement : statements) {
    if (statement.kind != Statement::Kind::pair ||
        error.offset < statement.value.begin ||
        error.offset > statement.lines.end ||
        statement.value.begin >= statement.value.end)
      continue;
    const char first = text[statement.value.begin];
    if (first == '"' || first == '\'' || first == '[' || first == '{')
      continue;
    Path path = statement.headerPath;
    path.insert(path.end(), statement.path.begin(), statement.path.end());
    if (isTextSetting(path))
      return &statement;
  }
  return nullptr;
}

} // namespace

void addSyntaxFault(const std::string &text, const TomlError &error,
                    Faults &faults) {
  const std::vector<Statement> statements = statementsOf(text);
  const Statement *const bare = findBareText(statements, text, error);
  if (bare == nullptr) {
    faults.add("toml-syntax", error.offset,
               fmt::format("this is no TOML: {}", ShowText(error.message)));
    return;
  }
  const std::string quoted = writtenText(
      text.substr(bare->value.begin, bare->value.end - bare->value.begin));
  ProjectFault &fault = faults.add(
      "toml-syntax", bare->value.begin,
      fmt::format("a text stands in quotes; write {}", ShowText(quoted)));
  fault.accepted = {"a text"};
  fault.suggestion = quoted;
}

} // namespace ZelDebugDialog::project
