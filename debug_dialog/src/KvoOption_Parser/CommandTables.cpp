#include "ZelDebugDialog/CommandTables.h"

#include <utility>

#include <boost/algorithm/string/split.hpp>

#include "KvoOption_Parser/Descriptions.h"
#include "ZelDebugDialog/CableCatalogue.h"
#include "ZelDebugDialog_Engine/CableCatalogue.h"

namespace ZelDebugDialog {

namespace kvo {

namespace {

std::vector<std::string> split(std::string_view text) {
  std::vector<std::string> pieces;
  if (!text.empty())
    boost::algorithm::split(pieces, text,
                            [](char character) { return character == ' '; });
  return pieces;
}

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
  described.defaultFrequency = cable.defaultFrequency;
  described.defaultPort = cable.defaultPort;
  described.offeredFrequencies = GetOfferedFrequencies(cable.type);
  described.acceptedFrequencies = GetAcceptedFrequencies(cable.type);
  return described;
}

} // namespace

std::vector<std::string> splitFields(std::string_view fields,
                                     std::string_view device) {
  constexpr std::string_view chainPrefix = "chain.";
  std::vector<std::string> names = split(fields);
  for (std::string &name : names)
    if (name.compare(0, chainPrefix.size(), chainPrefix) == 0)
      name.replace(0, chainPrefix.size(),
                   "chain[" + std::string(device) + "].");
  return names;
}

CommandValue describeValue(const ValueForm &form) {
  CommandValue value{form.conversion, splitFields(form.fields), {}};
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
