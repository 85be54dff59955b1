#include "reading/FileReader.h"

#include <algorithm>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "reading/Faults.h"
#include "reading/Names.h"
#include "reading/SyntaxFault.h"
#include "reading/Values.h"
#include "toml/Document.h"

namespace ZelDebugDialog::project {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

class FileReader {
public:
  FileReader(FileKind ofKind, Faults &into) : kind(ofKind), faults(into) {}

  void read(const TomlNode &root, ProjectLayer &layer) {
    for (const TomlMember &member : root.members) {
      const auto row = std::find_if(
          fileKeys().begin(), fileKeys().end(),
          [&member](const KeyRow &key) { return member.key == key.key; });
      if (row == fileKeys().end()) {
        faults.addUnknown("unknown-key", member.offset, member.key,
                          "no key of this file", keysOf(kind));
      } else if (kind == FileKind::local && !row->inLocal) {
        ProjectFault &fault = faults.add(
            "unknown-key", member.offset,
            fmt::format("'{}' stands in the project file only", member.key));
        fault.accepted = keysOf(kind);
      } else {
        readKey(*row, member.value, layer);
      }
    }
    if (kind == FileKind::project && root.find("design") == nullptr) {
      ProjectFault &fault = faults.add("missing-key", 0,
                                       "the file does not say which 'design' "
                                       "it is for");
      fault.accepted = {"design"};
    }
  }

private:
  void readKey(const KeyRow &row, const TomlNode &node, ProjectLayer &layer) {
    const std::string key = row.key;
    switch (row.shape) {
    case KeyShape::version:
      return readVersion(node);
    case KeyShape::path:
      (key == "design"  ? layer.design
       : key == "kinds" ? layer.kinds
                        : layer.directory) = readPath(node, key);
      return;
    case KeyShape::text:
      layer.view = readView(node, key);
      return;
    case KeyShape::paths:
      layer.library = readPaths(node, key);
      return;
    case KeyShape::use:
      return readUse(node, layer);
    case KeyShape::settings:
    case KeyShape::types:
    case KeyShape::processors:
      return readBlockKey(row.shape, node, key, layer.block);
    case KeyShape::probes:
      return readProbes(node, layer);
    case KeyShape::profiles:
      return readProfiles(node, layer);
    }
  }

  bool expectTable(const TomlNode &node, const std::string &name) {
    if (node.type == TomlType::table)
      return true;
    faults.addWrongType(node, name, "a table");
    return false;
  }

  void readVersion(const TomlNode &node) {
    if (node.type != TomlType::integer)
      return faults.addWrongType(node, "version", "an integer");
    if (node.integer == 1)
      return;
    ProjectFault &fault = faults.add(
        "out-of-range", node.span.begin,
        fmt::format("'version' is 1, and {} is not known", node.integer));
    fault.accepted = {"1"};
  }

  std::optional<ProjectText> readText(const TomlNode &node,
                                      const std::string &key) {
    const std::string *const text = expectText(node, key, faults);
    if (text == nullptr)
      return std::nullopt;
    return ProjectText{*text, faults.placeOf(node.span.begin)};
  }

  std::optional<ProjectText> readView(const TomlNode &node,
                                      const std::string &key) {
    auto view = readText(node, key);
    if (!view || !view->text.empty())
      return view;
    faults
        .add("bad-value", node.span.begin,
             fmt::format("'{}' is the name of a view, and this is none", key))
        .accepted = {"the name of a view"};
    return std::nullopt;
  }

  std::optional<ProjectText> readPath(const TomlNode &node,
                                      const std::string &key) {
    auto path = readText(node, key);
    if (!path)
      return path;
    if (!path->text.empty() && path->text.find('\0') == std::string::npos)
      return path;
    faults
        .add("bad-value", node.span.begin,
             fmt::format("'{}' is the path of a file or folder, and this "
                         "is none",
                         key))
        .accepted = {"a path"};
    return std::nullopt;
  }

  std::optional<std::vector<ProjectText>> readPaths(const TomlNode &node,
                                                    const std::string &key) {
    if (node.type != TomlType::array) {
      faults.addWrongType(node, key, "an array of texts");
      return std::nullopt;
    }
    std::vector<ProjectText> paths;
    for (const TomlNode &item : node.items)
      if (auto path = readPath(item, key))
        paths.push_back(std::move(*path));
    return paths;
  }

  void readUse(const TomlNode &node, ProjectLayer &layer) {
    if (!expectTable(node, "use"))
      return;
    for (const TomlMember &member : node.members) {
      const auto found =
          std::find(useKeys().begin(), useKeys().end(), member.key);
      if (found == useKeys().end())
        faults.addUnknown("unknown-key", member.offset, member.key,
                          "no key of 'use'", useKeys());
      else
        (found == useKeys().begin() ? layer.probe : layer.profile) =
            readText(member.value, "use." + member.key);
    }
  }

  // --- Blocks ----------------------------------------------------------------

  void readBlockKey(KeyShape shape, const TomlNode &node,
                    const std::string &key, ProjectBlock &block) {
    if (!expectTable(node, key))
      return;
    if (shape == KeyShape::settings) {
      ProjectTable table;
      table.place = faults.placeOf(node.span.begin);
      readSettings(node, "", table);
      block.push_back(std::move(table));
      return;
    }
    for (const TomlMember &member : node.members) {
      if (!expectTable(member.value, key + "." + member.key))
        continue;
      ProjectTable table;
      table.scope = shape == KeyShape::types ? ProjectScope::type
                    : isPattern(member.key)  ? ProjectScope::pattern
                                             : ProjectScope::processor;
      table.name = member.key;
      table.place = faults.placeOf(member.offset);
      readSettings(member.value, "", table);
      block.push_back(std::move(table));
    }
  }

  /// @param front  what the names lack in front
  void readSettings(const TomlNode &node, std::string_view front,
                    ProjectTable &table) {
    for (const TomlMember &member : node.members)
      if (member.key == unsetKey)
        readUnset(member.value, front, table);
    for (const TomlMember &member : node.members)
      if (member.key != unsetKey)
        readSetting(member, std::string(front) + member.key, front, table);
  }

  void readSetting(const TomlMember &member, const std::string &id,
                   std::string_view front, ProjectTable &table) {
    const TomlNode &node = member.value;
    const std::vector<std::string> known = acceptedSettings(front);
    // A quoted name with a dot is no part of a setting's name.
    const bool isWhole = member.key.find('.') == std::string::npos;
    const SettingInfo *const setting = isWhole ? findAccepted(id) : nullptr;
    if (setting != nullptr)
      return readValueInto(*setting, member, table);
    const std::string inside = id + ".";
    const bool isGroup =
        isWhole &&
        std::any_of(known.begin(), known.end(), [&](const std::string &name) {
          return (std::string(front) + name)
                     .compare(0, inside.size(), inside) == 0;
        });
    if (isGroup) {
      if (!expectTable(node, member.key))
        return;
      for (const TomlMember &part : node.members)
        readSetting(part, inside + part.key, inside, table);
      return;
    }
    addUnknownSetting(member, id, front);
  }

  void addUnknownSetting(const TomlMember &member, const std::string &id,
                         std::string_view front) {
    std::vector<std::string> accepted = acceptedSettings(front);
    if (findAccepted(id) != nullptr) {
      ProjectFault &fault =
          faults.add("unknown-key", member.offset,
                     fmt::format("the quotes make one name of '{}', and no "
                                 "setting has it; write {} without them",
                                 member.key, member.key));
      fault.accepted = std::move(accepted);
      fault.setting = id;
      return;
    }
    std::vector<std::string> instead = writtenFor(id);
    const bool isSetting =
        FindSetting(id) != nullptr && member.key.find('.') == std::string::npos;
    if (!isSetting && instead.empty()) {
      accepted.emplace_back(unsetKey);
      return faults.addUnknown("unknown-key", member.offset, member.key,
                               front == cableFront ? "no setting of a cable"
                                                   : "no setting",
                               std::move(accepted));
    }
    std::string problem = "cannot be set";
    if (!instead.empty()) {
      const bool isPart = id.compare(0, instead[0].size(), instead[0]) == 0 &&
                          instead.size() == 1 && !isSetting;
      problem = fmt::format("{}; write {}",
                            isPart ? "is a part of what is written whole"
                                   : "follows from others",
                            quotedList(instead));
    }
    ProjectFault &fault =
        faults.add("unknown-key", member.offset,
                   fmt::format("'{}' {}", ShowText(id), problem));
    fault.suggestion = instead.size() == 1 ? instead.front() : "";
    fault.accepted = instead.empty() ? std::move(accepted) : std::move(instead);
    fault.setting = id;
  }

  void readValueInto(const SettingInfo &setting, const TomlMember &member,
                     ProjectTable &table) {
    const auto isIt = [&setting](const ProjectText &one) {
      return one.text == setting.id;
    };
    if (std::any_of(table.unset.begin(), table.unset.end(), isIt)) {
      faults
          .add("unset-and-set", member.offset,
               fmt::format("'{}' is in 'unset' of the same table; leave one of "
                           "them out",
                           setting.id))
          .setting = setting.id;
    }
    if (auto value = readValue(setting, member.value, faults))
      table.values.push_back(std::move(*value));
  }

  void readUnset(const TomlNode &node, std::string_view front,
                 ProjectTable &table) {
    if (node.type != TomlType::array)
      return faults.addWrongType(node, unsetKey, "an array of settings");
    for (const TomlNode &item : node.items) {
      const std::string *const name = expectText(item, unsetKey, faults);
      if (name == nullptr)
        continue;
      const bool isWhole = name->compare(0, front.size(), front) == 0;
      const std::string id = (isWhole ? "" : std::string(front)) + *name;
      if (findAccepted(id) == nullptr)
        faults.addUnknown("bad-value", item.span.begin, *name,
                          "no setting that can be unset",
                          acceptedSettings(front));
      else
        table.unset.push_back({id, faults.placeOf(item.span.begin)});
    }
  }

  // --- What has a name -------------------------------------------------------

  bool expectName(const TomlMember &member, const std::string &what) {
    if (!isName(member.key)) {
      faults.add("bad-value", member.offset, shownNoName(member.key, what));
      return false;
    }
    return expectTable(member.value, what + "." + member.key);
  }

  void readProbes(const TomlNode &node, ProjectLayer &layer) {
    if (!expectTable(node, "probe"))
      return;
    for (const TomlMember &member : node.members) {
      if (!expectName(member, "probe"))
        continue;
      ProjectTable table;
      table.name = member.key;
      table.place = faults.placeOf(member.offset);
      readSettings(member.value, cableFront, table);
      layer.probes.push_back(std::move(table));
    }
  }

  void readProfiles(const TomlNode &node, ProjectLayer &layer) {
    if (!expectTable(node, "profile"))
      return;
    for (const TomlMember &member : node.members) {
      if (!expectName(member, "profile"))
        continue;
      ProjectProfile profile;
      profile.name = member.key;
      profile.place = faults.placeOf(member.offset);
      for (const TomlMember &part : member.value.members) {
        const auto row = std::find_if(
            fileKeys().begin(), fileKeys().end(),
            [&part](const KeyRow &key) { return part.key == key.key; });
        const bool isOfBlock = std::find(blockKeys().begin(), blockKeys().end(),
                                         part.key) != blockKeys().end();
        if (isOfBlock)
          readBlockKey(row->shape, part.value, part.key, profile.tables);
        else
          faults.addUnknown("unknown-key", part.offset, part.key,
                            "no key of a profile", blockKeys());
      }
      layer.profiles.push_back(std::move(profile));
    }
  }

  FileKind kind;
  Faults &faults;
};

} // namespace

std::string withoutMark(const std::string &text) {
  return text.compare(0, byteOrderMark.size(), byteOrderMark) == 0
             ? text.substr(byteOrderMark.size())
             : text;
}

bool isPattern(const std::string &name) {
  return name.find_first_of("*?") != std::string::npos;
}

ProjectLayer readLayer(FileKind kind, const std::string &file,
                       const std::string &given,
                       std::vector<ProjectFault> &list) {
  ProjectLayer layer;
  layer.file = file;
  layer.exists = true;
  const std::string text = withoutMark(given);
  Faults faults(file, text, list);
  const TomlDocument document = readToml(text);
  if (document.error)
    addSyntaxFault(text, *document.error, faults);
  else
    FileReader(kind, faults).read(document.root, layer);
  return layer;
}

} // namespace ZelDebugDialog::project
