#include "ZelDebugDialog/ProjectFile/Codes.h"

namespace ZelDebugDialog {

namespace {

constexpr ProjectSeverity error = ProjectSeverity::error;
constexpr ProjectSeverity warning = ProjectSeverity::warning;
constexpr ProjectSeverity note = ProjectSeverity::note;

// clang-format off
std::vector<ProjectCode> makeCodes() {
  return {
      {"toml-syntax", error, "The file is no TOML. Only the first such place of a file is told, and nothing behind it is looked at.", "cable.esn = 00123", "Texts stand in quotes; numbers have no zeros in front."},
      {"unknown-key", error, "The table has no such key, or the setting cannot be written there.", "cable.freqency = \"3 MHz\"", "Write one of the keys that are named."},
      {"missing-key", error, "A key that has to be there is not.", "chain = [{ devicenr = 1 }]", "Add the key."},
      {"wrong-type", error, "The value is of another type than the key takes.", "debugDevice = true", "Write a value of the type that is named."},
      {"number-for-text", error, "A number or a date stands where a text belongs. Read as a number, a serial number would lose its zeros.", "cable.esn = 123", "Put it in quotes."},
      {"bad-value", error, "It is no value of the setting.", "cable.cableType = \"quorla_podusbb\"", "Write one of the values that are named."},
      {"out-of-range", error, "The number does not fit the setting.", "debugDevice = 128", "Write a number of the range that is named."},
      {"unknown-probe", error, "Neither file has a probe of that name.", "use.probe = \"lab3\"", "Write [probe.NAME], or choose one that is there, or none."},
      {"unknown-profile", error, "Neither file has a profile of that name.", "use.profile = \"slow\"", "Write [profile.NAME.settings], or choose one that is there, or none."},
      {"unknown-processor", error, "The design has no processor of that name, or it cannot be debugged.", "[processor.lumacore_9]", "Write the name as 'list' has it."},
      {"unknown-type", error, "No processor is of that type, here or in any other design.", "[type.lumacor]", "Write the type as 'list' has it."},
      {"pattern-conflict", error, "Two patterns of one block match a processor and say different things of a setting. Their order in the file does not matter, so neither counts.", "[processor.\"a*\"]\ndebugDevice = 1\n[processor.\"*0\"]\ndebugDevice = 2", "Name the processor itself, or let only one of the patterns say it."},
      {"unset-and-set", error, "One table takes a setting away and gives it a value.", "unset = [\"cable.esn\"]\ncable.esn = \"0042\"", "Leave one of them out: a value replaces what lower sources say anyway."},
      {"unmatched-pattern", warning, "No processor that can be debugged has a name like that.", "[processor.\"dsp*\"]", "Mend the pattern, or take the table away."},
      {"unmatched-type", warning, "The type is known, but no processor of this design has it.", "[type.soc_cortexa9]", "Take the table away, if it is not there for another design."},
      {"desk-setting", warning, "The setting says what is plugged in at one desk, or where a file lies there. In the shared file it reaches everybody.", "[settings]\ncable.esn = \"0042\"", "Move it into the local file, or into a probe."},
      {"overridden", warning, "What was written does not count, because a higher source says something else.", "", "Change it where the message says."},
      {"stale-option-file", warning, "An option file belongs to a processor that the design has no longer.", "", "Delete it, if the processor does not come back."},
      {"sync-unreadable", warning, "The file that holds what was synchronized last cannot be read. It is taken for empty.", "", "Option files that differ are conflicts now; 'sync --force' writes them."},
      {"adopt-changes", warning, "The project would write an option file otherwise than it is.", "", "Look at both commands. 'adopt --force' makes the project all the same; 'sync' then tells the file as a conflict."},
      {"cable-dropped", note, "The value belongs to a cable that is not the one in use.", "[settings.cable]\ncableType = \"quorla_podusb\"\nfrequency = \"3MHz\"\n[processor.\"*\".cable]\ncableType = \"quorla_parallel3\"", "Say it again in the table that names the cable, if it is meant for that one too."},
      {"displaced", note, "A higher source says something beside which the value is not written.", "[settings.cable]\ncableType = \"quorla_podusb\"\nfrequency = \"3MHz\"\n[processor.\"*\".cable]\nesn = \"0042\"", "Nothing, if the higher source is meant."},
  };
}
// clang-format on

} // namespace

const char *ShowSeverity(ProjectSeverity severity) {
  switch (severity) {
  case ProjectSeverity::error:
    return "error";
  case ProjectSeverity::warning:
    return "warning";
  case ProjectSeverity::note:
    break;
  }
  return "note";
}

const std::vector<ProjectCode> &GetProjectCodes() {
  static const std::vector<ProjectCode> codes = makeCodes();
  return codes;
}

const ProjectCode *FindProjectCode(std::string_view code) {
  for (const ProjectCode &row : GetProjectCodes())
    if (row.code == code)
      return &row;
  return nullptr;
}

} // namespace ZelDebugDialog
