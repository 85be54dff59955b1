#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <boost/program_options.hpp>

#include "Peers.h"
#include "common/Words.h"

namespace bench {

namespace {

/// Feeds the values of one option.
bool takeValues(WordReader &reader, const std::vector<std::string> &values) {
  for (const std::string &value : values)
    if (!reader.take(value))
      return false;
  return true;
}

/// The options of the command, with where their values go.
class Cli11 {
public:
  Cli11() {
    app.add_option("words", head)->expected(3);
    app.add_option("--cable", cable)->ignore_case();
    app.add_option("--configdevice", devices)->ignore_case();
    app.add_option("--debugdevice", debugDevice)->ignore_case();
  }

  bool read(const Input &input, Command &command) {
    try {
      app.parse(input.doubleDashed);
    } catch (const CLI::ParseError &) {
      return false;
    }
    WordReader reader(command);
    if (!takeValues(reader, head) || !reader.take("-cable") ||
        !takeValues(reader, cable))
      return false;
    for (const Values &device : devices)
      if (!reader.take("-configdevice") || !takeValues(reader, device))
        return false;
    return reader.take("-debugdevice") && takeValues(reader, debugDevice) &&
           reader.isComplete();
  }

private:
  using Values = std::vector<std::string>;

  CLI::App app;
  Values head;
  Values cable;
  std::vector<Values> devices;
  Values debugDevice;
};

} // namespace

bool readByProgramOptions(const Input &input, Command &command) {
  namespace po = boost::program_options;
  namespace style = po::command_line_style;
  using Values = std::vector<std::string>;
  po::options_description options;
  options.add_options()("cable", po::value<Values>()->multitoken())(
      "configdevice", po::value<Values>()->multitoken()->composing())(
      "debugdevice", po::value<Values>()->multitoken());
  const po::parsed_options parsed =
      po::command_line_parser(po::split_unix(input.text))
          .options(options)
          .positional(po::positional_options_description().add("words", -1))
          .style(style::allow_long | style::allow_long_disguise |
                 style::long_allow_next | style::long_case_insensitive)
          .allow_unregistered()
          .run();
  WordReader reader(command);
  for (const auto &option : parsed.options) {
    if (option.position_key < 0 && !reader.take("-" + option.string_key))
      return false;
    if (!takeValues(reader, option.value))
      return false;
  }
  return reader.isComplete();
}

bool readByCli11(const Input &input, Command &command) {
  return Cli11().read(input, command);
}

bool readByKeptCli11(const Input &input, Command &command) {
  static Cli11 kept;
  return kept.read(input, command);
}

} // namespace bench
