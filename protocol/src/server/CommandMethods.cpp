// Commands as texts, without a configuration.
#include <ZelDebugDialog/ConfigurationModel/Commands.h>

#include "documents/Commands.h"
#include "documents/Json.h"
#include "server/Methods.h"

namespace ZelDebugDialog::protocol {

namespace {

bool isInsideCharacter(const std::string &text, std::size_t offset) {
  return offset < text.size() &&
         (static_cast<unsigned char>(text[offset]) & 0xC0U) == 0x80U;
}

} // namespace

Json checkCommand(const Workplace &place, const Parameters &given) {
  if (given.has("board") != given.has("processor"))
    refuseParameter(given.has("board") ? "processor" : "board",
                    "'board' and 'processor' go together");
  std::shared_ptr<OpenBoard> board;
  CheckOptions options;
  if (given.has("board")) {
    board = place.open.expectBoard(given.handle("board"));
    options.board = &*board->board;
    options.processor = given.text("processor");
  }
  return documents::checkedJson(CheckCommand(given.text("command"), options),
                                0);
}

Json explainCommand(const Workplace &, const Parameters &given) {
  return documents::explainedJson(ExplainCommand(given.text("command")));
}

Json diffCommands(const Workplace &, const Parameters &given) {
  return documents::differencesJson(
      DiffCommands(given.text("first"), given.text("second")));
}

Json completeCommand(const Workplace &, const Parameters &given) {
  const std::string &command = given.text("command");
  const std::size_t offset = given.number("offset");
  if (offset > command.size())
    refuseParameter("offset",
                    "'offset' lies behind the command, which has " +
                        std::to_string(command.size()) + " bytes",
                    {"", std::to_string(offset)});
  if (isInsideCharacter(command, offset))
    refuseParameter("offset", "'offset' lies inside a character",
                    {"", std::to_string(offset)});
  const CommandCompletion completion = CompleteCommand(command, offset);
  Json words = Json::array();
  for (const CompletionWord &word : completion.words)
    words.push_back({{"text", word.text}, {"label", word.label}});
  return {{"from", completion.from}, {"to", completion.to}, {"words", words}};
}

} // namespace ZelDebugDialog::protocol
