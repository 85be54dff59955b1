#include "line/TypedLine.h"

#include <CLI/CLI.hpp>

namespace zeldebug {

namespace {

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

std::vector<std::string> optionWords(const CLI::App &app) {
  std::vector<std::string> words;
  for (const CLI::Option *option : app.get_options()) {
    for (const std::string &name : option->get_lnames())
      words.push_back("--" + name);
    for (const std::string &name : option->get_snames())
      words.push_back("-" + name);
  }
  return words;
}

/// Goes through the words in front of the last one.
class LineReader {
public:
  explicit LineReader(CommandLine &ofLine)
      : line(ofLine), app(&ofLine.application()) {}

  void take(const std::string &word);
  void takeLast(const std::string &word);
  TypedLine read;

private:
  bool isOfAll() const { return app == &line.application(); }
  void takeOption(const std::string &word);

  CommandLine &line;
  const CLI::App *app;
  const CLI::Option *valueOf = nullptr; ///< whose value comes next
};

void LineReader::takeOption(const std::string &word) {
  const std::size_t equals = word.find('=');
  const CLI::Option *option = findValueOption(*app, word);
  if (option == nullptr)
    return;
  if (equals == std::string::npos)
    valueOf = option;
  else
    read.values[option->get_name()].push_back(word.substr(equals + 1));
}

void LineReader::take(const std::string &word) {
  if (valueOf != nullptr) {
    read.values[valueOf->get_name()].push_back(word);
    valueOf = nullptr;
    return;
  }
  if (word.size() > 1 && word[0] == '-')
    return takeOption(word);
  if (!isOfAll()) {
    read.arguments.push_back(word);
    return;
  }
  if (const CommandLine::Subcommand *known = line.findSubcommand(word))
    app = known->app;
}

void LineReader::takeLast(const std::string &word) {
  read.last = word;
  for (const CLI::Option *option : app->get_options())
    if (option->get_positional() && option->get_name() == "DESIGN")
      read.takesDesign = true;
  // In "--name=va" the value is what is being typed.
  const std::size_t equals = word.find('=');
  if (valueOf == nullptr && equals != std::string::npos && word[0] == '-') {
    valueOf = findValueOption(*app, word);
    if (valueOf != nullptr)
      read.last.erase(0, equals + 1);
  }
  if (valueOf != nullptr) {
    read.kind = line.kindOf(valueOf);
    return;
  }
  if (!read.last.empty() && read.last[0] == '-') {
    read.options = optionWords(*app);
    for (const CLI::Option *option : app->get_options())
      if (line.kindOf(option) == ValueKind::languageWord)
        read.dashedKind = ValueKind::languageWord;
    return;
  }
  read.isSubcommand = isOfAll();
  if (read.isSubcommand)
    return;
  std::size_t position = 0;
  bool takesProcessor = false;
  for (const CLI::Option *option : app->get_options()) {
    if (!option->get_positional())
      continue;
    takesProcessor =
        takesProcessor || line.kindOf(option) == ValueKind::processor;
    if (position++ == read.arguments.size())
      read.kind = line.kindOf(option);
  }
  read.mayBeProcessor = read.takesDesign && read.arguments.empty() &&
                        takesProcessor &&
                        findOption(*app, "--project") != nullptr;
}

} // namespace

std::string TypedLine::value(const std::string &option) const {
  const auto found = values.find(option);
  return found == values.end() ? std::string() : found->second.back();
}

TypedLine readTypedLine(CommandLine &line,
                        const std::vector<std::string> &words) {
  LineReader reader(line);
  const std::vector<std::string> typed = withoutEqualSigns(words);
  for (std::size_t i = 0; i + 1 < typed.size(); ++i)
    reader.take(typed[i]);
  reader.takeLast(typed.empty() ? std::string() : typed.back());
  return reader.read;
}

} // namespace zeldebug
