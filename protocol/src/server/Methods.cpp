#include "server/Methods.h"

#include <ZelDebugDialog/ConfigurationModel/Text.h>

#include "documents/Json.h"
#include "documents/Settings.h"

namespace ZelDebugDialog::protocol {

namespace {

constexpr int protocolVersion = 1;

std::vector<std::string> methodNames() {
  std::vector<std::string> names;
  for (const Method &method : methods())
    names.emplace_back(method.name);
  return names;
}

Json initialize(const Workplace &, const Parameters &) {
  return {{"version", protocolVersion},
          {"name", "zeldebug"},
          {"methods", methodNames()}};
}

Json listSettings(const Workplace &, const Parameters &) {
  static const Json settings = documents::settingsJson();
  return {{"settings", settings}};
}

/// What there was to do has been done when the request came in.
Json doNothing(const Workplace &, const Parameters &) { return nullptr; }

constexpr bool optional = false;

} // namespace

const std::vector<Method> &methods() {
  using Kind = ParameterKind;
  static const Parameter board{"board", Kind::handle};
  static const Parameter configuration{"configuration", Kind::handle};
  static const Parameter command{"command", Kind::text};
  static const Parameter into{"into", Kind::text, optional};
  static const Parameter force{"force", Kind::flag, optional};
  // clang-format off
  static const std::vector<Method> table{
      {"initialize", {}, initialize},
      {"settings", {}, listSettings},
      {"board/open", {{"design", Kind::path, optional}, {"project", Kind::path, optional},
                      {"probe", Kind::text, optional}, {"profile", Kind::text, optional},
                      {"library", Kind::paths, optional},
                      {"view", Kind::path, optional}, {"kinds", Kind::path, optional},
                      {"maxInstances", Kind::count, optional},
                      {"directory", Kind::path, optional}}, openBoard},
      {"board/close", {board}, closeBoard},
      {"board/save", {board, {"configurations", Kind::handles, optional}, force}, saveBoard},
      {"configuration/open", {board, {"processor", Kind::text}}, openConfiguration},
      {"configuration/state", {configuration}, stateOfConfiguration},
      {"configuration/close", {configuration}, closeConfiguration},
      {"configuration/change", {configuration, {"values", Kind::values}, into}, changeConfiguration},
      {"configuration/draft", {configuration, {"setting", Kind::text},
                               {"text", Kind::textOrNull}}, draftConfiguration},
      {"configuration/edit", {configuration, command}, editConfiguration},
      {"configuration/undo", {configuration}, undoConfiguration},
      {"configuration/redo", {configuration}, redoConfiguration},
      {"configuration/revert", {configuration}, revertConfiguration},
      {"configuration/reset", {configuration, {"settings", Kind::texts, optional}, into}, resetConfiguration},
      {"configuration/copy", {configuration, {"from", Kind::handle}}, copyConfiguration},
      {"configuration/save", {configuration, force}, saveConfiguration},
      {"command/check", {command, {"board", Kind::handle, optional},
                         {"processor", Kind::text, optional}}, checkCommand},
      {"command/explain", {command}, explainCommand},
      {"command/diff", {{"first", Kind::text}, {"second", Kind::text}}, diffCommands},
      {"command/complete", {command, {"offset", Kind::offset}}, completeCommand},
      {cancelMethod, {{"id", Kind::id}}, doNothing},
      {exitMethod, {}, doNothing},
  };
  // clang-format on
  return table;
}

const Method &expectMethod(const std::string &name) {
  for (const Method &method : methods())
    if (name == method.name)
      return method;
  const std::vector<std::string> names = methodNames();
  const std::string nearest = FindNearest(name, names);
  throw Fault(FaultCode::unknownMethod, "there is no method " + quote(name),
              {"", name, names, nearest});
}

} // namespace ZelDebugDialog::protocol
