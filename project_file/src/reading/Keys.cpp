#include "reading/Keys.h"

#include <algorithm>
#include <array>

namespace ZelDebugDialog::project {

namespace {

struct InPlace {
  const char *setting;
  const char *written;
};

// What follows from other settings.
constexpr std::array<InPlace, 2> inPlace{
    {{"connectionType", "connection"}, {"stubType", "connection"}}};

bool startsWith(std::string_view text, std::string_view front) {
  return text.substr(0, front.size()) == front;
}

} // namespace

const std::vector<KeyRow> &fileKeys() {
  // clang-format off
  static const std::vector<KeyRow> rows{
      {"version", KeyShape::version, true, true, "Version of the format: 1."},
      {"design", KeyShape::path, true, false, "The design, an IP-XACT file."},
      {"view", KeyShape::text, true, false, "The view to take of a hierarchical component."},
      {"kinds", KeyShape::path, true, false, "A table of kinds."},
      {"library", KeyShape::paths, true, true, "Folders in which components are looked for."},
      {"directory", KeyShape::path, true, true, "The folder whose etc/ holds the option files."},
      {"use", KeyShape::use, true, true, "Which probe and which profile are in use."},
      {"settings", KeyShape::settings, true, true, "Settings of all processors."},
      {"type", KeyShape::types, true, true, "Settings of the processors of a type."},
      {"processor", KeyShape::processors, true, true, "Settings of a processor, or of those that a pattern matches."},
      {"probe", KeyShape::probes, true, true, "The cable settings of a probe, by its name."},
      {"profile", KeyShape::profiles, true, true, "Settings that count where the profile is in use."},
  };
  // clang-format on
  return rows;
}

const std::vector<std::string> &useKeys() {
  static const std::vector<std::string> keys{"probe", "profile"};
  return keys;
}

std::vector<std::string> keysOf(FileKind kind) {
  std::vector<std::string> keys;
  for (const KeyRow &row : fileKeys())
    if (kind == FileKind::project ? row.inProject : row.inLocal)
      keys.emplace_back(row.key);
  return keys;
}

const std::vector<std::string> &blockKeys() {
  static const std::vector<std::string> keys = [] {
    std::vector<std::string> made;
    for (const KeyRow &row : fileKeys())
      if (row.shape == KeyShape::settings || row.shape == KeyShape::types ||
          row.shape == KeyShape::processors)
        made.emplace_back(row.key);
    return made;
  }();
  return keys;
}

const SettingInfo *findAccepted(std::string_view id) {
  const SettingInfo *const setting = FindSetting(id);
  const bool isTaken =
      setting != nullptr && setting->settable && setting->id == id &&
      id.find('[') == std::string_view::npos && id != GetAddressMap().base;
  return isTaken ? setting : nullptr;
}

std::vector<std::string> acceptedSettings(std::string_view front) {
  std::vector<std::string> names;
  for (const SettingInfo &setting : GetSettings())
    if (findAccepted(setting.id) != nullptr && startsWith(setting.id, front))
      names.push_back(setting.id.substr(front.size()));
  return names;
}

std::vector<std::string> writtenFor(std::string_view id) {
  for (const InPlace &row : inPlace)
    if (id == row.setting)
      return {row.written};
  if (id == GetAddressMap().base)
    return GetAddressMap().regions;
  if (startsWith(id, "chain["))
    return {"chain"};
  return {};
}

const std::vector<std::string> &requiredFields() {
  static const std::vector<std::string> names{"devicenr", "partname",
                                              "irlength", "idcode"};
  return names;
}

} // namespace ZelDebugDialog::project
