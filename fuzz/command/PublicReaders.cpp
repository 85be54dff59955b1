#include "command/PublicReaders.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "ZelDebugDialog/Engine.h"
#include "ZelDebugDialog/KvoOption_Parser.h"

namespace fuzz {
namespace {

using ZelDebugDialog::EngineImp;
using Parser = ZelDebugDialog::KvoOption_Parser;

constexpr int isOption = 1;
constexpr int isRefused = 2;
constexpr int isEnd = 3;

bool isWord(const std::string &text, const char *word) {
  const std::string wanted = word;
  return std::equal(text.begin(), text.end(), wanted.begin(), wanted.end(),
                    [](unsigned char one, unsigned char other) {
                      return std::toupper(one) == std::toupper(other);
                    });
}

template <class Rows> auto find(const Rows &rows, const std::string &word) {
  return std::find_if(rows.begin(), rows.end(), [&word](const auto &row) {
    return isWord(word, row.word);
  });
}

struct Row {
  const char *word;
  int (*read)(std::string &, EngineImp &);
};

/// Readers differ in the type of their result.
template <auto reader> int call(std::string &text, EngineImp &imp) {
  return static_cast<int>(reader(text, imp));
}

const std::array<Row, 8> targets{{
    {"lc", call<Parser::parse_lcoptions>},
    {"ppc", call<Parser::parse_ppcoptions>},
    {"arm", call<Parser::parse_armoptions>},
    {"r5", call<Parser::parse_armr5options>},
    {"hdu", call<Parser::parse_hduoptions>},
    {"dap", call<Parser::parse_dapoptions>},
    {"dcc", call<Parser::parse_dccoptions>},
    {"kmtc", call<Parser::parse_kmtcoptions>},
}};

/// They read up to the next option word themselves.
const std::array<Row, 5> openClauses{{
    {"-debugdevice", call<Parser::parse_debugdevice>},
    {"-pfsl", call<Parser::parse_lcfsloptions>},
    {"-cable", call<Parser::parse_cable>},
    {"-configdevice", call<Parser::parse_configdevice>},
    {"-sim", call<Parser::parse_modelsim_options>},
}};

int readFlag(std::string & /*rest*/, EngineImp & /*imp*/) { return 0; }

int readStubOption(std::string &rest, EngineImp &imp) {
  std::string option = Parser::current_option;
  return Parser::parse_commoptions(rest, option, imp);
}

const std::array<Row, 8> closedClauses{{
    {"-quiet", readFlag},
    {"-noattach", readFlag},
    {"-writeonly", readFlag},
    {"-comm", readStubOption},
    {"-port", readStubOption},
    {"-baud", readStubOption},
    {"-timeout", readStubOption},
    {"-bscan", call<Parser::parse_hdubscan>},
}};

int readClause(std::string &rest, EngineImp &imp) {
  const std::string option = Parser::current_option;
  if (const auto *open = find(openClauses, option); open != openClauses.end())
    return open->read(rest, imp);
  const auto *const closed = find(closedClauses, option);
  if (closed == closedClauses.end()) {
    const std::string message = "UNKNOWN Option '" + option + "'";
    imp.engine->SetErrorStr(message.substr(0, 2047).c_str());
    return isRefused;
  }
  std::string word;
  return closed->read(rest, imp) == isRefused ? isRefused
                                              : Parser::get_token(rest, word);
}

} // namespace

int readByTarget(const std::string &command, EngineImp &imp) {
  constexpr int notRead = 3;
  imp.currentProcessor->connectCommand = command;
  std::string rest = command;
  std::string word;
  if (Parser::get_token(rest, word) == isEnd)
    return notRead;
  if (isWord(word, "vpconnect") || isWord(word, "kvpconnect"))
    return Parser::parse_vpoptions(rest, imp) == isRefused ? notRead : 0;
  if (!isWord(word, "connect") && !isWord(word, "kconnect"))
    return notRead;
  if (Parser::get_token(rest, word) == isEnd)
    return notRead;
  const auto *const target = find(targets, word);
  if (target == targets.end() || target->read(rest, imp) == isRefused)
    return notRead;
  return 0;
}

int readByClauses(const std::string &clauses, EngineImp &imp) {
  std::string rest = clauses;
  std::string word;
  int next = Parser::get_token(rest, word);
  while (next == isOption)
    next = readClause(rest, imp);
  return next == isEnd ? 0 : isRefused;
}

} // namespace fuzz
