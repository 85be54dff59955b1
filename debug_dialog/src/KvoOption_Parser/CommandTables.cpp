#include "ZelDebugDialog/CommandTables.h"

#include <utility>

#include <boost/algorithm/string/split.hpp>

#include "KvoOption_Parser/Descriptions.h"
#include "KvoOption_Parser/Numbers.h"
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

/// The offered frequencies; a cable without any offers a 0.
std::vector<std::uint32_t> offeredFrequencies(const Cable &cable) {
  std::vector<std::uint32_t> frequencies;
  for (const std::string &text : split(cable.offered))
    if (const std::uint64_t frequency = toUnsigned(text); frequency != 0)
      frequencies.push_back(lowBits<std::uint32_t>(frequency));
  return frequencies;
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
  described.offeredFrequencies = offeredFrequencies(cable);
  described.acceptedFrequencies.assign(cable.accepted.begin(),
                                       cable.accepted.end());
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
