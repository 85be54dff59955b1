#include <map>

#include "ZelDebugDialog/ConfigurationModel/Commands.h"
#include "commands/TracedCommand.h"
#include "commands/WhyRefused.h"

namespace ZelDebugDialog {

namespace {

/// What each setting is while one word after the other is read.
class RunningValues {
public:
  RunningValues() : start(model::Desk().snapshot()) {}

  WordChange change(const model::NamedValue &next) {
    const auto found = values.find(next.name);
    WordChange change{next.name,
                      found == values.end()
                          ? model::fieldNamed(start, next.name)
                          : found->second,
                      next.value};
    values[next.name] = next.value;
    return change;
  }

private:
  model::Snapshot start;
  std::map<std::string, Value> values;
};

} // namespace

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
  RunningValues values;
  const std::vector<CommandWord> &words = traced.trace().words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    ExplainedWord word{words[i].offset,
                       words[i].length,
                       traced.wordText(i),
                       model::shownRole(words[i].role),
                       {},
                       traced.isAtFault(i)};
    for (const model::NamedValue &next : traced.changesOf(i))
      word.changes.push_back(values.change(next));
    explained.words.push_back(std::move(word));
  }
  return explained;
}

} // namespace ZelDebugDialog
