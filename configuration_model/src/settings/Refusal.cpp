#include "ZelDebugDialog/ConfigurationModel/Refusal.h"

#include <array>
#include <utility>

#include "codes/RowOf.h"

namespace ZelDebugDialog {

namespace {

struct KindRow {
  RefusalKind kind;
  const char *word;
  bool canBeForced = false;
};

constexpr std::array<KindRow, 20> kinds{{
    {RefusalKind::unknownProcessor, "unknown-processor"},
    {RefusalKind::notDebuggable, "not-debuggable"},
    {RefusalKind::unknownSetting, "unknown-setting"},
    {RefusalKind::notSettable, "not-settable"},
    {RefusalKind::badValue, "bad-value"},
    {RefusalKind::notAllowed, "not-allowed"},
    {RefusalKind::excluded, "excluded"},
    {RefusalKind::badCommand, "bad-command"},
    {RefusalKind::nothingToUndo, "nothing-to-undo"},
    {RefusalKind::nothingToRedo, "nothing-to-redo"},
    {RefusalKind::unreadable, "unreadable", true},
    {RefusalKind::wouldBeLost, "would-be-lost", true},
    {RefusalKind::changedOnDisk, "changed-on-disk", true},
    {RefusalKind::readOnly, "read-only", true},
    {RefusalKind::draft, "draft"},
    {RefusalKind::noCommand, "no-command"},
    {RefusalKind::noRegularFile, "no-regular-file"},
    {RefusalKind::noFolder, "no-folder"},
    {RefusalKind::fileSystem, "file-system"},
    {RefusalKind::fileExists, "file-exists"},
}};
static_assert(model::isInOrder(kinds, &KindRow::kind));

} // namespace

const char *ShowKind(RefusalKind kind) {
  const KindRow *const row = model::rowOf(kinds, kind);
  return row == nullptr ? "" : row->word;
}

bool CanBeForced(RefusalKind kind) {
  const KindRow *const row = model::rowOf(kinds, kind);
  return row != nullptr && row->canBeForced;
}

Refusal::Refusal(RefusalKind refusalKind, const std::string &subject,
                 std::string problemText)
    : std::runtime_error(subject.empty() ? problemText
                                         : subject + ": " + problemText),
      kind(refusalKind), problem(std::move(problemText)) {}
Refusal::Refusal(const Refusal &copied) = default;
Refusal &Refusal::operator=(const Refusal &copied) = default;
Refusal::~Refusal() = default;

} // namespace ZelDebugDialog
