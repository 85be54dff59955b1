#include "merging/Sources.h"

#include <array>

namespace ZelDebugDialog::project {

namespace {

// Inside a block, low to high.
constexpr std::array<ProjectScope, 4> scopes{
    ProjectScope::all, ProjectScope::type, ProjectScope::pattern,
    ProjectScope::processor};

void addBlock(const ProjectBlock &block, const BoardProcessor &processor,
              std::vector<Source> &sources) {
  for (const ProjectScope scope : scopes) {
    Source source;
    for (const ProjectTable &table : block)
      if (table.scope == scope && speaksOf(table, processor))
        source.push_back(&table);
    if (!source.empty())
      sources.push_back(std::move(source));
  }
}

/// Behind the character at a place.
std::size_t nextCharacter(const std::string &text, std::size_t at) {
  do
    ++at;
  while (at < text.size() &&
         (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U);
  return at;
}

} // namespace

bool matches(const std::string &pattern, const std::string &name) {
  std::size_t at = 0;
  std::size_t place = 0;
  // Where to go on when what follows the last '*' does not match.
  std::size_t star = std::string::npos;
  std::size_t behind = 0;
  while (place < name.size()) {
    if (at < pattern.size() && pattern[at] == '*') {
      star = at++;
      behind = place;
    } else if (at < pattern.size() && pattern[at] == '?') {
      ++at;
      place = nextCharacter(name, place);
    } else if (at < pattern.size() && pattern[at] == name[place]) {
      ++at;
      ++place;
    } else if (star != std::string::npos) {
      at = star + 1;
      behind = nextCharacter(name, behind);
      place = behind;
    } else {
      return false;
    }
  }
  while (at < pattern.size() && pattern[at] == '*')
    ++at;
  return at == pattern.size();
}

bool speaksOf(const ProjectTable &table, const BoardProcessor &processor) {
  switch (table.scope) {
  case ProjectScope::all:
    return true;
  case ProjectScope::type:
    return table.name == processor.type;
  case ProjectScope::pattern:
    return matches(table.name, processor.name);
  case ProjectScope::processor:
    break;
  }
  return table.name == processor.name;
}

std::vector<Source> sourcesOf(const Project &project,
                              const ProjectChoice &choice,
                              const BoardProcessor &processor) {
  std::vector<Source> sources;
  addBlock(project.project.block, processor, sources);
  for (const ProjectLayer *const layer : {&project.project, &project.local})
    for (const ProjectTable &probe : layer->probes)
      if (probe.name == choice.probe.name)
        sources.push_back({&probe});
  for (const ProjectLayer *const layer : {&project.project, &project.local})
    for (const ProjectProfile &profile : layer->profiles)
      if (profile.name == choice.profile.name)
        addBlock(profile.tables, processor, sources);
  addBlock(project.local.block, processor, sources);
  return sources;
}

} // namespace ZelDebugDialog::project
