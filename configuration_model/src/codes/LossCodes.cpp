// Why a setting does not survive writing and reading: a row each, in the order
// of docs/round-trip.md, whose anchors these codes are.
#include <string>

#include "ZelDebugDialog/EngineFacts.h"
#include "codes/CodeRows.h"

namespace ZelDebugDialog::model {

// Code, severity, summary, meaning, example, where the example has it, advice.
std::vector<Code> makeLossCodes() {
  return {
      {"no-command", CodeSeverity::loss, "no command can be written",
       "The processor has no text for this connection, two connections are "
       "chosen at once, or the cable can be read but not written.",
       "connect lc hdu -cable type quorla_tcf", "",
       "Finish the steps of a connection, and choose a cable that 'zeldebug "
       "cables' shows as writable."},
      {"cpu-jtag-marker", CodeSeverity::loss,
       "it is written as '-configdevice jtagpin cpujtag', which no reader "
       "accepts",
       "The mark for the processor's own JTAG pins is written in words that no "
       "reader knows, so that the whole command is refused.",
       "connect lc hdu -configdevice jtagport cpu", "",
       "Save without the mark, and put '-configdevice jtagport cpu' into the "
       "command by hand."},
      {"virtual-platform-host", CodeSeverity::loss,
       "host and port are written as one word, '-ipcportHOSTPORT', which no "
       "reader accepts",
       "A virtual platform with a host is written in a form that no reader "
       "accepts.",
       "vpconnect lc -ipcport localhost:2340", "",
       "Save a virtual platform without a host, and pass '-ipcport host:port' "
       "in a command when you need one."},
      {"frequency", CodeSeverity::loss,
       "it is none of the cable's frequencies, and the cable clause that ends "
       "a command is checked",
       "Any frequency is written, but where the cable clause ends the command "
       "its reader takes only those of the cable.",
       "connect lc stub -comm jtag -cable type quorla_podusb frequency 4000000 "
       "-quiet",
       "", "Write a frequency that 'zeldebug cables' shows for the cable."},
      {"misaligned-region", CodeSeverity::loss,
       "it does not begin at a multiple of 64 KiB",
       "Regions of the address map begin at multiples of 64 KiB. Another "
       "address is written and then refused.",
       "connect ppc hw -debugdevice cpunr 1 icacheStartAdr 0x18000",
       "written for a region that begins at 0x18000",
       "Give the region, or the base of the map, an address with sixteen zero "
       "bits at its end."},
      {"connection-mask", CodeSeverity::loss,
       "the processor does not allow this kind of connection",
       "The design says how the processor can be reached, and this way is not "
       "part of it. Saved like that, the file is refused at the next "
       "selection.",
       "connect lc hdu", "for a processor without a debug module",
       "Choose a connection that 'zeldebug list' shows for the processor."},
      {"empty-text", CodeSeverity::loss,
       "it is empty, and a command cannot carry an empty value",
       "An empty text leaves two blanks where a word belongs, and the next "
       "word is taken for it.",
       "connect lc hdu -cable type quorla_plugin modulename m modulearg a;;b",
       "",
       "Give every text that the cable, the chain and the connection need."},
      {"white-space", CodeSeverity::loss,
       "it holds white space, and a command ends its words there",
       "Blanks and tabs separate words, and there are no quotes. A text that "
       "holds one falls apart.",
       "connect lc hdu -cable type quorla_podusb port my port frequency "
       "6000000 -debugdevice cpunr 1",
       "written for the port 'my port'",
       "Use a name without white space; a link to the file serves."},
      {"leading-minus", CodeSeverity::loss,
       "it begins with '-', and a command takes it for an option word",
       "A word that begins with '-' and no digit behind it is an option, not a "
       "value.",
       "connect lc hdu -cable type quorla_plugin modulename m modulearg a;-b",
       "", "Write './-name' for a file, and rename the rest."},
      {"refused-again", CodeSeverity::loss,
       "the command that is written is refused",
       "The readers refuse the command that was written, for a reason that no "
       "other code names.",
       "connect lc hdu -cable type quorla_podusb port",
       "what an option file keeps of a port that begins with a null byte",
       "Look at the command with 'zeldebug check', and change the setting that "
       "its fault is about."},
      {"colon-in-host", CodeSeverity::loss,
       "host and port are written as 'host:port', and the first colon "
       "separates them",
       "A host with a colon in it comes back cut at the colon, and the port is "
       "lost.",
       "connect ppc sim -ipcport a:b:5",
       "written for the host 'a:b' and the port 5",
       "Use a name instead of a numeric IPv6 address."},
      {"other-targets", CodeSeverity::loss,
       "the command is written for another target",
       "Every processor that is no Lumacore is written as the target 'ppc', "
       "and a debug module as a processor.",
       "connect arm hw", "",
       "Load the design, which knows what the processor is, or keep the "
       "command that you had."},
      {"processor-kind", CodeSeverity::loss,
       "the kind of PowerPC is not written; the design gives it",
       "A command that is written does not say whether a PowerPC is a 405 or a "
       "440.",
       "connect ppc hw -debugdevice proctype ppc405", "",
       "Load the design, or add 'proctype' to the debug device clause by "
       "hand."},
      {"identity", CodeSeverity::loss,
       "a command does not say which processor it is for",
       "The name of the processor and what the design allows are in no "
       "command, and its number only in one for hardware.",
       "connect lc hdu -debugdevice cpunr 2",
       "written for 'cpu1' of a design and read without it",
       "Load the design and select the processor by its name."},
      {"eight-bit-numbers", CodeSeverity::loss, "it does not fit",
       "The setting has 8 or 32 bits; of a number that needs more the low bits "
       "are kept, and one with the highest bit set may come out negative.",
       "connect lc hdu -debugdevice devicenr 300", "",
       "Write a number that the setting can hold."},
      {"no-number", CodeSeverity::loss, "it is no number",
       "Text where a number belongs gives 0, or the number that it begins "
       "with.",
       "connect lc hdu -debugdevice devicenr two", "", "Write a number."},
      {"odd-values", CodeSeverity::loss, "only the named values are written",
       "A stub type, a flag of the virtual platform or an FPU type that is "
       "none of the named values comes back as one of them.",
       "connect ppc hw -debugdevice cpunr 1 fpuType dp",
       "written for an FPU type of 3", "Use the named values."},
      {"address-map-base", CodeSeverity::loss,
       "the base is not written; the region of the instruction cache gives it",
       "The base of the address map comes back as the address of the "
       "instruction cache's region, or unset without one.",
       "connect ppc hw -debugdevice cpunr 1 icacheStartAdr 0x10000",
       "written for a map with the base 0x20000",
       "Set it through the region of the instruction cache, which sets both."},
      {"fpu", CodeSeverity::loss, "the design says which FPU the processor has",
       "The command says which FPU a PowerPC has, but every selection takes it "
       "from the design afterwards.",
       "connect ppc hw -debugdevice fpuType sp",
       "for a PowerPC whose design has no FPU",
       "Describe the FPU in the design."},
      {"read-differently", CodeSeverity::loss, "it is read back differently",
       "The setting is written, and another value is read, for a reason that "
       "no other code names.",
       "connect lc hdu -debugdevice deviceNr 2 cpunr 1",
       "where another version of the engine reads another debug device from it",
       "Look at the command with 'zeldebug explain'."},
      {"serial-number", CodeSeverity::loss, "the serial number takes its place",
       "A cable with a serial number is written with that alone, without port "
       "and frequency.",
       "connect lc hdu -cable type quorla_podusb port X esn 1", "",
       "Set port and frequency again after the selection, or do without the "
       "serial number."},
      {"configuration-mode", CodeSeverity::loss,
       "the configuration mode takes its place",
       "With the configuration mode a virtual platform is written without host "
       "and port, and the cycle-approximate flag is written with it only.",
       "vpconnect lc -config cycle_approximate -ipcport h:3", "",
       "Set both flags or none."},
      {"simulator-file", CodeSeverity::loss,
       "the simulator file takes its place",
       "The PowerPC simulator is written with its file or with host and port, "
       "never with both.",
       "connect ppc sim -icf board.cfg -ipcport h:5", "",
       "Keep the one that you need."},
      {"port-without-host", CodeSeverity::loss,
       "a port without a host is not written",
       "The port of a simulator is written behind its host, and not without "
       "one.",
       "vpconnect lc -ipcport localhost", "",
       "Name the host, 'localhost' for this machine."},
      {"other-connections", CodeSeverity::loss,
       "a command for this kind of connection does not carry it",
       "A command holds what its connection uses, and nothing of another "
       "connection's settings.",
       "connect ppc sim -debugdevice devicenr 1", "",
       "Save the connection that you mean to use."},
      {"other-cables", CodeSeverity::loss,
       "a command does not carry it for this cable",
       "Port, serial number and frequency are written for the Quorla cables, "
       "module and arguments for the plug-in cable, and nothing for the "
       "others.",
       "connect lc hdu -cable type digilent_plugin port X", "",
       "Choose another cable, or put what a plug-in needs into its arguments."},
      {"other-processors", CodeSeverity::loss,
       "a command carries it for a PowerPC only",
       "The address map and the FPU type belong to the PowerPC's command only.",
       "connect lc hdu -debugdevice icacheStartAdr 0x10000", "",
       "Nothing is needed; no other processor uses them."},
      {"rom-range", CodeSeverity::loss,
       "a range without start or size is not written",
       "A ROM range is written when it has a start and a size other than 0.",
       "connect lc hdu -debugdevice romemStartAdr 0x100", "", "Give both."},
      {"isocm", CodeSeverity::loss, "a region without a start is not written",
       "The on-chip memory is written for a ppc405 with a start address only.",
       "connect ppc hw -debugdevice isocmStartAdr 0x10000", "",
       "Load the design, which knows the ppc405, and give the region a start."},
      {"never-written", CodeSeverity::loss,
       "no command can be written that carries it",
       "Some settings are read from a command, but no command is ever written "
       "with them.",
       "connect lc sim -memsize 4096", "",
       "Give them in a command of your own each time."},
      {"long-file", CodeSeverity::loss,
       "it stands behind what is read of the line",
       "An option file is written whole, but only the first 1,023 characters "
       "of its line are read.",
       "connect lc hdu -cable type quorla_podusb port " +
           std::string(longestOptionLine, '1'),
       inOptionFile,
       "Keep names short and chains small, or leave out what is at its "
       "default."},
      {"lines-in-file", CodeSeverity::loss,
       "it holds a line break or a null byte, and the line of an option file "
       "ends there",
       "A text may hold a line break or a null byte inside a word, but an "
       "option file ends its line there.",
       "connect lc hdu -cable type quorla_podusb port a",
       "what an option file keeps of a port with a line break behind its 'a'",
       "Keep them out of names."},
  };
}

} // namespace ZelDebugDialog::model
