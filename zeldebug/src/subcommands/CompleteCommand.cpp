// complete: the words that fit at the end of a command line that is being
// typed. The completion scripts call it; it is not meant for people.
#include <map>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include <ZelDebugDialog/ConfigurationModel/Codes.h>
#include <ZelDebugDialog/DesignModel/DesignModel.h>

#include "CableKeyword.h"
#include "ConnectionKind.h"
#include "Session.h"
#include "line/CommandLine.h"
#include "line/Number.h"
#include "subcommands/CompletionShells.h"
#include "subcommands/LanguageWords.h"
#include "subcommands/Subcommands.h"

namespace zeldebug {

namespace {

using ZelDebugDialog::DesignModel;
using ZelDebugDialog::DesignSources;

constexpr const char *filesWanted = ":files";
constexpr const char *foldersWanted = ":folders";

/// A line up to the word that is being typed.
struct TypedLine {
  const CLI::App *app = nullptr;
  const CLI::Option *valueOf =
      nullptr; ///< the option whose value is being typed
  std::vector<std::string> arguments;
  std::map<std::string, std::vector<std::string>> values;
  std::string last;

  std::string value(const std::string &option) const {
    const auto found = values.find(option);
    return found == values.end() ? std::string() : found->second.back();
  }
};

bool takesValue(const CLI::Option &option) {
  return option.get_items_expected_max() != 0;
}

const CLI::Option *findOption(const CLI::App &app, const std::string &name) {
  for (const CLI::Option *option : app.get_options())
    if (!option->get_positional() && option->check_name(name))
      return option;
  return nullptr;
}

/// The option of "--name" or "--name=value", if it takes a value.
const CLI::Option *findValueOption(const CLI::App &app,
                                   const std::string &word) {
  const CLI::Option *option = findOption(app, word.substr(0, word.find('=')));
  return option != nullptr && takesValue(*option) ? option : nullptr;
}

/// bash hands over "--name=value" as three words.
std::vector<std::string>
withoutEqualSigns(const std::vector<std::string> &words) {
  std::vector<std::string> kept;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool behindOption = i > 0 && words[i - 1].compare(0, 2, "--") == 0;
    const bool isLast = i + 1 == words.size();
    if (words[i] != "=" || !behindOption)
      kept.push_back(words[i]);
    else if (isLast)
      kept.emplace_back();
  }
  return kept;
}

/// In "--name=va" the value is what is being typed.
void readLast(TypedLine &read, const std::string &word) {
  read.last = word;
  const std::size_t equals = word.find('=');
  if (read.valueOf != nullptr || equals == std::string::npos || word[0] != '-')
    return;
  read.valueOf = findValueOption(*read.app, word);
  if (read.valueOf != nullptr)
    read.last.erase(0, equals + 1);
}

TypedLine readLine(const CommandLine &line,
                   const std::vector<std::string> &typed) {
  TypedLine read;
  read.app = &line.application();
  const std::vector<std::string> words = withoutEqualSigns(typed);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string &word = words[i];
    if (i + 1 == words.size()) {
      readLast(read, word);
      break;
    }
    if (read.valueOf != nullptr) {
      read.values[read.valueOf->get_name()].push_back(word);
      read.valueOf = nullptr;
      continue;
    }
    if (word.size() > 1 && word[0] == '-') {
      const std::size_t equals = word.find('=');
      const CLI::Option *option = findValueOption(*read.app, word);
      if (option == nullptr)
        continue;
      if (equals == std::string::npos)
        read.valueOf = option;
      else
        read.values[option->get_name()].push_back(word.substr(equals + 1));
      continue;
    }
    if (read.app == &line.application()) {
      for (const CommandLine::Subcommand &subcommand : line.all())
        if (subcommand.app->get_name() == word)
          read.app = subcommand.app;
      continue;
    }
    read.arguments.push_back(word);
  }
  return read;
}

/// The design that the line names; an empty one if it cannot be read.
std::unique_ptr<DesignModel> designOf(const TypedLine &line) {
  auto design = std::make_unique<DesignModel>();
  const std::string named = line.value("--design");
  if (named.empty() && line.arguments.empty())
    return design;
  DesignSources sources;
  sources.designFile = named.empty() ? line.arguments.front() : named;
  const auto libraries = line.values.find("--library");
  if (libraries != line.values.end())
    sources.libraryFolders = libraries->second;
  sources.view = line.value("--view");
  sources.kindsFile = line.value("--kinds");
  if (const auto most = readNumber(line.value("--max-instances")))
    sources.maxInstances = *most;
  return ReadDesign(sources, *design) ? std::move(design)
                                      : std::make_unique<DesignModel>();
}

std::vector<std::string> processorsOf(const TypedLine &line) {
  const auto design = designOf(line);
  return Session(design.get()).processorNames();
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
  const Session session(design.get());
  if (line.arguments.size() > 1)
    for (const ZelDebugDialog::ProcessorInfoImp *record :
         session.state->processorList)
      if (record->instanceName == line.arguments[1])
        return allowedKinds(record->connectionMask);
  std::vector<std::string> words;
  for (const ConnectionKind &known : connectionKinds())
    words.emplace_back(known.word);
  return words;
}

std::vector<std::string> frequenciesOf(const TypedLine &line) {
  std::vector<std::string> words;
  const auto type = findCableType(line.value("--cable"));
  for (const ZelDebugDialog::CommandCable &cable : cables())
    if (!type || cable.type == *type)
      for (const std::uint32_t frequency : cable.acceptedFrequencies)
        words.push_back(fmt::format("{}", frequency));
  return words;
}

/// Those that are meant for people.
std::vector<std::string> subcommandsOf(const CommandLine &line) {
  std::vector<std::string> names;
  for (const CommandLine::Subcommand &subcommand : line.visible())
    names.push_back(subcommand.app->get_name());
  return names;
}

std::vector<std::string> valuesOf(const CommandLine &line, ValueKind kind,
                                  const TypedLine &typed) {
  switch (kind) {
  case ValueKind::file:
    return {filesWanted};
  case ValueKind::folder:
    return {foldersWanted};
  case ValueKind::cable:
    return cableKeywords();
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
  case ValueKind::diagnosticCode: {
    std::vector<std::string> words;
    for (const ZelDebugDialog::Code &row : ZelDebugDialog::GetCodes())
      words.emplace_back(row.code);
    return words;
  }
  case ValueKind::languageWord:
    return languageWords();
  case ValueKind::subcommand:
    return subcommandsOf(line);
  case ValueKind::shell:
    return completionShells();
  case ValueKind::text:
    break;
  }
  return {};
}

std::vector<std::string> optionsOf(const CLI::App &app) {
  std::vector<std::string> words;
  for (const CLI::Option *option : app.get_options()) {
    for (const std::string &name : option->get_lnames())
      words.push_back("--" + name);
    for (const std::string &name : option->get_snames())
      words.push_back("-" + name);
  }
  return words;
}

std::vector<std::string> candidatesOf(const CommandLine &line,
                                      const TypedLine &read) {
  if (read.valueOf != nullptr)
    return valuesOf(line, line.kindOf(read.valueOf), read);
  if (!read.last.empty() && read.last[0] == '-') {
    std::vector<std::string> words = optionsOf(*read.app);
    for (const CLI::Option *option : read.app->get_options())
      if (line.kindOf(option) == ValueKind::languageWord)
        for (const std::string &word : languageWords())
          words.push_back(word);
    return words;
  }
  if (read.app == &line.application())
    return subcommandsOf(line);
  std::size_t position = 0;
  for (const CLI::Option *option : read.app->get_options())
    if (option->get_positional() && position++ == read.arguments.size())
      return valuesOf(line, line.kindOf(option), read);
  return {};
}

ExitStatus run(const CommandLine &line, const CLI::Option &words,
               Output &output) {
  const TypedLine read = readLine(line, words.results());
  for (const std::string &word : candidatesOf(line, read)) {
    const bool isRequest = word[0] == ':';
    if (isRequest || word.compare(0, read.last.size(), read.last) == 0)
      output.printLine(word);
  }
  return ExitStatus::done;
}

} // namespace

void addCompleteCommand(CommandLine &line) {
  const auto words = std::make_shared<std::vector<std::string>>();
  const auto option = std::make_shared<const CLI::Option *>();
  CLI::App &app = line.addSubcommand(
      "complete", "Print the words that fit at the end of a line",
      "zeldebug complete -- set board.xml ''",
      [&line, words, option](Output &output) {
        return run(line, **option, output);
      });
  app.group("");
  *option = app.add_option("WORD", *words,
                           "what has been typed behind the program's name")
                ->type_name("");
}

} // namespace zeldebug
