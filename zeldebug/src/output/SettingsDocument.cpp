#include "output/SettingsDocument.h"

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <sstream>

#include <fmt/format.h>

#include "documents/Bytes.h"
#include "output/Failure.h"
#include "output/Json.h"
#include "output/Output.h"
#include "output/Suggestion.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::ChainDevice;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::GetSettings;
using ZelDebugDialog::SettingInfo;
using ZelDebugDialog::Value;
using ZelDebugDialog::documents::decodeBytes;

/// What `show` prints has half a dozen levels.
constexpr std::size_t deepestNesting = 100;

/// What of the settings is no UTF-8, in base64, in the document's own shape.
constexpr const char *bytesMember = "bytes";

// What stands beside the settings in a document of `show`.
constexpr std::array<const char *, 15> results{
    "version", "command", "project",     "local",       "probe",
    "profile", "result",  "error",       "origin",      "file",
    "lost",    "dropped", "differences", "diagnostics", "warnings"};

// What makes it no document of one processor's settings.
struct Other {
  const char *member;
  const char *problem;
};
constexpr std::array<Other, 2> others{{
    {"processors", "it has the settings of several processors, and those of "
                   "one are taken"},
    {"failure", "it tells of a failure: what it shows is not what was saved"},
}};

class DocumentReader {
public:
  DocumentReader(const std::string &read, const std::string &fileName)
      : text(read), file(fileName) {}

  SettingsDocument read();

private:
  [[noreturn]] void fail(const std::string &problem, std::size_t offset,
                         FailureDetails about = {}) const;
  [[noreturn]] void failAt(const std::string &member,
                           const std::string &problem,
                           const FailureDetails &about = {}) const;
  /// Of a member, whose first occurrence is taken for it.
  std::size_t placeOf(const std::string &member) const;
  int lineAt(std::size_t offset) const;
  /// The whole text, in which no object has a member twice.
  Json parse() const;
  void expectNew(std::set<std::string> &names, const std::string &name,
                 std::size_t offset) const;
  void take(const std::string &member, const std::string &setting,
            const Json &value);
  void expectOneProcessor(const Json &json) const;
  /// Puts texts that are no UTF-8 where they are shown.
  void putBytes(Json &json, const Json &bytes) const;
  void takeMembers(const std::string &prefix, const std::string &name,
                   const Json &object);
  Value valueOf(const std::string &member, const Json &json) const;
  Value chainOf(const Json &json) const;

  const std::string &text;
  const std::string &file;
  SettingsDocument document;
};

void DocumentReader::fail(const std::string &problem, std::size_t offset,
                          FailureDetails about) const {
  about.file = file;
  about.line = lineAt(offset);
  throw Failure(ExitStatus::unreadable,
                fmt::format("{}:{}: {}", shownName(file), about.line, problem),
                about);
}

std::size_t DocumentReader::placeOf(const std::string &member) const {
  const std::size_t offset = text.find('"' + member + '"');
  return offset == std::string::npos ? 0 : offset;
}

int DocumentReader::lineAt(std::size_t offset) const {
  const auto end =
      text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
  return 1 + static_cast<int>(std::count(text.begin(), end, '\n'));
}

void DocumentReader::failAt(const std::string &member,
                            const std::string &problem,
                            const FailureDetails &about) const {
  fail(problem, placeOf(member), about);
}

Value DocumentReader::valueOf(const std::string &member,
                              const Json &json) const {
  if (json.is_boolean())
    return json.get<bool>();
  if (json.is_string())
    return json.get<std::string>();
  const bool isHuge =
      json.is_number_unsigned() &&
      json.get<std::uint64_t>() >
          static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (json.is_number_integer() && !isHuge)
    return json.get<std::int64_t>();
  failAt(
      member,
      fmt::format("'{}' is no text, whole number or flag", printable(member)),
      {"bad-value", member,
       json.dump(-1, ' ', true, Json::error_handler_t::replace)});
}

Value DocumentReader::chainOf(const Json &json) const {
  if (!json.is_array())
    failAt("chain", "'chain' is no list of devices", {"bad-value", "chain"});
  Value::Chain chain;
  for (const Json &device : json) {
    if (!device.is_object())
      failAt("chain", "a device of the chain is no object",
             {"bad-value", "chain"});
    ChainDevice fields;
    for (const auto &[name, value] : device.items())
      fields.emplace_back(name, valueOf(name, value));
    chain.push_back(std::move(fields));
  }
  return chain;
}

void DocumentReader::take(const std::string &member, const std::string &setting,
                          const Json &value) {
  const SettingInfo *const info = FindSetting(setting);
  if (info == nullptr || setting.compare(0, 6, "chain[") == 0) {
    std::vector<std::string> names;
    for (const SettingInfo &known : GetSettings())
      names.push_back(known.id);
    failAt(
        member,
        fmt::format("'{}' is no setting{}", printable(setting),
                    didYouMean(setting, names)),
        {"unknown-setting", setting, {}, names, nearestMatch(setting, names)});
  }
  document.lines.emplace(setting, lineAt(placeOf(member)));
  if (setting == "chain")
    document.values.emplace_back(setting, chainOf(value));
  else
    (info->settable ? document.values : document.leftOut)
        .emplace_back(setting, valueOf(member, value));
}

void DocumentReader::takeMembers(const std::string &prefix,
                                 const std::string &name, const Json &object) {
  if (!object.is_object())
    failAt(name, fmt::format("'{}' is no object", name), {"bad-value", name});
  for (const auto &[member, value] : object.items())
    take(member, prefix + member, value);
}

void DocumentReader::expectOneProcessor(const Json &json) const {
  for (const auto &[member, problem] : others)
    if (json.contains(member))
      failAt(member, problem, {"bad-value", member});
}

void DocumentReader::putBytes(Json &json, const Json &bytes) const {
  if (bytes.is_object() && (json.is_object() || json.is_null())) {
    for (const auto &[name, value] : bytes.items())
      putBytes(json[name], value);
    return;
  }
  if (bytes.is_array() && json.is_array() && bytes.size() <= json.size()) {
    for (std::size_t at = 0; at < bytes.size(); ++at)
      putBytes(json[at], bytes[at]);
    return;
  }
  const auto decoded = bytes.is_string()
                           ? decodeBytes(bytes.get_ref<const std::string &>())
                           : std::nullopt;
  if (!decoded)
    failAt(bytesMember,
           "'bytes' holds what is no base64, or stands for nothing that is "
           "shown",
           {"bad-value", bytesMember});
  json = *decoded;
}

Json DocumentReader::parse() const {
  std::istringstream stream(text);
  const auto lastRead = [&stream]() -> std::size_t {
    const std::streamoff read =
        stream.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
    return read > 0 ? static_cast<std::size_t>(read) - 1 : 0;
  };
  std::vector<std::set<std::string>> names; // of each object, by its depth
  const auto see = [&](int depth, Json::parse_event_t event,
                       const Json &parsed) {
    const auto open = static_cast<std::size_t>(depth);
    const bool isStart = event == Json::parse_event_t::object_start ||
                         event == Json::parse_event_t::array_start;
    if (isStart && open >= deepestNesting)
      fail(fmt::format("it is nested more than {} deep", deepestNesting),
           lastRead());
    if (event == Json::parse_event_t::object_start) {
      names.resize(open);
      names.emplace_back();
    } else if (event == Json::parse_event_t::key) {
      expectNew(names[open - 1], parsed.get<std::string>(), lastRead());
    }
    return false;
  };
  try {
    // Nothing is kept the first time: with a function that looks on, the
    // library goes through the whole of a list at the end of each object in it.
    [[maybe_unused]] const Json nothing = Json::parse(stream, see);
    return Json::parse(text);
  } catch (const Json::parse_error &error) {
    fail("this is no JSON", error.byte == 0 ? 0 : error.byte - 1);
  } catch (const Json::out_of_range &) {
    // What was read last has ended the number.
    fail("a number is too large for any kind of it", lastRead());
  }
}

void DocumentReader::expectNew(std::set<std::string> &names,
                               const std::string &name,
                               std::size_t offset) const {
  if (!names.insert(name).second)
    fail(fmt::format("'{}' is given twice", printable(name)), offset,
         {"bad-value", name});
}

SettingsDocument DocumentReader::read() {
  Json json = parse();
  if (!json.is_object())
    fail("this is no document of settings: no object", 0);
  expectOneProcessor(json);
  if (const auto bytes = json.find(bytesMember); bytes != json.end()) {
    const Json texts = std::move(*bytes);
    json.erase(bytes);
    putBytes(json, texts);
  }
  for (const auto &[name, value] : json.items()) {
    if (name == "record")
      takeMembers("", name, value);
    else if (name == "cable")
      takeMembers("cable.", name, value);
    else if (std::find(results.begin(), results.end(), name) == results.end())
      take(name, name, value);
  }
  return std::move(document);
}

} // namespace

SettingsDocument readSettingsDocument(const std::string &text,
                                      const std::string &file) {
  return DocumentReader(text, file).read();
}

} // namespace zeldebug
