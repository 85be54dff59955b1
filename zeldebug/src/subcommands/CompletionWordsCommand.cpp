// complete: the words that fit at the end of a command line that is being
// typed. The completion scripts call it; it is not meant for people.
#include <filesystem>
#include <memory>
#include <set>

#include <fmt/format.h>
#include <strings.h>

#include <ZelDebugDialog/ConfigurationModel/Board.h>
#include <ZelDebugDialog/ConfigurationModel/Language.h>
#include <ZelDebugDialog/ConfigurationModel/Refusal.h>
#include <ZelDebugDialog/ConfigurationModel/Settings.h>
#include <ZelDebugDialog/DesignModel/DesignModel.h>
#include <ZelDebugDialog/ProjectFile/Project.h>

#include "line/Number.h"
#include "line/Options.h"
#include "line/SettingOptions.h"
#include "line/TypedLine.h"
#include "output/AllCodes.h"
#include "subcommands/CompletionShells.h"
#include "subcommands/LanguageWords.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::Board;
using ZelDebugDialog::BoardProcessor;
using ZelDebugDialog::CableInfo;
using ZelDebugDialog::Choice;
using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignSources;
using ZelDebugDialog::FindSetting;
using ZelDebugDialog::Project;
using ZelDebugDialog::ProjectLayer;
using ZelDebugDialog::ProjectProfile;
using ZelDebugDialog::ProjectTable;
using ZelDebugDialog::Refusal;
using ZelDebugDialog::SettingInfo;

constexpr const char *filesWanted = ":files";
constexpr const char *foldersWanted = ":folders";

/// That of the line, or above the folder of -C; an empty one if it cannot be
/// read.
Project projectOf(const TypedLine &line) {
  std::string file = line.value("--project");
  const std::string folder = line.value("-C");
  if (file.empty())
    file = ZelDebugDialog::FindProject(folder.empty() ? "." : folder);
  try {
    return file.empty() ? Project() : ZelDebugDialog::ReadProject(file);
  } catch (const Refusal &) {
    return {};
  }
}

/// Whether the only argument is a processor of the project: it is no file.
bool isProcessorAlone(const TypedLine &line) {
  std::error_code error;
  return line.arguments.size() == 1 &&
         !std::filesystem::exists(line.arguments.front(), error);
}

/// The design that the line or its project names; an empty one if it cannot be
/// read.
std::unique_ptr<DesignModel> designOf(const TypedLine &line) {
  auto design = std::make_unique<DesignModel>();
  std::string named = line.value("--design");
  if (named.empty() && line.takesDesign && !isProcessorAlone(line))
    named = line.arguments.empty() ? "" : line.arguments.front();
  DesignSources sources;
  sources.designFile = named;
  if (named.empty()) {
    const Project project = projectOf(line);
    sources = {project.Design(), project.Libraries(), project.View(),
               project.Kinds()};
  }
  if (sources.designFile.empty())
    return design;
  const auto libraries = line.values.find("--library");
  if (libraries != line.values.end())
    sources.libraryFolders = libraries->second;
  if (const std::string view = line.value("--view"); !view.empty())
    sources.view = view;
  if (const std::string kinds = line.value("--kinds"); !kinds.empty())
    sources.kindsFile = kinds;
  if (const auto most = readNumber(line.value("--max-instances")))
    sources.maxInstances = *most;
  return ReadDesign(sources, *design) ? std::move(design)
                                      : std::make_unique<DesignModel>();
}

std::vector<std::string> processorsOf(const TypedLine &line) {
  const auto design = designOf(line);
  std::vector<std::string> names;
  const Board board(*design, "etc");
  for (const BoardProcessor &processor : board.Processors())
    names.push_back(processor.name);
  return names;
}

std::vector<std::string> instancesOf(const TypedLine &line) {
  const auto design = designOf(line);
  std::vector<std::string> names;
  for (const ZelDebugDialog::DesignInstance &instance : design->Instances())
    names.push_back(instance.name);
  return names;
}

/// Those that the processor of the line allows; all without a processor.
std::vector<std::string> connectionsOf(const TypedLine &line) {
  const auto design = designOf(line);
  const Board board(*design, "etc");
  if (line.arguments.size() > 1 || isProcessorAlone(line))
    for (const BoardProcessor &processor : board.Processors())
      if (processor.name == line.arguments[line.arguments.size() > 1 ? 1 : 0])
        return processor.connections;
  std::vector<std::string> words;
  for (const Choice &known : FindSetting("connection")->choices)
    words.push_back(known.text);
  return words;
}

bool sameKeyword(const std::string &a, const std::string &b) {
  return strcasecmp(a.c_str(), b.c_str()) == 0;
}

/// Those of the cable of the line; all without a cable.
std::vector<std::string> frequenciesOf(const TypedLine &line) {
  std::vector<std::string> all;
  for (const CableInfo &cable : ZelDebugDialog::GetCables()) {
    std::vector<std::string> words;
    for (const std::uint32_t frequency : cable.acceptedFrequencies)
      words.push_back(fmt::format("{}", frequency));
    for (const std::string &word : wordsOf(cable))
      if (sameKeyword(word, line.value("--cable")))
        return words;
    all.insert(all.end(), words.begin(), words.end());
  }
  return all;
}

std::vector<std::string> settableNames() {
  std::vector<std::string> names;
  for (const SettingInfo &setting : ZelDebugDialog::GetSettings())
    if (setting.settable && setting.id.compare(0, 6, "chain[") != 0)
      names.push_back(setting.id);
  return names;
}

/// The names that both files define.
std::vector<std::string> wordsOfProject(ValueKind kind,
                                        const TypedLine &typed) {
  const Project project = projectOf(typed);
  std::set<std::string> names;
  for (const ProjectLayer *const layer : {&project.project, &project.local})
    if (kind == ValueKind::probe)
      for (const ProjectTable &probe : layer->probes)
        names.insert(probe.name);
    else
      for (const ProjectProfile &profile : layer->profiles)
        names.insert((kind == ValueKind::target ? "profile:" : "") +
                     profile.name);
  std::vector<std::string> words(names.begin(), names.end());
  if (kind == ValueKind::target)
    words.insert(words.begin(), {"local", "project"});
  else
    words.emplace_back("none");
  return words;
}

std::vector<std::string> valuesOf(const CommandLine &line, ValueKind kind,
                                  const TypedLine &typed) {
  switch (kind) {
  case ValueKind::file:
    return {filesWanted};
  case ValueKind::folder:
    return {foldersWanted};
  case ValueKind::cable:
    return offeredCables();
  case ValueKind::frequency:
    return frequenciesOf(typed);
  case ValueKind::connection:
    return connectionsOf(typed);
  case ValueKind::device:
    return {"devicenr="};
  case ValueKind::processor:
    return processorsOf(typed);
  case ValueKind::instance:
    return instancesOf(typed);
  case ValueKind::diagnosticCode:
    return codeNames();
  case ValueKind::languageWord:
    return languageWords();
  case ValueKind::subcommand:
    return line.names();
  case ValueKind::shell:
    return completionShells();
  case ValueKind::setting:
    return settableNames();
  case ValueKind::colour:
    return {"auto", "always", "never"};
  case ValueKind::probe:
  case ValueKind::profile:
  case ValueKind::target:
    return wordsOfProject(kind, typed);
  case ValueKind::text:
    break;
  }
  return {};
}

std::vector<std::string> candidatesOf(const CommandLine &line,
                                      const TypedLine &typed) {
  if (typed.isSubcommand)
    return line.names();
  if (typed.kind) {
    std::vector<std::string> words = valuesOf(line, *typed.kind, typed);
    if (typed.mayBeProcessor)
      for (const std::string &name : processorsOf(typed))
        words.push_back(name);
    return words;
  }
  std::vector<std::string> words = typed.options;
  if (typed.dashedKind)
    for (const std::string &word : valuesOf(line, *typed.dashedKind, typed))
      words.push_back(word);
  return words;
}

ExitStatus run(CommandLine &line, const std::vector<std::string> &words,
               Output &output) {
  const TypedLine typed = readTypedLine(line, words);
  for (const std::string &word : candidatesOf(line, typed)) {
    const bool isRequest = word[0] == ':';
    if (isRequest || word.compare(0, typed.last.size(), typed.last) == 0)
      output.printLine(word);
  }
  return ExitStatus::done;
}

CommandLine::Runner completionWordsOptions(Options &app) {
  const auto words = std::make_shared<std::vector<std::string>>();
  app.addArguments("WORD", *words,
                   "what has been typed behind the program's name",
                   ValueKind::text);
  return [&line = app.line(), words](Output &output) {
    return run(line, *words, output);
  };
}

} // namespace

void addCompletionWordsCommand(CommandLine &line) {
  line.addSubcommand(
          "complete", "Print the words that fit at the end of a line",
          "zeldebug complete -- set board.xml ''", completionWordsOptions)
      .hide();
}

} // namespace zeldebug
