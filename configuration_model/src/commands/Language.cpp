#include "ZelDebugDialog/ConfigurationModel/Language.h"

#include "ZelDebugDialog/CommandTables.h"
#include "settings/Cables.h"

namespace ZelDebugDialog {

namespace {

const char *kindOf(ValueConversion conversion) {
  switch (conversion) {
  case ValueConversion::none:
    return "unused";
  case ValueConversion::text:
    return "text";
  case ValueConversion::number:
    return "number";
  case ValueConversion::signedNumber:
    return "signed-number";
  case ValueConversion::lowByte:
    return "byte";
  case ValueConversion::namedValue:
    return "word";
  case ValueConversion::hostAndPort:
    return "host-and-port";
  }
  return "";
}

LanguageValue valueOf(const CommandValue &value) {
  return {kindOf(value.conversion), value.fields, value.words};
}

LanguageOption optionOf(const CommandOption &option) {
  LanguageOption made;
  made.keyword = option.keyword;
  for (const CommandParameter &parameter : option.parameters)
    made.parameters.push_back({parameter.keyword, valueOf(parameter.value)});
  if (option.takesValue)
    made.value = valueOf(option.value);
  made.optionSet = option.optionSet;
  made.settings = option.changes;
  return made;
}

LanguageTarget targetOf(const CommandTarget &target) {
  LanguageTarget made{
      target.keyword, target.inOptionFile, {}, target.optionSet};
  for (const CommandConnection &connection : target.connections)
    made.connections.push_back({connection.keyword,
                                static_cast<std::uint32_t>(connection.type),
                                connection.optionSet});
  return made;
}

Language makeLanguage() {
  const CommandTables tables = GetCommandTables();
  Language language;
  for (const CommandHead &head : tables.heads) {
    language.heads.push_back({head.keyword, head.inOptionFile, {}});
    for (const CommandTarget &target : head.targets)
      language.heads.back().targets.push_back(targetOf(target));
  }
  for (const CommandOptionSet &set : tables.optionSets) {
    language.optionSets.push_back({set.name, {}});
    for (const CommandOption &option : set.options)
      language.optionSets.back().options.push_back(optionOf(option));
  }
  return language;
}

std::vector<CableInfo> makeCables() {
  std::vector<CableInfo> cables;
  for (const CommandCable &cable : model::cableCatalogue())
    cables.push_back({static_cast<std::uint32_t>(cable.type), cable.keywords,
                      cable.written, !cable.written.empty(),
                      model::canBeWritten(cable), cable.defaultFrequency,
                      cable.defaultPort, cable.offeredFrequencies,
                      cable.acceptedFrequencies});
  return cables;
}

} // namespace

const Language &GetLanguage() {
  static const Language language = makeLanguage();
  return language;
}

const LanguageOptionSet *FindOptionSet(std::string_view name) {
  for (const LanguageOptionSet &set : GetLanguage().optionSets)
    if (set.name == name)
      return &set;
  return nullptr;
}

const std::vector<CableInfo> &GetCables() {
  static const std::vector<CableInfo> cables = makeCables();
  return cables;
}

} // namespace ZelDebugDialog
