#include "line/ManualPage.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "Version.h"

namespace zeldebug {

namespace {

/// Text for troff: no line is taken for a request, a '-' stays one.
std::string troff(const std::string &text) {
  std::string escaped;
  bool lineStart = true;
  for (const char c : text) {
    if (lineStart && (c == '.' || c == '\''))
      escaped += "\\&";
    if (c == '\\')
      escaped += "\\e";
    else if (c == '-')
      escaped += "\\-";
    else
      escaped += c;
    lineStart = c == '\n';
  }
  return escaped;
}

std::string shownOption(const CLI::Option &option) {
  std::string names;
  for (const std::string &name : option.get_snames())
    names += (names.empty() ? "-" : ", -") + name;
  for (const std::string &name : option.get_lnames())
    names += (names.empty() ? "--" : ", --") + name;
  std::string shown = "\\fB" + troff(names) + "\\fR";
  const bool takesValue = option.get_items_expected_max() != 0;
  if (takesValue && !option.get_type_name().empty())
    shown += " \\fI" + troff(option.get_type_name()) + "\\fR";
  return shown;
}

std::string optionsOf(const CLI::App &app) {
  std::string text;
  for (const CLI::Option *option : app.get_options()) {
    const std::string name =
        option->get_positional()
            ? "\\fI" + troff(option->get_name(true)) + "\\fR"
            : shownOption(*option);
    text +=
        fmt::format(".TP\n{}\n{}\n", name, troff(option->get_description()));
  }
  return text;
}

std::string synopsisOf(const CLI::App &app) {
  std::string text = "\\fBzeldebug " + troff(app.get_name()) + "\\fR";
  for (const CLI::Option *option : app.get_options())
    if (option->get_positional()) {
      const std::string name = "\\fI" + troff(option->get_name(true)) + "\\fR";
      text += option->get_required() ? " " + name : " [" + name + "]";
    }
  return text + " [\\fIoption\\fR]...";
}

} // namespace

std::string manualPage(CommandLine &line) {
  const CLI::App &app = line.application();
  std::string page =
      fmt::format(".TH ZELDEBUG 1 \"\" \"zeldebug {}\"\n"
                  ".SH NAME\nzeldebug \\- debug configurations for "
                  "the processors of an FPGA design\n.SH SYNOPSIS\n",
                  version);
  for (const CommandLine::Subcommand *subcommand : line.visible())
    page += synopsisOf(*subcommand->app) + "\n.br\n";
  page += ".SH DESCRIPTION\n" + troff(app.get_description()) + "\n";
  page += ".SH OPTIONS\n" + optionsOf(app);
  page += ".SH SUBCOMMANDS\n";
  for (const CommandLine::Subcommand *subcommand : line.visible()) {
    page += fmt::format(".SS {}\n{}.\n{}", troff(subcommand->app->get_name()),
                        troff(subcommand->app->get_description()),
                        optionsOf(*subcommand->app));
    page += fmt::format(".PP\nExample:\n.nf\n  {}\n.fi\n",
                        troff(subcommand->example));
  }
  page += ".SH EXIT STATUS\n";
  for (const ExitText &text : exitTexts)
    page +=
        fmt::format(".TP\n{}\n{}\n", static_cast<int>(text.status), text.text);
  page += ".SH ENVIRONMENT\n.TP\nNO_COLOR\nif it is set and not empty, no "
          "colour is "
          "used\n";
  return page;
}

} // namespace zeldebug
