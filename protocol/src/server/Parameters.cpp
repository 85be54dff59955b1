#include "server/Parameters.h"

#include <algorithm>
#include <array>

#include <ZelDebugDialog/ConfigurationModel/Text.h>

#include "documents/Json.h"
#include "server/Numbers.h"

namespace ZelDebugDialog::protocol {

namespace {

constexpr std::int64_t mostInstances = 100000000;

bool isPath(const Given &value) {
  if (!value.is_string())
    return false;
  const auto &text = value.get_ref<const std::string &>();
  return !text.empty() && text.find('\0') == std::string::npos;
}

bool isWhole(const Given &value, std::int64_t least, std::int64_t most) {
  const auto number = wholeNumber(value);
  return number && *number >= least && *number <= most;
}

constexpr std::int64_t anyNumber = INT64_MAX;

bool isText(const Given &value) { return value.is_string(); }
bool isTextOrNull(const Given &value) {
  return value.is_string() || value.is_null();
}
bool isHandle(const Given &value) { return isWhole(value, 0, anyNumber); }
bool isFlag(const Given &value) { return value.is_boolean(); }
bool isCount(const Given &value) { return isWhole(value, 1, mostInstances); }
bool isObject(const Given &value) { return value.is_object(); }
bool isRequestId(const Given &value) {
  return value.is_string() || value.is_number();
}
template <bool (*isOne)(const Given &)> bool isListOf(const Given &value) {
  return value.is_array() && std::all_of(value.begin(), value.end(), isOne);
}

struct KindRow {
  ParameterKind kind;
  const char *description;
  bool (*accepts)(const Given &);
};

// clang-format off
constexpr std::array<KindRow, 12> kinds{{
    {ParameterKind::text, "a text", isText},
    {ParameterKind::textOrNull, "a text, or null", isTextOrNull},
    {ParameterKind::path, "a text that is not empty, without null characters", isPath},
    {ParameterKind::paths, "an array of texts that are not empty, without null characters", isListOf<isPath>},
    {ParameterKind::texts, "an array of texts", isListOf<isText>},
    {ParameterKind::flag, "true or false", isFlag},
    {ParameterKind::handle, "a number that an answer has given", isHandle},
    {ParameterKind::handles, "an array of numbers that answers have given", isListOf<isHandle>},
    {ParameterKind::count, "a whole number from 1 to 100000000", isCount},
    {ParameterKind::offset, "a whole number from 0", isHandle},
    {ParameterKind::values, "an object", isObject},
    {ParameterKind::id, "a text or a number", isRequestId},
}};
// clang-format on

const KindRow &rowOf(ParameterKind kind) {
  return *std::find_if(kinds.begin(), kinds.end(),
                       [kind](const KindRow &row) { return row.kind == kind; });
}

void expectKnown(const std::vector<Parameter> &known, const Given &params) {
  for (const auto &[name, value] : params.items()) {
    const bool isKnown = std::any_of(
        known.begin(), known.end(),
        [&name = name](const Parameter &row) { return name == row.name; });
    if (isKnown)
      continue;
    std::vector<std::string> names;
    for (const Parameter &row : known)
      names.emplace_back(row.name);
    const std::string nearest = FindNearest(name, names);
    refuseParameter(name, "there is no parameter " + quote(name),
                    {"", name, names, nearest});
  }
}

} // namespace

const char *describe(ParameterKind kind) { return rowOf(kind).description; }

void refuseParameter(const std::string &name, const std::string &message,
                     FaultDetails details) {
  details.parameter = name;
  throw Fault(FaultCode::badParameters, message, details);
}

std::string shownJson(const Given &value) {
  return value.dump(-1, ' ', false, Given::error_handler_t::replace);
}

Parameters::Parameters(const std::vector<Parameter> &known, const Given &params)
    : given(params) {
  if (!given.is_object())
    refuseParameter("", "'params' is no object: parameters are given by name");
  expectKnown(known, given);
  for (const Parameter &row : known) {
    const auto found = given.find(row.name);
    const std::string name = std::string("'") + row.name + "'";
    if (found == given.end() && row.isRequired)
      refuseParameter(row.name, name + " is missing: " + describe(row.kind));
    if (found != given.end() && !rowOf(row.kind).accepts(*found))
      refuseParameter(row.name, name + " is not " + describe(row.kind),
                      {"", shownJson(*found)});
  }
}

const std::string &Parameters::text(const char *name) const {
  return given.at(name).get_ref<const std::string &>();
}

std::optional<std::string> Parameters::optionalText(const char *name) const {
  const auto found = given.find(name);
  if (found == given.end() || found->is_null())
    return std::nullopt;
  return found->get<std::string>();
}

std::vector<std::string> Parameters::texts(const char *name) const {
  return has(name) ? given.at(name).get<std::vector<std::string>>()
                   : std::vector<std::string>();
}

bool Parameters::flag(const char *name) const {
  return has(name) && given.at(name).get<bool>();
}

std::int64_t Parameters::handle(const char *name) const {
  return given.at(name).get<std::int64_t>();
}

std::vector<std::int64_t> Parameters::handles(const char *name) const {
  return given.at(name).get<std::vector<std::int64_t>>();
}

std::size_t Parameters::number(const char *name) const {
  return given.at(name).get<std::size_t>();
}

} // namespace ZelDebugDialog::protocol
