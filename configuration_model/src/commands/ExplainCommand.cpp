#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "commands/TracedCommand.h"
#include "commands/WhyRefused.h"

namespace ZelDebugDialog {

ExplainedCommand ExplainCommand(const std::string &text) {
  const model::TracedCommand traced(text, AfterFault::stop);
  const model::Reading &reading = traced.reading();
  ExplainedCommand explained;
  explained.text = text;
  explained.result = reading.result;
  explained.error = reading.message;
  explained.accepted = reading.accepted();
  if (!reading.accepted()) {
    model::Desk desk;
    explained.refusal = model::whyRefused(desk, reading, text);
  }
  const std::vector<CommandWord> &words = traced.trace().words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    ExplainedWord word{words[i].offset,
                       words[i].length,
                       traced.wordText(i),
                       model::shownRole(words[i].role),
                       {},
                       traced.isAtFault(i)};
    for (const model::FieldDifference &change : traced.changesOf(i))
      word.changes.push_back({change.name, change.before, change.after});
    explained.words.push_back(std::move(word));
  }
  return explained;
}

} // namespace ZelDebugDialog
