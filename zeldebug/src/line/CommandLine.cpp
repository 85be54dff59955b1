#include "line/CommandLine.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "Version.h"
#include "line/Options.h"
#include "output/Json.h"
#include "output/Suggestion.h"
#include "output/Wrap.h"

namespace zeldebug {

namespace {

bool isForPeople(const CommandLine::Subcommand &subcommand) {
  return !subcommand.app->get_group().empty();
}

constexpr std::size_t optionColumn = 34;

/// The words of the line, last one first, as CLI11 takes them. "--name="
/// becomes two words: CLI11 would take the word behind it for the missing
/// value.
std::vector<std::string> wordsOf(int argc, const char *const *argv) {
  std::vector<std::string> words;
  for (int i = 1; i < argc; ++i) {
    std::string word = argv[i];
    const bool emptyValue = word.size() > 3 && word.compare(0, 2, "--") == 0 &&
                            word.find('=') == word.size() - 1;
    if (emptyValue)
      word.pop_back();
    words.push_back(std::move(word));
    if (emptyValue)
      words.emplace_back();
  }
  std::reverse(words.begin(), words.end());
  return words;
}

std::string nameIn(const std::string &word) {
  return word.substr(0, word.find('='));
}

/// The long name of each option, or the short one where it is the only one.
std::vector<std::string> optionNames(const CLI::App &app) {
  std::vector<std::string> names;
  for (const CLI::Option *option : app.get_options())
    if (!option->get_lnames().empty())
      names.push_back("--" + option->get_lnames().front());
    else if (!option->get_snames().empty())
      names.push_back("-" + option->get_snames().front());
  return names;
}

bool hasFlag(const CLI::App &app, const std::string &name) {
  const std::vector<const CLI::Option *> options = app.get_options();
  return std::any_of(options.begin(), options.end(),
                     [&name](const CLI::Option *option) {
                       return option->get_items_expected_max() == 0 &&
                              option->check_name(name);
                     });
}

bool hasOption(const CLI::App &app, const std::string &name) {
  const std::vector<const CLI::Option *> options = app.get_options();
  return std::any_of(
      options.begin(), options.end(), [&name](const CLI::Option *option) {
        return !option->get_positional() && option->check_name(name);
      });
}

/// Whether `word` is an option whose value is the next word.
bool takesValue(const CLI::App &app, const std::string &word) {
  return word.size() > 1 && word[0] == '-' &&
         word.find('=') == std::string::npos && hasOption(app, word) &&
         !hasFlag(app, word);
}

bool takesCommands(const CLI::App &app) {
  const std::vector<const CLI::Option *> options = app.get_options();
  return std::any_of(options.begin(), options.end(),
                     [](const CLI::Option *option) {
                       return option->get_positional() &&
                              option->get_name().find("COMMAND") == 0;
                     });
}

Failure unknownOption(const CLI::App &app, const std::string &word) {
  const std::string name = nameIn(word);
  const bool singleDash = name.size() > 2 && name[1] != '-';
  const std::string wanted = singleDash ? "-" + name : name;
  const std::vector<std::string> names = optionNames(app);
  std::string text = fmt::format("unknown option '{}' of '{}'; there are {}{}",
                                 printable(name), app.get_name(),
                                 quotedList(names), didYouMean(wanted, names));
  if (singleDash && takesCommands(app))
    text += "; a connect command is one argument: put it in quotes";
  return {ExitStatus::wrongUse,
          text,
          {"", name, {}, names, nearestMatch(wanted, names)}};
}

/// The words of the line up to a "--", behind which nothing is an option.
std::vector<std::string> optionWordsOf(int argc, const char *const *argv) {
  std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  words.erase(std::find(words.begin(), words.end(), "--"), words.end());
  return words;
}

constexpr std::array<std::pair<const char *, Colour>, 3> colours{{
    {"auto", Colour::automatic},
    {"always", Colour::always},
    {"never", Colour::never},
}};

std::optional<Colour> findColour(const std::string &text) {
  for (const auto &[word, choice] : colours)
    if (text == word)
      return choice;
  return std::nullopt;
}

/// The value of the last --color.
std::string colourOf(const std::vector<std::string> &words) {
  const std::string option = "--color";
  std::string value;
  for (std::size_t i = 0; i < words.size(); ++i)
    if (words[i].compare(0, option.size() + 1, option + "=") == 0)
      value = words[i].substr(option.size() + 1);
    else if (words[i] == option && i + 1 < words.size())
      value = words[i + 1];
  return value;
}

Colour expectColour(const std::string &text) {
  if (const std::optional<Colour> choice = findColour(text))
    return *choice;
  std::vector<std::string> words;
  for (const auto &[word, choice] : colours)
    words.emplace_back(word);
  throw Failure(
      ExitStatus::wrongUse,
      fmt::format("--color: '{}' is unknown; accepted are {}{}",
                  printable(text), quotedList(words), didYouMean(text, words)),
      {"bad-value", "--color", text, words, nearestMatch(text, words)});
}

/// Also for a flag with a value, which is refused.
bool asksForJson(const std::vector<std::string> &words) {
  return std::any_of(words.begin(), words.end(), [](const std::string &word) {
    return nameIn(word) == "--json";
  });
}

} // namespace

CommandLine::CommandLine()
    : app(std::make_unique<CLI::App>(
          "Debug configurations for the processors of an FPGA design: list the "
          "processors, make and save connect commands, read and check them.",
          "zeldebug")) {
  app->require_subcommand(1);
  app->allow_extras();
  app->set_help_flag("-h,--help", "print this help");
  app->set_version_flag("--version", fmt::format("zeldebug {}", version),
                        "print the version");
  app->get_formatter()->column_width(optionColumn);
  std::string ending = "Example:\n  zeldebug list board.xml\n\n"
                       "'zeldebug SUBCOMMAND --help' tells more, each with an "
                       "example.\n\nExit status:\n";
  for (const ExitText &text : exitTexts)
    ending +=
        fmt::format("  {}  {}\n", static_cast<int>(text.status), text.text);
  app->footer(ending);
  addCommonOptions(*app);
}

CommandLine::~CommandLine() = default;

std::string CommandLine::helpOf(const Subcommand *subcommand,
                                const Output &output) const {
  // `App::help` would be that of the subcommand that is parsed.
  const std::string text =
      subcommand == nullptr
          ? app->get_formatter()->make_help(app.get(), app->get_name(),
                                            CLI::AppFormatMode::Normal)
          : subcommand->app->help("zeldebug");
  return wrappedHelp(text, output.width(), optionColumn);
}

void CommandLine::addCommonOptions(CLI::App &target) {
  target.add_flag(
      "--json", jsonWanted,
      "print one JSON document; everything else goes to standard error");
  completeWith(target
                   .add_option("-C", folder,
                               "working directory, whose folder etc/ holds the "
                               "option files (default: the current one)")
                   ->type_name("DIR"),
               ValueKind::folder);
  completeWith(target
                   .add_option("--color", colour,
                               "colour: always, never, or auto for a terminal "
                               "that wants it")
                   ->type_name("WHEN"),
               ValueKind::colour);
  target.add_flag("-q,--quiet", isQuiet, "leave out notes");
  target.add_flag("--strict", isStrict, "make warnings failures");
}

std::vector<std::string> CommandLine::names() const {
  std::vector<std::string> found;
  for (const Subcommand &subcommand : subcommands)
    if (isForPeople(subcommand))
      found.push_back(subcommand.app->get_name());
  return found;
}

Options CommandLine::addSubcommand(const std::string &name,
                                   const std::string &summary,
                                   const std::string &example,
                                   Describe describe) {
  CLI::App *subcommand = app->add_subcommand(name, summary);
  subcommand->footer("Example:\n  " + example);
  Subcommand &added =
      subcommands.emplace_back(Subcommand{subcommand, example, describe, {}});
  // Called when its name has been read.
  subcommand->preparse_callback(
      [this, &added](std::size_t) { described(added); });
  return {*this, *subcommand};
}

const CommandLine::Subcommand &CommandLine::described(Subcommand &subcommand) {
  if (!subcommand.run) {
    addCommonOptions(*subcommand.app);
    Options options(*this, *subcommand.app);
    subcommand.run = subcommand.describe(options);
  }
  return subcommand;
}

void CommandLine::completeWith(const CLI::Option *option, ValueKind kind) {
  kinds[option] = kind;
}

ValueKind CommandLine::kindOf(const CLI::Option *option) const {
  const auto found = kinds.find(option);
  return found == kinds.end() ? ValueKind::text : found->second;
}

std::vector<const CommandLine::Subcommand *> CommandLine::visible() {
  std::vector<const Subcommand *> found;
  for (Subcommand &subcommand : subcommands)
    if (isForPeople(subcommand))
      found.push_back(&described(subcommand));
  return found;
}

const CommandLine::Subcommand *
CommandLine::findSubcommand(const std::string &name) {
  for (Subcommand &subcommand : subcommands)
    if (subcommand.app->get_name() == name)
      return &described(subcommand);
  return nullptr;
}

const CommandLine::Subcommand *CommandLine::chosen() const {
  for (const Subcommand &subcommand : subcommands)
    if (subcommand.app->parsed())
      return &subcommand;
  return nullptr;
}

void CommandLine::expectNothingUnknown(int argc, const char *const *argv) {
  const Subcommand *subcommand = chosen();
  const CLI::App &where = subcommand == nullptr ? *app : *subcommand->app;
  std::vector<std::string> unknown = app->remaining(false);
  const std::vector<std::string> more = where.remaining(false);
  if (subcommand != nullptr)
    unknown.insert(unknown.end(), more.begin(), more.end());
  // CLI11 keeps options and arguments apart; the user's first slip counts.
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const bool endsOptions = word == "--";
    if (endsOptions ||
        std::find(unknown.begin(), unknown.end(), word) == unknown.end())
      continue;
    if (word.size() > 1 && word[0] == '-')
      throw unknownOption(where, word);
    if (subcommand != nullptr)
      throw Failure(
          ExitStatus::wrongUse,
          fmt::format("'{}' takes no more arguments, but '{}' is left",
                      where.get_name(), printable(word)),
          {"", "", word});
    expectSubcommand(word);
  }
}

const CommandLine::Subcommand &
CommandLine::expectSubcommand(const std::string &name) {
  const Subcommand *known = findSubcommand(name);
  if (known != nullptr && isForPeople(*known))
    return *known;
  const std::vector<std::string> all = names();
  throw Failure(ExitStatus::wrongUse,
                fmt::format("unknown subcommand '{}'; there are {}{}",
                            printable(name), quotedList(all),
                            didYouMean(name, all)),
                {"", "", name, all, nearestMatch(name, all)});
}

/// An option in the place of a value: the value is what is missing, not what
/// is left over in the end.
void CommandLine::expectValues(const std::vector<std::string> &words) const {
  const Subcommand *subcommand = chosen();
  const CLI::App &where = subcommand == nullptr ? *app : *subcommand->app;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (!takesValue(where, words[i]))
      continue;
    const bool isLast = i + 1 == words.size();
    const std::string next = isLast ? "" : words[i + 1];
    const bool isOption =
        next.size() > 1 && next[0] == '-' && hasOption(where, nameIn(next));
    if (isLast || isOption)
      throw Failure(ExitStatus::wrongUse,
                    isLast ? fmt::format("{}: a value is missing", words[i])
                           : fmt::format("{}: a value is missing, in front of "
                                         "'{}'",
                                         words[i], printable(next)),
                    {"missing-value", words[i]});
    ++i;
  }
}

void CommandLine::applyCommonOptions(Output &output) const {
  output.useColour(expectColour(colour));
  if (isQuiet)
    output.beQuiet();
  if (isStrict)
    output.beStrict();
}

/// What is left of the line for CLI11, which would take "-cable" for several
/// options of one letter.
std::vector<const char *>
CommandLine::withoutDashedWords(int argc, const char *const *argv) {
  std::vector<const char *> left(argv, argv + argc);
  std::size_t first = 1;
  while (first < left.size() && left[first][0] == '-')
    first += takesValue(*app, left[first]) ? 2 : 1;
  if (dashed == nullptr || first >= left.size() ||
      dashed->get_name() != left[first])
    return left;
  const auto isDashed = [](const char *word) {
    return word[0] == '-' && word[1] != '-' && word[1] != '\0' &&
           word[2] != '\0';
  };
  const auto behind = left.begin() + static_cast<std::ptrdiff_t>(first);
  const auto held = std::stable_partition(
      behind, left.end(), [&](const char *word) { return !isDashed(word); });
  heldBack.assign(held, left.end());
  left.erase(held, left.end());
  return left;
}

/// CLI11 takes some values of a flag for its presence, or for how often it is
/// given.
void CommandLine::expectFlagsAlone(
    const std::vector<std::string> &words) const {
  const Subcommand *subcommand = chosen();
  const CLI::App &where = subcommand == nullptr ? *app : *subcommand->app;
  for (const std::string &word : words) {
    const std::string name = nameIn(word);
    if (name != word && name.compare(0, 2, "--") == 0 && hasFlag(where, name))
      throw Failure(
          ExitStatus::wrongUse,
          fmt::format("{} takes no value: '{}'", name, printable(word)),
          {"", name, word.substr(name.size() + 1)});
  }
}

void CommandLine::nameSubcommand(Output &output) const {
  const Subcommand *subcommand = chosen();
  if (subcommand != nullptr)
    output.setSubcommand(subcommand->app->get_name());
}

ExitStatus CommandLine::run(int given, const char *const *line,
                            Output &output) {
  const std::vector<const char *> taken = withoutDashedWords(given, line);
  const int argc = static_cast<int>(taken.size());
  const char *const *const argv = taken.data();
  const std::vector<std::string> words = optionWordsOf(argc, argv);
  if (asksForJson(words))
    output.useJson();
  // Also for what is wrong with the line itself.
  if (const auto choice = findColour(colourOf(words)))
    output.useColour(*choice);
  try {
    app->parse(wordsOf(argc, argv));
  } catch (const CLI::CallForHelp &) {
    nameSubcommand(output);
    output.print(helpOf(chosen(), output));
    return ExitStatus::done;
  } catch (const CLI::CallForVersion &) {
    output.printLine(app->version());
    return ExitStatus::done;
  } catch (const CLI::ParseError &problem) {
    nameSubcommand(output);
    expectFlagsAlone(words);
    expectValues(words);
    expectNothingUnknown(argc, argv);
    throw Failure(ExitStatus::wrongUse, problem.what());
  }
  nameSubcommand(output);
  expectFlagsAlone(words);
  expectValues(words);
  expectNothingUnknown(argc, argv);
  applyCommonOptions(output);
  return chosen()->run(output);
}

} // namespace zeldebug
