#include "ZelDebugDialog/CommandTables.h"

#include <utility>

#include "KvoOption_Parser/Descriptions.h"
#include "ZelDebugDialog/CableCatalogue.h"
#include "facts/CableCatalogue.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

std::vector<std::string> keywordsOf(Engine::CableType type) {
  std::vector<std::string> keywords;
  for (const NamedValue &word : cableKeywords)
    if (word.value == type)
      keywords.emplace_back(word.keyword);
  return keywords;
}

CommandCable describe(const Cable &cable) {
  CommandCable described;
  described.type = cable.type;
  described.keywords = keywordsOf(cable.type);
  if (cable.form != CableClauseForm::unwritable)
    described.written = cable.keyword;
  described.carried = fieldsCarried(cable.form);
  described.defaultFrequency = cable.defaultFrequency;
  described.defaultPort = cable.defaultPort;
  described.offeredFrequencies = GetOfferedFrequencies(cable.type);
  described.acceptedFrequencies = GetAcceptedFrequencies(cable.type);
  return described;
}

} // namespace

std::vector<std::string> namesOf(const Fields &described) {
  std::vector<std::string> names;
  for (const std::uint8_t field : described) {
    names.emplace_back(fieldRows.at(field).name);
    std::string &name = names.back();
    if (const std::size_t index = name.find(']'); index != std::string::npos)
      name.insert(index, 1, 'n');
  }
  return names;
}

CommandValue describeValue(const ValueForm &form) {
  CommandValue value{form.conversion, namesOf(form.changed), {}};
  for (const NamedValue &name : form.names)
    value.words.emplace_back(name.keyword);
  return value;
}

void describeOptionValue(CommandOption &option, const ValueForm &form) {
  option.takesValue = true;
  option.value = describeValue(form);
}

} // namespace kvo

CommandTables GetCommandTables() {
  CommandTables tables;
  tables.heads = kvo::describeHeads();
  tables.optionSets = {
      kvo::describeProcessorOptions(), kvo::describeLumacoreSimulatorOptions(),
      kvo::describePpcSimulatorOptions(), kvo::describeVirtualPlatformOptions(),
      kvo::describeModelSimOptions()};
  for (CommandOptionSet &set : kvo::describeModuleOptions())
    tables.optionSets.push_back(std::move(set));
  for (const Cable &cable : cables())
    tables.cables.push_back(kvo::describe(cable));
  return tables;
}

} // namespace ZelDebugDialog
