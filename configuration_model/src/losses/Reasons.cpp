#include "losses/Reasons.h"

#include <array>

#include "text/RowOf.h"

namespace ZelDebugDialog::model {

namespace {

// clang-format off
constexpr std::array<Reason, 32> reasons{{
    {OmissionReason::noWriter, "no command can be written that carries it", "never-written"},
    {OmissionReason::otherConnection, "a command for this kind of connection does not carry it", "other-connections"},
    {OmissionReason::otherCable, "a command does not carry it for this cable", "other-cables"},
    {OmissionReason::serialNumber, "the serial number takes its place", "serial-number", "the serial number takes the place of port and frequency"},
    {OmissionReason::simulatorFile, "the simulator file takes its place", "simulator-file"},
    {OmissionReason::configurationMode, "the configuration mode takes its place", "configuration-mode"},
    {OmissionReason::withConfigurationMode, "it is written with the configuration mode only", "configuration-mode"},
    {OmissionReason::portWithoutHost, "a port without a host is not written", "port-without-host"},
    {OmissionReason::powerPcOnly, "a command carries it for a PowerPC only", "other-processors"},
    {OmissionReason::ppc405Only, "a command carries it for a ppc405 only", "isocm"},
    {OmissionReason::identity, "it says which processor this is, and the design gives it", "identity"},
    {OmissionReason::processorKind, "the kind of a processor is not written; the design gives it", "processor-kind"},
    {OmissionReason::writtenAsPpc, "a processor of this family is written as the target 'ppc'", "other-targets"},
    {OmissionReason::writtenAsProcessor, "the target is written as a processor", "other-targets"},
    {OmissionReason::followsIcache, "the base of the map comes back as the instruction cache's region", "address-map-base"},
    {OmissionReason::regionWithoutStart, "a region without a start is not written", "isocm"},
    {OmissionReason::incompleteRange, "a range without start or size is not written", "rom-range"},
    {OmissionReason::registerWithoutWord, "only USER1 and USER2 can be written", "never-written"},
    {OmissionReason::betweenNamedValues, "no word stands for this value", "odd-values"},
    {OmissionReason::connectionWithoutCommand, "the processor has no command for this kind of connection", "no-command"},
    {OmissionReason::cableWithoutCommand, "no command can be written with this cable", "no-command"},
    {OmissionReason::connectionNotAllowed, "the processor does not allow this kind of connection", "connection-mask"},
    {OmissionReason::cpuJtagMarker, "it is written as '-configdevice jtagpin cpujtag', which no reader accepts", "cpu-jtag-marker"},
    {OmissionReason::oneWord, "host and port are written as one word, '-ipcportHOSTPORT', which no reader accepts", "virtual-platform-host"},
    {OmissionReason::configurationModeAlone, "the mode alone is written as '-config' without a value, which no reader accepts", "configuration-mode"},
    {OmissionReason::moduleMissing, "a plug-in cable needs a module", "empty-text"},
    {OmissionReason::frequencyChecked, "it is none of the cable's frequencies, and the cable clause that ends a command is checked", "frequency"},
    {OmissionReason::misalignedRegion, "it does not begin at a multiple of 64 KiB", "misaligned-region"},
    {OmissionReason::emptyText, "it is empty, and a command cannot carry an empty value", "empty-text"},
    {OmissionReason::whiteSpace, "it holds white space, and a command ends its words there", "white-space"},
    {OmissionReason::leadingMinus, "it begins with '-', and a command takes it for an option word", "leading-minus"},
    {OmissionReason::colonInHost, "host and port are separated at the first colon", "colon-in-host"},
}};
// clang-format on
static_assert(isInOrder(reasons, &Reason::reason));

} // namespace

const Reason &reasonRow(OmissionReason reason) {
  return *rowOf(reasons, reason);
}

} // namespace ZelDebugDialog::model
