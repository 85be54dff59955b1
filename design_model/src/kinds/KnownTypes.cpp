#include "kinds/KnownTypes.h"

#include <algorithm>

#include "ZelDebugDialog/TypeNames.h"
#include "kinds/BuiltInKinds.h"
#include "messages/Quote.h"
#include "names/NearMatch.h"

namespace ZelDebugDialog {
namespace {

std::string inLowerCase(std::string_view text) {
  std::string lower(text);
  for (char &c : lower)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

template <class List> bool has(const List &list, std::string_view name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

bool isKnown(DesignRole role, std::string_view typeName) {
  return has(knownTypes(role), typeName) ||
         (role == DesignRole::other && isMemoryType(typeName));
}

std::string_view wordOf(DesignRole role) {
  switch (role) {
  case DesignRole::processor:
    return "processor";
  case DesignRole::debugModule:
    return "debug module";
  case DesignRole::byTypeName:
  case DesignRole::other:
    break;
  }
  return "memory, floating-point unit or serial port";
}

} // namespace

std::vector<std::string_view> knownTypes(DesignRole role) {
  if (role != DesignRole::other)
    return builtInTypes(role);
  std::vector<std::string_view> names;
  names.assign(stubUartTypes.begin(), stubUartTypes.end());
  names.insert(names.end(), {fpuTypeName, gen5FpuTypeName});
  for (const MemoryRule &rule : memoryRules)
    if (rule.match == MemoryRule::Match::whole)
      names.push_back(rule.name);
  return names;
}

bool isStubUart(std::string_view typeName) {
  return has(stubUartTypes, typeName);
}

/// Memories go by their names in any case.
bool isMemoryType(std::string_view typeName) {
  const std::string lower = inLowerCase(typeName);
  return std::any_of(memoryRules.begin(), memoryRules.end(),
                     [&lower](const MemoryRule &rule) {
                       return rule.match == MemoryRule::Match::whole
                                  ? lower == rule.name
                                  : lower.find(rule.name) != std::string::npos;
                     });
}

std::string findTypeFault(DesignRole role, std::string_view typeName) {
  if (isKnown(role, typeName))
    return "";
  std::string fault = "the debugger knows no " + std::string(wordOf(role)) +
                      " of type " + quote(typeName);
  const std::string_view meant = findNearMatch(typeName, knownTypes(role));
  if (!meant.empty())
    fault += "; did you mean " + quote(meant) + "?";
  return fault;
}

} // namespace ZelDebugDialog
