// The hardware design as the debug dialog asks about it.
//
// An abstract class: derive from it to answer the queries from a vendor's
// library, from the design model of this project, or from a test. The engine
// never owns a design and calls it from the thread that called the engine.
// A query appends to `names` in design order, and appends nothing that it
// doesn't know: an unknown instance gives an empty list or an empty string.
#ifndef HHSMHWMANAGER_H
#define HHSMHWMANAGER_H

#include <string>
#include <vector>

/// The kinds of IP that `getIpInstances` selects by.
enum HwIpType : int {
  HW_IP_DEBUG = 5, ///< debug modules and JTAG-to-PowerPC controllers
};

/// What the engine asks of a hardware design. It calls the queries while it
/// discovers and selects processors; whatever they answer is copied.
class HHSMHwManager {
public:
  HHSMHwManager() = default;
  /// Copies nothing: the class has no data.
  HHSMHwManager(const HHSMHwManager &) = default;
  /// Copies nothing: the class has no data.
  HHSMHwManager &operator=(const HHSMHwManager &) = default;
  virtual ~HHSMHwManager() = default;

  /// Instance names of all processors of the design. The engine always passes
  /// `false`.
  virtual void getProcessorInstances(std::vector<std::string> &names,
                                     bool flag) = 0;
  /// Instance names of the IP of one kind.
  virtual void getIpInstances(std::vector<std::string> &names,
                              HwIpType kind) = 0;
  /// Instance names of the IP whose type name is exactly `typeName`.
  virtual void getIpInstances(std::vector<std::string> &names,
                              const std::string &typeName) = 0;
  /// The IP type name of an instance.
  virtual std::string getIpName(const std::string &instance) = 0;
  /// Processors attached to a debug module or controller, in attachment order.
  virtual void getHduConnectedProcessorList(std::vector<std::string> &names,
                                            const std::string &instance) = 0;
  /// Peripherals attached to a processor.
  virtual void getPeripherals(std::vector<std::string> &names,
                              const std::string &processor) = 0;
  /// The value of an instance's parameter, as text.
  virtual std::string getParameterValue(const std::string &instance,
                                        const std::string &parameter) = 0;
};

#endif
