// What can be wrong with a command, or surely not be meant: a row each.
#include <string>

#include "ZelDebugDialog/EngineFacts.h"
#include "codes/CodeRows.h"

namespace ZelDebugDialog::model {

// Code, severity, summary, meaning, example, where the example has it, advice.
std::vector<Code> makeDiagnosticCodes() {
  return {
      {"missing-head", CodeSeverity::error, "the command is empty",
       "A command begins with a head word, and there is no word at all.", " ",
       "", "Begin with 'connect' or, for a virtual platform, 'vpconnect'."},
      {"unknown-head", CodeSeverity::error, "is no head word",
       "The first word of a command says what kind of command it is, and this "
       "one is none that the debugger knows.",
       "conect lc hdu", "", "Correct the first word."},
      {"missing-target", CodeSeverity::error, "a target word is missing here",
       "Behind the head stands what is connected to, and the command ends "
       "before it.",
       "connect", "", "Add the target, such as 'lc' or 'ppc'."},
      {"unknown-target", CodeSeverity::error, "is no target",
       "The word behind the head names no target that the debugger knows.",
       "connect lumacore hdu", "", "Write one of the target words."},
      {"missing-connection", CodeSeverity::error,
       "a connection word is missing here",
       "Behind the target stands how to connect, and the command ends before "
       "it.",
       "connect lc", "", "Add a connection word of the target."},
      {"unknown-connection", CodeSeverity::error,
       "is no way to connect to this target",
       "Each target has its own connection words; this one is not among them.",
       "connect ppc hdu", "", "Write a connection word of this target."},
      {"connection-not-allowed", CodeSeverity::error,
       "is a connection that the processor does not allow",
       "The design says how a processor can be reached, and this way is not "
       "part of it. Without a design every way is allowed.",
       "connect lc hdu", "for a processor without a debug module",
       "Choose a connection that 'zeldebug list' shows for the processor."},
      {"unknown-option", CodeSeverity::error, "is no option here",
       "An option word (it begins with '-') that the option set at this place "
       "does not have.",
       "connect lc hdu -cabel type quorla_podusb", "",
       "Correct the option, or move it to the target that has it."},
      {"not-an-option", CodeSeverity::error,
       "stands where an option word belongs",
       "Some options take no value, or one only; the word behind must be an "
       "option word again.",
       "connect lc hdu -quiet yes", "",
       "Take the word out, or put the option in front of it."},
      {"unknown-parameter", CodeSeverity::error,
       "is no parameter of this option",
       "Options such as '-cable' take pairs of a name and a value, and this "
       "name is unknown to the option.",
       "connect lc hdu -cable speed 6000000", "",
       "Correct the name; a value with a blank in it looks like this, too."},
      {"missing-value", CodeSeverity::error, "a value is missing here",
       "A name or an option needs a value, and the command ends or the next "
       "option begins.",
       "connect lc hdu -cable type", "",
       "Add the value; an empty value cannot be written in a command."},
      {"refused-value", CodeSeverity::error, "is refused as the value",
       "The value is not one of the few words that stand here, or a number "
       "that the setting cannot take.",
       "connect lc hdu -cable type quorla_usb", "",
       "Write one of the values that are accepted."},
      {"missing-svf-file", CodeSeverity::error,
       "the cable's SVF file is missing here",
       "An SVF cable needs the parameter 'fname'.",
       "connect lc hdu -cable port USB21", "where the SVF cable was set before",
       "Add 'fname' and the file."},
      {"missing-module", CodeSeverity::error,
       "the plug-in cable's module is missing here",
       "A plug-in cable at the end of a command needs the parameter "
       "'modulename'.",
       "connect lc hdu -cable type quorla_plugin", "",
       "Add 'modulename' and the module."},
      {"refused-frequency", CodeSeverity::error,
       "is no frequency of this cable",
       "A cable clause that ends the command has its frequency checked against "
       "the cable's list.",
       "connect lc hdu -cable type quorla_podusb frequency 625000", "",
       "Write a frequency that 'zeldebug cables' shows for the cable."},
      {"lone-dash", CodeSeverity::error, "is a lone '-'",
       "A word that is only '-' is neither an option nor a value; reading ends "
       "with an error of the library.",
       "connect lc hdu -", "", "Take the word out."},
      {"frequency-not-checked", CodeSeverity::warning,
       "is no frequency of this cable, and is read all the same",
       "Another option follows the cable clause, and then its frequency is not "
       "checked; at the end of a command it would be refused.",
       "connect lc hdu -cable type quorla_podusb frequency 625000 -debugdevice "
       "devicenr 1",
       "", "Write a frequency that 'zeldebug cables' shows for the cable."},
      {"frequency-without-cable", CodeSeverity::warning,
       "is the frequency of no cable",
       "No cable is chosen, so nothing uses the frequency, and no command is "
       "written with it.",
       "connect lc hdu -cable frequency 3000000 -quiet", "",
       "Choose the cable as well."},
      {"baud-zero", CodeSeverity::warning, "is no rate of a serial line",
       "A stub over a serial line is connected at a rate of 0 bits per second.",
       "connect lc stub -comm serial -port /dev/ttyS0 -baud 0", "",
       "Give the rate of the line, such as 115200."},
      {"value-cut", CodeSeverity::warning, "does not fit",
       "The setting has 8 or 32 bits; of a number that needs more the low bits "
       "are kept, and one with the highest bit set may come out negative.",
       "connect lc hdu -debugdevice devicenr 200", "",
       "Write a number that the setting can hold."},
      {"not-a-number", CodeSeverity::warning, "is no number",
       "Numbers are decimal, hexadecimal behind 0x, or octal behind a 0. What "
       "cannot be read as one is ignored without an error, from the first "
       "letter that does not fit; nothing readable gives 0.",
       "connect lc hdu -debugdevice devicenr two", "", "Write a number."},
      {"octal-number", CodeSeverity::warning, "is read as an octal number",
       "A leading 0 makes a number octal.",
       "connect lc hdu -debugdevice devicenr 010", "",
       "Take the leading 0 off a decimal number."},
      {"option-as-value", CodeSeverity::warning,
       "looks like an option, but is taken for a value",
       "At this place the next word is a value, whatever it is; the option has "
       "no effect.",
       "connect lc sim -memsize -quiet", "", "Add the missing value."},
      {"option-lost", CodeSeverity::warning, "is lost",
       "The clause before it had read this option word and could not give it "
       "back; what it should do is not done.",
       "connect ppc sim -debugdevice devicenr 1 -icf", "",
       "Put the options into another order."},
      {"ignored-word", CodeSeverity::warning, "is ignored",
       "Nothing reads the command from here on.", "connect lc sim fast", "",
       "Take the word out."},
      {"option-repeated", CodeSeverity::warning, "is given twice",
       "The later one wins, or adds to the former.",
       "connect lc hdu -debugdevice devicenr 1 -debugdevice devicenr 2", "",
       "Keep one of them."},
      {"parameter-repeated", CodeSeverity::warning,
       "is given twice in one clause", "The later one wins.",
       "connect lc hdu -debugdevice devicenr 1 devicenr 2", "",
       "Keep one of them."},
      {"target-differs", CodeSeverity::warning,
       "is the target of another processor",
       "The command is for another family of processors, or for a debug "
       "module, and not for the processor that was named. It is read, and the "
       "design's processor is forgotten over it.",
       "connect ppc hw", "for a Lumacore",
       "Write the target that 'zeldebug command' writes for the processor."},
      {"kind-differs", CodeSeverity::warning, "is another kind of processor",
       "The command says that the processor is of another kind than the design "
       "has it.",
       "connect ppc hw -debugdevice proctype ppc440", "for a ppc405",
       "Leave 'proctype' out: the design knows the kind."},
      {"number-differs", CodeSeverity::error,
       "is the number of another processor",
       "Each processor of a family has its own number, and the command names "
       "another one than the design gives to this processor.",
       "connect lc hdu -debugdevice cpunr 2",
       "for the first Lumacore of a design",
       "Write the number that 'zeldebug list' shows, or leave it out."},
      {"not-in-option-file", CodeSeverity::warning,
       "is not taken in an option file",
       "Option files know fewer words than commands: the heads 'kconnect' and "
       "'kvpconnect' and the targets 'hdu', 'dap', 'dcc' and 'kmtc' are "
       "refused there.",
       "kconnect lc hdu", inOptionFile,
       "Write one of the words that are accepted there."},
      {"long-line", CodeSeverity::warning,
       "the line is longer than what is read of it",
       "Of a line of an option file only 1,023 characters are read.",
       "connect lc hdu -cable type quorla_podusb port " +
           std::string(longestOptionLine, '1'),
       inOptionFile,
       "Make the command shorter: leave out what is at its default."},
  };
}

} // namespace ZelDebugDialog::model
