#include "line/Options.h"

#include "line/TextOption.h"

namespace zeldebug {

void Options::addFlag(const std::string &name, bool &value,
                      const std::string &help, const std::string &group) {
  CLI::Option *flag = subcommand.add_flag(name, value, help);
  if (!group.empty())
    flag->group(group);
}

void Options::addOption(const std::string &name, const std::string &metavar,
                        std::optional<std::string> &value,
                        const std::string &help, ValueKind kind,
                        const std::string &group) {
  CLI::Option *option =
      addTextOption(subcommand, name, value, help)->type_name(metavar);
  if (!group.empty())
    option->group(group);
  whole.completeWith(option, kind);
}

void Options::addArgument(const std::string &name,
                          std::optional<std::string> &value,
                          const std::string &help, ValueKind kind) {
  whole.completeWith(
      addTextOption(subcommand, name, value, help)->type_name(""), kind);
}

void Options::addRequired(const std::string &name, std::string &value,
                          const std::string &help, ValueKind kind) {
  whole.completeWith(
      subcommand.add_option(name, value, help)->type_name("")->required(),
      kind);
}

/// Word by word: CLI11 takes a list of one empty word for an empty list.
void Options::addArguments(const std::string &name,
                           std::vector<std::string> &values,
                           const std::string &help, ValueKind kind) {
  const auto take = [&values](const CLI::results_t &words) {
    values = words;
    return true;
  };
  CLI::Option *option = subcommand.add_option(name, take, help)
                            ->type_name("")
                            ->type_size(1)
                            ->expected(CLI::detail::expected_max_vector_size);
  whole.completeWith(option, kind);
}

void Options::hide() { subcommand.group(""); }

} // namespace zeldebug
