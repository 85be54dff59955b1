#include "reading/Faults.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include <fmt/format.h>

#include "ZelDebugDialog/ConfigurationModel/Text.h"
#include "ZelDebugDialog/ProjectFile/Codes.h"

namespace ZelDebugDialog::project {

std::string quotedList(const std::vector<std::string> &words) {
  std::string list;
  for (const std::string &word : words)
    list += fmt::format("{}'{}'", list.empty() ? "" : ", ", ShowText(word));
  return list;
}

ProjectFault faultOf(const std::string &code, const ProjectPlace &place,
                     const std::string &message) {
  const ProjectCode *const row = FindProjectCode(code);
  if (row == nullptr)
    throw std::logic_error("no code " + code);
  ProjectFault fault;
  fault.place = place;
  fault.severity = row->severity;
  fault.code = code;
  fault.message = message;
  return fault;
}

ProjectFault unknownName(const std::string &code, const ProjectPlace &place,
                         const std::string &name, const std::string &what,
                         std::vector<std::string> accepted) {
  const std::string nearest = FindNearest(name, accepted);
  std::string instead;
  if (!nearest.empty())
    instead = fmt::format("; did you mean '{}'?", ShowText(nearest));
  else if (!accepted.empty())
    instead = fmt::format("; accepted are {}", quotedList(accepted));
  ProjectFault fault = faultOf(
      code, place, fmt::format("'{}' is {}{}", ShowText(name), what, instead));
  fault.accepted = std::move(accepted);
  fault.suggestion = nearest;
  return fault;
}

void sortFaults(std::vector<ProjectFault> &faults,
                const std::string &projectFile) {
  const auto key = [&projectFile](const ProjectFault &fault) {
    return std::make_tuple(fault.place.file != projectFile, fault.place.line,
                           fault.place.column);
  };
  std::stable_sort(faults.begin(), faults.end(),
                   [&key](const ProjectFault &one, const ProjectFault &other) {
                     return key(one) < key(other);
                   });
}

ProjectFault &Faults::add(const std::string &code, std::size_t offset,
                          const std::string &message) {
  list.push_back(faultOf(code, placeOf(offset), message));
  return list.back();
}

void Faults::addUnknown(const std::string &code, std::size_t offset,
                        const std::string &name, const std::string &what,
                        std::vector<std::string> accepted) {
  list.push_back(
      unknownName(code, placeOf(offset), name, what, std::move(accepted)));
}

void Faults::addWrongType(const TomlNode &node, const std::string &name,
                          const std::string &wanted) {
  ProjectFault &fault = add("wrong-type", node.span.begin,
                            fmt::format("'{}' is {}, not {}", ShowText(name),
                                        wanted, shown(node.type)));
  fault.accepted = {wanted};
}

} // namespace ZelDebugDialog::project
