#include "losses/Reasons.h"

#include <array>

#include "codes/RowOf.h"

namespace ZelDebugDialog::model {

namespace {

// clang-format off
constexpr std::array<Reason, 32> reasons{{
    {OmissionReason::noWriter, {"never-written"}},
    {OmissionReason::otherConnection, {"other-connections"}},
    {OmissionReason::otherCable, {"other-cables"}},
    {OmissionReason::serialNumber, {"serial-number"}, "the serial number takes the place of port and frequency"},
    {OmissionReason::simulatorFile, {"simulator-file"}},
    {OmissionReason::configurationMode, {"configuration-mode"}},
    {OmissionReason::withConfigurationMode, {"configuration-mode", "it is written with the configuration mode only"}},
    {OmissionReason::portWithoutHost, {"port-without-host"}},
    {OmissionReason::powerPcOnly, {"other-processors"}},
    {OmissionReason::ppc405Only, {"isocm", "a command carries it for a ppc405 only"}},
    {OmissionReason::identity, {"identity", "it says which processor this is, and the design gives it"}},
    {OmissionReason::processorKind, {"processor-kind", "the kind of a processor is not written; the design gives it"}},
    {OmissionReason::writtenAsPpc, {"other-targets", "a processor of this family is written as the target 'ppc'"}},
    {OmissionReason::writtenAsProcessor, {"other-targets", "the target is written as a processor"}},
    {OmissionReason::followsIcache, {"address-map-base", "the base of the map comes back as the instruction cache's region"}},
    {OmissionReason::regionWithoutStart, {"isocm"}},
    {OmissionReason::incompleteRange, {"rom-range"}},
    {OmissionReason::registerWithoutWord, {"never-written", "only USER1 and USER2 can be written"}},
    {OmissionReason::betweenNamedValues, {"odd-values", "no word stands for this value"}},
    {OmissionReason::connectionWithoutCommand, {"no-command", "the processor has no command for this kind of connection"}},
    {OmissionReason::cableWithoutCommand, {"no-command", "no command can be written with this cable"}},
    {OmissionReason::connectionNotAllowed, {"connection-mask"}},
    {OmissionReason::cpuJtagMarker, {"cpu-jtag-marker"}},
    {OmissionReason::oneWord, {"virtual-platform-host"}},
    {OmissionReason::configurationModeAlone, {"configuration-mode", "the mode alone is written as '-config' without a value, which no reader accepts"}},
    {OmissionReason::moduleMissing, {"empty-text", "a plug-in cable needs a module"}},
    {OmissionReason::frequencyChecked, {"frequency"}},
    {OmissionReason::misalignedRegion, {"misaligned-region"}},
    {OmissionReason::emptyText, {"empty-text"}},
    {OmissionReason::whiteSpace, {"white-space"}},
    {OmissionReason::leadingMinus, {"leading-minus"}},
    {OmissionReason::colonInHost, {"colon-in-host", "host and port are separated at the first colon"}},
}};
// clang-format on
static_assert(isInOrder(reasons, &Reason::reason));

} // namespace

const Reason &reasonRow(OmissionReason reason) {
  return *rowOf(reasons, reason);
}

} // namespace ZelDebugDialog::model
