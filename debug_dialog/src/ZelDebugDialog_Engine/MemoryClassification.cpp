#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

#include "ZelDebugDialog/EngineImp.h"
#include "ZelDebugDialog/TypeNames.h"

namespace ZelDebugDialog {

namespace {

std::string inLowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char character) {
                   return static_cast<char>(std::tolower(character));
                 });
  return text;
}

bool matches(const MemoryRule &rule, const std::string &typeName) {
  return rule.match == MemoryRule::Match::whole
             ? typeName == rule.name
             : typeName.find(rule.name) != std::string::npos;
}

} // namespace

std::string EngineImp::ClassifyMemory(const std::string &typeName) {
  const std::string name = inLowerCase(typeName);
  for (const MemoryRule &rule : memoryRules)
    if (matches(rule, name))
      return std::string(rule.label);
  return std::string(memoryNone);
}

} // namespace ZelDebugDialog
