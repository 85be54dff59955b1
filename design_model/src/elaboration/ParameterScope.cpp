#include "elaboration/ParameterScope.h"

#include <utility>

#include "expressions/Arithmetic.h"
#include "expressions/FormatsOf2009.h"
#include "messages/Quote.h"

namespace ZelDebugDialog {
namespace {

using Severity = DesignDiagnostic::Severity;

/// A number on its own, which every edition of the standard has.
bool isNumeral(std::string_view text, Number &number) {
  const bool isNegative = !text.empty() && text.front() == '-';
  if (isNegative)
    text.remove_prefix(1);
  if (takeNumeral(text, number) != NumeralFault::none || !text.empty())
    return false;
  if (isNegative)
    number = negate(number);
  return true;
}

/// One that needs no working out.
bool readNumber(std::string_view text, ValueForm form, Number &number) {
  switch (form) {
  case ValueForm::text:
    return false;
  case ValueForm::boolean:
    number.bits = text == "true" ? 1 : 0;
    return text == "true" || text == "false" || isNumeral(text, number);
  case ValueForm::bits:
    return readBits(text, number) || readScaled(text, number);
  case ValueForm::scaled:
    return readScaled(text, number);
  case ValueForm::integer:
  case ValueForm::real:
  case ValueForm::bit:
    break;
  }
  return isNumeral(text, number);
}

Number fit(const Number &number, ValueForm form) {
  return form == ValueForm::bit ? Number{number.bits & 1, true} : number;
}

} // namespace

std::string toText(const ParameterValue &value) {
  return value.text == nullptr ? toText(value.number) : *value.text;
}

ParameterScope::ParameterScope(const ParameterRecords &parameters,
                               DiagnosticList &list)
    : records(parameters), diagnostics(list), slots(parameters.list.size()) {}

void ParameterScope::override(const std::vector<OverrideRecord> &values,
                              const Identity &of, const std::string &file,
                              ParameterScope &around) {
  for (const OverrideRecord &given : values) {
    const auto found = records.byId.find(given.id);
    if (found == records.byId.end()) {
      diagnostics.add({Severity::warning, file, given.line,
                       "a value is given to " + quote(given.id) +
                           ", which is no parameter of " + quote(toText(of))});
      continue;
    }
    const ParameterRecord &record = records.list[found->second];
    Outcome outcome = around.evaluateFromHere(given.value, record.form);
    remark(outcome, record, file, given.line);
    fill(slots[found->second], outcome);
  }
}

const ParameterValue &ParameterScope::valueAt(std::size_t index) {
  const Slot &slot = slots[index];
  if (slot.state == State::open) {
    ++walk;
    workOut(index, 0);
  }
  if (slot.state == State::open)
    settle({index});
  return slot.value;
}

/// Parameters that use others may be deeper than a walk can go: those that were
/// out of reach are worked out first. Those that wait for them are busy, so
/// that what leads back to them is a circle.
void ParameterScope::settle(std::vector<std::size_t> pending) {
  while (!pending.empty()) {
    const std::size_t index = pending.back();
    Slot &slot = slots[index];
    if (slot.state == State::busy)
      slot.state = State::open;
    ++walk;
    outOfReach.clear();
    workOut(index, 0);
    if (slot.state != State::open) {
      pending.pop_back();
      continue;
    }
    slot.state = State::busy;
    pending.insert(pending.end(), outOfReach.begin(), outOfReach.end());
  }
}

ParameterScope::Outcome
ParameterScope::evaluateFromHere(const std::string &text, ValueForm form) {
  ++walk;
  outOfReach.clear();
  isCut = false;
  Outcome outcome = evaluate(text, form, 0);
  if (isCut) {
    settle(outOfReach);
    outcome = evaluateFromHere(text, form);
  }
  return outcome;
}

/// What uses a parameter that is out of reach stays open in this walk.
void ParameterScope::workOut(std::size_t index, int depth) {
  Slot &slot = slots[index];
  if (slot.state != State::open || slot.cutIn == walk)
    return;
  const ParameterRecord &record = records.list[index];
  slot.state = State::busy;
  const bool wasCut = std::exchange(isCut, false);
  Outcome outcome = evaluate(record.value, record.form, depth);
  const bool isTooDeep = outcome.isTooDeep && depth != 0;
  if (isTooDeep)
    outOfReach.push_back(index);
  if (isTooDeep || isCut) {
    slot.state = State::open;
    slot.cutIn = walk;
    return;
  }
  isCut = wasCut;
  remark(outcome, record, records.file, record.line);
  fill(slot, outcome);
}

void ParameterScope::fill(Slot &slot, Outcome &outcome) {
  slot.state = outcome.failed ? State::failed : State::done;
  slot.value = std::move(outcome.value);
}

ParameterScope::Outcome ParameterScope::evaluate(const std::string &text,
                                                 ValueForm form, int depth) {
  Outcome outcome;
  if (readNumber(text, form, outcome.value.number)) {
    outcome.value.number = fit(outcome.value.number, form);
    return outcome;
  }
  ExpressionResult result;
  if (!records.areLiteral && (form != ValueForm::text || isKnown(text)))
    result = evaluateExpression(text, *this, depth);
  if (form == ValueForm::real &&
      result.kind == ExpressionResult::Kind::number && !isKnown(text)) {
    result.kind = ExpressionResult::Kind::fault;
    result.fault = "reals are not worked out";
  }
  outcome.failed = result.kind == ExpressionResult::Kind::fault;
  outcome.isTooDeep = result.isTooDeep;
  outcome.remark = std::move(result.fault);
  if (result.kind == ExpressionResult::Kind::number)
    outcome.value.number = fit(result.number, form);
  else
    outcome.value.text = result.text != nullptr
                             ? std::move(result.text)
                             : std::make_shared<const std::string>(text);
  return outcome;
}

void ParameterScope::remark(const Outcome &outcome,
                            const ParameterRecord &record,
                            const std::string &file, int line) {
  if (!outcome.remark.empty())
    diagnostics.add({outcome.failed ? Severity::warning : Severity::note, file,
                     line,
                     "the value of parameter " + quote(record.name) +
                         " stays text: " + outcome.remark});
}

bool ParameterScope::isKnown(std::string_view name) const {
  return records.byId.count(name) != 0;
}

ExpressionResult ParameterScope::find(std::string_view name, int depth) {
  const std::size_t index = records.byId.find(name)->second;
  workOut(index, depth + 1);
  const Slot &slot = slots[index];
  ExpressionResult result;
  isCut = isCut || slot.state == State::open;
  if (slot.state != State::done) {
    result.kind = ExpressionResult::Kind::fault;
    result.fault =
        "parameter " + quote(records.list[index].name) +
        (slot.state == State::busy ? " depends on itself" : " has no value");
    return result;
  }
  result.number = slot.value.number;
  result.text = slot.value.text;
  result.kind = slot.value.text == nullptr ? ExpressionResult::Kind::number
                                           : ExpressionResult::Kind::text;
  return result;
}

} // namespace ZelDebugDialog
