#include "records/RecordReader.h"

#include <array>
#include <unordered_set>

#include "messages/Quote.h"

namespace ZelDebugDialog {
namespace {

struct FormRow {
  std::string_view word;
  ValueForm form;
};

/// Types, then formats. What is not here is an integer if it looks like one.
constexpr std::array<FormRow, 7> forms = {{
    {"string", ValueForm::text},
    {"bit", ValueForm::bit},
    {"real", ValueForm::real},
    {"shortreal", ValueForm::real},
    {"bool", ValueForm::boolean},
    {"bitString", ValueForm::bits},
    {"long", ValueForm::scaled},
}};

/// Without vectors a bit is one.
ValueForm formOf(const pugi::xml_node &node, const pugi::xml_node &value) {
  std::string_view word = attributeOf(node, "type");
  if (word.empty())
    word = attributeOf(value, "format");
  for (const FormRow &row : forms)
    if (row.word == word &&
        (row.form != ValueForm::bit || findChild(node, "vectors").empty()))
      return row.form;
  return ValueForm::integer;
}

} // namespace

void RecordReader::noteCondition(const pugi::xml_node &node) {
  const pugi::xml_node condition = findChild(node, "isPresent");
  if (!condition.empty())
    report(Severity::warning, lineOf(condition),
           "isPresent is not followed: this " + std::string(localNameOf(node)) +
               " is taken to be there");
}

ReferenceRecord
RecordReader::readPlainReference(const pugi::xml_node &reference) {
  ReferenceRecord record;
  const auto [known, isNew] = identities.try_emplace(readReference(reference));
  if (isNew)
    known->second = std::make_shared<const Identity>(known->first);
  record.identity = known->second;
  record.line = lineOf(reference);
  return record;
}

ReferenceRecord
RecordReader::readReferenceRecord(const pugi::xml_node &reference) {
  ReferenceRecord record = readPlainReference(reference);
  readOverrides(reference, record.overrides);
  return record;
}

void RecordReader::readOverrides(const pugi::xml_node &parent,
                                 std::vector<OverrideRecord> &overrides) {
  forEachChild(findChild(parent, "configurableElementValues"),
               "configurableElementValue", [&](const pugi::xml_node &node) {
                 overrides.push_back(
                     {std::string(attributeOf(node, "referenceId")),
                      textOf(node), lineOf(node)});
               });
}

void RecordReader::readParameters(const pugi::xml_node &parent,
                                  std::string_view list, std::string_view name,
                                  ParameterRecords &parameters) {
  forEachChild(findChild(parent, list), name, [&](const pugi::xml_node &node) {
    readParameter(node, parameters);
  });
}

/// The form up to 2009 has at the value what later ones have at the parameter.
void RecordReader::readParameter(const pugi::xml_node &node,
                                 ParameterRecords &parameters) {
  const pugi::xml_node value = findChild(node, "value");
  ParameterRecord record;
  record.name = childText(node, "name");
  record.id = attributeOf(node, "parameterId");
  if (record.id.empty())
    record.id = attributeOf(value, "id");
  record.value = textOf(value);
  record.line = lineOf(node);
  record.form = formOf(node, value);
  if (!attributeOf(value, "dependency").empty())
    report(Severity::warning, lineOf(value),
           "the dependency of parameter " + quote(record.name) +
               " is not followed; its value stays as it is written");
  parameters.list.push_back(std::move(record));
}

void RecordReader::completeParameters(ParameterRecords &parameters) {
  parameters.file = file;
  parameters.areLiteral = isOfSpirit(namespaceOf(document.root()));
  std::unordered_set<std::string_view> names;
  for (std::size_t at = 0; at < parameters.list.size(); ++at) {
    const ParameterRecord &record = parameters.list[at];
    if (!record.id.empty() && !parameters.byId.emplace(record.id, at).second)
      report(Severity::warning, record.line,
             "a second parameter with the id " + quote(record.id) +
                 "; the first is meant");
    if (at < parameters.ownCount && !names.insert(record.name).second)
      report(Severity::warning, record.line,
             "a second parameter " + quote(record.name) +
                 "; the first is answered");
  }
}

} // namespace ZelDebugDialog
