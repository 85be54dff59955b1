// The engine behind a debug-configuration dialog for the processors of an FPGA
// design: sets, checks and reads one debug-target configuration, and translates
// it to and from the connect command of the target debugger.
//
// It shows nothing, starts nothing and connects to nothing. It keeps the
// configuration of the selected processor in plain records (EngineImp.h); the
// design and the records belong to the caller.
//
// Threads. An engine is used by one thread at a time, and two engines in two
// threads are not allowed: all that read a command (`SetProcessor`,
// `SetProcessorFrom`, `ParseProcessorInfo`, `ParseJtagCableInfo`,
// `SetPluginCableOptions`, `Set3rdPartyCableOptions`, and what
// KvoOption_Parser.h, CommandTrace.h and `EngineImp::GetProcessorInfo` offer)
// share one string of the process, `KvoOption_Parser::current_option`. A
// program that needs two takes one lock around every call of either.
//
//   Engine engine;
//   std::vector<std::string> names;
//   engine.GetProcessorList(&design, names);
//   ProcessorInfo info;
//   if (engine.SetProcessor("cpu0", info) == 0 || ...) // 4: nothing saved yet
//     engine.SetCableType(Engine::QUORLA_PODUSB);
//   std::string command;
//   engine.GenerateCmdString(command); // "connect lc hdu -cable ..."
//
// Results. Unless said otherwise an operation returns 0 when it is done; 1 when
// a value is not set, empty or refused; 2 when the setting does not apply to
// the present connection, processor or cable; Result.h has names for them. A
// refusal that has a message puts it into the error string; nothing empties the
// error string but a selection.
// Outputs stay as they were unless the description says otherwise. Exceptions:
// std::bad_alloc, and std::out_of_range from every operation that reads command
// text for a word that is a lone "-". What an operation has read until an
// exception stays stored, as does the command that `Generate` is about to save;
// everything else, outputs included, is as it was before.
//
// A current processor is a precondition of the target settings, of the cable
// and chain getters, and of `Generate` and `GenerateCmdString`; a debug build
// asserts it. Chain pointers must not be null.
#ifndef ZELDEBUGDIALOG_ENGINE_H
#define ZELDEBUGDIALOG_ENGINE_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZelDebugDialog/Export.h"

class HHSMHwManager;

namespace ZelDebugDialog {

class CableOption;
class EngineImp;
class JtagOption;
class ProcessorInfo;

/// One debug-target configuration, and the operations of the dialog on it.
class ZELDEBUGDIALOG_API Engine {
public:
  /// JTAG cables. `QUORLA_SVFFILE` can be set but neither read nor written;
  /// `QUORLA_TCF` can be read but not written.
  enum CableType : std::uint32_t {
    CABLE_NONE = 0,
    QUORLA_SVFFILE = 1,
    QUORLA_PARALLEL4 = 2,
    QUORLA_PODUSB = 3,
    QUORLA_PARALLEL3 = 4,
    QUORLA_PLUGIN = 5,
    DIGILENT_PLUGIN = 6,
    QUORLA_TCF = 7,
  };

  /// How the debugger connects, one bit a kind. Two more bits go with a stub:
  /// 0x40 a JTAG path to it exists, 0x80 a UART exists.
  enum ConnectionType : std::uint32_t {
    CONNECT_SIM = 1,  ///< instruction-set simulator
    CONNECT_HW = 2,   ///< hardware, over the debug module or JTAG
    CONNECT_STUB = 4, ///< software stub in the target
    CONNECT_VP = 8,   ///< virtual platform
  };

  /// How a stub is reached.
  enum StubType : std::uint32_t {
    STUB_JTAG = 0,
    STUB_SERIAL = 1,
  };

  /// A configuration with defaults: no design, no processor, no cable.
  Engine();
  /// Ends the configuration. The design, the processor records and the chain
  /// records are left alone.
  ~Engine();
  Engine(const Engine &) = delete;
  Engine &operator=(const Engine &) = delete;

  // --- Text out -----------------------------------------------------------

  /// Saves the current processor's connect command in its option file,
  /// `<working directory>/etc/kvo_<instanceName>.opt`. The folder is not made.
  /// Only regular files are written.
  /// @return 0 written (a failure after the file was opened is not reported);
  ///   1 no command for this configuration, see the error string; the file is
  ///   untouched; 4 "Error Opening File", the command is stored in the record.
  int Generate();

  /// Builds the connect command of the current processor into `command` and
  /// into the record's `connectCommand`.
  /// @return 0; or 1 with both texts as they were: "Invalid Connect Type for
  ///   Lumacore Target", "Invalid Connect Type for PowerPC Target", "Invalid
  ///   Cable Type", or (virtual platform of a processor that is no Lumacore)
  ///   without a message.
  int GenerateCmdString(std::string &command);

  // --- Errors -------------------------------------------------------------

  /// Copies the last message out.
  void GetErrorStr(std::string &text);
  /// Replaces the last message.
  void SetErrorStr(const std::string &text);
  /// Replaces the last message with a text that ends at its null byte.
  void SetErrorStr(const char *text);

  // --- Connection ---------------------------------------------------------

  /// Chooses how to connect. @return 0; 1 if the processor's `connectionMask`
  /// shares no bit with `type` (no message, nothing changed).
  int SetConnectionType(ConnectionType type);
  /// Copies out how the debugger connects. @return 0; 1 if none is set.
  int GetConnectionType(ConnectionType &type);

  /// Chooses how the stub is reached. @return 0; 1 with "UART device not
  /// present in system" for `STUB_SERIAL` unless the connection type has bit
  /// 0x80, or "JTAG device not present in system" for `STUB_JTAG` unless it has
  /// bit 0x40.
  int SetStubType(StubType type);
  /// Copies out how the stub is reached.
  /// @return 0; 2 unless the connection type has bit 4.
  int GetStubType(StubType &type);

  /// Serial device of the stub, such as "/dev/ttyS0". @return 0
  int SetStubSerialPort(const std::string &port);
  /// Copies out the serial device of the stub, which may be empty. @return 0
  int GetStubSerialPort(std::string &port);
  /// Bits per second of the stub's line. @return 0
  int SetStubBaudrate(int baudRate);
  /// Copies out the bits per second of the stub's line.
  /// @return 0; 1 while they are 0.
  int GetStubBaudRate(int &baudRate);

  /// Number of the debug device; the low 8 bits are kept, as a signed number.
  /// @return 0
  int SetDebugDevice(int device);
  /// Copies out the number of the debug device.
  /// @return 0; 1 while it is 0; 2 for the simulator and for a serial stub.
  int GetDebugDevice(int &device);

  /// Marks the processor's own JTAG pins as the debug path. Only a selection
  /// takes the mark back. @return 0
  int SetCpuJtag();

  /// Does nothing: the file comes from a command ("-icf"). @return 0
  int SetPPCSimConfigFile(const std::string &file);
  /// Copies out the file of the PowerPC simulator.
  /// @return 0; 1 while it is empty; 2 unless a PowerPC on the simulator.
  int GetPPCSimConfigFile(std::string &file);

  // --- PowerPC debug address map -------------------------------------------
  // A setter that refuses leaves `<region> Start Address should be aligned at
  // 64k boundry` in the error string.

  /// Start of the whole map. @return 0; 1 while it is not set; 2 unless a
  /// PowerPC on hardware.
  int GetDebugAddressMap(unsigned int &address);
  /// Start of the instruction cache region. @return 0; 1 while it is not set; 2
  /// unless a PowerPC on hardware.
  int GetIcacheBaseAddr(unsigned int &address);
  /// Start of the data cache region. @return 0; 1 while it is not set; 2 unless
  /// a PowerPC on hardware.
  int GetDcacheBaseAddr(unsigned int &address);
  /// Start of the instruction cache tag region. @return 0; 1 while it is not
  /// set; 2 unless a PowerPC on hardware.
  int GetITagBaseAddr(unsigned int &address);
  /// Start of the data cache tag region. @return 0; 1 while it is not set; 2
  /// unless a PowerPC on hardware.
  int GetDTagBaseAddr(unsigned int &address);
  /// Start of the translation buffer region. @return 0; 1 while it is not set;
  /// 2 unless a PowerPC on hardware.
  int GetTlbBaseAddr(unsigned int &address);
  /// Start of the device control register region. @return 0; 1 while it is not
  /// set; 2 unless a PowerPC on hardware.
  int GetDcrBaseAddr(unsigned int &address);
  /// Start of the on-chip instruction memory. @return 0; 1 while it is not set;
  /// 2 unless a ppc405 on hardware.
  int GetISOCMBaseAddr(unsigned int &address);

  /// Start of the instruction cache region, a multiple of 0x10000, and of the
  /// whole map. @return 0; 1 misaligned, nothing changed.
  int SetIcacheBaseAddr(unsigned address);
  /// Start of the data cache region, a multiple of 0x10000.
  /// @return 0; 1 misaligned, nothing changed.
  int SetDcacheBaseAddr(unsigned address);
  /// Start of the instruction cache tag region, a multiple of 0x10000.
  /// @return 0; 1 misaligned, nothing changed.
  int SetITagBaseAddr(unsigned address);
  /// Start of the data cache tag region, a multiple of 0x10000.
  /// @return 0; 1 misaligned, nothing changed.
  int SetDTagBaseAddr(unsigned address);
  /// Start of the translation buffer region, a multiple of 0x10000.
  /// @return 0; 1 misaligned, nothing changed.
  int SetTlbBaseAddr(unsigned address);
  /// Start of the device control register region, a multiple of 0x10000.
  /// @return 0; 1 misaligned, nothing changed.
  int SetDcrBaseAddr(unsigned address);
  /// Makes the base of the map and the six regions unset. @return 0
  int UnSetDebugAddressMap();

  // --- Read-only memory ---------------------------------------------------

  /// Range of the read-only memory: its address, and its size in bytes.
  /// @return 0
  int SetROMem(unsigned start, unsigned size);
  /// Copies out the range of the read-only memory.
  /// @return 0; 1 while the start is `unsetAddress`; 2 unless on hardware.
  int GetROMem(unsigned int &start, unsigned int &size);

  // --- Cable --------------------------------------------------------------
  // Getters return 2 for the simulator, the virtual platform and a serial stub,
  // which use no cable.

  /// Starts a cable of this type anew: its default frequency and port, all
  /// other strings empty. @return 0
  int SetCableType(CableType type);
  /// Copies out the type of the cable.
  /// @return 0, also for `CABLE_NONE`; 2 as above.
  int GetCableType(CableType &type);
  /// JTAG clock in hertz, not checked. @return 0
  int SetCableSpeed(unsigned frequency);
  /// Copies out the JTAG clock in hertz.
  /// @return 0; 1 for 0, which is copied out; 2 as above.
  int GetCableSpeed(unsigned &frequency);
  /// Port of the cable, such as "USB21"; not checked. @return 0
  int SetCablePort(const std::string &port);
  /// Copies out the port of the cable.
  /// @return 0; 1 for an empty one, which is copied out; 2 as above.
  int GetCablePort(std::string &port);
  /// Serial number of the cable; it displaces port and frequency in a written
  /// command. @return 0
  int SetCableESN(const std::string &esn);
  /// Copies out the serial number of the cable.
  /// @return 0; 1 for an empty one, which is copied out; 2 as above.
  int GetCableESN(std::string &esn);

  /// Stores type, frequency and port in `cable`, a record of the caller.
  /// @return 0; 1 for `QUORLA_PLUGIN`, nothing changed.
  int SetQuorlaCableOptions(CableOption &cable, CableType type,
                            unsigned frequency, const std::string &port);
  /// Stores `DIGILENT_PLUGIN` in `cable`; frequency and port are not used.
  /// @return 0; 1 for any other type, nothing changed.
  int SetDigilentCableOptions(CableOption &cable, CableType type,
                              unsigned frequency, const std::string &port);

  /// Reads option clauses ("-cable modulename ... modulearg ...") into the
  /// engine's own cable, which must be a `QUORLA_PLUGIN`. An empty text is read
  /// as nothing.
  /// @return 0; 1 if the cable is of another type ("Internal Error: Other Cable
  ///   Options applies only for QUORLA_PLUGIN cable type") or the text is
  ///   refused; what was read before the refusal stays stored.
  int SetPluginCableOptions(const std::string &text);
  /// Writes "-cable type quorla_plugin modulename ..." into `text`.
  /// @return 0; 1 with `text` emptied if there is no module name; 2 with `text`
  ///   as it was unless the engine's cable is a `QUORLA_PLUGIN`.
  int GetPluginCableOptions(std::string &text);
  /// Reads option clauses into `cable`, a record of the caller, without
  /// touching this engine or its error string.
  /// @return 0; 1 if the text is refused, `cable` as it was.
  int Set3rdPartyCableOptions(CableOption &cable, const std::string &text);
  /// As `GetPluginCableOptions`, for a record of the caller; an empty module
  /// name is written. @return 0; 1 unless `cable` is a `QUORLA_PLUGIN`.
  int Get3rdPartyCableOptions(std::string &text, CableOption cable);

  /// What to offer for a cable; see CableCatalogue.h.
  std::string GetSupportedCableSpeed(CableType type);
  /// The frequency that a cable starts with, in hertz; 0 without one.
  std::uint32_t GetDefaultCableSpeed(CableType type);
  /// The port that a cable starts with; empty without one.
  std::string GetDefaultCablePort(CableType type);
  /// A placeholder: always empty.
  std::string GetCableName(CableType type);
  /// A placeholder: always 1.
  int GetCableType(const std::string &name);

  // --- JTAG chain ---------------------------------------------------------

  /// Uses these records, in order, from now on. The pointers are copied; the
  /// records stay the caller's. @return 0
  int SetJtagChainOptions(const std::vector<JtagOption *> &chain);
  /// Replaces the contents of `chain` with the engine's pointers. @return 0; 1
  /// for an empty chain; 2 for the simulator and for a serial stub.
  int GetJtagChainOptions(std::vector<JtagOption *> &chain);

  /// Appends the cable, chain and debug device clauses for these settings to
  /// `out`, without touching this engine. No defaults are filled in.
  /// @return 0; 1 for a cable that cannot be written, with " -cable" appended.
  int GenerateJtagCableCmdString(std::string &out, CableType type,
                                 unsigned frequency, std::string port,
                                 std::vector<JtagOption *> &chain,
                                 char debugDevice);
  /// The same for a cable record, with all that the record says.
  /// @return 0; 1 for a cable that cannot be written, with " -cable" appended.
  int GenerateJtagCableCmdString(std::string &out, CableOption cable,
                                 std::vector<JtagOption *> &chain,
                                 char debugDevice);

  /// Reads cable, chain and debug device clauses into the arguments, without
  /// touching this engine. Without a debug device in the text, the first chain
  /// device that is an FPGA lends its number.
  /// @param text  only "-cable", "-configdevice", "-debugdevice" and "-bscan".
  /// @param cable  takes what the text says.
  /// @param cpuJtag  1 if the processor's own JTAG pins are used.
  /// @param debugDevice  number of the debug device.
  /// @param chain  its contents are replaced; the new records belong to the
  ///   caller (`ReleaseChainRecords`).
  /// @return 0; 3 if the text is refused, all arguments as they were.
  int ParseJtagCableInfo(std::string text, CableOption &cable,
                         std::vector<JtagOption *> &chain, int &cpuJtag,
                         char &debugDevice);

  // --- Processors of the design -------------------------------------------

  /// Takes `design` (null: one with nothing in it) as the hardware design and
  /// appends a record for each processor that can be debugged to the engine's
  /// list: those on debug modules, then the soft processors that only the
  /// simulator can run, then the ARM processors. Records of earlier calls stay.
  /// Asked again, the same design is in the list twice, but for its
  /// simulator-only processors, which are skipped where a record of their name
  /// is there; `ReleaseProcessorRecords` in between starts anew. The design
  /// must live as long as the engine uses it.
  /// @param design  asked at once and whenever a processor is selected.
  /// @param names  every processor of the design is appended.
  /// @return 0
  int GetProcessorList(HHSMHwManager *design, std::vector<std::string> &names);
  /// The same without the names. @return the engine's state, never null.
  EngineImp *GetProcessorList(HHSMHwManager *design);

  /// Selects a processor of the list and fills its record from a connect
  /// command, starting from the defaults.
  /// @param name  its instance name, compared exactly.
  /// @param info  the processor's summary, also after a refused command.
  /// @param command  the whole connect command.
  /// @return 0; 2 with "Processor Instance ... not Found !!, ..." and nothing
  ///   changed for an unknown name; 3 for a refused command: the processor is
  ///   current with default settings, the reader's message stays.
  /// @throws std::out_of_range (a lone "-"): the processor is current with what
  ///   was read so far, `info` as it was.
  int ParseProcessorInfo(std::string name, ProcessorInfo &info,
                         std::string command);
  /// The same from the processor's option file (see `Generate`).
  /// @return 0; 4 without a file, or a file with nothing in it: the processor
  ///   is current with default settings; 2 with "Processor Instance ... cannot
  ///   be Debugged !!, ...": the processor that was current stays so, with its
  ///   settings; 3 as above.
  int SetProcessor(std::string name, ProcessorInfo &info);
  /// The same from the option file at `path`, wherever the process works.
  /// @param name  its instance name; the file may be named otherwise.
  /// @param info  as above.
  /// @param path  a regular file.
  /// @return as above.
  int SetProcessorFrom(std::string name, ProcessorInfo &info,
                       const std::string &path);
  /// @return the number of a processor of the list (-128 to 127); -1 with
  ///   "Processor Instance ... cannot be debugged!!" for an unknown name.
  int GetProcessorNr(std::string name);

private:
  std::unique_ptr<EngineImp> imp;
  std::string defaultPartName;
};

} // namespace ZelDebugDialog

#endif
