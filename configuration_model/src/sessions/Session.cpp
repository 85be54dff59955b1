#include "ZelDebugDialog/ConfigurationModel/Session.h"

#include <map>
#include <utility>

#include "sessions/Saving.h"
#include "sessions/SessionImp.h"
#include "settings/Values.h"

namespace ZelDebugDialog {

namespace {

/// What another session has now. Its mutex is not held while ours is.
model::StepPointer currentOf(const std::unique_ptr<model::SessionImp> &imp) {
  const std::lock_guard<std::mutex> turn(imp->mutex);
  return imp->current;
}

} // namespace

using Turn = std::lock_guard<std::mutex>;

Session::Session(const Board &board, const std::string &processor, Hold hold)
    : imp(std::make_unique<model::SessionImp>(board, board.state, processor,
                                              hold)) {}
Session::Session(Session &&other) noexcept = default;
Session &Session::operator=(Session &&other) noexcept = default;
Session::~Session() = default;

std::vector<Effect> Session::Change(const SettingValues &values) {
  const Turn turn(imp->mutex);
  ChangeRequest request;
  request.values = values;
  return imp->change(request, nullptr);
}

std::vector<Effect> Session::Change(const ChangeRequest &request) {
  model::StepPointer copied;
  if (request.copyFrom != nullptr)
    copied = currentOf(request.copyFrom->imp);
  const Turn turn(imp->mutex);
  return imp->change(request, copied.get());
}

std::vector<Effect> Session::Draft(const std::string &setting,
                                   const std::string &text) {
  const Turn turn(imp->mutex);
  return imp->draft(setting, text);
}

std::vector<Effect> Session::DropDraft(const std::string &setting) {
  const Turn turn(imp->mutex);
  return imp->dropDraft(setting);
}

std::vector<Effect> Session::Edit(const std::string &command) {
  const Turn turn(imp->mutex);
  return imp->edit(command);
}

std::vector<Effect> Session::Undo() {
  const Turn turn(imp->mutex);
  return imp->undo();
}

std::vector<Effect> Session::Redo() {
  const Turn turn(imp->mutex);
  return imp->redo();
}

std::vector<Effect> Session::Revert() {
  const Turn turn(imp->mutex);
  return imp->revert();
}

std::vector<Effect> Session::Reset(const std::vector<std::string> &settings) {
  const Turn turn(imp->mutex);
  return imp->reset(settings);
}

std::vector<Effect> Session::CopyFrom(const Session &other) {
  const model::StepPointer copied = currentOf(other.imp);
  const Turn turn(imp->mutex);
  return imp->copyFrom(*copied);
}

void Session::StartAs(const Session &other, const std::string &origin) {
  const model::StepPointer first = currentOf(other.imp);
  const Turn turn(imp->mutex);
  imp->startAs(*first, origin);
}

const std::string &Session::Processor() const {
  return imp->identity.instanceName;
}

std::string Session::File() const { return imp->shownFile; }

std::string Session::Problem() const {
  const Turn turn(imp->mutex);
  return imp->problem;
}

CommandSettings Session::Loaded() {
  const Turn turn(imp->mutex);
  return imp->loadedSettings();
}

SessionState Session::State() const {
  const Turn turn(imp->mutex);
  return imp->state();
}

Value Session::Get(const std::string &setting) const {
  const model::SettingRow &row = model::expectRow(setting);
  const Turn turn(imp->mutex);
  return row.isOfDevice() ? imp->deviceField(row, setting)
                          : model::valueIn(imp->current->now, row);
}

std::string Session::Command() const {
  const Turn turn(imp->mutex);
  const model::Analysis &analysis = imp->current->analysis;
  if (!analysis.command)
    throw model::noCommandOf(analysis);
  return *analysis.command;
}

std::vector<Loss> Session::Losses() const {
  const Turn turn(imp->mutex);
  return model::lossesOf(*imp->current, imp->defaults());
}

std::vector<Difference> Session::Differences() const {
  const Turn turn(imp->mutex);
  return imp->differences();
}

bool Session::ChangedOnDisk() const {
  const Turn turn(imp->mutex);
  return imp->isChangedOnDisk();
}

SaveOutcome Session::Save(const SaveOptions &options) {
  const Turn turn(imp->mutex);
  SaveOutcome outcome = model::saveAll({imp.get()}, options).front();
  if (outcome.refusal)
    throw Refusal(*outcome.refusal);
  return outcome;
}

std::vector<SaveOutcome> SaveSessions(const std::vector<Session *> &sessions,
                                      const SaveOptions &options) {
  // Each once, and locked in one order whoever else saves some of them.
  std::map<model::SessionImp *, std::size_t> places;
  std::vector<model::SessionImp *> each;
  for (const Session *session : sessions)
    if (places.emplace(session->imp.get(), each.size()).second)
      each.push_back(session->imp.get());
  std::vector<std::unique_lock<std::mutex>> turns;
  turns.reserve(each.size());
  for (const auto &[imp, place] : places)
    turns.emplace_back(imp->mutex);
  const std::vector<SaveOutcome> outcomes = model::saveAll(each, options);
  std::vector<SaveOutcome> inOrder;
  inOrder.reserve(sessions.size());
  for (const Session *session : sessions)
    inOrder.push_back(outcomes[places.at(session->imp.get())]);
  return inOrder;
}

} // namespace ZelDebugDialog
